// The reward is heard: each of the game's own reward films, alone in the
// program's film folder, opens on the reward screen and plays its soundtrack
// into the game's mixer. The test reads the mixer as the device would, one
// tick of the film's clock at a time, writes what it reads to a WAV file as
// the game's capture does, reads the file back and measures its level. When
// the screen closes, its sound goes with it.
//
// Nothing waits on a clock: the engine has no device, and the film moves
// only when the test ticks it.

#include "AmbienteProva.h"

#include "board/FormPremio.h"
#include "board/RegistraBoard.h"
#include "platform/Schermi.h"
#include "platform/Twips.h"
#include "platform/audio/DecodificaFile.h"
#include "platform/audio/MotoreAudio.h"
#include "platform/audio/ScrittoreWav.h"
#include "platform/media/Filmato.h"
#include "profiles/Profilo.h"
#include "swf/filmato.h"

#include <QApplication>
#include <QPushButton>

#include <cmath>

namespace {

const QString FilmGioco = QStringLiteral(COPPIE_SORGENTI "/app/programma/swf");

struct Livello {
    double rms = 0;       // of both channels, full scale 1
    double picco = 0;
    double sonoro = 0;    // seconds in 1/24 s pieces louder than -40 dBFS
    double primo = -1;    // the second the first such piece starts at
};

// The level of frames [da, a) of a stereo capture.
Livello misura(const audio::Pcm &p, size_t da, size_t a)
{
    Livello l;
    a = std::min(a, p.fotogrammi());
    if (a <= da)
        return l;
    double somma = 0;
    for (size_t i = 2 * da; i < 2 * a; ++i) {
        const double x = p.campioni[i] / 32768.0;
        somma += x * x;
        l.picco = std::max(l.picco, std::abs(x));
    }
    l.rms = std::sqrt(somma / static_cast<double>(2 * (a - da)));
    const size_t pezzo = static_cast<size_t>(p.frequenza / 24);
    for (size_t k = da; k + pezzo <= a; k += pezzo) {
        double s = 0;
        for (size_t i = 2 * k; i < 2 * (k + pezzo); ++i)
            s += (p.campioni[i] / 32768.0) * (p.campioni[i] / 32768.0);
        if (std::sqrt(s / static_cast<double>(2 * pezzo)) > 0.01) {
            l.sonoro += 1.0 / 24;
            if (l.primo < 0)
                l.primo = static_cast<double>(k - da) / p.frequenza;
        }
    }
    return l;
}

double dB(double x) { return x > 0 ? 20 * std::log10(x) : -200; }

} // namespace

class TestPremioSonoro : public QObject
{
    Q_OBJECT
    std::unique_ptr<AmbienteProva> amb;

    audio::Mixer &mixer() { return audio::MotoreAudio::istanza().mixer(); }

private slots:
    void initTestCase()
    {
        ImpostaSchermoPerProve(QRect(0, 0, 1024, 768));
        RegistraSchermiBoard();
    }
    void init()
    {
        amb = std::make_unique<AmbienteProva>();
        Profilo = ProfiloGiocatore{};
    }
    void cleanup()
    {
        Schermi::ScaricaTuttiPerProve();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        amb.reset();
    }

    void eachRewardFilmIsHeardOnTheRewardScreen_data()
    {
        QTest::addColumn<QString>("nome");
        const QStringList film = QDir(FilmGioco).entryList({QStringLiteral("*.swf")}, QDir::Files, QDir::Name);
        QVERIFY(film.size() >= 10);
        for (const QString &n : film)
            QTest::newRow(qPrintable(n)) << n;
    }
    void eachRewardFilmIsHeardOnTheRewardScreen()
    {
        QFETCH(QString, nome);
        QDir().mkpath(amb->Programma() + QStringLiteral("/swf"));
        QVERIFY(QFile::copy(FilmGioco + u'/' + nome, amb->Programma() + QStringLiteral("/swf/") + nome));
        swf::Filmato lettura;
        QVERIFY(lettura.caricaFile(FilmGioco + u'/' + nome));
        const double fps = lettura.fotogrammiAlSecondo();
        const int giro = lettura.numeroFotogrammi();
        const int giri = 2 * giro;  // the reward loops: two runs through

        const size_t sorgentiPrima = mixer().numeroSorgenti();
        // what the mixer gave before the reward opened: nothing
        std::vector<int16_t> prima(2 * 1024);
        mixer().leggi(prima.data(), 1024);
        QVERIFY(std::all_of(prima.begin(), prima.end(), [](int16_t v) { return v == 0; }));

        const QString wav = amb->Casa() + QStringLiteral("/premio.wav");
        bool letto = false, film = false;
        size_t sorgentiDurante = 0;
        // The screen shows itself, chooses its film and reads it off the
        // interface thread; once the film plays, its sound is read. A poll,
        // not a wait: the screen's own first second may be running it.
        QTimer sonda;
        int giriSonda = 0;
        connect(&sonda, &QTimer::timeout, this, [&] {
            auto *p = qobject_cast<FormPremio *>(Schermi::Riferimento(QStringLiteral("FormPremio")));
            Filmato *f = p ? p->ShockwaveFlash1 : nullptr;
            if (!f || f->Movie().isEmpty() || f->InCaricamento() || !f->InRiproduzione()) {
                if (++giriSonda > 4000) {
                    sonda.stop();
                    GuardiaModali::ChiudiTutto();
                }
                return;
            }
            sonda.stop();
            film = f->Movie().endsWith(nome, Qt::CaseInsensitive) && f->SonoroImpostato() == Sonoro::Sempre;
            sorgentiDurante = mixer().numeroSorgenti();
            audio::ScrittoreWav w;
            if (w.apri(wav, mixer().frequenza())) {
                // the film's timeline, one tick at a time, as the device pulls
                std::vector<int16_t> blocco;
                int64_t dato = 0;
                for (int k = 1; k <= giri; ++k) {
                    const auto fine = static_cast<int64_t>(std::llround(k * mixer().frequenza() / fps));
                    const int n = static_cast<int>(fine - dato);
                    blocco.assign(static_cast<size_t>(2 * n), 0);
                    mixer().leggi(blocco.data(), n);
                    w.scrivi(blocco.data(), n);
                    dato = fine;
                    f->AvanzaFotogramma();
                }
                letto = true;
            }
            // the button answers after the screen's first second
            auto *chiudi = new QTimer(p);
            connect(chiudi, &QTimer::timeout, p, [p] {
                if (p->Command1->isEnabled())
                    p->Command1->click();
            });
            chiudi->start(10);
        });
        sonda.start(5);
        Schermi::MostraModale(QStringLiteral("FormPremio"));
        QVERIFY(film);
        QVERIFY(letto);
        QCOMPARE(sorgentiDurante, sorgentiPrima + 1);

        // the capture, read back as any sound file
        const std::shared_ptr<const audio::Pcm> pcm = audio::DecodificaFile(wav);
        QVERIFY(pcm);
        QCOMPARE(pcm->canali, 2);
        QCOMPARE(pcm->frequenza, mixer().frequenza());
        QVERIFY(std::abs(static_cast<double>(pcm->fotogrammi()) - giri * mixer().frequenza() / fps) < 2);
        const size_t fotogrammiGiro = static_cast<size_t>(std::llround(giro * mixer().frequenza() / fps));
        for (int g = 0; g < 2; ++g) {
            const Livello l = misura(*pcm, g * fotogrammiGiro, (g + 1) * fotogrammiGiro);
            qInfo("%s, run %d: %d frames at %g fps, level %.1f dBFS, peak %.1f dBFS, %.2f s sounding from %.2f s",
                  qPrintable(nome), g + 1, giro, fps, dB(l.rms), dB(l.picco), l.sonoro, l.primo);
            // a short cheerful tune on every run through: clearly heard from
            // the first frame, for more than half a second, never clipped
            QVERIFY2(dB(l.rms) > -30, qPrintable(QString::number(dB(l.rms))));
            QVERIFY2(l.primo >= 0 && l.primo < 1 / fps, qPrintable(QString::number(l.primo)));
            QVERIFY2(l.sonoro > 0.5, qPrintable(QString::number(l.sonoro)));
            QVERIFY2(l.picco < 0.999, qPrintable(QString::number(l.picco)));
        }
        // the game's own channel said nothing: all of it was the film
        QVERIFY(amb->suoni.richieste.isEmpty());

        // the screen is closed: silent at once, and once it is gone, nothing of it is left in the mixer
        std::vector<int16_t> dopo(2 * 4096);
        mixer().leggi(dopo.data(), 4096);
        QVERIFY(std::all_of(dopo.begin(), dopo.end(), [](int16_t v) { return v == 0; }));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!Schermi::Riferimento(QStringLiteral("FormPremio")));
        QCOMPARE(mixer().numeroSorgenti(), sorgentiPrima);
    }
};

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    audio::MotoreAudio::SenzaDispositivo();
    TestPremioSonoro t;
    return QTest::qExec(&t, argc, argv);
}
#include "test_premio_sonoro.moc"
