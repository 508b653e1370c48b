#include "menu/FormNomi.h"

#include "lang/modLanguageSupport.h"
#include "platform/Colori.h"
#include "platform/Controlli.h"
#include "platform/CursoreGioco.h"
#include "platform/Puntatore.h"
#include "platform/Twips.h"
#include "profiles/Profilo.h"
#include "profiles/StatoProcesso.h"

#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace {
constexpr int LarghezzaProgetto = 7515;
constexpr int AltezzaProgetto = 4680;
constexpr int ColoreSfondoNomi = 0xFFC0FF; // pink, blue-green-red

// With capitals on, every character code from 97 up is lowered by 32 as it is
// typed: small letters become capitals, and so do the codes above them.
class CampoNome final : public QLineEdit
{
public:
    using QLineEdit::QLineEdit;

protected:
    void keyPressEvent(QKeyEvent *e) override
    {
        const QString testo = e->text();
        if (Profilo.Maiuscolo1 && testo.size() == 1 && testo[0].unicode() >= 97 && testo[0].unicode() <= 255) {
            const QString alzato(QChar(char16_t(testo[0].unicode() - 32)));
            QKeyEvent nuovo(e->type(), e->key(), e->modifiers(), alzato, e->isAutoRepeat(), ushort(e->count()));
            QLineEdit::keyPressEvent(&nuovo);
            return;
        }
        QLineEdit::keyPressEvent(e);
    }
};
} // namespace

FormNomi::FormNomi() : Form(QStringLiteral("FormNomi"), LarghezzaProgetto, AltezzaProgetto)
{
    schermoIntero = false;
    setWindowTitle(QStringLiteral("Coppie vivaci"));
    QPalette p = palette();
    p.setColor(QPalette::Window, ColoreDaNumero(ColoreSfondoNomi));
    setPalette(p);
    setAutoFillBackground(true);

    QFont grande(QStringLiteral("Comic Sans MS"));
    grande.setBold(true);
    grande.setPointSize(16);

    Label1 = new QLabel(QStringLiteral("Inserisci i nomi dei giocatori"), this);
    Label1->setObjectName(QStringLiteral("Label1"));
    Label1->setAlignment(Qt::AlignCenter);
    Label1->setFont(grande);
    ScriviGeometria(Label1, {720, 240, 5415, 495});
    Label1->setProperty("TestoDalProgramma", true); // replaced at load by a message text

    const double tops[3] = {840, 1800, 2760};
    for (int i = 0; i < 3; ++i) {
        auto *t = new CampoNome(this);
        t->setObjectName(QStringLiteral("Text1"));
        ImpostaIndice(t, i);
        t->setAccessibleName(QStringLiteral("Giocatore %1").arg(i + 1));
        t->setMaxLength(LunghezzaNome);
        t->setFont(grande);
        ScriviGeometria(t, {1080, tops[i], 4815, 615});
        connect(t, &QLineEdit::textChanged, this, [this] { Command1->setEnabled(true); });
        Text1[i] = t;
    }

    Command1 = new QPushButton(QStringLiteral("Gioca"), this);
    Command1->setObjectName(QStringLiteral("Command1"));
    Command1->setAccessibleName(QStringLiteral("Gioca"));
    Command1->setFont(grande);
    Command1->setEnabled(false);
    Command1->setDefault(true);
    ScriviGeometria(Command1, {4200, 3720, 2895, 855});
    connect(Command1, &QPushButton::clicked, this, &FormNomi::Command1_Click);
}

void FormNomi::Form_Load()
{
    TraduciForm(this);
    Label1->setText(TestoLingua(NumeroGiocatori == 1 ? QStringLiteral("0045") : QStringLiteral("0046")));
    for (QLineEdit *t : Text1) {
        t->clear();
        t->setEnabled(false);
    }
    for (int i = 0; i < NumeroGiocatori && i < 3; ++i)
        Text1[i]->setEnabled(true);
    Command1->setCursor(Profilo.DisabilitaMousePersonalizzato ? QCursor(Qt::ArrowCursor) : CursoreGioco());
    // Centred on the menu, which stands behind it.
    if (Form *menu = Schermi::Riferimento(QStringLiteral("FormMenu"))) {
        QRect r = rect();
        r.moveCenter(menu->geometry().center());
        move(r.topLeft());
    }
}

void FormNomi::Form_Activate()
{
    if (NomiGiocatori[0].toLower() != QLatin1String("_predefinito"))
        Text1[0]->setText(NomiGiocatori[0]);
    Text1[1]->setText(NomiGiocatori[1]);
    Text1[2]->setText(NomiGiocatori[2]);
    if (Profilo.Maiuscolo1) {
        for (QLineEdit *t : Text1)
            t->setText(t->text().toUpper());
        Label1->setText(Label1->text().toUpper());
        Command1->setText(Command1->text().toUpper());
    }
    BloccaMouse();
    for (QLineEdit *t : Text1)
        if (t->isEnabled()) {
            t->setFocus();
            break;
        }
}

void FormNomi::Form_Unload() { SbloccaMouse(); }

void FormNomi::Command1_Click()
{
    ComboUtenteAttiva = false;
    for (int i = 0; i < NumeroGiocatori && i < 3; ++i)
        NomiGiocatori[i] = Text1[i]->text();
    SbloccaMouse();
    Schermi::Scarica(this);
}

void FormNomi::BloccaMouse() { ConfinaPuntatore(QRect(mapToGlobal(QPoint(0, 0)), size())); }

void FormNomi::SbloccaMouse() { LiberaPuntatore(); }
