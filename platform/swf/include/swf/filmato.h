#pragma once

// A film in SWF format, read and played natively: the film faces, the reward
// screen and the editors' previews use it as their backend.

#include <QByteArray>
#include <QPointF>
#include <QColor>
#include <QRectF>
#include <QSize>
#include <QString>

#include <memory>

class QPainter;
class QImage;

namespace swf {

struct Riproduzione;
class MixerFilm;
class UscitaSuono;

class Filmato {
public:
    Filmato();
    ~Filmato();
    Filmato(Filmato &&) noexcept;
    Filmato &operator=(Filmato &&) noexcept;
    Filmato(const Filmato &) = delete;
    Filmato &operator=(const Filmato &) = delete;

    // Any unreadable or malformed input leaves an empty, invalid film.
    bool caricaFile(const QString &percorso);
    bool caricaDati(const QByteArray &dati);

    bool valido() const;
    // Kept for callers that prefer the English spelling.
    bool valid() const { return valido(); }

    QSize dimensioneScena() const;      // stage size in pixels
    double fotogrammiAlSecondo() const;  // frame rate, never 0 for a valid film
    int numeroFotogrammi() const;        // frames of the main timeline
    QColor coloreSfondo() const;         // white when the film sets none
    int versione() const;

    // Current frame of the main timeline, 1-based; 0 before the first tick.
    int fotogrammaCorrente() const;
    bool inRiproduzione() const;

    // Back to the first frame, as just loaded and shown once.
    void riavvolgi();
    // Jumps the main timeline to a 1-based frame, running its scripts.
    void vaiAlFotogramma(int fotogramma);
    // One tick of the timeline: frame advance of every clip plus scripts.
    void avanza();
    void ferma();
    void riprendi();

    // Draws the current frame scaled "show all" into target: uniform,
    // centred, letterboxed. The bars are left untouched.
    void disegna(QPainter &painter, const QRectF &target, bool antialias) const;
    // Renders into a fresh image the given size (e.g. for tests and thumbnails).
    QImage immagine(const QSize &dimensione, bool antialias) const;

    // disegna() keeps the pictures it drew, up to a few megabytes, and shows
    // one again when the film comes back to the same state (every loop).
    // On for every film loaded; off, every frame is drawn anew.
    void impostaCacheQuadri(bool attiva);

    // The pointer over the film, in the coordinates of the rectangle the film
    // is drawn into with disegna(): buttons light up, go down and run their
    // actions and sounds. A face on the board never calls these: a click
    // there belongs to the tile.
    void muoviPuntatore(const QRectF &target, const QPointF &punto);
    void premiPuntatore(const QRectF &target, const QPointF &punto);
    void rilasciaPuntatore(const QRectF &target, const QPointF &punto);
    void puntatoreUscito();
    bool puntatoreSuPulsante() const;

    // Rough bytes held by this film (file data, decoded bitmaps, caches).
    qint64 memoriaUsata() const;

    // Sound. The mixer of the game pulls the film's sound from uscitaSuono(),
    // on its own thread. A film is loaded silent; impostaSuono(true) lets it
    // sound, and the sounds of the frame it stands on start then. Off, every
    // sound of the film stops at once.
    std::shared_ptr<UscitaSuono> uscitaSuono() const;
    void impostaSuono(bool attivo);
    bool suonoAttivo() const;
    // Until the film is rewound no new sound starts, its soundtrack stops and
    // the sounds that play end the pass they are in.
    void congedaSuoni();

private:
    std::unique_ptr<Riproduzione> d;
    std::shared_ptr<MixerFilm> mixer;
};

// What the calling thread has done for films so far, counted in work rather
// than time: the bytes of film bodies unpacked and read, and the units of
// drawing work. Lets a caller show that heavy loads ran on another thread.
struct LavoroThread {
    qint64 byteLetti = 0;
    qint64 lavoroDisegno = 0;
};
LavoroThread lavoroDelThread();

} // namespace swf
