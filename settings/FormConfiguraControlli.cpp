#include "settings/FormConfigura.h"

#include "settings/ControlliProgetto.h"

#include "platform/Caratteri.h"
#include "platform/Controlli.h"
#include "platform/ControlliACapo.h"
#include "platform/Twips.h"
#include "platform/clsResize.h"
#include "settings/RegoleConfigura.h"

#include <QAction>
#include <QFrame>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QPushButton>
#include <QResizeEvent>
#include <QScrollBar>
#include <QTabWidget>

#include <algorithm>

namespace {
// The client area at design size, in twips, below the menu bar.
constexpr int LarghezzaProgetto = 11175;
constexpr int AltezzaProgetto = 9300;

// The word samples take the player's own fonts; the rest the design's.
using ControlliProgetto::PuntiControlli;

QPushButton *pulsante(const QString &nome, const char *caption, QWidget *padre, const GeometriaTwips &g)
{
    auto *b = ControlliProgetto::Nominato(new PulsanteACapo(QString::fromUtf8(caption), padre), nome, g);
    b->setAccessibleName(b->text());
    // Enter in the name box must not press a colour button.
    b->setAutoDefault(false);
    return b;
}

QFrame *cornice(const QString &nome, QWidget *padre, const GeometriaTwips &g)
{
    auto *f = ControlliProgetto::Nominato(new QFrame(padre), nome, g);
    f->setFrameStyle(QFrame::Panel | QFrame::Raised);
    f->setAutoFillBackground(true);
    return f;
}

// A picture box: a sunken rectangle that shows its background colour.
QFrame *figura(const QString &nome, QWidget *padre, const GeometriaTwips &g, int indice = -1)
{
    auto *f = ControlliProgetto::Nominato(new QFrame(padre), nome, g, indice);
    f->setFrameStyle(QFrame::Panel | QFrame::Sunken);
    f->setLineWidth(1);
    f->setAutoFillBackground(true);
    return f;
}

QScrollBar *barra(const QString &nome, QWidget *padre, const GeometriaTwips &g, int minimo, int massimo)
{
    auto *s = ControlliProgetto::Nominato(new QScrollBar(Qt::Horizontal, padre), nome, g);
    s->setRange(minimo, massimo);
    s->setSingleStep(1);
    s->setPageStep(4);
    s->setFocusPolicy(Qt::StrongFocus);
    // A setting's bar, not a view's: the right arrow and the wheel forward make it larger.
    s->setInvertedControls(false);
    return s;
}
} // namespace

FormConfigura::FormConfigura() : Form(QStringLiteral("FormConfigura"), LarghezzaProgetto, AltezzaProgetto)
{
    setWindowTitle(QStringLiteral("Configurazioni"));

    BarraMenu = new QMenuBar(this);
    mnuEsci = BarraMenu->addAction(QStringLiteral("&Esci"));
    mnuEsci->setObjectName(QStringLiteral("mnuEsci"));
    connect(mnuEsci, &QAction::triggered, this, &FormConfigura::mnuEsci_Click);

    area = new QWidget(this);
    area->setGeometry(0, 0, PixelDaTwips(LarghezzaProgetto), PixelDaTwips(AltezzaProgetto));

    Label4 = ControlliProgetto::Nominato(new QLabel(area), QStringLiteral("Label4"), {960, 360, 7695, 615});
    ControlliProgetto::FontProgetto(Label4, 20, true);
    Label4->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    Label4->setProperty("TestoDalProgramma", true); // the player's name

    TabStrip1 = ControlliProgetto::Nominato(new QTabWidget(area), QStringLiteral("TabStrip1"), {600, 1080, 9975, 7575});
    ControlliProgetto::FontProgetto(TabStrip1, 11, true);
    for (const char *scheda : {"Giocatori", "Colori e suoni", "Modalità di input"})
        TabStrip1->addTab(new QWidget, QString::fromUtf8(scheda));
    connect(TabStrip1, &QTabWidget::currentChanged, this, [this] { TabStrip1_Click(); });

    FrameUtente = cornice(QStringLiteral("FrameUtente"), area, {720, 1680, 9375, 6735});
    FrameParole = cornice(QStringLiteral("FrameParole"), area, {720, 1560, 9735, 6975});
    FramePunt = cornice(QStringLiteral("FramePunt"), area, {720, 1680, 9495, 6735});
    creaUtente();
    creaParole();
    creaPunt();

    // Tools of the code, never seen.
    LabelDimensionaFont = new QLabel(QStringLiteral("dimensiona font "), area);
    LabelDimensionaFont->setObjectName(QStringLiteral("LabelDimensionaFont"));
    LabelDimensionaFont->setProperty("TestoDalProgramma", true);
    QFont misura = LabelDimensionaFont->font();
    misura.setPointSizeF(14.25);
    LabelDimensionaFont->setFont(misura);
    LabelDimensionaFont->hide();
    LabelPerColore = new QLabel(area);
    LabelPerColore->setObjectName(QStringLiteral("LabelPerColore"));
    LabelPerColore->hide();

    // The menu bar stands above the design's client area, as it did outside it.
    resize(PixelDaTwips(LarghezzaProgetto), PixelDaTwips(AltezzaProgetto) + BarraMenu->sizeHint().height());
}

void FormConfigura::resizeEvent(QResizeEvent *e)
{
    const int alta = BarraMenu->sizeHint().height();
    BarraMenu->setGeometry(0, 0, width(), alta);
    area->setGeometry(0, alta, width(), qMax(0, height() - alta));
    Form::resizeEvent(e);
    // The resizer scales places and sizes only: the captions grow by the
    // smaller of the two ratios, so a text that fits at design size still
    // fits, and a large screen is not left with small print.
    const double scala = std::min(area->width() / (LarghezzaProgetto / double(TwipsPerPixel)),
                                  area->height() / (AltezzaProgetto / double(TwipsPerPixel)));
    if (scala <= 0)
        return;
    ControlliProgetto::ScalaFontProgetto(this, scala);
}

void FormConfigura::creaUtente()
{
    const char *caption[3] = {"Giocatore predefinito", "Modifica giocatore ", "Nuovo giocatore "};
    for (int i = 0; i < 3; ++i) {
        auto *o = ControlliProgetto::Nominato(new OpzioneACapo(QString::fromUtf8(caption[i]), FrameUtente), QStringLiteral("OptionUtente"),
                           {600, double(1320 + 960 * i), 3735, 495}, i);
        o->setAutoFillBackground(true);
        connect(o, &QAbstractButton::clicked, this, [this, i] { OptionUtente_Click(i); });
        OptionUtente[size_t(i)] = o;
    }
    ListModificaUtente = ControlliProgetto::Nominato(new ElencoRigheIntere(FrameUtente), QStringLiteral("ListModificaUtente"),
                                  {4560, 2280, 3135, 390});
    ListModificaUtente->hide();
    // Only a choice by the person: the focus coming in picks nothing.
    connect(ListModificaUtente, &QListWidget::itemSelectionChanged, this, [this] {
        if (!ListModificaUtente->selectedItems().isEmpty())
            ListModificaUtente_Click();
    });
    TextNuovoUtente = ControlliProgetto::Nominato(new QLineEdit(FrameUtente), QStringLiteral("TextNuovoUtente"), {4560, 3240, 3135, 495});
    TextNuovoUtente->hide();
    connect(TextNuovoUtente, &QLineEdit::textChanged, this, [this] { TextNuovoUtente_Change(); });
}

void FormConfigura::creaParole()
{
    struct Controlli {
        QLabel **etichetta;
        QPushButton **sfondo, **font, **colore;
        std::array<OpzioneACapo *, 2> *maiuscolo;
        QLabel **suggerimento;
    } parole[2] = {
        {&LabelFontSelezionato1, &CommandSceltaSfondoTesto1, &CommandSceltaFont1, &CommandSceltaColoreFont1,
         &optMaiuscolo1, &Label1},
        {&LabelFontSelezionato2, &CommandSceltaSfondoTesto2, &CommandSceltaFont2, &CommandSceltaColoreFont2,
         &optMaiuscolo2, &Label2},
    };
    const char *titoli[2] = {"Prima parola", "Seconda parola"};
    for (int i = 0; i < 2; ++i) {
        const QString cifra = QString::number(i + 1);
        auto *f = ControlliProgetto::Nominato(new QGroupBox(QString::fromUtf8(titoli[i]), FrameParole), QStringLiteral("Frame1"),
                           {i == 0 ? 120.0 : 4920.0, 240, 4575, 5175}, i);
        ControlliProgetto::FontProgetto(f, PuntiControlli, true);
        f->setAutoFillBackground(true);
        Frame1[size_t(i)] = f;

        PictureSfondoParola[size_t(i)] = figura(QStringLiteral("PictureSfondoParola"), f, {240, 480, 1935, 1935}, i);
        auto *etichetta = new QLabel(QString::fromUtf8(titoli[i]), PictureSfondoParola[size_t(i)]);
        etichetta->setObjectName(QStringLiteral("LabelFontSelezionato") + cifra);
        // Sized to its text and centred by the code, not by the resizer.
        ImpostaTag(etichetta, QStringLiteral("@"));
        etichetta->setFont(FontGioco(QStringLiteral("Arial"), 14.25));
        *parole[i].etichetta = etichetta;

        const char *pulsanti[3] = {"Sfondo testo", "Font", "Colore font"};
        QPushButton **destinazioni[3] = {parole[i].sfondo, parole[i].font, parole[i].colore};
        const char *nomi[3] = {"CommandSceltaSfondoTesto", "CommandSceltaFont", "CommandSceltaColoreFont"};
        for (int k = 0; k < 3; ++k)
            *destinazioni[k] = pulsante(QLatin1String(nomi[k]) + cifra, pulsanti[k], f,
                                        {2400, double(480 + 690 * k), 1935, 555});

        const char *casi[2] = {"MAIUSCOLO", "invariato"};
        for (int k = 0; k < 2; ++k) {
            auto *o = ControlliProgetto::Nominato(new OpzioneACapo(QString::fromUtf8(casi[k]), f), QStringLiteral("optMaiuscolo") + cifra,
                               {k == 0 ? 240.0 : 2400.0, 2640, 1935, 495}, k);
            o->setAutoFillBackground(true);
            connect(o, &QAbstractButton::clicked, this,
                    [this, i, k] { i == 0 ? optMaiuscolo1_Click(k) : optMaiuscolo2_Click(k); });
            (*parole[i].maiuscolo)[size_t(k)] = o;
        }

        auto *s = ControlliProgetto::Nominato(new QLabel(QStringLiteral("Per il corsivo selezionare \"Ecolier_court\""), f),
                           QStringLiteral("Label") + cifra, {240, 3360, 4095, 1455});
        s->setWordWrap(true);
        s->setAlignment(Qt::AlignLeft | Qt::AlignTop);
        s->setAutoFillBackground(true);
        *parole[i].suggerimento = s;
    }
    connect(CommandSceltaSfondoTesto1, &QPushButton::clicked, this, &FormConfigura::CommandSceltaSfondoTesto1_Click);
    connect(CommandSceltaSfondoTesto2, &QPushButton::clicked, this, &FormConfigura::CommandSceltaSfondoTesto2_Click);
    connect(CommandSceltaFont1, &QPushButton::clicked, this, &FormConfigura::CommandSceltaFont1_Click);
    connect(CommandSceltaFont2, &QPushButton::clicked, this, &FormConfigura::CommandSceltaFont2_Click);
    connect(CommandSceltaColoreFont1, &QPushButton::clicked, this, &FormConfigura::CommandSceltaColoreFont1_Click);
    connect(CommandSceltaColoreFont2, &QPushButton::clicked, this, &FormConfigura::CommandSceltaColoreFont2_Click);

    PicturePosto = figura(QStringLiteral("PicturePosto"), FrameParole, {480, 5520, 1335, 1215});
    CommandSceltaColoreTessere =
        pulsante(QStringLiteral("CommandSceltaColoreTessere"), "Tessere", FrameParole, {2040, 5820, 1935, 615});
    connect(CommandSceltaColoreTessere, &QPushButton::clicked, this, &FormConfigura::CommandSceltaColoreTessere_Click);
    Command1 = pulsante(QStringLiteral("Command1"), "Sfondo", FrameParole, {4200, 5820, 1935, 615});
    connect(Command1, &QPushButton::clicked, this, &FormConfigura::Command1_Click);
    CheckSuoni = ControlliProgetto::Nominato(new CasellaACapo(QStringLiteral("Attiva suoni"), FrameParole), QStringLiteral("CheckSuoni"),
                          {6600, 5820, 2775, 615});
    CheckSuoni->setAutoFillBackground(true);
    connect(CheckSuoni, &QAbstractButton::clicked, this, &FormConfigura::CheckSuoni_Click);
}

void FormConfigura::creaPunt()
{
    const char *modi[4] = {"Mouse", "Scansione manuale - spazio e invio ", "Scansione automatica - spazio", "Tastiera"};
    for (int i = 0; i < 4; ++i) {
        auto *o = ControlliProgetto::Nominato(new OpzioneACapo(QString::fromUtf8(modi[i]), FramePunt), QStringLiteral("Option4"),
                           {240, double(720 + 720 * i), 3855, 615}, i);
        o->setAutoFillBackground(true);
        connect(o, &QAbstractButton::clicked, this, [this, i] { Option4_Click(i); });
        Option4[size_t(i)] = o;
    }
    CheckDisabilitaMousePersonalizzato =
        ControlliProgetto::Nominato(new CasellaACapo(QStringLiteral("Usa mouse di sistema"), FramePunt),
                 QStringLiteral("CheckDisabilitaMousePersonalizzato"), {4320, 720, 3975, 615});
    CheckRiparti = ControlliProgetto::Nominato(new CasellaACapo(QStringLiteral("Riparti dall'inizio dopo la selezione"), FramePunt),
                            QStringLiteral("CheckRiparti"), {6480, 2280, 2775, 1215});
    HScroll3 = barra(QStringLiteral("HScroll3"), FramePunt, {5280, 3600, 3975, 375}, VelocitaMinima, VelocitaMassima);
    Label7 = ControlliProgetto::Nominato(new QLabel(QStringLiteral("Label7"), FramePunt), QStringLiteral("Label7"), {5400, 3960, 3975, 375});
    Label7->setProperty("TestoDalProgramma", true); // the speed, in words
    CheckRiquadro = ControlliProgetto::Nominato(new CasellaACapo(QStringLiteral("Usa riquadro"), FramePunt), QStringLiteral("CheckRiquadro"),
                             {2640, 4800, 1935, 855});
    HScrollRiquadro = barra(QStringLiteral("HScrollRiquadro"), FramePunt, {4920, 6360, 1335, 255}, SpessoreMinimo,
                            SpessoreMassimo);
    HScrollRiquadro->setPageStep(3);
    ShapeRiquadro = new FormaRettangolo(FramePunt);
    ShapeRiquadro->setObjectName(QStringLiteral("ShapeRiquadro"));
    ScriviGeometria(ShapeRiquadro, {4920, 4680, 1335, 1215});
    ShapeRiquadro->show();
    CommandScansione =
        pulsante(QStringLiteral("CommandScansione"), "Colore Tessere evidenziate", FramePunt, {240, 4680, 2055, 1095});
    // In the free corner right of the frame sample, clear of every designed
    // control, level with the highlight colour's button.
    CommandAccesso = pulsante(QStringLiteral("CommandAccesso"), "Accesso con sensori", FramePunt, {6600, 4680, 2655, 1095});

    for (CasellaACapo *c : {CheckDisabilitaMousePersonalizzato, CheckRiparti, CheckRiquadro})
        c->setAutoFillBackground(true);
    connect(CheckDisabilitaMousePersonalizzato, &QAbstractButton::clicked, this,
            &FormConfigura::CheckDisabilitaMousePersonalizzato_Click);
    connect(CheckRiparti, &QAbstractButton::clicked, this, &FormConfigura::CheckRiparti_Click);
    connect(CheckRiquadro, &QAbstractButton::clicked, this, &FormConfigura::CheckRiquadro_Click);
    connect(HScroll3, &QScrollBar::valueChanged, this, &FormConfigura::HScroll3_Change);
    connect(HScrollRiquadro, &QScrollBar::valueChanged, this, &FormConfigura::HScrollRiquadro_Change);
    connect(CommandScansione, &QPushButton::clicked, this, &FormConfigura::CommandScansione_Click);
    connect(CommandAccesso, &QPushButton::clicked, this, &FormConfigura::CommandAccesso_Click);
}
