#include "platform/media/MotoreSwf.h"

#include "swf/filmato.h"

#include <QHideEvent>
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
class VistaSwf final : public QWidget
{
public:
    explicit VistaSwf(QWidget *genitore) : QWidget(genitore)
    {
        setAttribute(Qt::WA_TransparentForMouseEvents);
        orologio.setTimerType(Qt::PreciseTimer);
        QObject::connect(&orologio, &QTimer::timeout, this, [this] {
            film.avanza();
            update();
        });
    }
    ~VistaSwf() override { annulla(); }

    void carica(const QString &percorso, std::function<void()> fallito)
    {
        annulla();
        inCaricamento = true;
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
        film.riprendi();
        inRiproduzione = true;
        aggiornaOrologio();
    }
    void ferma()
    {
        film.ferma();
        inRiproduzione = false;
        aggiornaOrologio();
    }
    void primoQuadro()
    {
        if (!inCaricamento)
            film.riavvolgi();
        ferma();
        update();
    }
    bool caricando() const { return inCaricamento; }

protected:
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
        aggiornaOrologio();
    }
    void hideEvent(QHideEvent *e) override
    {
        QWidget::hideEvent(e);
        aggiornaOrologio();
    }

private:
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
        if (inRiproduzione)
            film.riprendi();
        else
            film.ferma();
        orologio.setInterval(std::max(1, static_cast<int>(std::lround(1000.0 / film.fotogrammiAlSecondo()))));
        aggiornaOrologio();
        update();
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
