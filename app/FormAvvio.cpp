#include "app/FormAvvio.h"

#include "lang/modLanguageSupport.h"
#include "platform/Caratteri.h"
#include "platform/Colori.h"
#include "platform/Controlli.h"
#include "platform/ModuloColoriSuoni.h"
#include "platform/Twips.h"
#include "platform/clsResize.h"

#include <QIcon>
#include <QMovie>
#include <QToolButton>

namespace {
// The splash at design size, in twips.
constexpr int LarghezzaProgetto = 7455;
constexpr int AltezzaProgetto = 6660;
} // namespace

static void caricaRisorseApp() { Q_INIT_RESOURCE(risorse); }

FormAvvio::FormAvvio() : Form(QStringLiteral("FormAvvio"), LarghezzaProgetto, AltezzaProgetto)
{
    caricaRisorseApp();
    setWindowTitle(QStringLiteral("Coppie vivaci"));
    setWindowIcon(QIcon(QStringLiteral(":/app/coppie-vivaci.svg")));

    const struct {
        GeometriaTwips g;
        QString testo;
        double punti;
    } etichette[2] = {
        {{840, 360, 6255, 4095}, QStringLiteral("Coppie vivaci"), 72},
        {{5760, 5520, 2415, 495}, QStringLiteral("19/03/2005"), 15.75},
    };
    for (int i = 0; i < 2; ++i) {
        auto *l = new Etichetta(etichette[i].testo, this);
        l->setObjectName(QStringLiteral("Label2"));
        ImpostaIndice(l, i);
        l->setFont(FontGioco(QStringLiteral("Comic Sans MS"), etichette[i].punti, true));
        l->setWordWrap(true);
        l->setAlignment(Qt::AlignCenter);
        l->setAccessibleName(etichette[i].testo);
        ScriviGeometria(l, etichette[i].g);
        connect(l, &Etichetta::Click, this, &FormAvvio::VaiAlMenu);
        Label2[i] = l;
    }

    Image1 = new QLabel(this);
    Image1->setObjectName(QStringLiteral("Image1"));
    Image1->setAccessibleName(QStringLiteral("Coppie vivaci"));
    Image1->setScaledContents(true);
    animazione = new QMovie(QStringLiteral(":/app/avvio.gif"), QByteArray(), this);
    Image1->setMovie(animazione);
    ScriviGeometria(Image1, {600, 4920, 1335, 1215});

    Command1 = new QToolButton(this);
    Command1->setObjectName(QStringLiteral("Command1"));
    Command1->setText(QStringLiteral("&Avvio"));
    Command1->setAccessibleName(QStringLiteral("Avvio"));
    Command1->setIcon(QIcon(QStringLiteral(":/app/avvio-pulsante.svg")));
    Command1->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    Command1->setFont(FontGioco(QStringLiteral("Comic Sans MS"), 20, true));
    Command1->setCursor(Qt::PointingHandCursor);
    ScriviGeometria(Command1, {2520, 5040, 3015, 1215});
    connect(Command1, &QToolButton::clicked, this, &FormAvvio::VaiAlMenu);
}

void FormAvvio::Form_Load()
{
    TraduciForm(this);
    CreaResizeCondiviso(this);
    // Each start shows another colour.
    QPalette p = palette();
    p.setColor(QPalette::Window, ColoreDaNumero(ColoreCasuale()));
    setPalette(p);
    setAutoFillBackground(true);
    Command1->setAccessibleName(QString(Command1->text()).remove(u'&'));
}

void FormAvvio::Form_Activate()
{
    CopriSchermo();
    const int lato = qMin(Command1->width(), Command1->height()) * 11 / 20;
    Command1->setIconSize(QSize(lato, lato));
    animazione->start();
}

void FormAvvio::VaiAlMenu()
{
    Schermi::Mostra(QStringLiteral("FormMenu"));
    Schermi::Scarica(this);
}
