#include "board/FormTavola.h"

#include "board/AccessibilitaTavola.h"
#include "board/FrameUscitaTavola.h"
#include "lang/TestiAccessibili.h"
#include "lang/modLanguageSupport.h"
#include "platform/Attendi.h"
#include "platform/Colori.h"
#include "platform/Controlli.h"
#include "platform/CursoreGioco.h"
#include "platform/Joystick.h"
#include "platform/Percorsi.h"
#include "platform/Twips.h"
#include "platform/clsResize.h"
#include "platform/media/Filmato.h"
#include "platform/media/ImmagineAnimata.h"
#include "profiles/Profilo.h"
#include "profiles/ProfiloAccesso.h"

#include <QAction>
#include <QFontMetricsF>
#include <QIcon>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QLabel>
#include <QMenuBar>
#include <QPainter>
#include <QWindow>

#include <algorithm>

static void caricaRisorseBoard() { Q_INIT_RESOURCE(board); }

PictureScansioneWidget::PictureScansioneWidget(QWidget *parent) : QWidget(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setAutoFillBackground(true);
}

namespace {
void colora(QWidget *w, double colore, QPalette::ColorRole ruolo = QPalette::Window)
{
    const QColor c = ColoreDaNumero(colore);
    QPalette p = w->palette();
    if (p.color(ruolo) != c) {
        p.setColor(ruolo, c);
        w->setPalette(p);
    }
}

int codiceTasto(int tasto)
{
    switch (tasto) {
    case Qt::Key_Return:
    case Qt::Key_Enter: return CodiciTasto::Invio;
    case Qt::Key_Space: return CodiciTasto::Spazio;
    case Qt::Key_Left: return CodiciTasto::Sinistra;
    case Qt::Key_Up: return CodiciTasto::Su;
    case Qt::Key_Right: return CodiciTasto::Destra;
    case Qt::Key_Down: return CodiciTasto::Giu;
    default: return -1;
    }
}

QSizeF misuraSchermo(const QString &testo, const QString &font, double punti)
{
    QFont f(font);
    f.setPointSizeF(punti);
    const QFontMetricsF m(f);
    return QSizeF(m.horizontalAdvance(testo) * TwipsPerPixel, m.height() * TwipsPerPixel);
}
} // namespace

FormTavola::FormTavola(const ImpostazioniTavola &imp)
    : Form(imp.Nome, imp.LarghezzaProgetto, imp.AltezzaProgetto)
{
    caricaRisorseBoard();
    setWindowTitle(QStringLiteral("Coppie vivaci"));
    tavola = std::make_unique<Tavola>(imp, this, misuraSchermo);
    // Switches other than the design's keys need no focus holder.
    interruttori = std::make_unique<InterruttoriTavola>(*tavola, [this](int codice) {
        return consegnaTasto(codice, Accesso.Interruttori != SceltaInterruttori::Tasti);
    });
    TimerInterruttori.setSingleShot(true);
    connect(&TimerInterruttori, &QTimer::timeout, this, [this] {
        interruttori->Tempo(MomentoIngresso());
        attendiInterruttori();
        eliminaSeRimandato();
    });
    segnalatore = std::make_unique<SegnalatoreTavola>(this);

    BarraMenu = new QMenuBar(this);
    mnuAvvia = BarraMenu->addAction(QStringLiteral("&Riavvia"));
    mnuAvvia->setObjectName(QStringLiteral("mnuAvvia"));
    mnuEsci = BarraMenu->addAction(QStringLiteral("&Esci"));
    mnuEsci->setObjectName(QStringLiteral("mnuEsci"));
    connect(mnuAvvia, &QAction::triggered, this, [this] {
        tavola->mnuAvvia_Click();
        preparaInterruttori();
        eliminaSeRimandato();
    });
    connect(mnuEsci, &QAction::triggered, this, &FormTavola::mnuEsci_Click);

    creaFacce();

    for (int i = 0; i < 24; ++i) {
        auto *c = new Etichetta(this);
        c->setObjectName(QStringLiteral("FramePosto"));
        ImpostaIndice(c, i);
        c->setAccessibleName(QStringLiteral("Tessera %1").arg(i + 1));
        if (!imp.TessereAperte) {
            c->setFrameShape(QFrame::Box);
            c->setAutoFillBackground(true);
        }
        c->hide();
        connect(c, &Etichetta::Click, this, [this, i] {
            if (!tavola->FramePosto[i].Visible || !tavola->FramePosto[i].Enabled)
                return;
            tavola->FramePosto_Click(i);
            eliminaSeRimandato();
        });
        FramePosto[i] = c;
    }

    StatusBar1 = new QWidget(this);
    StatusBar1->setObjectName(QStringLiteral("StatusBar1"));
    StatusBar1->setAutoFillBackground(true);
    for (int k = 0; k < 3; ++k) {
        MarcaPannello[k] = new QLabel(StatusBar1);
        MarcaPannello[k]->setScaledContents(true);
        Pannello[k] = new QLabel(StatusBar1);
        QFont f(QStringLiteral("Arial"));
        f.setPointSize(12);
        f.setBold(true);
        Pannello[k]->setFont(f);
    }
    Picture1 = new QLabel(this);
    Picture1->setObjectName(QStringLiteral("Picture1"));
    Picture1->setPixmap(QIcon(QStringLiteral(":/board/turno.svg")).pixmap(64, 64));
    Picture1->hide();

    if (!imp.PictureScansione.isEmpty()) {
        PictureScansione = new PictureScansioneWidget(this);
        PictureScansione->setObjectName(QStringLiteral("PictureScansione"));
        PictureScansione->setAccessibleName(QStringLiteral("PictureScansione"));
        const QRect r = imp.PictureScansione;
        ScriviGeometria(PictureScansione, {double(r.x()), double(r.y()), double(r.width()), double(r.height())});
    }
    ShapeRiquadro = new FormaRettangolo(this);
    ShapeRiquadro->setObjectName(QStringLiteral("ShapeRiquadro"));
    Shape1 = new FormaRettangolo(this);
    if (imp.TessereAperte) {
        Shape1->setObjectName(QStringLiteral("Shape1"));
        ScriviGeometria(Shape1, {7920, 480, 975, 975});
    }
    FrameUscita = new FrameUscitaTavola(this);
    FrameUscita->Si = [this] { rispondiSi(); };
    FrameUscita->No = [this] { rispondiNo(); };

    connect(&Timer1, &QTimer::timeout, this, [this] {
        interruttori->Timer1();
        eliminaSeRimandato();
    });
    Timer2.setInterval(imp.IntervalloTimer2);
    connect(&Timer2, &QTimer::timeout, this, [this] {
        // A failure of the focus call is nothing: a hidden form, a film with the focus.
        if (PictureScansione && PictureScansione->isVisible() && isVisible())
            PictureScansione->setFocus();
    });

}

FormTavola::~FormTavola() = default;

void FormTavola::creaFacce()
{
    const ImpostazioniTavola &imp = tavola->Imp;
    for (int lato : {1, 2}) {
        const TipoFaccia t = lato == 1 ? imp.Lato1 : imp.Lato2;
        // On a board with a word the film or image of side 2 keeps the names of side 1.
        const bool nomeUno = lato == 1 || imp.Lato1 == TipoFaccia::Parola;
        for (int i = 0; i < 12; ++i) {
            if (t == TipoFaccia::Film) {
                auto *f = new Filmato(this);
                f->setObjectName(nomeUno ? QStringLiteral("ShockwaveFlash1") : QStringLiteral("ShockwaveFlash2"));
                ImpostaIndice(f, i);
                f->setAccessibleName(QStringLiteral("Filmato"));
                f->setAttribute(Qt::WA_TransparentForMouseEvents);
                // heard when its pair is found, for its first run through only
                f->ImpostaSonoro(Sonoro::PrimoGiro);
                f->hide();
                (lato == 1 ? Film1 : Film2)[i] = f;
            } else if (t == TipoFaccia::Immagine) {
                auto *im = new QLabel(this);
                im->setObjectName(lato == 1 ? QStringLiteral("Image1") : QStringLiteral("Image2"));
                ImpostaIndice(im, i);
                im->setAccessibleName(QStringLiteral("Immagine"));
                im->setScaledContents(true);
                im->setAttribute(Qt::WA_TransparentForMouseEvents);
                im->hide();
                auto *an = new ImmagineAnimata(this);
                an->setObjectName(nomeUno ? QStringLiteral("TMaxAni1") : QStringLiteral("TMaxAni2"));
                ImpostaIndice(an, i);
                an->setAccessibleName(QStringLiteral("Immagine animata"));
                an->hide();
                (lato == 1 ? Image1 : Image2)[i] = im;
                (lato == 1 ? Animata1 : Animata2)[i] = an;
            } else {
                auto *fr = new QFrame(this);
                fr->setObjectName(QStringLiteral("FrameTessera1"));
                ImpostaIndice(fr, i);
                fr->setAutoFillBackground(true);
                fr->setAttribute(Qt::WA_TransparentForMouseEvents);
                fr->hide();
                auto *l = new QLabel(fr);
                l->setObjectName(QStringLiteral("LabelParola1"));
                ImpostaIndice(l, i);
                l->setAlignment(Qt::AlignCenter);
                FrameTessera1[i] = fr;
                LabelParola1[i] = l;
            }
        }
    }
}

int FormTavola::alto() const { return BarraMenu ? BarraMenu->height() : 0; }

void FormTavola::metti(QWidget *w, double left, double top, double width, double height)
{
    const QRect r(PixelDaTwips(left), PixelDaTwips(top) + alto(), PixelDaTwips(width), PixelDaTwips(height));
    if (w->geometry() != r)
        w->setGeometry(r);
}

void FormTavola::Form_Load()
{
    TraduciForm(this);
    CreaResizeCondiviso(this);
}

void FormTavola::Form_Activate()
{
    CopriSchermo();
    // Keys are taken at the window, before any control sees them.
    if (windowHandle() && !filtroTasti) {
        windowHandle()->installEventFilter(this);
        filtroTasti = true;
    }
    tavola->Width = LarghezzaSchermoTwips();
    tavola->Height = AltezzaSchermoTwips();
    if (tavola->Imp.HaParole()) {
        for (int i = 0; i < 12; ++i) {
            colora(FrameTessera1[i], Profilo.ColoreSfondoTesto1);
            colora(LabelParola1[i], Profilo.ColoreFont1, QPalette::WindowText);
            QFont f(Profilo.FontParola1);
            f.setPointSizeF(LabelParola1[i]->font().pointSizeF());
            LabelParola1[i]->setFont(f);
        }
    }
    tavola->Form_Activate();
    preparaInterruttori();
    eliminaSeRimandato();
}

void FormTavola::Form_Resize()
{
    Form::Form_Resize();
    if (BarraMenu)
        BarraMenu->setGeometry(0, 0, width(), BarraMenu->sizeHint().height());
    // The form's inner area begins below the menu bar.
    if (PictureScansione && tavola) {
        const double scala = double(height()) / PixelDaTwips(tavola->Imp.AltezzaProgetto);
        PictureScansione->move(PictureScansione->x(),
                               qRound(PixelDaTwips(tavola->Imp.PictureScansione.y()) * scala) + alto());
    }
    if (StatusBar1) {
        const int h = qMax(24, QFontMetrics(Pannello[0]->font()).height() + 8);
        StatusBar1->setGeometry(0, height() - h, width(), h);
        const int w = width() / 3;
        for (int k = 0; k < 3; ++k) {
            MarcaPannello[k]->setGeometry(k * w + 4, 2, h - 4, h - 4);
            Pannello[k]->setGeometry(k * w + h + 4, 0, w - h - 8, h);
        }
    }
    if (tavola)
        Aggiorna();
}

void FormTavola::Form_Unload()
{
    FrameUscitaTavola::SbloccaMouse();
    scaricato = true;
    Timer1.stop();
    Timer2.stop();
    TimerInterruttori.stop();
    joystick.reset();
}

void FormTavola::sincronizzaFaccia(int lato, int i)
{
    const Faccia &m = lato == 1 ? tavola->Lato1[i] : tavola->Lato2[i];
    const TipoFaccia t = lato == 1 ? tavola->Imp.Lato1 : tavola->Imp.Lato2;
    if (t == TipoFaccia::Film) {
        Filmato *f = (lato == 1 ? Film1 : Film2)[i];
        metti(f, m.Left, m.Top, m.Width, m.Height);
        if (caricamentiMostrati[lato - 1][i] != m.Caricamenti) {
            caricamentiMostrati[lato - 1][i] = m.Caricamenti;
            f->setMovie(m.File);
            f->StopPlay();
        }
        if (m.InRiproduzione && !f->InRiproduzione())
            f->Play();
        else if (!m.InRiproduzione && f->InRiproduzione())
            f->StopPlay();
        f->setVisible(m.Visible);
    } else if (t == TipoFaccia::Immagine) {
        QLabel *im = (lato == 1 ? Image1 : Image2)[i];
        ImmagineAnimata *an = (lato == 1 ? Animata1 : Animata2)[i];
        metti(im, m.Left, m.Top, m.Width, m.Height);
        metti(an, m.Left, m.Top, m.Width, m.Height);
        if (caricamentiMostrati[lato - 1][i] != m.Caricamenti) {
            caricamentiMostrati[lato - 1][i] = m.Caricamenti;
            im->setPixmap(m.File.isEmpty() ? QPixmap() : QPixmap(PercorsoLocale(m.File)));
            an->setFile(QString());
        }
        ImpostaTag(an, m.TagAnimata);
        if (m.AnimataAvviata && an->File() != m.FileAnimata)
            an->setFile(m.FileAnimata);
        if (m.AnimataAvviata && !an->Avviata())
            an->Avvia();
        im->setVisible(m.Visible);
        an->setVisible(m.AnimataVisible);
    } else {
        QFrame *fr = FrameTessera1[i];
        QLabel *l = LabelParola1[i];
        metti(fr, m.Left, m.Top, m.Width, m.Height);
        if (l->text() != m.Caption) {
            l->setText(m.Caption);
            l->setAccessibleName(m.Caption);
        }
        if (!qFuzzyCompare(l->font().pointSizeF(), m.DimensioneFont) || l->font().family() != Profilo.FontParola1) {
            QFont f(Profilo.FontParola1);
            f.setPointSizeF(m.DimensioneFont);
            l->setFont(f);
        }
        const QRect r(PixelDaTwips(m.EtichettaLeft), PixelDaTwips(m.EtichettaTop),
                      PixelDaTwips(qMax<int>(m.EtichettaWidth, 15)), PixelDaTwips(qMax<int>(m.EtichettaHeight, 15)));
        if (l->geometry() != r)
            l->setGeometry(r);
        fr->setVisible(m.Visible);
    }
}

void FormTavola::Aggiorna()
{
    Tavola &t = *tavola;
    colora(this, t.ColoreSfondoForm);
    setAutoFillBackground(true);
    if (PictureScansione)
        colora(PictureScansione, t.ColoreSfondoForm);
    for (int i = 0; i < 12; ++i) {
        sincronizzaFaccia(1, i);
        sincronizzaFaccia(2, i);
    }
    const QCursor grande = CursoreScelto(Profilo.DisabilitaMousePersonalizzato);
    for (int k = 0; k < 24; ++k) {
        const Copertura &c = t.FramePosto[k];
        Etichetta *w = FramePosto[k];
        metti(w, c.Left, c.Top, c.Width, c.Height);
        if (!t.Imp.TessereAperte)
            colora(w, c.BackColor);
        w->setEnabled(c.Enabled);
        if (c.PuntatorePersonalizzato)
            w->setCursor(grande);
        else
            w->unsetCursor();
        w->setVisible(c.Visible);
        if (c.Visible)
            w->raise();
    }
    for (auto [w, f] : {std::pair{ShapeRiquadro, &t.ShapeRiquadro}, std::pair{Shape1, &t.Shape1}}) {
        metti(w, f->Left, f->Top, f->Width, f->Height);
        w->spessore = f->BorderWidth;
        w->colore = ColoreDaNumero(f->BorderColor);
        w->setVisible(f->Visible && (w != Shape1 || t.Imp.TessereAperte));
        w->raise();
        w->update();
    }
    for (int k = 0; k < 3; ++k) {
        Pannello[k]->setText(t.StatusBar1[k].Text);
        Pannello[k]->setVisible(t.StatusBar1[k].Visible);
        MarcaPannello[k]->setPixmap(t.StatusBar1[k].Immagine ? Picture1->pixmap() : QPixmap());
        MarcaPannello[k]->setVisible(t.StatusBar1[k].Visible);
    }
    StatusBar1->raise();
    mnuAvvia->setEnabled(t.mnuAvviaEnabled);
    if (!scaricato) {
        // A timer of interval 0 never ticks, as the old one did: a damaged
        // profile's speed of 0 or less leaves the highlight still, not spinning.
        if (t.Timer1Enabled && t.Timer1Interval > 0) {
            if (Timer1.interval() != t.Timer1Interval || !Timer1.isActive())
                Timer1.start(t.Timer1Interval);
        } else {
            Timer1.stop();
        }
        if (t.Timer2Enabled && !Timer2.isActive())
            Timer2.start();
        else if (!t.Timer2Enabled)
            Timer2.stop();
    }
    if (FrameUscita->isVisible())
        FrameUscita->raise();
    segnalatore->Aggiorna();
}

void FormTavola::Attendi(double secondi)
{
    Aggiorna();
    ++atteseInCorso;
    ::Attendi(secondi);
    --atteseInCorso;
}

void FormTavola::MostraPremio()
{
    if (scaricato)
        return;
    Aggiorna();
    Schermi::MostraModale(QStringLiteral("FormPremio"));
}

bool FormTavola::event(QEvent *e)
{
    // A board left during one of its waits goes only when the move is over.
    if (e->type() == QEvent::DeferredDelete && atteseInCorso > 0) {
        eliminazioneRimandata = true;
        return true;
    }
    return Form::event(e);
}

void FormTavola::eliminaSeRimandato()
{
    if (eliminazioneRimandata && atteseInCorso == 0) {
        eliminazioneRimandata = false;
        deleteLater();
    }
}

bool FormTavola::consegnaTasto(int &codice, bool ancheSenzaFuoco)
{
    // The form sees keys before its controls; the focus holder gets them after.
    if (tavola->GestisceTasto(OrigineTasto::Form))
        tavola->TastoGiu(codice, OrigineTasto::Form);
    if (codice != 0 && PictureScansione && (ancheSenzaFuoco || focusWidget() == PictureScansione)
        && tavola->GestisceTasto(OrigineTasto::PictureScansione))
        tavola->TastoGiu(codice, OrigineTasto::PictureScansione);
    return codice == 0;
}

bool FormTavola::eventFilter(QObject *o, QEvent *e)
{
    if (o != windowHandle() || scaricato)
        return Form::eventFilter(o, e);
    if (mouseInterruttore(e)) {
        eliminaSeRimandato();
        return true;
    }
    if (e->type() != QEvent::KeyPress && e->type() != QEvent::KeyRelease)
        return Form::eventFilter(o, e);
    if (tastoInterruttore(e)) {
        eliminaSeRimandato();
        return true;
    }
    if (e->type() != QEvent::KeyPress)
        return false;
    int codice = codiceTasto(static_cast<QKeyEvent *>(e)->key());
    if (codice < 0)
        return false;
    consegnaTasto(codice, false);
    eliminaSeRimandato();
    return codice == 0;
}

void FormTavola::preparaInterruttori()
{
    interruttori->Azzera();
    TimerInterruttori.stop();
    if (Accesso.Interruttori == SceltaInterruttori::Joystick && InterruttoriTavola::ModoAScansione()) {
        if (!joystick) {
            joystick = CreaJoystick();
            connect(joystick.get(), &SorgenteJoystick::Pulsante, this, [this](int numero, bool premuto) {
                if (numero >= 0 && numero < FiltroPressioni::Interruttori)
                    Interruttore(numero, premuto);
            });
        }
    } else {
        joystick.reset();
    }
}

void FormTavola::attendiInterruttori()
{
    if (scaricato)
        return;
    if (const auto s = interruttori->Scadenza())
        TimerInterruttori.start(int(std::clamp<qint64>(*s - MomentoIngresso(), 0, FiltroPressioni::AccettazioneMassima)));
    else
        TimerInterruttori.stop();
}

void FormTavola::Interruttore(int numero, bool premuto, bool ripetizione)
{
    // The exit question is answered with its own buttons.
    if (scaricato || !InterruttoriTavola::ModoAScansione() || FrameUscita->isVisible())
        return;
    const qint64 ms = MomentoIngresso();
    if (premuto)
        interruttori->Premuto(numero, ms, ripetizione);
    else
        interruttori->Rilasciato(numero, ms, ripetizione);
    attendiInterruttori();
    eliminaSeRimandato();
}

bool FormTavola::tastoInterruttore(QEvent *e)
{
    if (!InterruttoriTavola::ModoAScansione() || FrameUscita->isVisible())
        return false;
    const auto *k = static_cast<QKeyEvent *>(e);
    int numero = -1;
    // Chosen keys serve only as a pair; short of one, the design's keys do.
    if (Accesso.Interruttori == SceltaInterruttori::TastiScelti && Accesso.Tasto1 && Accesso.Tasto2) {
        numero = k->key() == Accesso.Tasto1 ? 0 : k->key() == Accesso.Tasto2 ? 1 : -1;
    } else {
        const int codice = codiceTasto(k->key());
        numero = codice == CodiciTasto::Spazio ? 0 : codice == CodiciTasto::Invio ? 1 : -1;
    }
    if (numero < 0)
        return false;
    // With every setting at its default the design's keys go to the board at
    // once, and a key not acted on passes on as it always did; only the
    // key's auto-repeat is held back.
    if (!InterruttoriTavola::FiltroAttivo()) {
        if (e->type() != QEvent::KeyPress)
            return false;
        if (k->isAutoRepeat())
            return true;
        const qint64 ms = MomentoIngresso();
        interruttori->Premuto(numero, ms);
        interruttori->Rilasciato(numero, ms);
        return interruttori->UltimaAgita();
    }
    Interruttore(numero, e->type() == QEvent::KeyPress, k->isAutoRepeat());
    return true;
}

bool FormTavola::mouseInterruttore(QEvent *e)
{
    const auto t = e->type();
    if (t != QEvent::MouseButtonPress && t != QEvent::MouseButtonRelease && t != QEvent::MouseButtonDblClick)
        return false;
    if (Accesso.Interruttori != SceltaInterruttori::Mouse || !InterruttoriTavola::ModoAScansione()
        || FrameUscita->isVisible())
        return false;
    const auto *m = static_cast<QMouseEvent *>(e);
    // The menu bar keeps its clicks, so the board can still be left.
    if (BarraMenu && BarraMenu->geometry().contains(m->position().toPoint()))
        return false;
    const int numero = m->button() == Qt::LeftButton ? 0 : m->button() == Qt::RightButton ? 1 : -1;
    if (numero < 0)
        return false;
    // A second press soon after the first comes as a press and then as a
    // double click: the press is the switch's, the double click nothing.
    if (t != QEvent::MouseButtonDblClick)
        Interruttore(numero, t == QEvent::MouseButtonPress);
    return true;
}

void FormTavola::mnuEsci_Click()
{
    tavola->mnuEsci_Prima();
    Aggiorna();
    FrameUscita->raise();
    FrameUscita->PresentaFinestraUscita(Profilo.DisabilitaMousePersonalizzato, tavola->ColoreSfondoForm);
    Annuncia(FrameUscita);
    tavola->mnuEsci_Dopo();
    Aggiorna();
}

void FormTavola::rispondiSi()
{
    FrameUscitaTavola::SbloccaMouse();
    Schermi::Mostra(QStringLiteral("FormMenu"));
    Schermi::Scarica(this);
}

void FormTavola::rispondiNo()
{
    FrameUscitaTavola::SbloccaMouse();
    FrameUscita->hide();
    tavola->CommandNo_Timer2();
    Aggiorna();
}
