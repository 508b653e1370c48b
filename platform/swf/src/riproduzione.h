#pragma once

// The live side of a film: clip instances with their display lists, the
// timeline stepping and the queue of frame scripts.

#include "modello.h"
#include "valori.h"

#include <QImage>

#include <deque>

class QPainter;

namespace swf {

struct Clip;

// Counts the live instances of one film: a film whose sprites nest and
// multiply would otherwise build an exponential tree.
struct Conteggio {
    std::shared_ptr<size_t> vive;
    Conteggio() = default;
    Conteggio(const Conteggio &) = delete;
    Conteggio &operator=(const Conteggio &) = delete;
    ~Conteggio()
    {
        if (vive)
            --*vive;
    }
};

struct Istanza {
    Conteggio conteggio;
    uint16_t carattere = 0;
    Definizione def;
    int nascita = -1;  // frame whose PlaceObject created it; -1 when made by a script
    QTransform matrice;
    ColorTransform colore;
    int rapporto = 0;
    int clip = 0;
    QByteArray nome;
    int fusione = 0;
    std::vector<Filtro> filtri;
    bool cache = false;
    bool visibile = true;
    std::shared_ptr<Clip> figli;  // sprites; for buttons, the characters of the state shown
    uint8_t statoBottone = ParteBottone::Su;
    std::vector<AzioneClip> azioniClip;  // onClipEvent handlers
    bool toccataDaScript = false;        // moved by a script: the timeline no longer moves it
    uint64_t tickNascita = 0;
};

struct Clip {
    std::shared_ptr<Sequenza> seq;
    int corrente = -1;  // 0-based, -1 before the first frame
    bool inRiproduzione = true;
    std::map<int, std::shared_ptr<Istanza>> lista;
    int annidamento = 0;
    std::weak_ptr<Clip> genitore;     // the clip it is placed in; none for the main timeline
    std::weak_ptr<Istanza> istanza;   // its place in the parent's list: _x, _alpha, _name...
    std::map<QByteArray, Valore> variabili;
};

enum class EventoPuntatore { Muove, Premi, Rilascia, Esce };

struct Riproduzione {
    std::unique_ptr<Film> film;
    std::shared_ptr<Clip> radice;
    struct Azione {
        std::weak_ptr<Clip> clip;
        QByteArray codice;
    };
    std::deque<Azione> coda;
    uint64_t tick = 0;
    std::shared_ptr<size_t> istanzeVive = std::make_shared<size_t>(0);
    // instances made since the last tick began: removing and making them
    // again must not let a multiplying tree run on without end
    size_t creazioniPasso = 0;
    // script instructions left to all the scripts of this tick together: a
    // loop in one script, or thousands of small scripts, cannot stall the face
    int64_t istruzioniPasso = 0;
    QImage tampone;  // reused by every draw of the same size
    uint64_t semeCasuale = 0x2545F4914F6CDD1Dull;  // random(): the same film draws the same numbers
    std::vector<bool> inizialiEseguite;             // frames of the main timeline whose DoInitAction ran
    SuoniFilm suoni;

    // Films loop: a picture already drawn for the same state of the display
    // list, at the same size, is shown again instead of being drawn anew.
    struct CacheQuadri {
        QSize dimensione;
        bool antialias = true;
        qint64 byte = 0;
        bool attiva = true;
        std::map<uint64_t, QImage> quadri;
        void svuota() { quadri.clear(); byte = 0; }
    } cacheQuadri;
    static constexpr qint64 kByteCacheQuadri = 4 * 1024 * 1024;
    // A fingerprint of everything that decides the picture of the current frame.
    uint64_t firmaStato() const;

    // Back to the state before the first frame, then shows frame 1.
    void inizia();
    // One tick: every clip advances, then the queued scripts run.
    void passo();
    void vaiA(const std::shared_ptr<Clip> &c, int fotogramma, bool suona);
    void eseguiCoda();

    // Timeline internals
    void eseguiFotogramma(const std::shared_ptr<Clip> &c, int f, bool accodaAzioni);
    void ricostruisci(const std::shared_ptr<Clip> &c, int f);
    void accoda(const std::shared_ptr<Clip> &c, int f);
    void avanzaAlbero(const std::shared_ptr<Clip> &c);
    std::shared_ptr<Istanza> nuovaIstanza(const Piazza &p, int nascita, int annidamento,
                                          const std::shared_ptr<Clip> &genitore = {});

    // Buttons (bottoni.cpp). Points are in twips of the stage.
    struct Puntatore {
        QPointF punto;
        bool premuto = false;
        bool fuori = false;  // held down and dragged off the button it pressed
        std::weak_ptr<Istanza> sotto, preso;
        std::weak_ptr<Clip> sottoClip, presoClip;
    } puntatore;
    void eventoPuntatore(EventoPuntatore e, const QPointF &punto);
    void statoBottone(Istanza &ist, uint8_t stato, int annidamento);
    void transizioneBottone(const std::shared_ptr<Istanza> &ist, const std::shared_ptr<Clip> &clip, uint16_t transizione,
                            uint8_t stato);
};

void applicaPiazza(Istanza &i, const Piazza &p);

// avm1.cpp
void eseguiAvm1(Riproduzione &r, const std::shared_ptr<Clip> &clip, const QByteArray &codice);

// disegno.cpp
struct OpzioniDisegno {
    bool antialias = true;
    double scalaScena = 1;  // device pixels per stage pixel
};
void disegnaFilm(QImage &dest, const Riproduzione &r, const QTransform &scenaADispositivo, const OpzioniDisegno &o);

} // namespace swf
