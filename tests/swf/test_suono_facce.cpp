// Which films are heard: the film face plays its film's sound into the game's
// mixer as the reward and the editors' previews want it (always) or as the
// board wants it (from the found pair's Play to the end of the first run
// through). Stopping or hiding a face silences it at once; a face that is
// gone leaves nothing in the mixer. The test reads the mixer itself and
// moves the faces' clocks by hand: nothing waits.

#include "AttendiLavoro.h"
#include "costruttore.h"
#include "platform/audio/MotoreAudio.h"
#include "platform/media/Filmato.h"

#include <QApplication>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <cmath>

using namespace swftest;

namespace {

constexpr double kFps = 24;

std::vector<int16_t> tono(int n, int hz, double f)
{
    std::vector<int16_t> c;
    for (int i = 0; i < n; ++i)
        c.push_back(static_cast<int16_t>(std::lround(12000 * std::sin(2 * M_PI * f * i / hz))));
    return c;
}

// 12 frames with a soundtrack (4-bit ADPCM), and an event sound of a quarter
// of a second on frame 1 that asks for 50 passes.
QByteArray filmConSuono()
{
    InfoAvvio i;
    i.ripetizioni = 50;
    QByteArray t = defineSound(1, 3, 44100, true, false, 11025, pcm16(tono(11025, 44100, 880))) + startSound(1, i) +
                   fotogrammiConFlusso(1, tono(22050, 22050, 330), 1, 22050, kFps, 12);
    return film(t, 12, 100, 100, 10, kFps);
}

double picco(const std::vector<float> &b)
{
    double m = 0;
    for (float v : b)
        m = std::max(m, static_cast<double>(std::abs(v)));
    return m;
}

} // namespace

class TestSuonoFacce : public QObject
{
    Q_OBJECT
    QTemporaryDir cartella;
    QString percorso;

    audio::Mixer &mixer() { return audio::MotoreAudio::istanza().mixer(); }

    // one frame of the face's clock, and the sound of that frame
    std::vector<float> fotogramma(Filmato *f = nullptr)
    {
        const int n = static_cast<int>(mixer().frequenza() / kFps);
        std::vector<float> b(static_cast<size_t>(2 * n));
        mixer().leggi(b.data(), n);
        if (f)
            f->AvanzaFotogramma();
        return b;
    }

    // the film is read off the interface thread: the face waits for it
    static void attendi(Filmato &f) { AttendiFinche([&f] { return !f.InCaricamento(); }); }

    void prepara(Filmato &f, Sonoro s)
    {
        f.resize(100, 100);
        f.show();
        f.ImpostaSonoro(s);
        f.setMovie(percorso);
        f.StopPlay();
        attendi(f);
    }

private slots:
    void initTestCase()
    {
        percorso = cartella.filePath(QStringLiteral("cane.swf"));
        QFile f(percorso);
        QVERIFY(f.open(QIODevice::WriteOnly));
        f.write(filmConSuono());
    }

    void aFaceAtRestMakesNoSound()
    {
        Filmato f;
        prepara(f, Sonoro::Sempre);
        QCOMPARE(picco(fotogramma()), 0.0);
    }

    void aFilmPlayedWhileItIsReadSoundsOnceItIsReady()
    {
        // the reward screen: Movie, then Play at once
        Filmato f;
        f.resize(100, 100);
        f.show();
        f.setMovie(percorso);
        f.Play();
        attendi(f);
        QVERIFY(picco(fotogramma(&f)) > 0.3);
    }

    void theRewardFilmIsHeardFromItsPlayAndOnEveryLoop()
    {
        Filmato f;
        prepara(f, Sonoro::Sempre);
        f.Play();
        // heard at once: the frame it rested on sounds with the Play
        QVERIFY(picco(fotogramma(&f)) > 0.3);
        for (int giro = 0; giro < 3; ++giro)
            for (int k = 0; k < 12; ++k)
                QVERIFY(picco(fotogramma(&f)) > 0.2);
    }

    void aBoardFaceIsHeardForItsFirstRunThroughOnly()
    {
        Filmato f;
        prepara(f, Sonoro::PrimoGiro);
        f.Play();
        for (int k = 0; k < 12; ++k)
            QVERIFY2(picco(fotogramma(&f)) > 0.2, qPrintable(QString::number(k)));
        // back on frame 1: the soundtrack stops, the event sound ends its pass, nothing new starts
        bool muto = false;
        for (int k = 0; k < 30 && !muto; ++k)
            muto = picco(fotogramma(&f)) == 0.0;
        QVERIFY(muto);
        for (int k = 0; k < 36; ++k)
            QCOMPARE(picco(fotogramma(&f)), 0.0);
        // a new deal: rewound and played, it sounds again
        f.StopPlay();
        f.Play();
        QVERIFY(picco(fotogramma(&f)) > 0.3);
    }

    void stoppingAFilmSilencesItAtOnce()
    {
        Filmato f;
        prepara(f, Sonoro::Sempre);
        f.Play();
        fotogramma(&f);
        f.Stop();
        QCOMPARE(picco(fotogramma(&f)), 0.0);
        f.Play();
        QVERIFY(picco(fotogramma(&f)) > 0.2);  // the soundtrack goes on where the film stands
        f.StopPlay();
        QCOMPARE(picco(fotogramma(&f)), 0.0);
    }

    void hidingAFilmSilencesItAndShowingItLetsItSoundAgain()
    {
        QWidget schermo;
        schermo.resize(200, 200);
        auto *f = new Filmato(&schermo);
        schermo.show();
        prepara(*f, Sonoro::Sempre);
        f->Play();
        fotogramma(f);
        schermo.hide();  // the screen is hidden: the face with it
        QCOMPARE(picco(fotogramma(f)), 0.0);
        schermo.show();
        QVERIFY(picco(fotogramma(f)) > 0.2);
        f->hide();
        QCOMPARE(picco(fotogramma(f)), 0.0);
    }

    void leavingAScreenLeavesNoSoundBehind()
    {
        const size_t prima = mixer().numeroSorgenti();
        {
            QWidget schermo;
            std::vector<Filmato *> facce;
            for (int i = 0; i < 6; ++i) {
                auto *f = new Filmato(&schermo);
                f->setGeometry(0, 0, 50, 50);
                f->ImpostaSonoro(Sonoro::Sempre);
                f->setMovie(percorso);
                f->Play();
                facce.push_back(f);
            }
            schermo.show();
            for (Filmato *f : facce)
                attendi(*f);
            QVERIFY(mixer().numeroSorgenti() >= prima + 6);
            QVERIFY(picco(fotogramma()) > 0.2);
        }
        QCOMPARE(mixer().numeroSorgenti(), prima);
        QCOMPARE(picco(fotogramma()), 0.0);
    }

    void aMutedFilmIsNeverHeard()
    {
        Filmato f;
        prepara(f, Sonoro::Muto);
        f.Play();
        for (int k = 0; k < 5; ++k)
            QCOMPARE(picco(fotogramma(&f)), 0.0);
    }

    void aNewMovieStopsTheSoundOfTheOldOne()
    {
        Filmato f;
        prepara(f, Sonoro::Sempre);
        f.Play();
        fotogramma(&f);
        f.setMovie(QString());
        QCOMPARE(picco(fotogramma(&f)), 0.0);
    }
};

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    audio::MotoreAudio::SenzaDispositivo();
    TestSuonoFacce t;
    return QTest::qExec(&t, argc, argv);
}
#include "test_suono_facce.moc"
