#include "menu/FormInfo.h"

#include "lang/modLanguageSupport.h"
#include "menu/ModuloNavigate.h"
#include "platform/Colori.h"
#include "platform/Controlli.h"
#include "platform/CursoreGioco.h"
#include "platform/Percorsi.h"
#include "platform/Twips.h"
#include "platform/clsResize.h"

#include <QIcon>
#include <QLabel>
#include <QPushButton>

static void caricaRisorseMenu() { Q_INIT_RESOURCE(menu); }

namespace {
constexpr int LarghezzaProgetto = 8745;
constexpr int AltezzaProgetto = 6510;
constexpr int ColoreSfondoInfo = 0xC0FFFF; // pale yellow, as the menu

QLabel *nuovoBlocco(const QString &nome, QWidget *padre, const GeometriaTwips &g, int colore)
{
    auto *l = new QLabel(padre);
    l->setObjectName(nome);
    l->setWordWrap(true);
    l->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    l->setMargin(6);
    l->setProperty("TestoDalProgramma", true); // built at activation
    QFont f(QStringLiteral("Arial"));
    f.setPointSize(15);
    l->setFont(f);
    l->setAutoFillBackground(true);
    QPalette p = l->palette();
    p.setColor(QPalette::Window, ColoreDaNumero(colore));
    l->setPalette(p);
    ScriviGeometria(l, g);
    return l;
}
} // namespace

FormInfo::FormInfo() : Form(QStringLiteral("FormInfo"), LarghezzaProgetto, AltezzaProgetto)
{
    caricaRisorseMenu();
    setWindowTitle(QStringLiteral("Coppie vivaci"));
    QPalette p = palette();
    p.setColor(QPalette::Window, ColoreDaNumero(ColoreSfondoInfo));
    setPalette(p);
    setAutoFillBackground(true);

    Image1 = new Etichetta(this);
    Image1->setObjectName(QStringLiteral("Image1"));
    Image1->setAccessibleName(QStringLiteral("Coppie vivaci"));
    Image1->setScaledContents(true);
    Image1->setPixmap(QIcon(QStringLiteral(":/menu/logo.svg")).pixmap(420, 164));
    ScriviGeometria(Image1, {240, 120, 1575, 615});
    connect(Image1, &Etichetta::Click, this, &FormInfo::Image1_Click);

    Label1 = nuovoBlocco(QStringLiteral("Label1"), this, {240, 960, 4215, 2895}, ColoreSfondoInfo);
    Label3 = nuovoBlocco(QStringLiteral("Label3"), this, {240, 4320, 4695, 2055}, 0xFFFFFF);
    Label4 = nuovoBlocco(QStringLiteral("Label4"), this, {5160, 960, 3375, 2775}, ColoreSfondoInfo);

    Command1 = new QPushButton(QStringLiteral("Chiudi"), this);
    Command1->setObjectName(QStringLiteral("Command1"));
    Command1->setAccessibleName(QStringLiteral("Chiudi"));
    QFont f(QStringLiteral("Comic Sans MS"));
    f.setBold(true);
    f.setPointSize(22);
    Command1->setFont(f);
    ScriviGeometria(Command1, {5520, 5040, 2655, 975});
    connect(Command1, &QPushButton::clicked, this, &FormInfo::Command1_Click);
}

void FormInfo::Form_Load()
{
    TraduciForm(this);
    CreaResizeCondiviso(this);
    Image1->setCursor(CursoreGioco());
    Image1->setAccessibleName(Image1->toolTip().isEmpty() ? QStringLiteral("Coppie vivaci") : Image1->toolTip());
}

void FormInfo::Form_Activate()
{
    CopriSchermo();

    QString crediti = TestoLingua(QStringLiteral("0023")) + u'\n';
    for (const QString &riga : RigheCrediti)
        crediti += riga + u'\n';
    Label1->setText(crediti);

    Label3->setText(CondizioniUso.join(u'\n'));

    QString traduttori;
    for (const char *chiave : {"9996", "9997", "9998", "9999"}) {
        const QString testo = TestoLingua(QLatin1String(chiave));
        if (!testo.isEmpty())
            traduttori += testo + u'\n';
    }
    Label4->setText(traduttori);
}

void FormInfo::Command1_Click()
{
    Schermi::Mostra(QStringLiteral("FormMenu"));
    Schermi::Scarica(this);
}

void FormInfo::Image1_Click() { ApriDocumento(this, CartellaProgramma() + QStringLiteral("\\documento.pdf")); }
