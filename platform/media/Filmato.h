#pragma once

#include <QByteArray>
#include <QString>
#include <QWidget>

#include <functional>
#include <memory>

// When a film face is heard: always (the reward, the editors' previews), only
// from its Play to the end of its first run through (a face on the board, so
// that a board of found pairs makes no din), or never.
enum class Sonoro { Sempre, PrimoGiro, Muto };

// What plays a film inside a Filmato: one per kind of file. SWF movies get
// their own later; animated images and video files have theirs here.
class MotoreFilm
{
public:
    virtual ~MotoreFilm() = default;
    // Loads a local file and rests on its first picture; false when it can't.
    virtual bool Carica(const QString &fileLocale) = 0;
    virtual void Play() = 0;      // from where it stands, looping
    virtual void Stop() = 0;      // holds the picture it shows
    virtual void PrimoQuadro() = 0; // back to the first picture, still
    virtual QWidget *Vista() = 0; // the widget that shows it, a child of the Filmato
    // A backend that loads in the background says here that it is not done;
    // when the file turns out unplayable it calls the function it was given.
    virtual bool InCaricamento() const { return false; }
    void QuandoFallisce(std::function<void()> f) { fallito = std::move(f); }
    virtual void ImpostaSonoro(Sonoro) {}
    virtual void ImpostaCliccabile(bool) {}
    virtual void Passo() {}       // one tick of its own clock

protected:
    std::function<void()> fallito;
};

// A backend chooses itself by the first bytes of the file and its suffix.
struct MotoreRegistrato {
    QString nome;
    std::function<bool(const QByteArray &inizio, const QString &suffisso)> riconosce;
    std::function<std::unique_ptr<MotoreFilm>(QWidget *genitore)> crea;
};
// A later registration is asked first, so a new backend can take over a kind.
void RegistraMotoreFilm(MotoreRegistrato motore);

// The film face: loads a file by path (Movie), rests on its first picture
// until told to play, then loops. A file that can't be played leaves an
// empty face and no message.
class Filmato : public QWidget
{
    Q_OBJECT
public:
    explicit Filmato(QWidget *parent = nullptr);
    ~Filmato() override;

    QString Movie() const { return film; }
    void setMovie(const QString &percorso); // a game path; empty empties the face
    void Play();
    void Stop();
    void StopPlay(); // to the first picture and still

    bool InRiproduzione() const { return riproduce; }
    QString NomeMotore() const { return nomeMotore; } // empty when the face is empty
    // True while the file is still being read off the interface thread: the
    // face shows nothing until its first picture is ready.
    bool InCaricamento() const { return motore && motore->InCaricamento(); }

    // Stopping or hiding a film silences it at once, whatever the setting.
    void ImpostaSonoro(Sonoro s);
    Sonoro SonoroImpostato() const { return sonoro; }

    // Where the film can be clicked (the reward, the editors' previews) the
    // pointer reaches the film's buttons. Off by default: on the board a
    // click on a face belongs to the tile.
    void ImpostaCliccabile(bool si);
    bool Cliccabile() const { return cliccabile; }

    // One tick of the film's clock, as its timer gives it. For tests.
    void AvanzaFotogramma();

protected:
    void resizeEvent(QResizeEvent *e) override;

private:
    QString film;
    QString nomeMotore;
    std::unique_ptr<MotoreFilm> motore;
    quint64 generazione = 0; // one a file set, so a late failure of an old load is ignored
    bool riproduce = false;
    Sonoro sonoro = Sonoro::Sempre;
    bool cliccabile = false;
};
