#include "settings/FormAccesso.h"

#include "settings/ControlliProgetto.h"

#include "lang/modLanguageSupport.h"
#include "platform/Caratteri.h"
#include "platform/Controlli.h"
#include "platform/ControlliACapo.h"
#include "platform/Joystick.h"
#include "platform/Twips.h"
#include "platform/clsResize.h"
#include "profiles/Profilo.h"
#include "profiles/ProfiloAccesso.h"

#include <QAction>
#include <QGroupBox>
#include <QKeyEvent>
#include <QKeySequence>
#include <QLabel>
#include <QListWidget>
#include <QLocale>
#include <QMenuBar>
#include <QPainter>
#include <QScrollBar>

#include <algorithm>

namespace {
constexpr int LarghezzaProgetto = 11175;
constexpr int AltezzaProgetto = 9300;
// The tries shown; older ones fall off the end.
constexpr int ProveMostrate = 200;

using ControlliProgetto::PuntiControlli;

QLabel *etichetta(const QString &nome, QWidget *padre, const GeometriaTwips &g)
{
    auto *l = ControlliProgetto::Nominato(new QLabel(padre), nome, g);
    l->setWordWrap(true);
    l->setProperty("TestoDalProgramma", true); // the setting's value, in words
    return l;
}

QScrollBar *barra(const QString &nome, QWidget *padre, const GeometriaTwips &g, int massimo)
{
    auto *s = ControlliProgetto::Nominato(new QScrollBar(Qt::Horizontal, padre), nome, g);
    s->setRange(0, massimo);
    s->setSingleStep(1);
    s->setPageStep(massimo >= 20 ? 4 : 1);
    s->setFocusPolicy(Qt::StrongFocus);
    s->setInvertedControls(false);
    return s;
}

// The numbers in the way of the language shown.
QLocale localeDellaLingua()
{
    const QString l = LinguaCorrente.toLower();
    if (l.startsWith(QLatin1String("english")))
        return QLocale(QLocale::English, QLocale::UnitedKingdom);
    if (l.startsWith(QLatin1String("deutsch")))
        return QLocale(QLocale::German);
    if (l.startsWith(QLatin1String("fran")))
        return QLocale(QLocale::French);
    if (l.startsWith(QLatin1String("espa")))
        return QLocale(QLocale::Spanish);
    return QLocale(QLocale::Italian);
}
} // namespace

PictureProvaWidget::PictureProvaWidget(QWidget *parent) : QWidget(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void PictureProvaWidget::paintEvent(QPaintEvent *)
{
    QPainter p(this);
    // Counted green, filtered grey, held and waiting yellow; with the focus a
    // thick frame says that presses are taken here.
    const QColor colori[4] = {QColor(0xF4, 0xF4, 0xF4), QColor(0x6B, 0xCB, 0x6B), QColor(0xB0, 0xB0, 0xB0),
                              QColor(0xFF, 0xE0, 0x66)};
    p.fillRect(rect(), colori[std::clamp(Stato, 0, 3)]);
    const int bordo = hasFocus() ? std::max(3, height() / 30) : 1;
    p.setPen(QPen(hasFocus() ? QColor(0x20, 0x50, 0xC0) : QColor(0x60, 0x60, 0x60), bordo));
    p.drawRect(rect().adjusted(bordo / 2, bordo / 2, -(bordo + 1) / 2, -(bordo + 1) / 2));
    QFont f = font();
    f.setPointSizeF(f.pointSizeF() * 1.6);
    f.setBold(true);
    p.setFont(f);
    p.setPen(Qt::black);
    p.drawText(rect().adjusted(8, 8, -8, -8), Qt::AlignCenter | Qt::TextWordWrap, Testo);
}

void PictureProvaWidget::keyPressEvent(QKeyEvent *e) { emit Tasto(e->key(), true, e->isAutoRepeat()); }
void PictureProvaWidget::keyReleaseEvent(QKeyEvent *e) { emit Tasto(e->key(), false, e->isAutoRepeat()); }
void PictureProvaWidget::mousePressEvent(QMouseEvent *e)
{
    setFocus(Qt::MouseFocusReason);
    emit Mouse(e->button(), true);
}
void PictureProvaWidget::mouseReleaseEvent(QMouseEvent *e) { emit Mouse(e->button(), false); }
// A second click soon after the first is a press of its own, as on the board.
void PictureProvaWidget::mouseDoubleClickEvent(QMouseEvent *e) { e->accept(); }

FormAccesso::FormAccesso() : Form(QStringLiteral("FormAccesso"), LarghezzaProgetto, AltezzaProgetto)
{
    setWindowTitle(QStringLiteral("Accesso con sensori"));
    crea();
    TimerProva.setSingleShot(true);
    connect(&TimerProva, &QTimer::timeout, this, [this] {
        for (;;) {
            int i = -1;
            const auto e = filtro.Tempo(MomentoIngresso(), &i);
            if (e == FiltroPressioni::Esito::Nessuno)
                break;
            esito(i, e);
        }
        attendi();
    });
}

FormAccesso::~FormAccesso() = default;

QString FormAccesso::voce(const char *chiave, const char *italiano) const
{
    const QString t = LeggiVoce(PercorsoFileLingua(LinguaCorrente), objectName(), QString::fromLatin1(chiave));
    return t.isEmpty() ? QString::fromUtf8(italiano) : t;
}

void FormAccesso::crea()
{
    BarraMenu = new QMenuBar(this);
    mnuEsci = BarraMenu->addAction(QStringLiteral("&Esci"));
    mnuEsci->setObjectName(QStringLiteral("mnuEsci"));
    connect(mnuEsci, &QAction::triggered, this, &FormAccesso::mnuEsci_Click);

    area = new QWidget(this);
    area->setGeometry(0, 0, PixelDaTwips(LarghezzaProgetto), PixelDaTwips(AltezzaProgetto));

    LabelTitolo = etichetta(QStringLiteral("LabelTitolo"), area, {600, 240, 9975, 615});
    ControlliProgetto::FontProgetto(LabelTitolo, 18, true);

    LabelAccettazione = etichetta(QStringLiteral("LabelAccettazione"), area, {600, 1080, 4800, 375});
    HScrollAccettazione = barra(QStringLiteral("HScrollAccettazione"), area, {600, 1500, 4800, 375},
                                FiltroPressioni::AccettazioneMassima / PassoMs);
    LabelIgnora = etichetta(QStringLiteral("LabelIgnora"), area, {600, 2040, 4800, 375});
    HScrollIgnora =
        barra(QStringLiteral("HScrollIgnora"), area, {600, 2460, 4800, 375}, FiltroPressioni::IgnoraMassimo / PassoMs);
    LabelPausa = etichetta(QStringLiteral("LabelPausa"), area, {600, 3000, 4800, 615});
    HScrollPausa =
        barra(QStringLiteral("HScrollPausa"), area, {600, 3660, 4800, 375}, ImpostazioniAccesso::PausaMassima);
    CheckSuonoPasso = ControlliProgetto::Nominato(new CasellaACapo(QStringLiteral("Suono leggero a ogni passo della scansione"), area),
                               QStringLiteral("CheckSuonoPasso"), {600, 4200, 4800, 495});
    CheckSuonoTessera = ControlliProgetto::Nominato(
        new CasellaACapo(QStringLiteral("Nel gioco a tessere scoperte, il suono della tessera raggiunta"), area),
        QStringLiteral("CheckSuonoTessera"), {600, 4740, 4800, 735});

    FrameInterruttori = ControlliProgetto::Nominato(new QGroupBox(QStringLiteral("I sensori"), area), QStringLiteral("FrameInterruttori"),
                                 {600, 5640, 4800, 3300});
    const char *scelte[4] = {"Tasti del gioco (spazio e invio)", "Pulsanti del mouse (sinistro e destro)",
                             "Joystick o gamepad (primi due pulsanti)", "Due tasti scelti"};
    for (int i = 0; i < 4; ++i) {
        auto *o = ControlliProgetto::Nominato(new OpzioneACapo(QString::fromUtf8(scelte[i]), FrameInterruttori),
                           QStringLiteral("OptionInterruttori"), {240, double(360 + 540 * i), 4320, 495}, i);
        connect(o, &QAbstractButton::clicked, this, [this, i] {
            Accesso.Interruttori = SceltaInterruttori(i);
            // Two keys to be chosen before they can serve.
            if (Accesso.Interruttori == SceltaInterruttori::TastiScelti && (Accesso.Tasto1 == 0 || Accesso.Tasto2 == 0))
                CommandScegliTasti->click();
            ImpostaControlli();
        });
        OptionInterruttori[size_t(i)] = o;
    }
    CommandScegliTasti = ControlliProgetto::Nominato(new PulsanteACapo(QStringLiteral("Scegli i tasti"), FrameInterruttori),
                                  QStringLiteral("CommandScegliTasti"), {240, 2580, 1935, 495});
    CommandScegliTasti->setAutoDefault(false);
    LabelTasti = etichetta(QStringLiteral("LabelTasti"), FrameInterruttori, {2280, 2520, 2400, 615});
    connect(CommandScegliTasti, &QPushButton::clicked, this, [this] {
        tastoAtteso = 1;
        primoScelto = 0;
        PictureProva->setFocus(Qt::OtherFocusReason);
        scriviEtichette();
    });

    FrameProva = ControlliProgetto::Nominato(new QGroupBox(QStringLiteral("Prova il sensore"), area), QStringLiteral("FrameProva"),
                          {5880, 1080, 4695, 7860});
    LabelProva = ControlliProgetto::Nominato(new QLabel(QStringLiteral("Fai clic nel riquadro, poi premi il sensore: ogni pressione "
                                                    "appare nell'elenco, contata o no."),
                                     FrameProva),
                          QStringLiteral("LabelProva"), {240, 360, 4215, 735});
    LabelProva->setWordWrap(true);
    PictureProva = ControlliProgetto::Nominato(new PictureProvaWidget(FrameProva), QStringLiteral("PictureProva"), {240, 1200, 4215, 1815});
    PictureProva->setToolTip(QStringLiteral("Qui si prova il sensore"));
    LabelConteggio = etichetta(QStringLiteral("LabelConteggio"), FrameProva, {240, 3120, 4215, 375});
    ListProva = ControlliProgetto::Nominato(new QListWidget(FrameProva), QStringLiteral("ListProva"), {240, 3600, 4215, 3975});
    ListProva->setToolTip(QStringLiteral("Le pressioni provate, la più recente in alto"));
    ListProva->setFocusPolicy(Qt::NoFocus);

    connect(PictureProva, &PictureProvaWidget::Tasto, this, &FormAccesso::tasto);
    connect(PictureProva, &PictureProvaWidget::Mouse, this, [this](Qt::MouseButton b, bool premuto) {
        if (Accesso.Interruttori != SceltaInterruttori::Mouse || tastoAtteso)
            return;
        const int n = b == Qt::LeftButton ? 0 : b == Qt::RightButton ? 1 : -1;
        if (n >= 0)
            Prova(n, premuto);
    });

    auto scrivi = [this](QScrollBar *s, int *campo, int passo) {
        connect(s, &QScrollBar::valueChanged, this, [this, campo, passo](int v) {
            if (allineando)
                return;
            *campo = v * passo;
            // New times: the tries start afresh with them.
            filtro.Imposta(Accesso.AccettazioneMs, Accesso.IgnoraMs);
            filtro.Azzera();
            TimerProva.stop();
            scriviEtichette();
        });
    };
    scrivi(HScrollAccettazione, &Accesso.AccettazioneMs, PassoMs);
    scrivi(HScrollIgnora, &Accesso.IgnoraMs, PassoMs);
    scrivi(HScrollPausa, &Accesso.PausaDopoGiri, 1);
    connect(CheckSuonoPasso, &QAbstractButton::clicked, this, [this](bool v) { Accesso.SuonoPasso = v; });
    connect(CheckSuonoTessera, &QAbstractButton::clicked, this, [this](bool v) { Accesso.SuonoTessera = v; });
}

void FormAccesso::Form_Load()
{
    TraduciForm(this);
    CreaResizeCondiviso(this, 75);
    for (QWidget *w : ControlliDelForm(this))
        if (w->accessibleName().isEmpty() && !w->toolTip().isEmpty())
            w->setAccessibleName(w->toolTip());
}

void FormAccesso::Form_Activate()
{
    CopriSchermo();
    filtro.Imposta(Accesso.AccettazioneMs, Accesso.IgnoraMs);
    filtro.Azzera();
    ImpostaControlli();
    PictureProva->setFocus(Qt::OtherFocusReason);
}

void FormAccesso::Form_Unload()
{
    TimerProva.stop();
    joystick.reset();
}

void FormAccesso::ImpostaControlli()
{
    allineando = true;
    HScrollAccettazione->setValue(Accesso.AccettazioneMs / PassoMs);
    HScrollIgnora->setValue(Accesso.IgnoraMs / PassoMs);
    HScrollPausa->setValue(Accesso.PausaDopoGiri);
    allineando = false;
    CheckSuonoPasso->setChecked(Accesso.SuonoPasso);
    CheckSuonoTessera->setChecked(Accesso.SuonoTessera);
    const int scelta = std::clamp(int(Accesso.Interruttori), 0, 3);
    OptionInterruttori[size_t(scelta)]->setChecked(true);
    preparaJoystick();
    scriviEtichette();
}

void FormAccesso::scriviEtichette()
{
    const QLocale l = localeDellaLingua();
    auto secondi = [&](int ms) { return l.toString(ms / 1000.0, 'f', 2); };
    LabelTitolo->setText(voce("Testo.Titolo", "Accesso con sensori: %1").arg(NomeUtente));
    LabelAccettazione->setText(voce("Testo.Accettazione", "Tempo di pressione: %1 secondi").arg(secondi(Accesso.AccettazioneMs)));
    LabelIgnora->setText(voce("Testo.Ignora", "Pausa dopo una pressione: %1 secondi").arg(secondi(Accesso.IgnoraMs)));
    LabelPausa->setText(Accesso.PausaDopoGiri == 0
                            ? voce("Testo.PausaMai", "La scansione automatica non si ferma mai")
                            : voce("Testo.Pausa", "La scansione automatica si ferma dopo %1 giri senza pressioni")
                                  .arg(Accesso.PausaDopoGiri));
    auto nomeTasto = [](int k) { return QKeySequence(k).toString(QKeySequence::NativeText); };
    if (tastoAtteso == 1)
        LabelTasti->setText(voce("Testo.PrimoTasto", "Premi il primo tasto"));
    else if (tastoAtteso == 2)
        LabelTasti->setText(voce("Testo.SecondoTasto", "Premi il secondo tasto"));
    else if (Accesso.Tasto1 && Accesso.Tasto2)
        LabelTasti->setText(voce("Testo.Tasti", "%1 e %2").arg(nomeTasto(Accesso.Tasto1), nomeTasto(Accesso.Tasto2)));
    else
        LabelTasti->setText(voce("Testo.NessunTasto", "Nessun tasto scelto"));
    LabelConteggio->setText(voce("Testo.Conteggio", "Contate: %1    Filtrate: %2").arg(contate).arg(filtrate));
    if (tastoAtteso)
        PictureProva->Testo = LabelTasti->text();
    else if (PictureProva->Stato == 0)
        PictureProva->Testo = voce("Testo.Riquadro", "Premi qui il sensore");
    PictureProva->update();
}

void FormAccesso::preparaJoystick()
{
    if (Accesso.Interruttori != SceltaInterruttori::Joystick) {
        joystick.reset();
        return;
    }
    if (joystick)
        return;
    joystick = CreaJoystick();
    connect(joystick.get(), &SorgenteJoystick::Pulsante, this, [this](int numero, bool premuto) {
        if (numero >= 0 && numero < FiltroPressioni::Interruttori && isVisible())
            Prova(numero, premuto);
    });
}

void FormAccesso::tasto(int k, bool premuto, bool ripetizione)
{
    if (tastoAtteso) {
        if (!premuto || ripetizione)
            return;
        if (k == Qt::Key_Escape) {
            tastoAtteso = 0;
            // With no pair chosen before, the design's keys stay the switches.
            if (Accesso.Tasto1 == 0 || Accesso.Tasto2 == 0) {
                Accesso.Interruttori = SceltaInterruttori::Tasti;
                ImpostaControlli();
                return;
            }
        } else if (tastoAtteso == 1) {
            primoScelto = k;
            tastoAtteso = 2;
        } else if (k != primoScelto) {
            Accesso.Tasto1 = primoScelto;
            Accesso.Tasto2 = k;
            Accesso.Interruttori = SceltaInterruttori::TastiScelti;
            tastoAtteso = 0;
            ImpostaControlli();
            return;
        }
        scriviEtichette();
        return;
    }
    int n = -1;
    if (Accesso.Interruttori == SceltaInterruttori::TastiScelti)
        n = k == Accesso.Tasto1 ? 0 : k == Accesso.Tasto2 ? 1 : -1;
    else if (k == Qt::Key_Space)
        n = 0;
    else if (k == Qt::Key_Return || k == Qt::Key_Enter)
        n = 1;
    if (n >= 0)
        Prova(n, premuto, ripetizione);
}

void FormAccesso::Prova(int interruttore, bool premuto, bool ripetizione)
{
    if (interruttore < 0 || interruttore >= FiltroPressioni::Interruttori)
        return;
    const qint64 ms = MomentoIngresso();
    // What fell due before this moment is settled first.
    for (;;) {
        int i = -1;
        const auto e = filtro.Tempo(premuto ? ms : ms - 1, &i);
        if (e == FiltroPressioni::Esito::Nessuno)
            break;
        esito(i, e);
    }
    // The releases of a key's auto-repeat say nothing of the switch.
    if (!premuto && ripetizione) {
        attendi();
        return;
    }
    const auto e = premuto ? filtro.Premuto(interruttore, ms, ripetizione)
                           : filtro.Rilasciato(interruttore, ms, ripetizione);
    // A key held down repeats many times a second: the list tells it once a hold.
    const bool giaDetta = e == FiltroPressioni::Esito::Ripetizione && ripetizioneDetta[interruttore];
    ripetizioneDetta[interruttore] = e == FiltroPressioni::Esito::Ripetizione || (premuto && ripetizione);
    if (!giaDetta)
        esito(interruttore, e);
    attendi();
}

void FormAccesso::attendi()
{
    if (const auto s = filtro.Scadenza())
        TimerProva.start(int(std::clamp<qint64>(*s - MomentoIngresso(), 0, FiltroPressioni::AccettazioneMassima)));
    else
        TimerProva.stop();
}

void FormAccesso::esito(int interruttore, FiltroPressioni::Esito e)
{
    QString parola;
    int stato = 0;
    switch (e) {
    case FiltroPressioni::Esito::Nessuno: return;
    case FiltroPressioni::Esito::Contata:
        parola = voce("Testo.Contata", "contata");
        stato = 1;
        ++contate;
        break;
    case FiltroPressioni::Esito::InAttesa:
        // Held: the press is told when it counts or is let go too soon.
        PictureProva->Stato = 3;
        PictureProva->Testo = voce("Testo.InAttesa", "tenuta...");
        PictureProva->update();
        return;
    case FiltroPressioni::Esito::TroppoBreve:
        parola = voce("Testo.TroppoBreve", "troppo breve: non contata");
        stato = 2;
        ++filtrate;
        break;
    case FiltroPressioni::Esito::Ignorata:
        parola = voce("Testo.Ignorata", "troppo vicina alla precedente: non contata");
        stato = 2;
        ++filtrate;
        break;
    case FiltroPressioni::Esito::Ripetizione:
        parola = voce("Testo.Ripetizione", "ripetizione del tasto: non contata");
        stato = 2;
        ++filtrate;
        break;
    }
    const QString riga = voce("Testo.Sensore", "Sensore %1").arg(interruttore + 1) + QStringLiteral(": ") + parola;
    ListProva->insertItem(0, riga);
    ListProva->item(0)->setForeground(stato == 1 ? QColor(0x10, 0x70, 0x10) : QColor(0x60, 0x60, 0x60));
    while (ListProva->count() > ProveMostrate)
        delete ListProva->takeItem(ListProva->count() - 1);
    PictureProva->Stato = stato;
    PictureProva->Testo = riga;
    scriviEtichette();
}

void FormAccesso::mnuEsci_Click() { Schermi::Scarica(this); }

void FormAccesso::resizeEvent(QResizeEvent *e)
{
    const int alta = BarraMenu->sizeHint().height();
    BarraMenu->setGeometry(0, 0, width(), alta);
    area->setGeometry(0, alta, width(), qMax(0, height() - alta));
    Form::resizeEvent(e);
    const double scala = std::min(area->width() / (LarghezzaProgetto / double(TwipsPerPixel)),
                                  area->height() / (AltezzaProgetto / double(TwipsPerPixel)));
    if (scala <= 0)
        return;
    ControlliProgetto::ScalaFontProgetto(this, scala);
}
