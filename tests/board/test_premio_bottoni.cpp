// A film built around a button. On the reward screen the pointer reaches it:
// over, down and its action, by simulated mouse through the window. On a
// board face it rests in its up state and a click there is the tile's.

#include "AmbienteProva.h"
#include "AttendiLavoro.h"

#include "board/FormPremio.h"
#include "board/RegistraBoard.h"
#include "platform/Schermi.h"
#include "platform/Twips.h"
#include "platform/audio/MotoreAudio.h"
#include "platform/media/Filmato.h"
#include "profiles/Profilo.h"
#include "swf/costruttore.h"

#include <QMouseEvent>
#include <QPushButton>

#include <cmath>

using namespace swftest;

namespace {

// 100 x 100, one frame: a red button (green over, blue down) on 25..75 px,
// and a yellow square over it that frame 1's script hides; the release shows
// it again. Pressed, the button sounds a tone through the film's sound.
QByteArray filmBottone()
{
    std::vector<int16_t> tono(22050);
    for (size_t i = 0; i < tono.size(); ++i)
        tono[i] = static_cast<int16_t>(12000 * std::sin(2 * M_PI * 440 * static_cast<double>(i) / 44100.0));
    const std::vector<ParteProva> parti = {{1, 1, 1}, {2, 2, 1}, {4, 3, 1}, {8, 1, 2}};
    const QByteArray t = rettangolo(1, 500, 500, 1500, 1500, 0xff0000ff) + rettangolo(2, 500, 500, 1500, 1500, 0x00ff00ff) +
                         rettangolo(3, 500, 500, 1500, 1500, 0x0000ffff) + rettangolo(4, 500, 500, 1500, 1500, 0xffff00ff) +
                         sprite(20, 1, piazza(1, 4) + mostra()) +
                         defineSound(30, 3, 44100, true, false, static_cast<uint32_t>(tono.size()), pcm16(tono)) +
                         bottone2(10, parti, {{0x008, as::imposta("giallo._visible", as::booleano(true))}}) +
                         suoniBottone(10, {0, 0, 30, 0}) + piazza(1, 10) + piazza(5, 20, 0, 0, 0, "giallo") +
                         azione(as::imposta("giallo._visible", as::booleano(false))) + mostra();
    return film(t, 1);
}

double livello(std::vector<int16_t> &b)
{
    double s = 0;
    for (int16_t v : b)
        s += (v / 32768.0) * (v / 32768.0);
    return std::sqrt(s / static_cast<double>(b.size()));
}

QWidget *vistaDi(Filmato *f)
{
    const auto figli = f->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly);
    return figli.isEmpty() ? nullptr : figli.front();
}

QRgb centroDi(QWidget *w)
{
    const QImage img = w->grab().toImage();
    return img.pixel(img.width() / 2, img.height() / 2) & 0xffffff;
}

// A tile's cover, counting the presses that reach it.
class Tessera final : public QWidget
{
public:
    int premute = 0;

protected:
    void mousePressEvent(QMouseEvent *) override { ++premute; }
};

} // namespace

class TestPremioBottoni : public QObject
{
    Q_OBJECT
    std::unique_ptr<AmbienteProva> amb;

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

    void onTheRewardScreenTheButtonAnswersThePointer()
    {
        AmbienteProva::Scrivi(amb->Programma() + QStringLiteral("/swf/bottone.swf"), filmBottone());
        QRgb riposo = 0, sopra = 0, giu = 0, dopo = 0;
        double silenzioSopra = -1, suonoGiu = -1;
        bool visto = false;
        QTimer sonda;
        int giri = 0;
        connect(&sonda, &QTimer::timeout, this, [&] {
            auto *p = qobject_cast<FormPremio *>(Schermi::Riferimento(QStringLiteral("FormPremio")));
            Filmato *f = p ? p->ShockwaveFlash1 : nullptr;
            QWidget *v = f ? vistaDi(f) : nullptr;
            if (!v || f->InCaricamento() || !v->isVisible()) {
                if (++giri > 4000) {
                    sonda.stop();
                    GuardiaModali::ChiudiTutto();
                }
                return;
            }
            sonda.stop();
            visto = f->Cliccabile();
            // through the window, as a real pointer comes: the screen picks the widget
            QWindow *finestra = p->windowHandle();
            const QPoint c = v->mapTo(p, v->rect().center());
            audio::Mixer &mixer = audio::MotoreAudio::istanza().mixer();
            std::vector<int16_t> suono(2 * 2048);
            riposo = centroDi(v);
            QTest::mouseMove(finestra, c);
            sopra = centroDi(v);
            mixer.leggi(suono.data(), 2048);
            silenzioSopra = livello(suono);
            QTest::mousePress(finestra, Qt::LeftButton, {}, c);
            giu = centroDi(v);
            // the button's sound reaches the game's mixer, as the sound card would read it
            mixer.leggi(suono.data(), 2048);
            suonoGiu = livello(suono);
            QTest::mouseRelease(finestra, Qt::LeftButton, {}, c);
            dopo = centroDi(v);
            auto *chiudi = new QTimer(p);
            connect(chiudi, &QTimer::timeout, p, [p] {
                if (p->Command1->isEnabled())
                    p->Command1->click();
            });
            chiudi->start(10);
        });
        sonda.start(5);
        Schermi::MostraModale(QStringLiteral("FormPremio"));
        QVERIFY(visto);
        QCOMPARE(riposo, QRgb(0xff0000));
        QCOMPARE(sopra, QRgb(0x00ff00));
        QCOMPARE(giu, QRgb(0x0000ff));
        // released: the action showed the yellow square
        QCOMPARE(dopo, QRgb(0xffff00));
        QCOMPARE(silenzioSopra, 0.0);
        QVERIFY2(suonoGiu > 0.05, qPrintable(QString::number(suonoGiu)));
    }

    void onAFaceTheButtonRestsUpAndTheClickIsTheTiles()
    {
        const QString percorso = amb->Casa() + QStringLiteral("/bottone.swf");
        AmbienteProva::Scrivi(percorso, filmBottone());
        QWidget tavola;
        tavola.resize(300, 200);
        auto *tessera = new Tessera;
        tessera->setParent(&tavola);
        tessera->setGeometry(0, 0, 300, 200);
        auto *faccia = new Filmato(tessera);
        faccia->setGeometry(50, 50, 100, 100);
        tavola.show();
        QVERIFY(QTest::qWaitForWindowExposed(&tavola));
        faccia->setMovie(percorso);
        faccia->StopPlay();
        AttendiFinche([faccia] { return !faccia->InCaricamento(); });
        QVERIFY(!faccia->Cliccabile());
        QWidget *v = vistaDi(faccia);
        QVERIFY(v);
        QCOMPARE(centroDi(v), QRgb(0xff0000));
        const QPoint c = faccia->geometry().center();
        QTest::mouseMove(tavola.windowHandle(), c);
        QTest::mousePress(tavola.windowHandle(), Qt::LeftButton, {}, c);
        QCOMPARE(centroDi(v), QRgb(0xff0000));
        QTest::mouseRelease(tavola.windowHandle(), Qt::LeftButton, {}, c);
        QCOMPARE(tessera->premute, 1);
        QCOMPARE(centroDi(v), QRgb(0xff0000));
    }
};

QTEST_MAIN(TestPremioBottoni)
#include "test_premio_bottoni.moc"
