#include "menu/ControlliMenu.h"

#include "lang/TestiAccessibili.h"
#include "platform/Colori.h"

#include <QAccessible>
#include <QEvent>
#include <QMouseEvent>
#include <QVariant>
#include <QWidget>

namespace {
int scritture = 0;

class Filtro final : public QObject
{
public:
    Filtro(QObject *padre, QEvent::Type t, std::function<void()> g) : QObject(padre), tipo(t), gestore(std::move(g)) {}

    bool eventFilter(QObject *o, QEvent *e) override
    {
        if (e->type() != tipo)
            return false;
        auto *w = qobject_cast<QWidget *>(o);
        if (tipo == QEvent::MouseButtonRelease) {
            auto *m = static_cast<QMouseEvent *>(e);
            if (m->button() != Qt::LeftButton || !w || !w->rect().contains(m->position().toPoint()) || !w->isEnabled())
                return false;
        }
        gestore();
        return tipo == QEvent::MouseMove;
    }

private:
    QEvent::Type tipo;
    std::function<void()> gestore;
};

QString foglioStile(const QWidget *w, int colore)
{
    const QColor c = ColoreDaNumero(colore);
    if (qobject_cast<const QPushButton *>(w))
        return QStringLiteral("QPushButton{background-color:%1;border:2px solid #707070;border-radius:8px;}"
                              "QPushButton:disabled{color:#a0a0a0;border-color:#c0c0c0;}")
            .arg(c.name());
    // By its exact class, so that the colour does not pass on to the controls it holds.
    return QStringLiteral(".%1{background-color:%2;}").arg(QLatin1String(w->metaObject()->className()), c.name());
}
} // namespace

int ColoreSfondoDi(const QWidget *w)
{
    const QVariant v = w->property("BackColor");
    return v.isValid() ? v.toInt() : -1;
}

bool ScriviColoreSfondo(QWidget *w, int colore)
{
    if (ColoreSfondoDi(w) == colore)
        return false;
    w->setProperty("BackColor", colore);
    w->setStyleSheet(foglioStile(w, colore));
    ++scritture;
    return true;
}

int ScrittureColore() { return scritture; }

void SuMovimento(QWidget *w, std::function<void()> gestore)
{
    w->setMouseTracking(true);
    w->installEventFilter(new Filtro(w, QEvent::MouseMove, std::move(gestore)));
}

void SuClick(QWidget *w, std::function<void()> gestore)
{
    w->installEventFilter(new Filtro(w, QEvent::MouseButtonRelease, std::move(gestore)));
}

OpzioneGrafica::OpzioneGrafica(const QString &caption, QWidget *parent) : QPushButton(caption, parent)
{
    // Reached by Tab, for a screen reader; a click by the pointer leaves the focus where it was.
    setFocusPolicy(Qt::TabFocus);
    connect(this, &QPushButton::clicked, this, [this] {
        if (!valore)
            ImpostaValore(true);
        else
            emit Click();
    });
}

void OpzioneGrafica::ImpostaValore(bool v)
{
    if (v == valore)
        return;
    valore = v;
    segnalaStato();
    if (!v)
        return;
    for (OpzioneGrafica *altra : gruppo)
        if (altra != this && altra->valore) {
            altra->valore = false;
            altra->segnalaStato();
        }
    emit Click();
}

void OpzioneGrafica::segnalaStato()
{
    QAccessible::State cambiato;
    cambiato.checked = true;
    QAccessibleStateChangeEvent e(this, cambiato);
    SegnalaAccessibile(&e);
}

void ImpostaPunti(QWidget *w, int punti)
{
    QFont f = w->font();
    f.setPointSize(punti);
    w->setFont(f);
}
