#include "platform/media/MotoreSwf.h"

#include "platform/audio/MotoreAudio.h"
#include "swf/filmato.h"
#include "swf/suono.h"

#include <QHideEvent>
#include <QMouseEvent>
#include <QImage>
#include <QMutex>
#include <QPainter>
#include <QShowEvent>
#include <QThreadPool>
#include <QTimer>

#include <cmath>
#include <memory>

namespace {

// Films are read and first drawn here, never on the interface thread: a
// damaged or hostile file (one that unpacks to a gigabyte) costs a worker its
// time, not the board. Two workers at most, so a board of 24 faces loading at
// once leaves the machine its other work.
QThreadPool &lettori()
{
    // at exit it waits for a load under way, which its own limits keep short
    static QThreadPool pool;
    static const bool fatto = (pool.setMaxThreadCount(2), true);
    (void)fatto;
    return pool;
}

// What the interface and a load in the background share: the load gives its
// film back only while the view that asked for it still wants it.
struct Caricamento {
    QMutex mutex;
    bool annullato = false;
};

// Paints the current frame "show all" into itself; the letterbox bars take the
// film's background colour. The timer runs only while the face is shown and
// playing, so a board full of resting faces costs nothing. Until the first
// picture of its film is ready the view stays hidden: the face shows nothing.
// Its sound is a source of the game's mixer for as long as the view lives,
// heard only while the face plays and is shown.
class VistaSwf final : public QWidget
{
public:
    explicit VistaSwf(QWidget *genitore) : QWidget(genitore)
    {
        setAttribute(Qt::WA_TransparentForMouseEvents);
        orologio.setTimerType(Qt::PreciseTimer);
        QObject::connect(&orologio, &QTimer::timeout, this, [this] { passo(); });
        collegaSuono();
    }
    ~VistaSwf() override
    {
        annulla();
        film.impostaSuono(false);
        audio::MotoreAudio::istanza().mixer().togli(sorgente.get());
    }

    void passo()
    {
        const int prima = film.fotogrammaCorrente();
        // the last frame goes back to the first: the first run through ends
        // before frame 1 starts its sounds again
        if (sonoro == Sonoro::PrimoGiro && primoGiro && prima >= film.numeroFotogrammi() && film.inRiproduzione())
            chiudiPrimoGiro();
        film.avanza();
        // or a script took it back to a frame it has shown
        if (sonoro == Sonoro::PrimoGiro && primoGiro && film.fotogrammaCorrente() <= prima)
            chiudiPrimoGiro();
        update();
    }
    void impostaSonoro(Sonoro s)
    {
        sonoro = s;
        aggiornaSuono();
    }

    void carica(const QString &percorso, std::function<void()> fallito)
    {
        annulla();
        inCaricamento = true;
        riavvolto = true;
        primoGiro = false;
        const auto stato = std::make_shared<Caricamento>();
        attuale = stato;
        update();
        // the first picture is drawn at the size the face has now
        const qreal dpr = devicePixelRatioF();
        const QSize lato = parentWidget() ? parentWidget()->size() : size();
        VistaSwf *io = this;
        lettori().start([stato, percorso, lato, dpr, io, fallito = std::move(fallito)]() mutable {
            {
                QMutexLocker l(&stato->mutex);
                if (stato->annullato)
                    return;
            }
            auto f = std::make_shared<swf::Filmato>();
            const bool ok = f->caricaFile(percorso);
            if (ok) {
                f->ferma();
                if (!lato.isEmpty()) {
                    QImage prima(lato * dpr, QImage::Format_ARGB32_Premultiplied);
                    prima.setDevicePixelRatio(dpr);
                    QPainter p(&prima);
                    f->disegna(p, QRectF(QPointF(0, 0), QSizeF(lato)), true);
                }
            }
            QMutexLocker l(&stato->mutex);
            if (stato->annullato)
                return;
            // posted under the lock, while the view is surely alive: one that
            // goes away later drops the call unrun
            QMetaObject::invokeMethod(
                io,
                [io, stato, f, ok, fallito] {
                    if (io->attuale != stato)
                        return;
                    if (ok)
                        io->pronto(std::move(*f));
                    else {
                        io->inCaricamento = false;
                        if (fallito)
                            fallito();
                    }
                },
                Qt::QueuedConnection);
        });
    }
    void suona()
    {
        if (riavvolto) {
            riavvolto = false;
            primoGiro = true;
        }
        film.riprendi();
        inRiproduzione = true;
        aggiornaSuono();
        aggiornaOrologio();
    }
    void ferma()
    {
        film.ferma();
        inRiproduzione = false;
        aggiornaSuono();
        aggiornaOrologio();
    }
    void primoQuadro()
    {
        inRiproduzione = false;
        aggiornaSuono();
        if (!inCaricamento)
            film.riavvolgi();
        riavvolto = true;
        primoGiro = false;
        ferma();
        update();
    }
    bool caricando() const { return inCaricamento; }
    void impostaCliccabile(bool si)
    {
        setAttribute(Qt::WA_TransparentForMouseEvents, !si);
        setMouseTracking(si);
        if (!si)
            film.puntatoreUscito();
    }

protected:
    void mouseMoveEvent(QMouseEvent *e) override
    {
        if (inCaricamento)
            return;
        film.muoviPuntatore(QRectF(rect()), e->position());
        dopoPuntatore();
    }
    void mousePressEvent(QMouseEvent *e) override
    {
        if (inCaricamento || e->button() != Qt::LeftButton)
            return;
        film.premiPuntatore(QRectF(rect()), e->position());
        dopoPuntatore();
    }
    void mouseReleaseEvent(QMouseEvent *e) override
    {
        if (inCaricamento || e->button() != Qt::LeftButton)
            return;
        film.rilasciaPuntatore(QRectF(rect()), e->position());
        dopoPuntatore();
    }
    void leaveEvent(QEvent *e) override
    {
        QWidget::leaveEvent(e);
        if (inCaricamento)
            return;
        film.puntatoreUscito();
        dopoPuntatore();
    }
    void paintEvent(QPaintEvent *) override
    {
        if (inCaricamento)
            return;  // nothing yet: what lies behind the face shows through
        QPainter p(this);
        p.fillRect(rect(), film.coloreSfondo());
        film.disegna(p, QRectF(rect()), true);
    }
    void showEvent(QShowEvent *e) override
    {
        QWidget::showEvent(e);
        aggiornaSuono();
        aggiornaOrologio();
    }
    void hideEvent(QHideEvent *e) override
    {
        QWidget::hideEvent(e);
        aggiornaSuono();
        aggiornaOrologio();
    }

private:
    // a button's new state shows at once; the pointer keeps the game's own shape
    void dopoPuntatore() { update(); }
    void annulla()
    {
        if (!attuale)
            return;
        QMutexLocker l(&attuale->mutex);
        attuale->annullato = true;
        l.unlock();
        attuale.reset();
    }
    void pronto(swf::Filmato &&nuovo)
    {
        attuale.reset();
        inCaricamento = false;
        setAttribute(Qt::WA_OpaquePaintEvent);
        film = std::move(nuovo);
        collegaSuono();
        if (inRiproduzione)
            film.riprendi();
        else
            film.ferma();
        aggiornaSuono();
        orologio.setInterval(std::max(1, static_cast<int>(std::lround(1000.0 / film.fotogrammiAlSecondo()))));
        aggiornaOrologio();
        update();
    }
    // the mixer reads the sound of the film the view holds now
    void collegaSuono()
    {
        audio::Mixer &mixer = audio::MotoreAudio::istanza().mixer();
        if (sorgente)
            mixer.togli(sorgente.get());
        std::shared_ptr<swf::UscitaSuono> uscita = film.uscitaSuono();
        sorgente = std::make_shared<audio::SorgenteFunzione>([uscita](float *stereo, int n, int hz) {
            if (uscita)
                uscita->mescola(stereo, n, hz);
        });
        mixer.aggiungi(sorgente);
    }
    void chiudiPrimoGiro()
    {
        primoGiro = false;
        film.congedaSuoni();
    }
    void aggiornaSuono()
    {
        // after the first run through the film itself lets no new sound start
        film.impostaSuono(inRiproduzione && isVisible() && sonoro != Sonoro::Muto &&
                          (sonoro != Sonoro::PrimoGiro || !riavvolto));
        // a film of one frame is through its first run once its sounds start
        if (sonoro == Sonoro::PrimoGiro && primoGiro && film.suonoAttivo() && film.numeroFotogrammi() <= 1)
            chiudiPrimoGiro();
    }
    void aggiornaOrologio()
    {
        const bool serve = inRiproduzione && isVisible() && film.numeroFotogrammi() > 1;
        if (serve && !orologio.isActive())
            orologio.start();
        else if (!serve)
            orologio.stop();
    }

    swf::Filmato film;
    QTimer orologio{this};
    std::shared_ptr<Caricamento> attuale;
    bool inCaricamento = false;
    bool inRiproduzione = false;
    Sonoro sonoro = Sonoro::Sempre;
    bool riavvolto = true;   // resting on frame 1 since the load or StopPlay
    bool primoGiro = false;  // played from there, not yet back to a frame shown
    std::shared_ptr<audio::Sorgente> sorgente;
};

class MotoreSwfFilm final : public MotoreFilm
{
public:
    explicit MotoreSwfFilm(QWidget *genitore) : vista(new VistaSwf(genitore)) {}
    ~MotoreSwfFilm() override { delete vista; }
    bool Carica(const QString &f) override
    {
        vista->carica(f, [this] {
            if (fallito)
                fallito();
        });
        return true;
    }
    void Play() override { vista->suona(); }
    void Stop() override { vista->ferma(); }
    void PrimoQuadro() override { vista->primoQuadro(); }
    QWidget *Vista() override { return vista; }
    bool InCaricamento() const override { return vista->caricando(); }
    void ImpostaSonoro(Sonoro s) override { vista->impostaSonoro(s); }
    void Passo() override { vista->passo(); }
    void ImpostaCliccabile(bool si) override { vista->impostaCliccabile(si); }

private:
    VistaSwf *vista;
};

} // namespace

MotoreRegistrato MotoreSwf()
{
    return MotoreRegistrato{QStringLiteral("swf"),
                            [](const QByteArray &inizio, const QString &) {
                                // FWS plain, CWS zlib, ZWS LZMA: the signature alone decides
                                return inizio.size() >= 8 && inizio[1] == 'W' && inizio[2] == 'S'
                                       && (inizio[0] == 'F' || inizio[0] == 'C' || inizio[0] == 'Z');
                            },
                            [](QWidget *g) { return std::make_unique<MotoreSwfFilm>(g); }};
}
