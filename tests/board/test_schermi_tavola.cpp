#include "ProvaTavola.h"

#include "board/ElencoPremi.h"
#include "board/FormPremio.h"
#include "board/FormTavola.h"
#include "board/FrameUscitaTavola.h"
#include "board/RegistraBoard.h"
#include "lang/modLanguageSupport.h"
#include "platform/Caratteri.h"
#include "platform/Casuale.h"
#include "platform/Colori.h"
#include "platform/Controlli.h"
#include "platform/Puntatore.h"
#include "platform/Twips.h"
#include "platform/media/Filmato.h"

#include <QAction>
#include <QApplication>
#include <QFontInfo>
#include <QFontMetricsF>
#include <QLabel>
#include <QPushButton>

namespace {
// Stands in for the menu, which is built elsewhere.
class MenuProva final : public Form
{
public:
    MenuProva() : Form(QStringLiteral("FormMenu"), 9000, 7000) {}
};
} // namespace

// The boards and the reward on the screen, played with mouse and keys.
class TestSchermiTavola : public QObject
{
    Q_OBJECT
private:
    std::unique_ptr<AmbienteProva> amb;

    FormTavola *apri(const QString &nome)
    {
        Schermi::Mostra(nome);
        return qobject_cast<FormTavola *>(Schermi::Riferimento(nome));
    }
    static void clicca(FormTavola *f, int posto)
    {
        QVERIFY(f->FramePosto[posto]->isVisible());
        QTest::mouseClick(f->FramePosto[posto], Qt::LeftButton);
    }
    static int altro(const Tavola &t, int posto)
    {
        for (int k = 0; k < 24; ++k)
            if (k != posto && t.FramePosto[k].Tag == t.FramePosto[posto].Tag)
                return k;
        return -1;
    }
    // A key as a person presses it: to the window, which hands it to the focus.
    static void tasto(FormTavola *f, Qt::Key k, QWidget *fuoco = nullptr)
    {
        f->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(f));
        if (fuoco)
            fuoco->setFocus();
        else if (QApplication::focusWidget())
            QApplication::focusWidget()->clearFocus();
        QTest::keyClick(f->windowHandle(), k);
    }
    static void muovi(QWidget *w)
    {
        QMouseEvent e(QEvent::MouseMove, QPointF(5, 5), w->mapToGlobal(QPointF(5, 5)), Qt::NoButton, Qt::NoButton,
                      Qt::NoModifier);
        QApplication::sendEvent(w, &e);
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
        SeminaCasuale(5);
        FileMemory = ScriviSet(amb->Casa(), QStringLiteral("prova.ass"), 6);
    }
    void cleanup()
    {
        Schermi::ScaricaTuttiPerProve();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        LiberaPuntatore();
        amb.reset();
    }

    void aBoardCoversTheScreenAndLaysOutItsTiles()
    {
        FormTavola *f = apri(QStringLiteral("FormmemSS"));
        QVERIFY(f);
        QCOMPARE(f->geometry(), QRect(0, 0, 1024, 768));
        // 12 tiles at 1024 by 768: side 2880 twips, 192 pixels, first column at 1200 twips.
        QCOMPARE(f->FramePosto[0]->width(), 192);
        QCOMPARE(f->FramePosto[0]->x(), 80);
        QVERIFY(f->FramePosto[11]->isVisible());
        QVERIFY(!f->FramePosto[12]->isVisible());
        QCOMPARE(f->FramePosto[0]->accessibleName(), QStringLiteral("Tessera 1"));
        QVERIFY(!f->mnuAvvia->text().isEmpty());
    }

    void eachBoardHasTheControlsOfItsDesign_data()
    {
        QTest::addColumn<QString>("tavola");
        QTest::addColumn<QStringList>("presenti");
        QTest::addColumn<QStringList>("assenti");
        QTest::newRow("SS") << "FormmemSS" << QStringList{"ShockwaveFlash1", "ShockwaveFlash2", "PictureScansione"}
                            << QStringList{"Image1", "FrameTessera1", "Shape1"};
        QTest::newRow("PS") << "FormmemPS" << QStringList{"FrameTessera1", "LabelParola1", "ShockwaveFlash1"}
                            << QStringList{"ShockwaveFlash2", "Image1"};
        QTest::newRow("GG") << "FormmemGG" << QStringList{"Image1", "Image2", "TMaxAni1", "TMaxAni2"}
                            << QStringList{"ShockwaveFlash1", "FrameTessera1"};
        QTest::newRow("PG") << "FormmemPG" << QStringList{"FrameTessera1", "LabelParola1", "Image2", "TMaxAni1"}
                            << QStringList{"Image1", "TMaxAni2"};
        QTest::newRow("GGCS") << "FormmemGGCS" << QStringList{"Image1", "Image2", "TMaxAni1", "TMaxAni2", "Shape1"}
                              << QStringList{"PictureScansione"};
    }
    void eachBoardHasTheControlsOfItsDesign()
    {
        QFETCH(QString, tavola);
        QFETCH(QStringList, presenti);
        QFETCH(QStringList, assenti);
        FormTavola f(*TavolaDiNome(tavola));
        for (const QString &n : presenti) {
            const auto trovati = f.findChildren<QWidget *>(n);
            QVERIFY2(!trovati.isEmpty(), qPrintable(n));
            if (n != QLatin1String("PictureScansione") && n != QLatin1String("Shape1"))
                QCOMPARE(trovati.size(), 12);
        }
        for (const QString &n : assenti)
            QVERIFY2(f.findChildren<QWidget *>(n).isEmpty(), qPrintable(n));
        // a face is heard when its pair is found, for its first run through only
        for (Filmato *film : f.findChildren<Filmato *>())
            QCOMPARE(film->SonoroImpostato(), Sonoro::PrimoGiro);
        QCOMPARE(f.findChildren<QWidget *>(QStringLiteral("FramePosto")).size(), 24);
        QCOMPARE(f.objectName(), tavola);
    }

    void aWholeGameIsPlayedWithTheMouseToTheRewardAndANewGameStarts()
    {
        Profilo.NumeroTessere = 4;
        FormTavola *f = apri(QStringLiteral("FormmemSS"));
        Tavola &t = f->Partita();
        int premiVisti = 0;
        bool pulsanteBloccato = false;
        // The reward is modal: close it from inside its own loop.
        std::function<void()> chiudi = [&] {
            auto *p = qobject_cast<FormPremio *>(Schermi::Riferimento(QStringLiteral("FormPremio")));
            if (!p || !p->isVisible()) {
                QTimer::singleShot(5, chiudi);
                return;
            }
            if (!p->Command1->isEnabled()) {
                pulsanteBloccato = true;
                QTimer::singleShot(5, chiudi);
                return;
            }
            ++premiVisti;
            QCOMPARE(QApplication::focusWidget(), p->Command1);
            QTest::mouseClick(p->Command1, Qt::LeftButton);
        };
        QTimer::singleShot(5, chiudi);
        const int a = 0, b = altro(t, 0);
        clicca(f, a);
        clicca(f, b);
        int c = 1;
        while (!t.FramePosto[c].Visible)
            ++c;
        const int d = altro(t, c);
        clicca(f, c);
        clicca(f, d);
        QCOMPARE(premiVisti, 1);
        QVERIFY(pulsanteBloccato);
        // The new game: all covered, first player, scores at 0.
        QCOMPARE(t.GiocatoreCorrente, qint16(0));
        QCOMPARE(t.Mosse[0], qint16(0));
        for (int k = 0; k < 4; ++k)
            QVERIFY(f->FramePosto[k]->isVisible());
        QCOMPARE(Schermi::Corrente(), f);
    }

    void theExitQuestionConfinesThePointerAndNoFreesIt()
    {
        FormTavola *f = apri(QStringLiteral("FormmemSS"));
        f->mnuEsci->trigger();
        QVERIFY(f->FrameUscita->isVisible());
        QVERIFY(PuntatoreConfinato());
        QCOMPARE(RettangoloConfinamento(), QRect(f->FrameUscita->mapToGlobal(QPoint(0, 0)), f->FrameUscita->size()));
        QCOMPARE(f->FrameUscita->LabelSi->text(), TestoLingua(QStringLiteral("0005")));
        QCOMPARE(f->FrameUscita->LabelNo->text(), TestoLingua(QStringLiteral("0004")));
        QTest::mouseClick(f->FrameUscita->CommandNo, Qt::LeftButton);
        QVERIFY(!f->FrameUscita->isVisible());
        QVERIFY(!PuntatoreConfinato());
        QCOMPARE(Schermi::Corrente(), f);
    }

    void yesGoesToTheMenuAndUnloadsTheBoard()
    {
        FormTavola *f = apri(QStringLiteral("FormmemSS"));
        QPointer<FormTavola> guardia = f;
        f->mnuEsci->trigger();
        QTest::mouseClick(f->FrameUscita->PictureSi, Qt::LeftButton);
        QVERIFY(!PuntatoreConfinato());
        QCOMPARE(Schermi::Corrente()->objectName(), QStringLiteral("FormMenu"));
        QVERIFY(!Schermi::Riferimento(QStringLiteral("FormmemSS")));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(guardia.isNull());
    }

    void yesDuringTheCompareWaitLeavesTheBoardOnceTheMoveIsOver()
    {
        FormTavola *f = apri(QStringLiteral("FormmemSS"));
        QPointer<FormTavola> guardia = f;
        Tavola &t = f->Partita();
        int b = 1;
        while (t.FramePosto[b].Tag == t.FramePosto[0].Tag)
            ++b;
        clicca(f, 0);
        bool durante = false;
        QTimer::singleShot(1, [&] {
            durante = !f->mnuAvvia->isEnabled();
            f->mnuEsci->trigger();
            QTest::mouseClick(f->FrameUscita->CommandSi, Qt::LeftButton);
        });
        clicca(f, b);
        QVERIFY(durante);
        QCOMPARE(Schermi::Corrente()->objectName(), QStringLiteral("FormMenu"));
        QVERIFY(!PuntatoreConfinato());
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(guardia.isNull());
    }

    void aBoardClosedByOtherMeansFreesThePointer()
    {
        FormTavola *f = apri(QStringLiteral("FormmemSS"));
        f->mnuEsci->trigger();
        QVERIFY(PuntatoreConfinato());
        Schermi::Scarica(f);
        QVERIFY(!PuntatoreConfinato());
    }

    void theBoxTakesTheCentreOfTheFormAndTwoOpeningsLeaveItThere()
    {
        FormTavola *f = apri(QStringLiteral("FormmemSS"));
        f->mnuEsci->trigger();
        const QRect prima = f->FrameUscita->geometry();
        const GeometriaTwips g = LeggiGeometria(f->FrameUscita);
        QCOMPARE(int(g.Left), (15360 - int(std::round(g.Width))) / 2);
        f->mnuEsci->trigger();
        QCOMPARE(f->FrameUscita->geometry(), prima);
        QCOMPARE(QApplication::focusWidget(), f->FrameUscita->CommandSi);
    }

    void movingFromNoStraightOntoYesSwapsTheColoursWithoutTheRestState()
    {
        FormTavola *f = apri(QStringLiteral("FormmemSS"));
        f->mnuEsci->trigger();
        FrameUscitaTavola *u = f->FrameUscita;
        muovi(u->PictureNo);
        QCOMPARE(u->CommandNo->Colore(), FinestraUscita::ColoreIndicato);
        QCOMPARE(u->PictureNo->palette().color(QPalette::Window), QColor(255, 0, 0));
        QCOMPARE(u->CommandSi->Colore(), FinestraUscita::ColoreRiposo);
        muovi(u->PictureSi);
        QCOMPARE(u->CommandSi->Colore(), FinestraUscita::ColoreIndicato);
        QCOMPARE(u->CommandNo->Colore(), FinestraUscita::ColoreRiposo);
        QCOMPARE(u->PictureSi->palette().color(QPalette::Window), QColor(255, 0, 0));
        muovi(u);
        QCOMPARE(u->CommandSi->Colore(), FinestraUscita::ColoreRiposo);
        QCOMPARE(u->PictureSi->palette().color(QPalette::Window), QColor(0xE0, 0xE0, 0xE0));
    }

    // The size grows until the text reaches the label's width, unless the
    // next size would be taller than the label (the whole height of its face).
    void aVeryShortTextGetsABigFontUpToTheLabelsWidthOrItsHeight()
    {
        ScriviVoce(PercorsoFileLingua(QStringLiteral("Italiano")), QStringLiteral("Strings"), QStringLiteral("0005"),
                   QStringLiteral("S"));
        ScriviVoce(PercorsoFileLingua(QStringLiteral("Italiano")), QStringLiteral("Strings"), QStringLiteral("0004"),
                   QStringLiteral("N"));
        FormTavola *f = apri(QStringLiteral("FormmemSS"));
        f->mnuEsci->trigger();
        QLabel *l = f->FrameUscita->LabelSi;
        QCOMPARE(l->text(), QStringLiteral("S"));
        const double punti = l->font().pointSizeF();
        QVERIFY2(punti > 40, qPrintable(QString::number(punti)));
        auto font = [&](double p) {
            QFont fo = l->font();
            fo.setPointSizeF(p);
            return fo;
        };
        auto larghezza = [&](double p) { return QFontMetricsF(font(p)).horizontalAdvance(QStringLiteral("N")) * TwipsPerPixel; };
        auto alto = [&](double p) {
            double a = 0;
            for (const QString &t : {QStringLiteral("S"), QStringLiteral("N")})
                a = std::max(a, QFontMetricsF(font(p)).tightBoundingRect(t).height());
            return a * TwipsPerPixel;
        };
        const GeometriaTwips g = LeggiGeometria(l);
        QVERIFY(larghezza(punti - 1) < g.Width);
        QVERIFY(alto(punti) <= g.Height);
        // Short of the width, only because one point more needs a taller line (a pixel spare each side).
        if (larghezza(punti) < g.Width)
            QVERIFY2((QFontMetricsF(font(punti + 1)).height() + 2) * TwipsPerPixel > g.Height,
                     "the size stopped short of both the width and the height");
    }

    void inManualScanningOnGGSpaceReachesTheFormWithoutTheFocusHolder()
    {
        Profilo.ModoInput = ModoInputValori::ScansioneManuale;
        for (int i = 0; i < 6; ++i) {
            ScriviImmagine(amb->Casa(), QStringLiteral("a%1.png").arg(i));
            ScriviImmagine(amb->Casa(), QStringLiteral("b%1.png").arg(i));
        }
        const QString casa = amb->Casa();
        FileMemory = ScriviSet(casa, QStringLiteral("g.agg"), 6, {}, [casa](int i, int c) {
            return QStringLiteral("%1/%2%3.png").arg(casa).arg(QChar(c == 1 ? u'a' : u'b')).arg(i);
        });
        FormTavola *f = apri(QStringLiteral("FormmemGG"));
        QVERIFY(!f->Timer2.isActive());
        tasto(f, Qt::Key_Space);
        QCOMPARE(f->Partita().PostoEvidenziato, qint16(1));
        tasto(f, Qt::Key_Space, f->PictureScansione);
        QCOMPARE(f->Partita().PostoEvidenziato, qint16(2));
        tasto(f, Qt::Key_Return);
        QVERIFY(!f->FramePosto[2]->isVisible());
    }

    void automaticScanningTicksOnTheScreenAndStopsDuringAMove()
    {
        Profilo.ModoInput = ModoInputValori::ScansioneAutomatica;
        Profilo.VelocitaScansione = 4;
        FormTavola *f = apri(QStringLiteral("FormmemSS"));
        QVERIFY(f->Timer1.isActive());
        QCOMPARE(f->Timer1.interval(), 1000);
        QCOMPARE(f->Partita().PostoEvidenziato, qint16(11));
        f->Timer1.setInterval(5);
        QTRY_COMPARE(f->Partita().PostoEvidenziato, qint16(0));
        QCOMPARE(f->FramePosto[0]->palette().color(QPalette::Window), ColoreDaNumero(Profilo.ColoreScansione));
    }

    void aScanningSpeedOfZeroOrLessLeavesTheHighlightStill_data()
    {
        QTest::addColumn<int>("velocita");
        QTest::newRow("0") << 0;
        QTest::newRow("-3") << -3;
    }
    void aScanningSpeedOfZeroOrLessLeavesTheHighlightStill()
    {
        // A damaged profile: the old timer did not tick at an interval of 0.
        QFETCH(int, velocita);
        Profilo.ModoInput = ModoInputValori::ScansioneAutomatica;
        Profilo.VelocitaScansione = qint16(velocita);
        FormTavola *f = apri(QStringLiteral("FormmemSS"));
        QVERIFY(f->Partita().Timer1Enabled);
        QVERIFY(!f->Timer1.isActive());
        const qint16 prima = f->Partita().PostoEvidenziato;
        QCoreApplication::processEvents();
        QCOMPARE(f->Partita().PostoEvidenziato, prima);
        QVERIFY(!f->Timer1.isActive());
    }

    void onSSKeysWorkOnlyThroughTheFocusHolder()
    {
        Profilo.ModoInput = ModoInputValori::Tastiera;
        FormTavola *f = apri(QStringLiteral("FormmemSS"));
        f->Timer2.stop();
        tasto(f, Qt::Key_Right, f->FrameUscita->CommandSi);
        QCOMPARE(f->Partita().PostoEvidenziato, qint16(0));
        tasto(f, Qt::Key_Right, f->PictureScansione);
        QCOMPARE(f->Partita().PostoEvidenziato, qint16(1));
        QCOMPARE(f->FramePosto[1]->palette().color(QPalette::Window), ColoreDaNumero(Profilo.ColoreScansione));
    }

    void onPGTheFocusTickTakesTheFocusFromYesAlsoInMouseMode()
    {
        ScriviImmagine(amb->Casa(), QStringLiteral("a.png"));
        const QString casa = amb->Casa();
        FileMemory = ScriviSet(casa, QStringLiteral("p.apg"), 6, {}, [casa](int i, int c) {
            return c == 1 ? QStringLiteral("parola%1").arg(i) : casa + QStringLiteral("/a.png");
        });
        FormTavola *f = apri(QStringLiteral("FormmemPG"));
        f->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(f));
        QVERIFY(f->Timer2.isActive());
        QCOMPARE(f->Timer2.interval(), 10);
        f->mnuEsci->trigger();
        QCOMPARE(QApplication::focusWidget(), f->FrameUscita->CommandSi);
        QTRY_COMPARE(QApplication::focusWidget(), f->PictureScansione);
    }

    void onPSInMouseModeYesKeepsTheFocus()
    {
        FileMemory = ScriviSet(amb->Casa(), QStringLiteral("p.aps"), 6, {}, [](int i, int c) {
            return c == 1 ? QStringLiteral("parola%1").arg(i) : QStringLiteral("x.swf");
        });
        FormTavola *f = apri(QStringLiteral("FormmemPS"));
        f->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(f));
        f->mnuEsci->trigger();
        QTest::qWait(60);
        QCOMPARE(QApplication::focusWidget(), f->FrameUscita->CommandSi);
    }

    void theWordsOfAWordBoardShowAtOneSize()
    {
        FileMemory = ScriviSet(amb->Casa(), QStringLiteral("p.aps"), 6, {}, [](int i, int c) {
            return c == 1 ? (i == 2 ? QStringLiteral("Elefante") : QStringLiteral("Re")) : QStringLiteral("x.swf");
        });
        FormTavola *f = apri(QStringLiteral("FormmemPS"));
        for (int i = 0; i < 6; ++i) {
            QCOMPARE(f->LabelParola1[i]->font().pointSizeF(), f->Partita().FontDimensionaFont);
            QVERIFY(f->FrameTessera1[i]->isVisibleTo(f));
        }
    }

    // --- the reward ------------------------------------------------------------

    // The answers of the exit question are read whole on every screen, in
    // the face the game gives them, however the screen's shape stretches the
    // box: the glyphs, accent included, lie inside the label and its face.
    void theExitQuestionShowsBothAnswersWholeInTheGamesFont_data()
    {
        QTest::addColumn<QString>("tavola");
        QTest::addColumn<QRect>("schermo");
        for (const char *t : {"FormmemSS", "FormmemPS"}) {
            QTest::addRow("%s 1024x768", t) << QString::fromLatin1(t) << QRect(0, 0, 1024, 768);
            QTest::addRow("%s 1920x1080", t) << QString::fromLatin1(t) << QRect(0, 0, 1920, 1080);
            QTest::addRow("%s 1280x1024", t) << QString::fromLatin1(t) << QRect(0, 0, 1280, 1024);
            QTest::addRow("%s 2560x1080", t) << QString::fromLatin1(t) << QRect(0, 0, 2560, 1080);
        }
    }
    void theExitQuestionShowsBothAnswersWholeInTheGamesFont()
    {
        QFETCH(QString, tavola);
        QFETCH(QRect, schermo);
        ImpostaSchermoPerProve(schermo);
        struct Ripristino {
            ~Ripristino() { ImpostaSchermoPerProve(QRect(0, 0, 1024, 768)); }
        } ripristino;
        FormTavola *f = apri(tavola);
        QVERIFY(f);
        QCOMPARE(f->geometry(), schermo);
        f->mnuEsci_Click();
        QVERIFY(f->FrameUscita->isVisible());
        const QString famiglia = QFontInfo(FontGioco(QStringLiteral("Comic Sans MS"), 12, true)).family();
        for (Etichetta *l : {f->FrameUscita->LabelSi, f->FrameUscita->LabelNo}) {
            QVERIFY(!l->text().isEmpty());
            const QFont font = l->font();
            QCOMPARE(QFontInfo(font).family(), famiglia);
            QVERIFY(QFontInfo(font).bold());
            // Where a centred line puts the ink of its glyphs.
            const QFontMetricsF fm(font);
            const QRectF r = l->contentsRect();
            const QPointF origine(r.left() + (r.width() - fm.horizontalAdvance(l->text())) / 2,
                                  r.top() + (r.height() - fm.height()) / 2 + fm.ascent());
            const QRectF inchiostro = fm.tightBoundingRect(l->text()).translated(origine);
            const QRectF margine = inchiostro.adjusted(1, 1, -1, -1);
            const QString dove = QStringLiteral("\"%1\" at %2 pt: ink %3,%4 %5x%6 in a label of %7x%8")
                                     .arg(l->text())
                                     .arg(font.pointSizeF())
                                     .arg(inchiostro.left()).arg(inchiostro.top())
                                     .arg(inchiostro.width()).arg(inchiostro.height())
                                     .arg(r.width()).arg(r.height());
            QVERIFY2(QRectF(r).contains(margine), qPrintable(dove));
            QVERIFY2(QRectF(l->parentWidget()->rect()).contains(margine.translated(l->pos())), qPrintable(dove));
            // Big enough to be read across a room: at least half the label's design height.
            QVERIFY2(inchiostro.height() >= r.height() / 2, qPrintable(dove));
        }
    }

    void aKeyInTheRewardsFirstSecondDoesNothingAndEnterAfterItCloses()
    {
        // Each step waits for the screen to reach its state, never for a
        // time: the first second is the activation's wait running, its end
        // is the button enabled.
        bool inPrimoSecondo = false, chiusoPresto = true, aperto = false;
        QTimer sonda;
        int fase = 0;
        connect(&sonda, &QTimer::timeout, this, [&] {
            auto *p = qobject_cast<FormPremio *>(Schermi::Riferimento(QStringLiteral("FormPremio")));
            if (!p || !p->isVisible())
                return;
            if (fase == 0) {
                if (AtteseInCorso() == 0)
                    return; // not yet activated
                fase = 1;
                inPrimoSecondo = !p->Command1->isEnabled();
                QTest::keyClick(p->Command1, Qt::Key_Return);
                QTest::keyClick(p, Qt::Key_Space);
                chiusoPresto = !p->isVisible();
                return;
            }
            if (!p->Command1->isEnabled() || AtteseInCorso() > 0)
                return;
            sonda.stop();
            aperto = p->isVisible();
            QTest::keyClick(p->Command1, Qt::Key_Space);
        });
        sonda.start(5);
        Schermi::MostraModale(QStringLiteral("FormPremio"));
        sonda.stop();
        QVERIFY(inPrimoSecondo);
        QVERIFY(!chiusoPresto);
        QVERIFY(aperto);
        QVERIFY(!Schermi::Riferimento(QStringLiteral("FormPremio")));
    }

    void theRewardPlaysTheOnlyFilmOfTheFolder()
    {
        QDir().mkpath(amb->Programma() + QStringLiteral("/swf"));
        AmbienteProva::Scrivi(amb->Programma() + QStringLiteral("/swf/unico.swf"), "FWS");
        QString film;
        bool sempre = false;  // the reward film is heard as long as it plays
        // once the screen is active and its first second over: its film is chosen
        QTimer sonda;
        int giri = 0;
        connect(&sonda, &QTimer::timeout, this, [&] {
            auto *p = qobject_cast<FormPremio *>(Schermi::Riferimento(QStringLiteral("FormPremio")));
            if (!p || p->ShockwaveFlash1->Movie().isEmpty() || !p->Command1->isEnabled()) {
                if (++giri > 4000) {
                    sonda.stop();
                    GuardiaModali::ChiudiTutto();
                }
                return;
            }
            sonda.stop();
            film = p->ShockwaveFlash1->Movie();
            sempre = p->ShockwaveFlash1->SonoroImpostato() == Sonoro::Sempre;
            p->Command1->click();
        });
        sonda.start(5);
        Schermi::MostraModale(QStringLiteral("FormPremio"));
        QVERIFY(film.endsWith(QLatin1String("\\swf\\unico.swf")));
        QVERIFY(sempre);
    }

    void aRewardWithNoFilmsShowsItsColourAndButtonAndNoMessage()
    {
        // Looked at once the screen's activation is over: its button enabled.
        bool vuoto = false;
        QTimer sonda;
        connect(&sonda, &QTimer::timeout, this, [&] {
            auto *p = qobject_cast<FormPremio *>(Schermi::Riferimento(QStringLiteral("FormPremio")));
            if (!p || !p->isVisible() || !p->Command1->isEnabled() || AtteseInCorso() > 0)
                return;
            sonda.stop();
            vuoto = p->ShockwaveFlash1->NomeMotore().isEmpty() && p->Command1->isVisible();
            p->Command1->click();
        });
        sonda.start(5);
        Schermi::MostraModale(QStringLiteral("FormPremio"));
        sonda.stop();
        QVERIFY(vuoto);
        QVERIFY(amb->scatole.empty());
    }
};

QTEST_MAIN(TestSchermiTavola)
#include "test_schermi_tavola.moc"
