#include "platform/Schermi.h"

#include "platform/Errori.h"
#include "platform/Twips.h"
#include "platform/clsResize.h"

#include <QCloseEvent>
#include <QHash>
#include <QPointer>

namespace {
struct Voce {
    FabbricaForm fabbrica;
    QPointer<Form> riferimento;
};
QHash<QString, Voce> &registro()
{
    static QHash<QString, Voce> r;
    return r;
}
QPointer<Form> corrente;
QList<QPointer<Form>> ordineCaricamento;
} // namespace

Form::Form(const QString &nome, int larghezzaTwips, int altezzaTwips, QWidget *parent) : QDialog(parent)
{
    setObjectName(nome);
    setAccessibleName(nome);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    resize(PixelDaTwips(larghezzaTwips), PixelDaTwips(altezzaTwips));
}

void Form::Form_Resize()
{
    if (ResizeCondiviso)
        ResizeCondiviso->ResizeControls();
}

void Form::CopriSchermo() { setGeometry(RettangoloSchermo()); }

void Form::resizeEvent(QResizeEvent *e)
{
    QDialog::resizeEvent(e);
    Form_Resize();
}

void Form::closeEvent(QCloseEvent *e)
{
    // A screen is left only through the game's own ways out.
    e->ignore();
}

void Form::reject() {}

namespace Schermi {

void Registra(const QString &nome, FabbricaForm fabbrica) { registro()[nome].fabbrica = std::move(fabbrica); }

Form *Riferimento(const QString &nome)
{
    auto it = registro().find(nome);
    return it == registro().end() ? nullptr : it->riferimento.data();
}

Form *Carica(const QString &nome)
{
    Voce &v = registro()[nome];
    if (!v.riferimento) {
        if (!v.fabbrica)
            ErroreFatale(QStringLiteral("Schermata mancante in questa versione del gioco: ") + nome);
        Form *f = v.fabbrica();
        f->setAttribute(Qt::WA_DeleteOnClose, false);
        if (f->schermoIntero)
            f->setWindowFlag(Qt::FramelessWindowHint, true);
        v.riferimento = f;
        ordineCaricamento << f;
        f->Form_Load();
    }
    return v.riferimento;
}

void Mostra(const QString &nome)
{
    Form *f = Carica(nome);
    corrente = f;
    if (f->schermoIntero)
        f->CopriSchermo();
    f->show();
    f->raise();
    f->activateWindow();
    f->Form_Activate();
}

int MostraModale(const QString &nome)
{
    QPointer<Form> chiamante = corrente;
    Form *f = Carica(nome);
    f->setModal(true);
    if (f->schermoIntero)
        f->CopriSchermo();
    corrente = f;
    QPointer<Form> modale = f;
    QMetaObject::invokeMethod(f, [modale] {
        if (modale)
            modale->Form_Activate();
    }, Qt::QueuedConnection);
    const int esito = f->exec();
    if (modale && modale->isVisible())
        modale->hide();
    corrente = chiamante;
    if (chiamante)
        chiamante->Form_Activate();
    return esito;
}

void Scarica(Form *form)
{
    if (!form)
        return;
    form->Form_Unload();
    for (auto it = registro().begin(); it != registro().end(); ++it)
        if (it->riferimento == form)
            it->riferimento = nullptr;
    ordineCaricamento.removeAll(form);
    if (corrente == form)
        corrente = nullptr;
    if (form->isModal() && form->isVisible())
        form->done(0);
    form->hide();
    form->deleteLater();
}

Form *Corrente() { return corrente; }

QList<Form *> Aperti()
{
    QList<Form *> r;
    for (const auto &f : ordineCaricamento)
        if (f)
            r << f;
    return r;
}

QStringList Nomi()
{
    QStringList r;
    for (auto it = registro().cbegin(); it != registro().cend(); ++it)
        if (it->fabbrica)
            r << it.key();
    r.sort();
    return r;
}

void ScaricaTuttiPerProve()
{
    for (Form *f : Aperti())
        Scarica(f);
}

} // namespace Schermi
