#include "menu/FormMenu.h"

#include "lang/modLanguageSupport.h"
#include "menu/ControlliMenu.h"
#include "menu/MisuraTesto.h"
#include "menu/ModuloNavigate.h"
#include "menu/SceltaMemory.h"
#include "platform/Colori.h"
#include "platform/Controlli.h"
#include "platform/CursoreGioco.h"
#include "platform/Errori.h"
#include "platform/IstanzaUnica.h"
#include "platform/MsgBox.h"
#include "platform/Percorsi.h"
#include "platform/Puntatore.h"
#include "platform/Twips.h"
#include "platform/clsResize.h"
#include "profiles/CartelleDati.h"
#include "profiles/Profilo.h"
#include "profiles/StatoProcesso.h"

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

#include <algorithm>

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

void impostaPunti(QWidget *w, int punti)
{
    QFont f = w->font();
    f.setPointSize(punti);
    w->setFont(f);
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

QString maiuscolo(const QString &s, bool si) { return si ? s.toUpper() : s; }
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
    List2->setFont(fontDi(QStringLiteral("Arial"), 12, false));
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
        // The editors come with a later version of the game; until then they stand here, not usable.
        a->setEnabled(false);
        *e.azione = a;
    }
    mnuConfigurazioni = BarraMenu->addAction(QStringLiteral("Configurazioni"));
    mnuConfigurazioni->setObjectName(QStringLiteral("mnuConfigurazioni"));
    connect(mnuConfigurazioni, &QAction::triggered, this,
            [this] { mostraSchermoEScarica(QStringLiteral("FormConfigura")); });
    mnuConfigurazioni->setEnabled(false);

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
    connect(primo, &QAction::triggered, this, [this] { mnuLanguage_Click(0); });
    mnuLanguage << primo;
}

void FormMenu::Form_Load()
{
    ComboUtenteAttiva = true;
    MLSFillMenuLanguages();
    TraduciForm(this);
    Timer1->stop();
    for (QPushButton *c : Command1)
        ScriviColoreSfondo(c, ColorePulsante);
    ScriviColoreSfondo(PictureGioca, ColorePulsante);
    ScriviColoreSfondo(PictureEsci, ColorePulsante);
    ResizeCondiviso = std::make_unique<clsResize>();
    ResizeCondiviso->setSourceForm(this);
    ResizeCondiviso->SizeFormToScreen(75);
}

void FormMenu::Form_Activate()
{
    CopriSchermo();
    Timer1->start();
}

void FormMenu::Form_Unload()
{
    Timer1->stop();
    SbloccaMouse();
}

QString FormMenu::TestoList2() const
{
    const QList<QListWidgetItem *> scelte = List2->selectedItems();
    return scelte.isEmpty() ? QString() : scelte.first()->text();
}

void FormMenu::dipingiGruppo(std::map<int, OpzioneGrafica *> &gruppo, int scelto)
{
    for (auto &[indice, o] : gruppo)
        if (ColoreSfondoDi(o) != ColoreOpzione)
            ScriviColoreSfondo(o, ColoreOpzione);
    if (auto it = gruppo.find(scelto); it != gruppo.end())
        ScriviColoreSfondo(it->second, ColoreOpzioneScelta);
}

void FormMenu::Option1_Click(int index)
{
    Profilo.TipoMemory = qint16(index);
    FileMemory.clear();
    dipingiGruppo(Option1, index);
    AggiornaFiles();
}

void FormMenu::Option2_Click(int index)
{
    Profilo.NumeroTessere = qint16(index);
    AggiornaFiles();
    dipingiGruppo(Option2, index);
}

void FormMenu::Option3_Click(int index)
{
    NumeroGiocatori = qint16(index + 1);
    dipingiGruppo(Option3, NumeroGiocatori - 1);
}

void FormMenu::AggiornaFiles()
{
    List2->clear();
    int acceso = -1;
    for (auto &[indice, o] : Option1)
        if (o->Valore())
            acceso = indice;
    if (acceso < 0)
        return;
    const EsitoElenco esito = ElencaMemory(acceso, Profilo.NumeroTessere, Profilo.Maiuscolo1);
    CartellaMemory = esito.cartellaMemory;
    List2->addItems(esito.nomi);
}

void FormMenu::List2_Click()
{
    FileMemory = CartellaMemory + TestoList2();
    bool oltreFine = false;
    const std::optional<int> conteggio = ContaTessereFile(FileMemory, &oltreFine);
    if (!conteggio || oltreFine)
        ErroreFatale(TestoErrore(QStringLiteral("0104"), QStringLiteral("Non riesco a leggere il file del memory:"))
                     + u'\n' + MappaPercorso(FileMemory));
    const EsitoScala scala = ScalaTessere(*conteggio, Profilo.NumeroTessere);
    for (size_t i = 1; i < ValoriTessere.size(); ++i)
        Option2[ValoriTessere[i]]->setEnabled(scala.abilitato[i]);
    Profilo.NumeroTessere = scala.numeroTessere;
    if (auto it = Option2.find(Profilo.NumeroTessere); it != Option2.end())
        it->second->ImpostaValore(true);
    Command1[0]->setEnabled(true);
}

void FormMenu::Combo1_Click()
{
    if (!ComboUtenteAttiva)
        return;
    SalvaProfilo();
    NomeUtente = Combo1->currentText();
    NomiGiocatori[0] = NomeUtente;
    FileUtente = CartellaUtenti + NomeUtente + QStringLiteral(".ini");
    LeggiProfilo();
    if (Profilo.Maiuscolo1)
        maiuscoleCaption();
    for (auto *gruppo : {&Option1, &Option2})
        for (auto &[indice, o] : *gruppo)
            ScriviColoreSfondo(o, ColoreOpzione);
    if (auto it = Option1.find(Profilo.TipoMemory); it != Option1.end()) {
        it->second->ImpostaValore(true);
        ScriviColoreSfondo(it->second, ColoreOpzioneScelta);
    }
    AggiornaFiles();
    if (auto it = Option2.find(Profilo.NumeroTessere); it != Option2.end()) {
        it->second->ImpostaValore(true);
        ScriviColoreSfondo(it->second, ColoreOpzioneScelta);
    }
    Timer1->start();
}

void FormMenu::maiuscoleCaption()
{
    QList<QObject *> controlli = {LabelGioca, LabelEsci, Frame1, Frame2, Frame3};
    for (auto &[indice, o] : Option1)
        controlli << o;
    for (QObject *o : controlli) {
        QString caption;
        if (LeggiCaption(o, &caption))
            ScriviCaption(o, caption.toUpper());
    }
}

void FormMenu::Command1_Click(int index)
{
    if (index == 1) {
        PresentaFinestraUscita();
        return;
    }
    Schermi::MostraModale(QStringLiteral("FormNomi"));
    if (TestoList2().isEmpty()) {
        if (List2->count() == 0)
            ErroreFatale(TestoErrore(QStringLiteral("0105"),
                                     QStringLiteral("Non c'è nessun memory da giocare con le scelte fatte.")));
        {
            const QSignalBlocker blocco(List2);
            List2->setCurrentRow(0);
        }
        List2_Click();
        FileMemory = CartellaMemory + TestoList2();
    }
    if (!FileEsiste(FileMemory))
        return;
    const QString schermo = SchermoPerGioco(Profilo.TipoMemory, TestoList2());
    if (!schermo.isEmpty())
        Schermi::Mostra(schermo);
    Schermi::Scarica(this);
}

void FormMenu::mostraSchermoEScarica(const QString &nome)
{
    Schermi::Mostra(nome);
    Schermi::Scarica(this);
}

void FormMenu::PresentaFinestraUscita()
{
    const GeometriaTwips superficie = LeggiGeometria(area);
    GeometriaTwips g = LeggiGeometria(FrameUscita);
    g.Top = double(int(superficie.Height - g.Height) / 2);
    g.Left = double(int(superficie.Width - g.Width) / 2);
    ScriviGeometria(FrameUscita, g);
    FrameUscita->raise();
    ScriviColoreSfondo(FrameUscita, ColoreSfondoMenu);

    ScriviColoreSfondo(CommandSi, ColorePulsante);
    ScriviColoreSfondo(CommandNo, ColorePulsante);

    LabelSi->setText(maiuscolo(TestoLingua(QStringLiteral("0005")), Profilo.Maiuscolo1));
    LabelNo->setText(maiuscolo(TestoLingua(QStringLiteral("0004")), Profilo.Maiuscolo1));
    LabelSi->setAccessibleName(LabelSi->text());
    LabelNo->setAccessibleName(LabelNo->text());
    CommandSi->setAccessibleName(LabelSi->text());
    CommandNo->setAccessibleName(LabelNo->text());

    if (Profilo.DisabilitaMousePersonalizzato) {
        CommandSi->setCursor(Qt::ArrowCursor);
        CommandNo->setCursor(Qt::ArrowCursor);
    }

    BloccaMouse();
    PortaMousePosizione();

    const QString misura = LabelSi->text().size() > LabelNo->text().size() ? LabelSi->text() : LabelNo->text();
    LabelDimensionaFont->setText(misura);
    const int larghezzaSi = int(LeggiGeometria(LabelSi).Width);
    const int punti = CresciFont(LabelDimensionaFont->font(), misura, 12,
                                 [larghezzaSi](int larghezza, int) { return larghezza < larghezzaSi; });
    impostaPunti(LabelDimensionaFont, punti);
    impostaPunti(LabelSi, punti);
    impostaPunti(LabelNo, punti);

    FrameUscita->show();

    ImageNo->setCursor(CommandSi->cursor());
    PictureNo->setCursor(CommandSi->cursor());
    ScriviColoreSfondo(PictureSi, ColoreSfondoDi(CommandSi));
    ScriviColoreSfondo(PictureNo, ColoreSfondoDi(CommandNo));
    CommandSi->setFocus();
}

void FormMenu::BloccaMouse()
{
    ConfinaPuntatore(QRect(FrameUscita->mapToGlobal(QPoint(0, 0)), FrameUscita->size()));
}

void FormMenu::SbloccaMouse() { LiberaPuntatore(); }

void FormMenu::PortaMousePosizione()
{
    // Top for x and the minus signs are the game's own: with the panel's
    // confinement in force the pointer stops at the panel's edge.
    const GeometriaTwips g = LeggiGeometria(Frame2);
    QPoint punto(int(g.Top - g.Height / 2), int(g.Left - g.Width / 2));
    // The old clip held a jump of the pointer inside too; pointer barriers don't stop a jump.
    if (PuntatoreConfinato()) {
        const QRect r = RettangoloConfinamento();
        punto = {std::clamp(punto.x(), r.left(), r.right()), std::clamp(punto.y(), r.top(), r.bottom())};
    }
    SpostaPuntatore(punto);
}

void FormMenu::CommandSi_Click()
{
    SbloccaMouse();
    SalvaProfilo();
    ResizeCondiviso.reset();
    RilasciaIstanzaUnica();
    TerminaProcesso(0);
}

void FormMenu::CommandNo_Click()
{
    SbloccaMouse();
    FrameUscita->hide();
}

void FormMenu::Option_MouseMove(std::map<int, OpzioneGrafica *> &gruppo, int index)
{
    for (auto &[indice, o] : gruppo) {
        const int colore = indice == index ? ColoreOpzioneSotto : o->Valore() ? ColoreOpzioneScelta : ColoreOpzione;
        ScriviColoreSfondo(o, colore);
    }
}

void FormMenu::Frame_MouseMove(std::map<int, OpzioneGrafica *> &gruppo)
{
    for (auto &[indice, o] : gruppo)
        ScriviColoreSfondo(o, o->Valore() ? ColoreOpzioneScelta : ColoreOpzione);
}

void FormMenu::Command1_MouseMove(int index)
{
    if (ColoreSfondoDi(Command1[index]) == ColorePulsanteSotto)
        return;
    for (QPushButton *c : Command1)
        ScriviColoreSfondo(c, ColorePulsante);
    ScriviColoreSfondo(Command1[index], ColorePulsanteSotto);
    ScriviColoreSfondo(PictureGioca, ColoreSfondoDi(Command1[0]));
    ScriviColoreSfondo(PictureEsci, ColoreSfondoDi(Command1[1]));
}

void FormMenu::Form_MouseMove()
{
    Frame_MouseMove(Option1);
    Frame_MouseMove(Option2);
    Frame_MouseMove(Option3);
    for (QPushButton *c : Command1)
        if (ColoreSfondoDi(c) != ColorePulsante)
            ScriviColoreSfondo(c, ColorePulsante);
    ScriviColoreSfondo(PictureGioca, ColoreSfondoDi(Command1[0]));
    ScriviColoreSfondo(PictureEsci, ColoreSfondoDi(Command1[1]));
}

void FormMenu::CommandSiNo_MouseMove(bool si)
{
    QPushButton *questo = si ? CommandSi : CommandNo;
    QPushButton *altro = si ? CommandNo : CommandSi;
    if (ColoreSfondoDi(questo) == ColorePulsanteSotto)
        return;
    ScriviColoreSfondo(altro, ColorePulsante);
    ScriviColoreSfondo(questo, ColorePulsanteSotto);
    ScriviColoreSfondo(PictureSi, ColoreSfondoDi(CommandSi));
    ScriviColoreSfondo(PictureNo, ColoreSfondoDi(CommandNo));
}

void FormMenu::FrameUscita_MouseMove()
{
    for (QWidget *w : std::initializer_list<QWidget *>{CommandSi, CommandNo, PictureSi, PictureNo})
        ScriviColoreSfondo(w, ColorePulsante);
}

void FormMenu::Timer1_Timer()
{
    const bool maiuscolo1 = Profilo.Maiuscolo1;

    // 1. The pointer.
    const QCursor puntatore = CursoreScelto(Profilo.DisabilitaMousePersonalizzato);
    QList<QWidget *> conPuntatore = {Frame1,  Frame2,  Frame3,    Command1[0], Command1[1], Combo1,
                                     CommandSi, CommandNo, ImageSi, PictureSi, ImageNo,   LabelNo,
                                     LabelSi, PictureNo, ImageGioca, PictureGioca, ImageEsci, PictureEsci};
    for (auto *gruppo : {&Option2, &Option3})
        for (auto &[indice, o] : *gruppo)
            conPuntatore << o;
    for (QWidget *w : conPuntatore)
        w->setCursor(puntatore);

    // 2. The measure starts again.
    QFont misura = LabelDimensionaFont->font();
    misura.setPointSize(12);
    LabelDimensionaFont->setFont(misura);
    LabelDimensionaFont->setText(QStringLiteral("a"));

    // 3. Capitals; nothing turns them back before the next load.
    if (maiuscolo1)
        maiuscoleCaption();

    // 4.
    if (auto it = Option3.find(NumeroGiocatori - 1); it != Option3.end())
        ScriviColoreSfondo(it->second, ColoreOpzioneScelta);

    auto twips = [](QWidget *w) { return LeggiGeometria(w); };
    auto misuraCon = [&](const QString &testo, int da, const std::function<bool(int, int)> &condizione) {
        LabelDimensionaFont->setText(testo);
        const int punti = CresciFont(misura, testo, da, condizione);
        misura.setPointSize(punti);
        LabelDimensionaFont->setFont(misura);
        return punti;
    };

    // 5. Both large buttons take one size, from the longer caption.
    {
        const QString testo = (LabelGioca->text().size() > LabelEsci->text().size() ? LabelGioca->text()
                                                                                   : LabelEsci->text())
                              + QStringLiteral("   ");
        const int larghezza = int(twips(LabelEsci).Width);
        const int punti = misuraCon(testo, 12, [=](int w, int) { return w < larghezza; });
        impostaPunti(LabelGioca, punti);
        impostaPunti(LabelEsci, punti);
    }

    // 6. A first fit of the kinds of game, on a fixed measure that is not a caption.
    {
        const int meta = int(twips(Option1[0]).Width / 2);
        const int punti = misuraCon(QStringLiteral("immagini - immagini"), 12, [=](int w, int) { return w < meta; });
        for (auto &[indice, o] : Option1)
            impostaPunti(o, punti);
    }

    // 7. All options take one size, from the longest caption of the first group.
    {
        QString testo = QStringLiteral("99");
        for (auto &[indice, o] : Option1)
            if (testo.size() < o->text().size())
                testo = o->text();
        testo += QStringLiteral("      ");
        const GeometriaTwips g = twips(Option1[0]);
        const int larghezza = int(g.Width), altezza = int(g.Height);
        const int punti = misuraCon(testo, 14, [=](int w, int h) { return w < larghezza && h < altezza; });
        for (auto *gruppo : {&Option1, &Option2, &Option3})
            for (auto &[indice, o] : *gruppo)
                impostaPunti(o, punti);
    }

    // 8. The frames.
    {
        QString testo = Frame1->title();
        for (QGroupBox *f : {Frame2, Frame3})
            if (f->title().size() > testo.size())
                testo = f->title();
        testo += QStringLiteral("     ");
        const int larghezza = int(twips(Frame2).Width);
        const int altezza = int(twips(Option2[4]).Height) / 3 * 2;
        const int punti = misuraCon(testo, 14, [=](int w, int h) { return w < larghezza && h < altezza; });
        for (QGroupBox *f : {Frame1, Frame2, Frame3})
            impostaPunti(f, punti);
    }

    // 9. The players.
    Combo1->clear();
    Combo1->addItems(ElencoProfili(maiuscolo1));

    // 10. Selecting the current profile acts as a choice of the user.
    for (int i = 0; i < Combo1->count(); ++i) {
        if (Combo1->itemText(i).toUpper() == NomeUtente.toUpper()) {
            Combo1->setCurrentIndex(i);
            Combo1_Click();
        }
    }

    // 11. A lone player is not offered a choice.
    if (Combo1->count() > 1) {
        impostaPunti(Combo1, qMax(14, LabelGioca->font().pointSize() - 20));
        Combo1->show();
    } else {
        Combo1->hide();
    }

    // 12. The choices come back.
    if (auto it = Option1.find(Profilo.TipoMemory); it != Option1.end()) {
        it->second->ImpostaValore(true);
        ScriviColoreSfondo(it->second, ColoreOpzioneScelta);
    }
    AggiornaFiles();
    if (auto it = Option2.find(Profilo.NumeroTessere); it != Option2.end()) {
        it->second->ImpostaValore(true);
        ScriviColoreSfondo(it->second, ColoreOpzioneScelta);
    }
    if (auto it = Option3.find(NumeroGiocatori - 1); it != Option3.end()) {
        it->second->ImpostaValore(true);
        ScriviColoreSfondo(it->second, ColoreOpzioneScelta);
    }

    // 13. What keeps the tick from repeating.
    Timer1->stop();
}

void FormMenu::MLSFillMenuLanguages()
{
    const QStringList voci = ElencoLingue();
    if (voci.isEmpty()) {
        MsgBox(QStringLiteral("Non è presente alcun file di linguaggio!"));
        return;
    }
    for (int i = 0; i < voci.size(); ++i) {
        if (i > 0) {
            QAction *a = mnuLanguages->addAction(QString());
            a->setObjectName(QStringLiteral("mnuLanguage"));
            ImpostaIndice(a, i);
            a->setCheckable(true);
            a->setVisible(true);
            connect(a, &QAction::triggered, this, [this, i] { mnuLanguage_Click(i); });
            mnuLanguage << a;
        }
        mnuLanguage[i]->setText(voci[i]);
    }
    LinguaCorrente = LinguaImpostata();
    const int spuntata = IndiceLinguaSpuntata(voci, LinguaCorrente);
    if (spuntata >= 0)
        mnuLanguage[spuntata]->setChecked(true);
}

void FormMenu::mnuLanguage_Click(int index)
{
    for (QAction *a : mnuLanguage)
        a->setChecked(false);
    mnuLanguage[index]->setChecked(true);
    ScegliLingua(mnuLanguage[index]->text());
    Timer1->start();
}

void FormMenu::mnuDocumentazione_Click() { ApriDocumento(this, CartellaProgramma() + QStringLiteral("\\tesselo.pdf")); }

void FormMenu::mnuAbout_Click() { mostraSchermoEScarica(QStringLiteral("FormInfo")); }
