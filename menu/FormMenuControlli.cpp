#include "menu/FormMenu.h"

#include "menu/ControlliMenu.h"
#include "menu/SceltaMemory.h"
#include "platform/Colori.h"
#include "platform/Controlli.h"
#include "platform/Twips.h"

#include <QAction>
#include <QComboBox>
#include <QFrame>
#include <QGroupBox>
#include <QIcon>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QResizeEvent>
#include <QTimer>

static void caricaRisorseMenu() { Q_INIT_RESOURCE(menu); }

namespace {
// The menu's client area at design size, in twips.
constexpr int LarghezzaProgetto = 8805;
constexpr int AltezzaProgetto = 5655;

QFont fontDi(const QString &famiglia, double punti, bool grassetto)
{
    QFont f(famiglia);
    f.setPointSizeF(punti);
    f.setBold(grassetto);
    return f;
}

// A picture box of a large button: the button's colour, and the picture drawn on it.
QLabel *nuovaFigura(const QString &nome, QWidget *padre, const GeometriaTwips &g)
{
    auto *l = new QLabel(padre);
    l->setObjectName(nome);
    ScriviGeometria(l, g);
    return l;
}

QLabel *nuovaImmagine(const QString &nome, const QString &risorsa, const QString &accessibile, QWidget *padre,
                      const GeometriaTwips &g)
{
    auto *l = new QLabel(padre);
    l->setObjectName(nome);
    l->setAccessibleName(accessibile);
    l->setScaledContents(true);
    l->setPixmap(QIcon(risorsa).pixmap(256, 256));
    l->setAttribute(Qt::WA_TranslucentBackground);
    ScriviGeometria(l, g);
    return l;
}

Etichetta *nuovaEtichetta(const QString &nome, const QString &caption, QWidget *padre, const GeometriaTwips &g)
{
    auto *l = new Etichetta(caption, padre);
    l->setObjectName(nome);
    l->setAccessibleName(caption);
    l->setAlignment(Qt::AlignCenter);
    l->setFont(fontDi(QStringLiteral("Comic Sans MS"), 12, true));
    ScriviGeometria(l, g);
    return l;
}
} // namespace

FormMenu::FormMenu() : Form(QStringLiteral("FormMenu"), LarghezzaProgetto, AltezzaProgetto)
{
    caricaRisorseMenu();
    setWindowTitle(QStringLiteral("Coppie vivaci"));
    QPalette p = palette();
    p.setColor(QPalette::Window, ColoreDaNumero(ColoreSfondoMenu));
    setPalette(p);
    setAutoFillBackground(true);

    BarraMenu = new QMenuBar(this);
    area = new QWidget(this);
    area->setGeometry(0, 0, PixelDaTwips(LarghezzaProgetto), PixelDaTwips(AltezzaProgetto));
    creaControlli();
    creaMenu();
    // The menu bar stands above the design's client area, as it did outside it.
    resize(PixelDaTwips(LarghezzaProgetto), PixelDaTwips(AltezzaProgetto) + BarraMenu->sizeHint().height());
}

void FormMenu::resizeEvent(QResizeEvent *e)
{
    const int alta = BarraMenu->sizeHint().height();
    BarraMenu->setGeometry(0, 0, width(), alta);
    area->setGeometry(0, alta, width(), qMax(0, height() - alta));
    Form::resizeEvent(e);
    // A drop-down list keeps the height of its font, whatever the resizer sets.
    Combo1->resize(Combo1->width(), qMax(Combo1->height(), Combo1->sizeHint().height()));
}

void FormMenu::creaControlli()
{
    SuMovimento(area, [this] { Form_MouseMove(); });

    const struct {
        QGroupBox **frame;
        const char *nome;
        const char *caption;
        GeometriaTwips g;
    } cornici[] = {
        {&Frame1, "Frame1", "Memory con ...", {120, 120, 4095, 1815}},
        {&Frame2, "Frame2", "Tessere", {120, 2040, 4095, 2175}},
        {&Frame3, "Frame3", "Giocatori", {120, 4320, 4095, 1095}},
    };
    for (const auto &c : cornici) {
        auto *f = new QGroupBox(QString::fromUtf8(c.caption), area);
        f->setObjectName(QLatin1String(c.nome));
        f->setFont(fontDi(QStringLiteral("Arial"), 10, true));
        ScriviGeometria(f, c.g);
        *c.frame = f;
    }
    SuMovimento(Frame1, [this] { Frame_MouseMove(Option1); });
    SuMovimento(Frame2, [this] { Frame_MouseMove(Option2); });
    SuMovimento(Frame3, [this] { Frame_MouseMove(Option3); });

    auto nuovaOpzione = [this](std::map<int, OpzioneGrafica *> &gruppo, QGroupBox *frame, int indice,
                               const QString &caption, const GeometriaTwips &g) {
        auto *o = new OpzioneGrafica(caption, frame);
        o->setObjectName(frame == Frame1 ? QStringLiteral("Option1")
                         : frame == Frame2 ? QStringLiteral("Option2")
                                           : QStringLiteral("Option3"));
        ImpostaIndice(o, indice);
        o->setAccessibleName(caption);
        o->setFont(fontDi(QStringLiteral("Arial"), 12, true));
        ScriviGeometria(o, g);
        ScriviColoreSfondo(o, ColoreOpzione);
        gruppo[indice] = o;
        SuMovimento(o, [this, &gruppo, indice] { Option_MouseMove(gruppo, indice); });
    };
    nuovaOpzione(Option1, Frame1, 2, QStringLiteral("immagini - immagini"), {120, 360, 3500, 375});
    nuovaOpzione(Option1, Frame1, 1, QStringLiteral("parole - immagini"), {120, 840, 3500, 375});
    nuovaOpzione(Option1, Frame1, 0, QStringLiteral("parole - parole"), {120, 1320, 3500, 375});
    const int lefts[3] = {240, 1680, 3000};
    const int tops[3] = {480, 960, 1440};
    for (int i = 0; i < 7; ++i) {
        const int n = ValoriTessere[i];
        const GeometriaTwips g = i < 6 ? GeometriaTwips{double(lefts[i / 3]), double(tops[i % 3]), 800, 350}
                                       : GeometriaTwips{3000, 480, 800, 350};
        nuovaOpzione(Option2, Frame2, n, QString::number(n), g);
    }
    for (int i = 0; i < 3; ++i)
        nuovaOpzione(Option3, Frame3, i, QString::number(i + 1), {double(lefts[i]), 360, 750, 350});
    for (auto *gruppo : {&Option1, &Option2, &Option3}) {
        QList<OpzioneGrafica *> membri;
        for (auto &[indice, o] : *gruppo)
            membri << o;
        for (auto &[indice, o] : *gruppo)
            o->gruppo = membri;
    }
    for (auto &[indice, o] : Option1)
        connect(o, &OpzioneGrafica::Click, this, [this, i = indice] { Option1_Click(i); });
    for (auto &[indice, o] : Option2)
        connect(o, &OpzioneGrafica::Click, this, [this, i = indice] { Option2_Click(i); });
    for (auto &[indice, o] : Option3)
        connect(o, &OpzioneGrafica::Click, this, [this, i = indice] { Option3_Click(i); });

    List2 = new QListWidget(area);
    List2->setObjectName(QStringLiteral("List2"));
    List2->setAccessibleName(QStringLiteral("Memory"));
    List2->setFont(fontDi(QStringLiteral("Arial"), 16, true));
    ScriviGeometria(List2, {4800, 240, 3735, 1050});
    // The old list told a click when its selected line changed, by hand or by code.
    connect(List2, &QListWidget::itemSelectionChanged, this, [this] {
        if (!List2->selectedItems().isEmpty())
            List2_Click();
    });

    Combo1 = new QComboBox(area);
    Combo1->setObjectName(QStringLiteral("Combo1"));
    Combo1->setAccessibleName(QStringLiteral("Giocatore"));
    Combo1->setFont(fontDi(QStringLiteral("Arial"), 14, false));
    ScriviGeometria(Combo1, {4800, 2760, 3495, 330});
    connect(Combo1, &QComboBox::activated, this, [this] { Combo1_Click(); });

    const struct {
        int indice;
        double top;
        const char *suffisso;
        const char *caption;
        const char *risorsa;
    } grandi[] = {
        {0, 1440, "Gioca", "Gioca", ":/menu/gioca.svg"},
        {1, 4320, "Esci", "Esci", ":/menu/esci.svg"},
    };
    for (const auto &b : grandi) {
        auto *c = new QPushButton(area);
        c->setObjectName(QStringLiteral("Command1"));
        ImpostaIndice(c, b.indice);
        c->setAccessibleName(QLatin1String(b.caption));
        ScriviGeometria(c, {4800, b.top, 3500, 1095});
        Command1[b.indice] = c;
        const QString suffisso = QLatin1String(b.suffisso);
        QLabel *figura = nuovaFigura(QStringLiteral("Picture") + suffisso, area, {4920, b.top + 60, 975, 975});
        figura->setAccessibleName(QLatin1String(b.caption));
        QLabel *immagine = nuovaImmagine(QStringLiteral("Image") + suffisso, QLatin1String(b.risorsa),
                                         QLatin1String(b.caption), area, {4980, b.top + 120, 855, 855});
        Etichetta *etichetta = nuovaEtichetta(QStringLiteral("Label") + suffisso, QLatin1String(b.caption), area,
                                              {6000, b.top + 60, 2200, 975});
        if (b.indice == 0) {
            PictureGioca = figura;
            ImageGioca = immagine;
            LabelGioca = etichetta;
        } else {
            PictureEsci = figura;
            ImageEsci = immagine;
            LabelEsci = etichetta;
        }
        const int i = b.indice;
        connect(c, &QPushButton::clicked, this, [this, i] { Command1_Click(i); });
        for (QWidget *w : std::initializer_list<QWidget *>{c, figura, immagine, etichetta}) {
            SuMovimento(w, [this, i] { Command1_MouseMove(i); });
            if (w != c)
                SuClick(w, [this, i] { Command1_Click(i); });
        }
    }

    creaFinestraUscita(area);

    LabelDimensionaFont = new QLabel(QStringLiteral("dimensiona font "), area);
    LabelDimensionaFont->setObjectName(QStringLiteral("LabelDimensionaFont"));
    LabelDimensionaFont->setFont(fontDi(QStringLiteral("Arial"), 12, false));
    ScriviGeometria(LabelDimensionaFont, {360, 120, 2085, 330});
    LabelDimensionaFont->hide();
    // Texts the program writes itself: the language files have no keys for them.
    for (QObject *o : std::initializer_list<QObject *>{LabelDimensionaFont, LabelSi, LabelNo})
        o->setProperty("TestoDalProgramma", true);

    Timer1 = new QTimer(this);
    Timer1->setObjectName(QStringLiteral("Timer1"));
    Timer1->setInterval(50);
    connect(Timer1, &QTimer::timeout, this, &FormMenu::Timer1_Timer);
}

void FormMenu::creaFinestraUscita(QWidget *padre)
{
    FrameUscita = new QFrame(padre);
    FrameUscita->setObjectName(QStringLiteral("FrameUscita"));
    FrameUscita->setFrameShape(QFrame::Box);
    ScriviGeometria(FrameUscita, {720, 1800, 5655, 2775});
    ScriviColoreSfondo(FrameUscita, ColoreSfondoMenu);
    SuMovimento(FrameUscita, [this] { FrameUscita_MouseMove(); });

    const struct {
        bool si;
        double left;
        const char *caption;
        const char *risorsa;
    } pulsanti[] = {
        {true, 360, "SÌ", ":/menu/si.svg"},
        {false, 2955, "NO", ":/menu/no.svg"},
    };
    for (const auto &b : pulsanti) {
        const QString suffisso = b.si ? QStringLiteral("Si") : QStringLiteral("No");
        const QString caption = QString::fromUtf8(b.caption);
        auto *c = new QPushButton(FrameUscita);
        c->setObjectName(QStringLiteral("Command") + suffisso);
        c->setAccessibleName(caption);
        ScriviGeometria(c, {b.left, 960, 2340, 1455});
        QLabel *figura = nuovaFigura(QStringLiteral("Picture") + suffisso, FrameUscita, {b.left + 120, 1200, 975, 975});
        figura->setAccessibleName(caption);
        QLabel *immagine = nuovaImmagine(QStringLiteral("Image") + suffisso, QLatin1String(b.risorsa), caption,
                                         FrameUscita, {b.left + 180, 1260, 855, 855});
        Etichetta *etichetta = nuovaEtichetta(QStringLiteral("Label") + suffisso, caption, FrameUscita,
                                              {b.left + 1155, 1200, 1095, 975});
        etichetta->setFont(fontDi(QStringLiteral("Arial"), 12, true));
        (b.si ? CommandSi : CommandNo) = c;
        (b.si ? PictureSi : PictureNo) = figura;
        (b.si ? ImageSi : ImageNo) = immagine;
        (b.si ? LabelSi : LabelNo) = etichetta;
        const bool si = b.si;
        connect(c, &QPushButton::clicked, this, [this, si] { si ? CommandSi_Click() : CommandNo_Click(); });
        for (QWidget *w : std::initializer_list<QWidget *>{c, figura, immagine, etichetta}) {
            SuMovimento(w, [this, si] { CommandSiNo_MouseMove(si); });
            if (w != c)
                SuClick(w, [this, si] { si ? CommandSi_Click() : CommandNo_Click(); });
        }
    }
    FrameUscita->hide();
}

void FormMenu::creaMenu()
{
    mnuCrea = BarraMenu->addMenu(QStringLiteral("Crea Memory"));
    mnuCrea->setObjectName(QStringLiteral("mnuCrea"));
    const struct {
        QAction **azione;
        const char *nome;
        const char *caption;
        const char *schermo;
    } editori[] = {
        {&mnugg, "mnugg", "gif - gif", "Formgg"},
        {&mnuSS, "mnuSS", "swf - swf", "FormSS"},
        {&mnuPG, "mnuPG", "parole - gif", "Formpg"},
        {&mnuPS, "mnuPS", "parole - swf", "FormPS"},
    };
    for (const auto &e : editori) {
        QAction *a = mnuCrea->addAction(QLatin1String(e.caption));
        a->setObjectName(QLatin1String(e.nome));
        const QString schermo = QLatin1String(e.schermo);
        connect(a, &QAction::triggered, this, [this, schermo] { mostraSchermoEScarica(schermo); });
        *e.azione = a;
    }
    mnuConfigurazioni = BarraMenu->addAction(QStringLiteral("Configurazioni"));
    mnuConfigurazioni->setObjectName(QStringLiteral("mnuConfigurazioni"));
    connect(mnuConfigurazioni, &QAction::triggered, this,
            [this] { mostraSchermoEScarica(QStringLiteral("FormConfigura")); });

    mnuInformazioni = BarraMenu->addMenu(QStringLiteral("Informazioni"));
    mnuInformazioni->setObjectName(QStringLiteral("mnuInformazioni"));
    mnuDocumentazione = mnuInformazioni->addAction(QStringLiteral("documentazione"));
    mnuDocumentazione->setObjectName(QStringLiteral("mnuDocumentazione"));
    connect(mnuDocumentazione, &QAction::triggered, this, &FormMenu::mnuDocumentazione_Click);
    mnuAbout = mnuInformazioni->addAction(QStringLiteral("about"));
    mnuAbout->setObjectName(QStringLiteral("mnuAbout"));
    connect(mnuAbout, &QAction::triggered, this, &FormMenu::mnuAbout_Click);

    mnuLanguages = BarraMenu->addMenu(QStringLiteral("Lingua"));
    mnuLanguages->setObjectName(QStringLiteral("mnuLanguages"));
    QAction *primo = mnuLanguages->addAction(QString());
    primo->setObjectName(QStringLiteral("mnuLanguage"));
    ImpostaIndice(primo, 0);
    primo->setCheckable(true);
    primo->setProperty("TestoDalProgramma", true);
    connect(primo, &QAction::triggered, this, [this] { mnuLanguage_Click(0); });
    mnuLanguage << primo;
}
