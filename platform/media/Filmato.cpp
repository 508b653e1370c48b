#include "platform/media/Filmato.h"

#include "platform/Percorsi.h"
#ifdef COPPIE_CON_MOTORE_SWF
#include "platform/media/MotoreSwf.h"
#endif

#include <QBuffer>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QLabel>
#include <QMediaPlayer>
#include <QMimeDatabase>
#include <QMovie>
#include <QResizeEvent>
#include <QTimer>
#include <QVideoWidget>

namespace {

// Animated images through QMovie.
class MotoreImmagineAnimata final : public MotoreFilm
{
public:
    explicit MotoreImmagineAnimata(QWidget *genitore) : etichetta(new QLabel(genitore))
    {
        etichetta->setScaledContents(true);
        etichetta->setAttribute(Qt::WA_TransparentForMouseEvents);
    }
    ~MotoreImmagineAnimata() override { delete etichetta; }
    bool Carica(const QString &f) override
    {
        movie = new QMovie(f, QByteArray(), etichetta);
        if (!movie->isValid())
            return false;
        movie->setCacheMode(QMovie::CacheAll);
        etichetta->setMovie(movie);
        movie->jumpToFrame(0);
        return true;
    }
    void Play() override
    {
        if (movie->state() == QMovie::Paused)
            movie->setPaused(false);
        else if (movie->state() == QMovie::NotRunning)
            movie->start();
    }
    void Stop() override
    {
        if (movie->state() == QMovie::Running)
            movie->setPaused(true);
    }
    void PrimoQuadro() override
    {
        movie->stop();
        movie->jumpToFrame(0);
    }
    QWidget *Vista() override { return etichetta; }

private:
    QLabel *etichetta;
    QMovie *movie = nullptr;
};

// Video files through Qt Multimedia; silent, as the faces always were.
class MotoreVideo final : public MotoreFilm
{
public:
    explicit MotoreVideo(QWidget *genitore) : video(new QVideoWidget(genitore)), lettore(new QMediaPlayer(video))
    {
        video->setAttribute(Qt::WA_TransparentForMouseEvents);
        video->setAspectRatioMode(Qt::KeepAspectRatio);
        lettore->setVideoOutput(video);
        lettore->setLoops(QMediaPlayer::Infinite);
    }
    ~MotoreVideo() override { delete video; }
    bool Carica(const QString &f) override
    {
        lettore->setSource(QUrl::fromLocalFile(f));
        if (lettore->error() != QMediaPlayer::NoError)
            return false;
        lettore->pause();
        return true;
    }
    void Play() override { lettore->play(); }
    void Stop() override { lettore->pause(); }
    void PrimoQuadro() override
    {
        lettore->pause();
        lettore->setPosition(0);
    }
    QWidget *Vista() override { return video; }

private:
    QVideoWidget *video;
    QMediaPlayer *lettore;
};

QList<MotoreRegistrato> &motori()
{
    static QList<MotoreRegistrato> m = [] {
        QList<MotoreRegistrato> l;
        l << MotoreRegistrato{QStringLiteral("video"),
                              [](const QByteArray &inizio, const QString &suffisso) {
                                  const QMimeDatabase db;
                                  return db.mimeTypeForData(inizio).name().startsWith(QLatin1String("video/"))
                                         || db.mimeTypeForFile(QStringLiteral("x.") + suffisso,
                                                               QMimeDatabase::MatchExtension)
                                                .name()
                                                .startsWith(QLatin1String("video/"));
                              },
                              [](QWidget *g) { return std::make_unique<MotoreVideo>(g); }};
        l << MotoreRegistrato{QStringLiteral("immagine animata"),
                              [](const QByteArray &inizio, const QString &) {
                                  QByteArray copia = inizio;
                                  QBuffer b(&copia);
                                  return QImageReader(&b).canRead();
                              },
                              [](QWidget *g) { return std::make_unique<MotoreImmagineAnimata>(g); }};
#ifdef COPPIE_CON_MOTORE_SWF
        l << MotoreSwf(); // last, so asked first
#endif
        return l;
    }();
    return m;
}

} // namespace

void RegistraMotoreFilm(MotoreRegistrato motore) { motori().append(std::move(motore)); }

Filmato::Filmato(QWidget *parent) : QWidget(parent) {}
Filmato::~Filmato() = default;

void Filmato::setMovie(const QString &percorso)
{
    film = percorso;
    ++generazione;
    motore.reset();
    nomeMotore.clear();
    riproduce = false;
    if (percorso.isEmpty())
        return;
    const QString locale = PercorsoLocale(percorso);
    QFile f(locale);
    if (!f.open(QIODevice::ReadOnly))
        return;
    const QByteArray inizio = f.read(4096);
    f.close();
    const QString suffisso = QFileInfo(locale).suffix().toLower();
    const QList<MotoreRegistrato> &elenco = motori();
    for (auto it = elenco.crbegin(); it != elenco.crend(); ++it) {
        if (!it->riconosce(inizio, suffisso))
            continue;
        std::unique_ptr<MotoreFilm> m = it->crea(this);
        if (!m)
            return;
        // a file found unplayable after a load in the background empties the face
        m->QuandoFallisce([this, g = generazione] {
            // later: the backend is still inside its own call
            QTimer::singleShot(0, this, [this, g] {
                if (g == generazione && motore) {
                    motore.reset();
                    nomeMotore.clear();
                }
            });
        });
        if (!m->Carica(locale))
            return;
        m->ImpostaSonoro(sonoro);
        m->ImpostaCliccabile(cliccabile);
        m->Vista()->setGeometry(rect());
        m->Vista()->show();
        motore = std::move(m);
        nomeMotore = it->nome;
        return;
    }
}

void Filmato::Play()
{
    if (motore)
        motore->Play();
    riproduce = true;
}

void Filmato::Stop()
{
    if (motore)
        motore->Stop();
    riproduce = false;
}

void Filmato::StopPlay()
{
    if (motore)
        motore->PrimoQuadro();
    riproduce = false;
}

void Filmato::ImpostaSonoro(Sonoro s)
{
    sonoro = s;
    if (motore)
        motore->ImpostaSonoro(s);
}

void Filmato::ImpostaCliccabile(bool si)
{
    cliccabile = si;
    if (motore)
        motore->ImpostaCliccabile(si);
}

void Filmato::AvanzaFotogramma()
{
    if (motore)
        motore->Passo();
}

void Filmato::resizeEvent(QResizeEvent *e)
{
    QWidget::resizeEvent(e);
    if (motore)
        motore->Vista()->setGeometry(rect());
}
