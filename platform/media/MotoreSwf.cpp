#include "platform/media/MotoreSwf.h"

#include "swf/filmato.h"

#include <QHideEvent>
#include <QPainter>
#include <QShowEvent>
#include <QTimer>

#include <cmath>

namespace {

// Paints the current frame "show all" into itself; the letterbox bars take the
// film's background colour. The timer runs only while the face is shown and
// playing, so a board full of resting faces costs nothing.
class VistaSwf final : public QWidget
{
public:
    explicit VistaSwf(QWidget *genitore) : QWidget(genitore)
    {
        setAttribute(Qt::WA_TransparentForMouseEvents);
        setAttribute(Qt::WA_OpaquePaintEvent);
        orologio.setTimerType(Qt::PreciseTimer);
        QObject::connect(&orologio, &QTimer::timeout, this, [this] {
            film.avanza();
            update();
        });
    }

    bool carica(const QString &f)
    {
        if (!film.caricaFile(f))
            return false;
        film.ferma();
        orologio.setInterval(std::max(1, static_cast<int>(std::lround(1000.0 / film.fotogrammiAlSecondo()))));
        return true;
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
        film.riavvolgi();
        ferma();
        update();
    }
    int fotogramma() const { return film.fotogrammaCorrente(); }

protected:
    void paintEvent(QPaintEvent *) override
    {
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
    bool inRiproduzione = false;
};

class MotoreSwfFilm final : public MotoreFilm
{
public:
    explicit MotoreSwfFilm(QWidget *genitore) : vista(new VistaSwf(genitore)) {}
    ~MotoreSwfFilm() override { delete vista; }
    bool Carica(const QString &f) override { return vista->carica(f); }
    void Play() override { vista->suona(); }
    void Stop() override { vista->ferma(); }
    void PrimoQuadro() override { vista->primoQuadro(); }
    QWidget *Vista() override { return vista; }

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
