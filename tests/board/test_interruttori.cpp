#include "AttendiLavoro.h"
#include "ProvaTavola.h"

#include "board/FormPremio.h"
#include "board/FormTavola.h"
#include "board/FrameUscitaTavola.h"
#include "board/RegistraBoard.h"
#include "platform/Casuale.h"
#include "platform/Controlli.h"
#include "platform/Joystick.h"
#include "platform/Puntatore.h"
#include "platform/Schermi.h"
#include "platform/Twips.h"
#include "profiles/ProfiloAccesso.h"

#include <QApplication>
#include <QMenuBar>
#include <QRandomGenerator>
#include <QRegularExpression>

namespace {
class MenuProva final : public Form
{
public:
    MenuProva() : Form(QStringLiteral("FormMenu"), 9000, 7000) {}
};

// A joystick whose buttons the test presses.
class JoystickProva final : public SorgenteJoystick
{
public:
    void premi(int numero)
    {
        emit Pulsante(numero, true);
        emit Pulsante(numero, false);
    }
};
} // namespace

// Whole games played with a player's switches on the screen: mouse buttons,
// a joystick, bouncing keys; the rest of automatic scanning and the cues,
// heard through the sound seam. Time is what the test says it is.
class TestInterruttori : public QObject
{
    Q_OBJECT
private:
    std::unique_ptr<AmbienteProva> amb;
    qint64 adesso = 1000;
    JoystickProva *joystick = nullptr;
    int premiVisti = 0;
    std::function<void()> chiudiPremio;

    FormTavola *apri(const QString &nome)
    {
        Schermi::Mostra(nome);
        auto *f = qobject_cast<FormTavola *>(Schermi::Riferimento(nome));
        if (f) {
            // The test gives the ticks of automatic scanning itself.
            f->Partita().Timer1Interval = 0;
            f->Aggiorna();
        }
        return f;
    }
    static int altro(const Tavola &t, int posto)
    {
        for (int k = 0; k < 24; ++k)
            if (k != posto && t.FramePosto[k].Tag == t.FramePosto[posto].Tag)
                return k;
        return -1;
    }
    // The places in the order a player who knows the board picks them.
    static QList<int> ordineCoppie(const Tavola &t)
    {
        QList<int> ordine;
        for (int k = 0; k < Tavola::NumeroTessere(); ++k)
            if (!ordine.contains(k)) {
                ordine << k << altro(t, k);
            }
        return ordine;
    }
    // The tiles' own sounds, by place, as dealt now; a new game deals anew.
    static QStringList suoniDelleTessere(const Tavola &t, const QList<int> &posti)
    {
        QStringList r;
        for (int k : posti)
            r << PercorsoLocale(t.SuonoPosto[k]);
        return r;
    }
    // The tiles' sounds asked for since `da`, in order: each selection asks once.
    QStringList sentiti(const QStringList &suoniTessere, qsizetype da = 0) const
    {
        QStringList r;
        for (qsizetype i = da; i < amb->suoni.richieste.size(); ++i)
            if (suoniTessere.contains(amb->suoni.richieste[i]))
                r << amb->suoni.richieste[i];
        return r;
    }
    void conSuoni(int coppie)
    {
        FileMemory = ScriviSet(amb->Casa(), QStringLiteral("prova.ass"), coppie, [this](int i, int c) {
            return QStringLiteral("%1/s%2_%3.wav").arg(amb->Casa()).arg(i).arg(c);
        });
    }
    void attendiPremio()
    {
        premiVisti = 0;
        chiudiPremio = [this] {
            auto *p = qobject_cast<FormPremio *>(Schermi::Riferimento(QStringLiteral("FormPremio")));
            if (!p || !p->isVisible() || !p->Command1->isEnabled()) {
                QTimer::singleShot(5, chiudiPremio);
                return;
            }
            ++premiVisti;
            QTest::mouseClick(p->Command1, Qt::LeftButton);
        };
        QTimer::singleShot(5, chiudiPremio);
    }
    void mouse(FormTavola *f, Qt::MouseButton b, int tenuto)
    {
        const QPoint dove(f->width() / 2, f->height() / 2);
        QTest::mousePress(f->windowHandle(), b, Qt::NoModifier, dove);
        adesso += tenuto;
        QTest::mouseRelease(f->windowHandle(), b, Qt::NoModifier, dove);
        adesso += 400;
    }
    void tasto(FormTavola *f, Qt::Key k, int tenuto)
    {
        QTest::keyPress(f->windowHandle(), k);
        adesso += tenuto;
        QTest::keyRelease(f->windowHandle(), k);
    }

private slots:
    void initTestCase()
    {
        ImpostaSchermoPerProve(QRect(0, 0, 1024, 768));
        RegistraSchermiBoard();
        Schermi::Registra(QStringLiteral("FormMenu"), [] { return new MenuProva; });
    }
    void init()
    {
        amb = std::make_unique<AmbienteProva>();
        ProfiloDiProva();
        Accesso = ImpostazioniAccesso{};
        SeminaCasuale(5);
        FileMemory = ScriviSet(amb->Casa(), QStringLiteral("prova.ass"), 6);
        adesso = 1000;
        ImpostaMomentoIngressoPerProve([this] { return adesso; });
        joystick = nullptr;
        ImpostaJoystickPerProve([this] {
            auto j = std::make_unique<JoystickProva>();
            joystick = j.get();
            return std::unique_ptr<SorgenteJoystick>(std::move(j));
        });
    }
    void cleanup()
    {
        Schermi::ScaricaTuttiPerProve();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        LiberaPuntatore();
        ImpostaMomentoIngressoPerProve({});
        ImpostaJoystickPerProve({});
        Accesso = ImpostazioniAccesso{};
        amb.reset();
    }

    void aWholeGameIsPlayedWithMouseButtonsHeld300Ms()
    {
        Profilo.ModoInput = ModoInputValori::ScansioneManuale;
        Profilo.NumeroTessere = 8;
        conSuoni(4);
        Accesso.Interruttori = SceltaInterruttori::Mouse;
        Accesso.AccettazioneMs = 300;
        FormTavola *f = apri(QStringLiteral("FormmemSS"));
        Tavola &t = f->Partita();
        QCOMPARE(t.PostoEvidenziato, qint16(0));
        // A tap shorter than the acceptance time moves nothing, even on a tile.
        mouse(f, Qt::LeftButton, 120);
        QCOMPARE(t.PostoEvidenziato, qint16(0));
        mouse(f, Qt::RightButton, 299);
        QVERIFY(t.FramePosto[0].Visible);
        const QList<int> ordine = ordineCoppie(t);
        const QStringList attesi = suoniDelleTessere(t, ordine);
        const qsizetype prima = amb->suoni.richieste.size();
        attendiPremio();
        for (int posto : ordine) {
            for (int giri = 0; t.PostoEvidenziato != posto && giri < 24; ++giri)
                mouse(f, Qt::LeftButton, 300);
            QCOMPARE(int(t.PostoEvidenziato), posto);
            mouse(f, Qt::RightButton, 450);
        }
        AttendiFinche([&] { return premiVisti > 0; });
        QCOMPARE(premiVisti, 1);
        QCOMPARE(sentiti(attesi, prima), attesi);
    }

    void aWholeGameIsPlayedWithASimulatedJoystickInAutomaticScanning()
    {
        Profilo.ModoInput = ModoInputValori::ScansioneAutomatica;
        Profilo.NumeroTessere = 8;
        conSuoni(4);
        Accesso.Interruttori = SceltaInterruttori::Joystick;
        FormTavola *f = apri(QStringLiteral("FormmemSS"));
        Tavola &t = f->Partita();
        QVERIFY(joystick);
        const QList<int> ordine = ordineCoppie(t);
        const QStringList attesi = suoniDelleTessere(t, ordine);
        const qsizetype prima = amb->suoni.richieste.size();
        attendiPremio();
        for (int posto : ordine) {
            for (int giri = 0; t.PostoEvidenziato != posto && giri < 24; ++giri)
                f->Interruttori().Timer1();
            QCOMPARE(int(t.PostoEvidenziato), posto);
            // a third button is no switch
            joystick->premi(2);
            QVERIFY(t.FramePosto[posto].Visible);
            joystick->premi(0);
            adesso += 500;
        }
        AttendiFinche([&] { return premiVisti > 0; });
        QCOMPARE(premiVisti, 1);
        QCOMPARE(sentiti(attesi, prima), attesi);
    }

    void aPlayerWhoseThirdPressBouncesWinsAndSelectsNoTileTwice()
    {
        Profilo.ModoInput = ModoInputValori::ScansioneManuale;
        Profilo.NumeroTessere = 12;
        conSuoni(6);
        Accesso.IgnoraMs = 500;
        Accesso.Interruttori = SceltaInterruttori::TastiScelti;
        Accesso.Tasto1 = Qt::Key_A;
        Accesso.Tasto2 = Qt::Key_L;
        FormTavola *f = apri(QStringLiteral("FormmemSS"));
        Tavola &t = f->Partita();
        QRandomGenerator caso(30);
        int rimbalzi = 0;
        auto premi = [&](Qt::Key k) {
            tasto(f, k, 40);
            // three presses in ten bounce: a second press soon after the first
            if (caso.bounded(10) < 3) {
                adesso += 60 + caso.bounded(200);
                tasto(f, k, 30);
                ++rimbalzi;
            }
            adesso += 600;
        };
        const QList<int> ordine = ordineCoppie(t);
        const QStringList attesi = suoniDelleTessere(t, ordine);
        const qsizetype prima = amb->suoni.richieste.size();
        attendiPremio();
        int filtrateAllUltima = -1;
        for (int i = 0; i < ordine.size(); ++i) {
            const int posto = ordine[i];
            for (int giri = 0; t.PostoEvidenziato != posto && giri < 24; ++giri)
                premi(Qt::Key_A);
            QCOMPARE(int(t.PostoEvidenziato), posto);
            if (i == ordine.size() - 1)
                filtrateAllUltima = f->Interruttori().Filtrate();
            premi(Qt::Key_L);
        }
        AttendiFinche([&] { return premiVisti > 0; });
        QCOMPARE(premiVisti, 1);
        QVERIFY(rimbalzi > 0);
        QCOMPARE(sentiti(attesi, prima), attesi);
        QVERIFY(filtrateAllUltima > 0);
        QVERIFY(filtrateAllUltima <= rimbalzi);
    }

    void withoutTheIgnoreTimeABouncedSelectionSelectsTheTileTwice()
    {
        // The same bounce with every setting at its default reaches the board:
        // what the ignore time above keeps out.
        Profilo.ModoInput = ModoInputValori::ScansioneManuale;
        conSuoni(6);
        Accesso.Interruttori = SceltaInterruttori::TastiScelti;
        Accesso.Tasto1 = Qt::Key_A;
        Accesso.Tasto2 = Qt::Key_L;
        FormTavola *f = apri(QStringLiteral("FormmemSS"));
        Tavola &t = f->Partita();
        const QStringList tutti = suoniDelleTessere(t, {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11});
        const qsizetype prima = amb->suoni.richieste.size();
        tasto(f, Qt::Key_L, 40);
        adesso += 80;
        tasto(f, Qt::Key_L, 40);
        QCOMPARE(sentiti(tutti, prima), QStringList(2, tutti[0]));
    }

    void theDesignKeysAtTheDefaultsAreUntouchedButAutoRepeatIsHeldBack()
    {
        Profilo.ModoInput = ModoInputValori::ScansioneManuale;
        const QString casa = amb->Casa();
        for (int i = 0; i < 6; ++i) {
            ScriviImmagine(casa, QStringLiteral("a%1.png").arg(i));
            ScriviImmagine(casa, QStringLiteral("b%1.png").arg(i));
        }
        FileMemory = ScriviSet(casa, QStringLiteral("g.agg"), 6, {}, [casa](int i, int c) {
            return QStringLiteral("%1/%2%3.png").arg(casa).arg(QChar(c == 1 ? u'a' : u'b')).arg(i);
        });
        // FormmemGG takes the keys of manual scanning at the form: no focus needed.
        FormTavola *f = apri(QStringLiteral("FormmemGG"));
        Tavola &t = f->Partita();
        f->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(f));
        QTest::keyClick(f->windowHandle(), Qt::Key_Space);
        QCOMPARE(t.PostoEvidenziato, qint16(1));
        QTest::keyEvent(QTest::Press, f->windowHandle(), Qt::Key_Space);
        QCOMPARE(t.PostoEvidenziato, qint16(2));
        QKeyEvent ripetuto(QEvent::KeyPress, Qt::Key_Space, Qt::NoModifier, QStringLiteral(" "), true);
        QApplication::sendEvent(f->windowHandle(), &ripetuto);
        QApplication::sendEvent(f->windowHandle(), &ripetuto);
        QCOMPARE(t.PostoEvidenziato, qint16(2));
        QTest::keyEvent(QTest::Release, f->windowHandle(), Qt::Key_Space);
        QTest::keyClick(f->windowHandle(), Qt::Key_Space);
        QCOMPARE(t.PostoEvidenziato, qint16(3));
        QTest::keyClick(f->windowHandle(), Qt::Key_Return);
        QVERIFY(!t.FramePosto[3].Visible);
    }

    void automaticScanningRestsAfterTheRoundsAndTheNextPressOnlyWakesIt_data()
    {
        QTest::addColumn<int>("giri");
        QTest::newRow("1 round") << 1;
        QTest::newRow("3 rounds") << 3;
        QTest::newRow("10 rounds") << 10;
    }
    void automaticScanningRestsAfterTheRoundsAndTheNextPressOnlyWakesIt()
    {
        QFETCH(int, giri);
        Profilo.ModoInput = ModoInputValori::ScansioneAutomatica;
        Accesso.PausaDopoGiri = giri;
        Accesso.Interruttori = SceltaInterruttori::Joystick;
        FormTavola *f = apri(QStringLiteral("FormmemSS"));
        Tavola &t = f->Partita();
        InterruttoriTavola &in = f->Interruttori();
        for (int passo = 0; passo < 12 * giri; ++passo) {
            QVERIFY(!in.InPausa());
            in.Timer1();
        }
        QVERIFY(in.InPausa());
        const qint16 fermo = t.PostoEvidenziato;
        for (int i = 0; i < 5; ++i)
            in.Timer1();
        QCOMPARE(t.PostoEvidenziato, fermo);
        // The press that wakes it selects nothing.
        joystick->premi(0);
        QVERIFY(!in.InPausa());
        for (int k = 0; k < 12; ++k)
            QVERIFY(t.FramePosto[k].Visible);
        in.Timer1();
        QCOMPARE(int(t.PostoEvidenziato), (fermo + 1) % 12);
        // A press during the rounds starts the count again.
        for (int passo = 0; passo < 12 * giri - 2; ++passo)
            in.Timer1();
        adesso += 100;
        joystick->premi(1); // Enter does nothing in automatic scanning, but it is a press
        for (int passo = 0; passo < 12 * giri - 1; ++passo)
            in.Timer1();
        QVERIFY(!in.InPausa());
        in.Timer1();
        QVERIFY(in.InPausa());
    }

    void withTheDefaultsAutomaticScanningNeverRests()
    {
        Profilo.ModoInput = ModoInputValori::ScansioneAutomatica;
        FormTavola *f = apri(QStringLiteral("FormmemSS"));
        Tavola &t = f->Partita();
        amb->suoni.richieste.clear();
        for (int passo = 0; passo < 12 * 11; ++passo)
            f->Interruttori().Timer1();
        QVERIFY(!f->Interruttori().InPausa());
        f->Interruttori().Timer1();
        QCOMPARE(t.PostoEvidenziato, qint16(0));
        QVERIFY(amb->suoni.richieste.isEmpty());
    }

    void aSoftCueIsHeardAtEachStepWhenAsked_data()
    {
        QTest::addColumn<int>("modo");
        QTest::addColumn<bool>("cue");
        QTest::newRow("automatic, on") << int(ModoInputValori::ScansioneAutomatica) << true;
        QTest::newRow("automatic, off") << int(ModoInputValori::ScansioneAutomatica) << false;
        QTest::newRow("manual, on") << int(ModoInputValori::ScansioneManuale) << true;
        QTest::newRow("manual, off") << int(ModoInputValori::ScansioneManuale) << false;
    }
    void aSoftCueIsHeardAtEachStepWhenAsked()
    {
        QFETCH(int, modo);
        QFETCH(bool, cue);
        Profilo.ModoInput = qint16(modo);
        Accesso.SuonoPasso = cue;
        Accesso.Interruttori = SceltaInterruttori::Mouse;
        FormTavola *f = apri(QStringLiteral("FormmemSS"));
        amb->suoni.richieste.clear();
        for (int i = 0; i < 5; ++i) {
            if (modo == ModoInputValori::ScansioneAutomatica)
                f->Interruttori().Timer1();
            else
                mouse(f, Qt::LeftButton, 50);
        }
        const QString passo = PercorsoLocale(InterruttoriTavola::FileSuonoPasso());
        QCOMPARE(amb->suoni.richieste, cue ? QStringList(5, passo) : QStringList());
        QVERIFY(QFileInfo::exists(QStringLiteral(COPPIE_SORGENTI "/app/programma/suoni/passo.wav")));
    }

    void onTheOpenTileBoardEachTileIsHeardAsTheHighlightReachesIt()
    {
        Profilo.ModoInput = ModoInputValori::ScansioneAutomatica;
        Accesso.SuonoTessera = true;
        Accesso.SuonoPasso = true;
        const QString casa = amb->Casa();
        for (int i = 0; i < 6; ++i) {
            ScriviImmagine(casa, QStringLiteral("a%1.png").arg(i));
            ScriviImmagine(casa, QStringLiteral("b%1.png").arg(i));
        }
        FileMemory = ScriviSet(
            casa, QStringLiteral("g.agg"), 6,
            [casa](int i, int c) { return QStringLiteral("%1/s%2_%3.wav").arg(casa).arg(i).arg(c); },
            [casa](int i, int c) {
                return QStringLiteral("%1/%2%3.png").arg(casa).arg(QChar(c == 1 ? u'a' : u'b')).arg(i);
            });
        FormTavola *f = apri(QStringLiteral("FormmemGGCS"));
        Tavola &t = f->Partita();
        QStringList attesi;
        const QStringList tutti = suoniDelleTessere(t, {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11});
        const qsizetype prima = amb->suoni.richieste.size();
        for (int i = 0; i < 14; ++i) {
            f->Interruttori().Timer1();
            attesi << tutti[t.PostoEvidenziato];
        }
        QCOMPARE(sentiti(tutti, prima), attesi);
        QCOMPARE(amb->suoni.richieste.size() - prima, qsizetype(14));
    }

    void theMenuBarKeepsItsClicksWhenMouseButtonsAreSwitches()
    {
        Profilo.ModoInput = ModoInputValori::ScansioneManuale;
        Accesso.Interruttori = SceltaInterruttori::Mouse;
        FormTavola *f = apri(QStringLiteral("FormmemSS"));
        const QPoint voce = f->BarraMenu->actionGeometry(f->mnuEsci).center();
        QTest::mouseClick(f->BarraMenu, Qt::LeftButton, Qt::NoModifier, voce);
        QVERIFY(f->FrameUscita->isVisible());
        QCOMPARE(f->Partita().PostoEvidenziato, qint16(0));
        // and the exit question its buttons
        QTest::mouseClick(f->FrameUscita->CommandNo, Qt::LeftButton);
        QVERIFY(!f->FrameUscita->isVisible());
        mouse(f, Qt::LeftButton, 10);
        QCOMPARE(f->Partita().PostoEvidenziato, qint16(1));
    }
};

QTEST_MAIN(TestInterruttori)
#include "test_interruttori.moc"
