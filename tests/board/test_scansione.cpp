#include "ProvaTavola.h"

#include "platform/Casuale.h"

// Scanning and keyboard input, and what differs between the five boards.
class TestScansione : public QObject
{
    Q_OBJECT
private:
    std::unique_ptr<AmbienteProva> amb;
    VistaProva vista;

    std::unique_ptr<Tavola> tavola(const ImpostazioniTavola &imp = TavolaSS()) { return TavolaSuSchermo(imp, &vista); }
    void setFilm(int n) { FileMemory = ScriviSet(amb->Casa(), QStringLiteral("prova.ass"), n); }
    void setImmagini(int n)
    {
        const QString casa = amb->Casa();
        for (int i = 0; i < n; ++i) {
            ScriviImmagine(casa, QStringLiteral("a%1.png").arg(i));
            ScriviImmagine(casa, QStringLiteral("b%1.png").arg(i));
        }
        FileMemory = ScriviSet(casa, QStringLiteral("prova.agg"), n, {}, [casa](int i, int c) {
            return QStringLiteral("%1/%2%3.png").arg(casa).arg(QChar(c == 1 ? u'a' : u'b')).arg(i);
        });
    }
    static int tasto(Tavola &t, int codice, OrigineTasto o = OrigineTasto::PictureScansione)
    {
        t.TastoGiu(codice, o);
        return codice;
    }
    static int altroDellaCoppia(const Tavola &t, int posto)
    {
        for (int k = 0; k < 24; ++k)
            if (k != posto && t.FramePosto[k].Tag == t.FramePosto[posto].Tag)
                return k;
        return -1;
    }

private slots:
    void init()
    {
        amb = std::make_unique<AmbienteProva>();
        ProfiloDiProva();
        vista = VistaProva();
        SeminaCasuale(11);
    }
    void cleanup() { amb.reset(); }

    void withOnePairLeftAndItsFirstTileOpenEveryStepLandsOnTheLastCover()
    {
        Profilo.ModoInput = ModoInputValori::ScansioneManuale;
        Profilo.NumeroTessere = 4;
        setFilm(2);
        auto t = tavola();
        t->Form_Activate();
        const int a = 0, b = altroDellaCoppia(*t, 0);
        t->FramePosto_Click(a);
        t->FramePosto_Click(b);
        int c = 1;
        while (!t->FramePosto[c].Visible)
            ++c;
        const int d = altroDellaCoppia(*t, c);
        t->FramePosto_Click(c);
        for (int i = 0; i < 5; ++i) {
            QCOMPARE(tasto(*t, CodiciTasto::Spazio), 0);
            QCOMPARE(int(t->PostoEvidenziato), d);
        }
    }

    void upAndDownRunRoundTheColumn()
    {
        Profilo.ModoInput = ModoInputValori::Tastiera;
        Profilo.NumeroTessere = 12;
        setFilm(6);
        auto t = tavola();
        t->Form_Activate();
        t->PostoEvidenziato = 1;
        tasto(*t, CodiciTasto::Su);
        QCOMPARE(t->PostoEvidenziato, qint16(9));
        tasto(*t, CodiciTasto::Giu);
        QCOMPARE(t->PostoEvidenziato, qint16(1));
        tasto(*t, CodiciTasto::Sinistra);
        QCOMPARE(t->PostoEvidenziato, qint16(0));
        tasto(*t, CodiciTasto::Sinistra);
        QCOMPARE(t->PostoEvidenziato, qint16(11));
        tasto(*t, CodiciTasto::Destra);
        QCOMPARE(t->PostoEvidenziato, qint16(0));
        QCOMPARE(t->FramePosto[0].BackColor, Profilo.ColoreScansione);
        QCOMPARE(t->FramePosto[11].BackColor, Profilo.ColoreTessere);
    }

    void inManualScanningASpaceDuringTheCompareDoesNothingAndIsNotQueued()
    {
        Profilo.ModoInput = ModoInputValori::ScansioneManuale;
        setFilm(6);
        auto t = tavola();
        t->Form_Activate();
        QCOMPARE(t->FramePosto[0].BackColor, Profilo.ColoreScansione);
        t->FramePosto_Click(0);
        int b = 1;
        while (t->FramePosto[b].Tag == t->FramePosto[0].Tag)
            ++b;
        t->PostoEvidenziato = qint16(b);
        int risposta = -1;
        qint16 postoDurante = -1;
        vista.durante = [&](double) {
            risposta = tasto(*t, CodiciTasto::Spazio);
            postoDurante = t->PostoEvidenziato;
        };
        QCOMPARE(tasto(*t, CodiciTasto::Invio), 0);
        QCOMPARE(risposta, int(CodiciTasto::Spazio));
        QCOMPARE(int(postoDurante), b);
        QCOMPARE(int(t->PostoEvidenziato), b);
    }

    void inAutomaticScanningASelectionWithRipartiMakesTheNextTickLandOnTheFirstCover()
    {
        Profilo.ModoInput = ModoInputValori::ScansioneAutomatica;
        Profilo.Riparti = true;
        setFilm(6);
        auto t = tavola();
        t->Form_Activate();
        QVERIFY(t->Timer1Enabled);
        QCOMPARE(t->PostoEvidenziato, qint16(11));
        for (int i = 0; i < 7; ++i)
            t->Timer1_Timer();
        QCOMPARE(t->PostoEvidenziato, qint16(6));
        QCOMPARE(tasto(*t, CodiciTasto::Spazio), 0);
        QCOMPARE(t->PostoEvidenziato, qint16(11));
        for (const Copertura &c : t->FramePosto)
            QCOMPARE(c.BackColor, Profilo.ColoreTessere);
        t->Timer1_Timer();
        QCOMPARE(t->PostoEvidenziato, qint16(0));
    }

    void withoutRipartiTheScanGoesOnFromTheSelectedPlace()
    {
        Profilo.ModoInput = ModoInputValori::ScansioneAutomatica;
        setFilm(6);
        auto t = tavola();
        t->Form_Activate();
        for (int i = 0; i < 5; ++i)
            t->Timer1_Timer();
        QCOMPARE(t->PostoEvidenziato, qint16(4));
        tasto(*t, CodiciTasto::Spazio);
        t->Timer1_Timer();
        QCOMPARE(t->PostoEvidenziato, qint16(5));
    }

    void theAutomaticScanStepsEveryQuarterSecondTimesTheSpeed_data()
    {
        QTest::addColumn<int>("velocita");
        QTest::addColumn<int>("ms");
        QTest::newRow("4: once a second") << 4 << 1000;
        QTest::newRow("60: once in 15 seconds") << 60 << 15000;
    }
    void theAutomaticScanStepsEveryQuarterSecondTimesTheSpeed()
    {
        QFETCH(int, velocita);
        Profilo.ModoInput = ModoInputValori::ScansioneAutomatica;
        Profilo.VelocitaScansione = qint16(velocita);
        setFilm(6);
        auto t = tavola();
        t->Form_Activate();
        QTEST(t->Timer1Interval, "ms");
        QVERIFY(t->Timer1Enabled);
    }

    void theAutomaticScanIsOffDuringASelectionAndOnAfterIt()
    {
        Profilo.ModoInput = ModoInputValori::ScansioneAutomatica;
        setFilm(6);
        auto t = tavola();
        t->Form_Activate();
        t->FramePosto_Click(0);
        int b = 1;
        while (t->FramePosto[b].Tag == t->FramePosto[0].Tag)
            ++b;
        bool spento = false;
        vista.durante = [&](double) { spento = !t->Timer1Enabled; };
        t->FramePosto_Click(b);
        QVERIFY(spento);
        QVERIFY(t->Timer1Enabled);
    }

    void inMouseModeKeysAreDead()
    {
        setFilm(6);
        auto t = tavola();
        t->Form_Activate();
        for (int k : {int(CodiciTasto::Spazio), int(CodiciTasto::Invio), int(CodiciTasto::Destra)}) {
            QCOMPARE(tasto(*t, k), k);
            QCOMPARE(tasto(*t, k, OrigineTasto::Form), k);
        }
        for (int k = 0; k < 12; ++k)
            QVERIFY(t->FramePosto[k].Visible);
        QVERIFY(!t->PrimaScoperta);
    }

    void withRiquadroTheCoversKeepTheirColourAndOnlyTheFrameMoves()
    {
        Profilo.ModoInput = ModoInputValori::ScansioneManuale;
        Profilo.Riquadro = true;
        Profilo.SpessoreRiquadro = 6;
        setFilm(6);
        auto t = tavola();
        t->Form_Activate();
        tasto(*t, CodiciTasto::Spazio);
        tasto(*t, CodiciTasto::Spazio);
        for (const Copertura &c : t->FramePosto)
            QCOMPARE(c.BackColor, Profilo.ColoreTessere);
        QVERIFY(t->ShapeRiquadro.Visible);
        QCOMPARE(t->ShapeRiquadro.BorderWidth, qint16(6));
        // The thickness counts as twips here.
        QCOMPARE(t->ShapeRiquadro.Left, qint16(t->FramePosto[2].Left - 6));
        QCOMPARE(t->ShapeRiquadro.Top, qint16(t->FramePosto[2].Top - 6));
        QCOMPARE(t->ShapeRiquadro.Width, qint16(t->FramePosto[2].Width + 6));
        QCOMPARE(t->ShapeRiquadro.Height, qint16(t->FramePosto[2].Height + 6));
    }

    void unknownKeysArePassedOverWithTheirCode()
    {
        Profilo.ModoInput = ModoInputValori::Tastiera;
        setFilm(6);
        auto t = tavola();
        t->Form_Activate();
        QCOMPARE(tasto(*t, 65), 65);
        QCOMPARE(tasto(*t, CodiciTasto::Spazio), int(CodiciTasto::Spazio));
    }

    // --- the five boards -----------------------------------------------------

    void keysArriveWhereEachBoardTakesThem_data()
    {
        QTest::addColumn<QString>("tavola");
        QTest::addColumn<int>("modo");
        QTest::addColumn<bool>("dalFuoco");
        QTest::addColumn<bool>("dalForm");
        for (const char *n : {"FormmemSS", "FormmemPS"})
            for (int m = 1; m <= 3; ++m)
                QTest::addRow("%s mode %d", n, m) << QString::fromLatin1(n) << m << true << false;
        for (const char *n : {"FormmemGG", "FormmemPG"})
            for (int m = 1; m <= 3; ++m)
                QTest::addRow("%s mode %d", n, m) << QString::fromLatin1(n) << m << (m == 3) << (m != 3);
        for (int m = 1; m <= 3; ++m)
            QTest::addRow("FormmemGGCS mode %d", m) << QStringLiteral("FormmemGGCS") << m << false << true;
    }
    void keysArriveWhereEachBoardTakesThem()
    {
        QFETCH(QString, tavola);
        QFETCH(int, modo);
        Profilo.ModoInput = qint16(modo);
        Tavola t(*TavolaDiNome(tavola), &vista);
        QTEST(t.GestisceTasto(OrigineTasto::PictureScansione), "dalFuoco");
        QTEST(t.GestisceTasto(OrigineTasto::Form), "dalForm");
    }

    void inManualScanningOnGGSpaceReachesTheFormsKeyEvent()
    {
        Profilo.ModoInput = ModoInputValori::ScansioneManuale;
        setImmagini(6);
        auto t = tavola(TavolaGG());
        t->Form_Activate();
        QVERIFY(!t->Timer2Enabled);
        QCOMPARE(tasto(*t, CodiciTasto::Spazio, OrigineTasto::Form), 0);
        QCOMPARE(t->PostoEvidenziato, qint16(1));
    }

    void timer2AtActivationByBoardAndMode_data()
    {
        QTest::addColumn<QString>("tavola");
        QTest::addColumn<int>("modo");
        QTest::addColumn<bool>("acceso");
        QTest::newRow("SS mouse") << "FormmemSS" << 0 << true;
        QTest::newRow("PS mouse") << "FormmemPS" << 0 << false;
        QTest::newRow("PS manual") << "FormmemPS" << 1 << true;
        QTest::newRow("GG manual") << "FormmemGG" << 1 << false;
        QTest::newRow("GG keyboard") << "FormmemGG" << 3 << true;
        QTest::newRow("PG mouse: on from design, every 10 ms") << "FormmemPG" << 0 << true;
        QTest::newRow("GGCS has none") << "FormmemGGCS" << 3 << false;
    }
    void timer2AtActivationByBoardAndMode()
    {
        QFETCH(QString, tavola);
        QFETCH(int, modo);
        Profilo.ModoInput = qint16(modo);
        FileMemory = amb->Casa() + QStringLiteral("/manca");
        Tavola t(*TavolaDiNome(tavola), &vista);
        t.Form_Activate();
        QTEST(t.Timer2Enabled, "acceso");
        if (tavola == QLatin1String("FormmemPG"))
            QCOMPARE(TavolaPG().IntervalloTimer2, 10);
    }

    void theActivationWaitAndPauseDifferByBoard_data()
    {
        QTest::addColumn<QString>("tavola");
        QTest::addColumn<bool>("attesa");
        QTest::addColumn<int>("pausa");
        QTest::newRow("SS") << "FormmemSS" << true << 2;
        QTest::newRow("PS") << "FormmemPS" << false << 9;
        QTest::newRow("GG") << "FormmemGG" << true << 2;
        QTest::newRow("PG") << "FormmemPG" << true << 9;
        QTest::newRow("GGCS") << "FormmemGGCS" << false << 2;
    }
    void theActivationWaitAndPauseDifferByBoard()
    {
        QFETCH(QString, tavola);
        FileMemory = amb->Casa() + QStringLiteral("/manca");
        Tavola t(*TavolaDiNome(tavola), &vista);
        t.PausaConfronto = 9;
        t.Form_Activate();
        QTEST(!vista.attese.empty(), "attesa");
        QTEST(int(t.PausaConfronto), "pausa");
    }

    void onPSTheStatusBarLabelIsTheSameForSeveralPlayers()
    {
        FileMemory = amb->Casa() + QStringLiteral("/manca");
        Tavola uno(TavolaPS(), &vista);
        uno.Form_Activate();
        NumeroGiocatori = 2;
        Tavola due(TavolaPS(), &vista);
        due.Form_Activate();
        const QString etichetta = TestoLingua(QStringLiteral("0031"));
        QVERIFY(!etichetta.isEmpty());
        QCOMPARE(uno.StatusBar1[0].Text, QStringLiteral("Anna   ") + etichetta + QStringLiteral(" 0"));
        QCOMPARE(due.StatusBar1[0].Text, uno.StatusBar1[0].Text);
    }

    void theMissingFileKeyDiffersByBoard_data()
    {
        QTest::addColumn<QString>("tavola");
        QTest::addColumn<QString>("chiave");
        QTest::newRow("SS") << "FormmemSS" << "0024";
        QTest::newRow("PS") << "FormmemPS" << "0030";
        QTest::newRow("GG") << "FormmemGG" << "0078";
        QTest::newRow("PG") << "FormmemPG" << "0081";
        QTest::newRow("GGCS") << "FormmemGGCS" << "0061";
    }
    void theMissingFileKeyDiffersByBoard()
    {
        QFETCH(QString, tavola);
        QFETCH(QString, chiave);
        FileMemory = amb->Casa() + QStringLiteral("/manca");
        Tavola t(*TavolaDiNome(tavola), &vista);
        t.Form_Activate();
        QCOMPARE(int(amb->scatole.size()), 1);
        QCOMPARE(amb->scatole[0].testo, TestoLingua(chiave));
    }

    void theSameAggFileGivesCoveredTilesOnGGAndOpenOnesOnGGCS()
    {
        setImmagini(6);
        auto gg = tavola(TavolaGG());
        gg->Form_Activate();
        SeminaCasuale(11);
        auto ggcs = tavola(TavolaGGCS());
        ggcs->Form_Activate();
        for (int i = 0; i < 6; ++i) {
            QVERIFY(!gg->Lato1[i].Visible);
            QVERIFY(!gg->Lato2[i].Visible);
            QVERIFY(ggcs->Lato1[i].Visible);
            QVERIFY(ggcs->Lato2[i].Visible);
        }
    }

    void onGGCSWithoutRiquadroTheScanStillShowsTheFrame()
    {
        Profilo.ModoInput = ModoInputValori::ScansioneManuale;
        Profilo.Riquadro = false;
        Profilo.SpessoreRiquadro = 9;
        setImmagini(6);
        auto t = tavola(TavolaGGCS());
        t->Form_Activate();
        tasto(*t, CodiciTasto::Spazio, OrigineTasto::Form);
        QVERIFY(t->ShapeRiquadro.Visible);
        QCOMPARE(t->ShapeRiquadro.BorderWidth, qint16(9));
        QCOMPARE(t->ShapeRiquadro.Left, qint16(t->FramePosto[1].Left - 9));
        for (const Copertura &c : t->FramePosto)
            QCOMPARE(c.BackColor, Profilo.ColoreTessere);
    }

    void onGGCSAFoundPairAnimatesThreeSecondsThenLeavesTwoEmptyPlacesThatScanningPasses()
    {
        Profilo.ModoInput = ModoInputValori::ScansioneManuale;
        setImmagini(6);
        auto t = tavola(TavolaGGCS());
        t->Form_Activate();
        const int a = 0, b = altroDellaCoppia(*t, 0);
        const int n = t->FramePosto[0].Tag.toInt();
        t->FramePosto_Click(a);
        QVERIFY(t->Shape1.Visible);
        QCOMPARE(t->Shape1.Left, t->FramePosto[a].Left);
        QVERIFY(vista.attese.empty());
        bool animate = false;
        vista.durante = [&](double) {
            animate = t->Lato1[n].AnimataVisible && t->Lato2[n].AnimataVisible && !t->Lato1[n].Visible;
        };
        t->FramePosto_Click(b);
        QCOMPARE(vista.attese, std::vector<double>({3.0}));
        QVERIFY(animate);
        QVERIFY(!t->Shape1.Visible);
        QVERIFY(!t->Lato1[n].AnimataVisible && !t->Lato1[n].Visible);
        QVERIFY(!t->Lato2[n].AnimataVisible && !t->Lato2[n].Visible);
        QVERIFY(!t->FramePosto[a].Visible && !t->FramePosto[b].Visible);
        t->PostoEvidenziato = qint16(a - 1 < 0 ? 11 : a - 1);
        for (int i = 0; i < 12; ++i) {
            tasto(*t, CodiciTasto::Spazio, OrigineTasto::Form);
            QVERIFY(t->PostoEvidenziato != a && t->PostoEvidenziato != b);
        }
    }

    void onGGCSTheFrameIsGoneFromTheEmptyPlacesDuringTheApplause_data()
    {
        QTest::addColumn<int>("modo");
        QTest::newRow("manual scanning") << int(ModoInputValori::ScansioneManuale);
        QTest::newRow("automatic scanning") << int(ModoInputValori::ScansioneAutomatica);
        QTest::newRow("keyboard") << int(ModoInputValori::Tastiera);
    }
    void onGGCSTheFrameIsGoneFromTheEmptyPlacesDuringTheApplause()
    {
        QFETCH(int, modo);
        Profilo.ModoInput = qint16(modo);
        Profilo.NumeroTessere = 4;
        setImmagini(2);
        auto t = tavola(TavolaGGCS());
        t->Form_Activate();
        // The game is played with the scan alone: step to a tile, select it.
        auto scegli = [&](int posto) {
            for (int passi = 0; t->PostoEvidenziato != posto || !t->ShapeRiquadro.Visible; ++passi) {
                QVERIFY2(passi < 24, "the scan never reached the tile");
                if (modo == ModoInputValori::ScansioneAutomatica)
                    t->Timer1_Timer();
                else
                    tasto(*t, modo == ModoInputValori::Tastiera ? CodiciTasto::Destra : CodiciTasto::Spazio,
                          OrigineTasto::Form);
            }
            QVERIFY(t->ShapeRiquadro.Visible);
            tasto(*t, modo == ModoInputValori::ScansioneAutomatica ? CodiciTasto::Spazio : CodiciTasto::Invio,
                  OrigineTasto::Form);
        };
        int applausi = 0;
        bool riquadroAllApplauso = true;
        vista.durante = [&](double) {
            for (int k = 0; k < 4; ++k)
                if (t->FramePosto[k].Tag != QLatin1String("trovata"))
                    return; // a found pair moving, not the end
            ++applausi;
            riquadroAllApplauso = t->ShapeRiquadro.Visible;
        };
        bool riquadroAlPremio = true;
        vista.alPremio = [&] { riquadroAlPremio = t->ShapeRiquadro.Visible; };
        for (int coppia = 0; coppia < 2; ++coppia) {
            int a = 0;
            while (t->FramePosto[a].Tag == QLatin1String("trovata"))
                ++a;
            const int b = altroDellaCoppia(*t, a);
            scegli(a);
            if (QTest::currentTestFailed())
                return;
            scegli(b);
            if (QTest::currentTestFailed())
                return;
        }
        QCOMPARE(vista.premi, 1);
        QCOMPARE(applausi, 1);
        QVERIFY2(!riquadroAllApplauso, "the scanning frame stands over an empty place during the applause");
        QVERIFY(!riquadroAlPremio);
    }

    void onGGCSAWrongMoveHasNoWait()
    {
        setImmagini(6);
        auto t = tavola(TavolaGGCS());
        t->Form_Activate();
        int b = 1;
        while (t->FramePosto[b].Tag == t->FramePosto[0].Tag)
            ++b;
        t->FramePosto_Click(0);
        t->FramePosto_Click(b);
        QVERIFY(vista.attese.empty());
        QCOMPARE(t->Mosse[0], qint16(1));
        QVERIFY(t->FramePosto[0].Visible && t->FramePosto[b].Visible);
    }

    void onGGCSInKeyboardModeTheStartFramesPlaceZeroWithoutASearch()
    {
        Profilo.ModoInput = ModoInputValori::Tastiera;
        Profilo.SpessoreRiquadro = 7;
        setImmagini(6);
        auto t = tavola(TavolaGGCS());
        t->Form_Activate();
        QCOMPARE(t->PostoEvidenziato, qint16(0));
        QVERIFY(t->ShapeRiquadro.Visible);
        QCOMPARE(t->ShapeRiquadro.Left, qint16(t->FramePosto[0].Left - 7));
        for (const Copertura &c : t->FramePosto)
            QCOMPARE(c.BackColor, Profilo.ColoreTessere);
    }

    void onGGCSInKeyboardModeTheHighlightGoesOnFromWhereItIsAfterAMove()
    {
        Profilo.ModoInput = ModoInputValori::Tastiera;
        setImmagini(6);
        auto t = tavola(TavolaGGCS());
        t->Form_Activate();
        t->PostoEvidenziato = 5;
        QCOMPARE(tasto(*t, CodiciTasto::Invio, OrigineTasto::Form), 0);
        QCOMPARE(t->PostoEvidenziato, qint16(6));
        int b = 7;
        while (t->FramePosto[b].Tag == t->FramePosto[5].Tag)
            ++b;
        t->PostoEvidenziato = qint16(b);
        tasto(*t, CodiciTasto::Invio, OrigineTasto::Form);
        // No restart from the first place, as the other boards do.
        QCOMPARE(int(t->PostoEvidenziato), b + 1 < 12 ? b + 1 : 0);
    }

    void onTheOtherBoardsInKeyboardModeTheHighlightRestartsAfterAMove()
    {
        Profilo.ModoInput = ModoInputValori::Tastiera;
        setFilm(6);
        auto t = tavola();
        t->Form_Activate();
        t->PostoEvidenziato = 5;
        tasto(*t, CodiciTasto::Invio);
        int b = 7;
        while (t->FramePosto[b].Tag == t->FramePosto[5].Tag)
            ++b;
        t->PostoEvidenziato = qint16(b);
        tasto(*t, CodiciTasto::Invio);
        QCOMPARE(t->PostoEvidenziato, qint16(0));
    }

    void theExitTouchesTimer2AsEachBoardDoes_data()
    {
        QTest::addColumn<QString>("tavola");
        QTest::addColumn<bool>("prima");
        QTest::addColumn<bool>("dopo");
        QTest::addColumn<bool>("dopoNo");
        QTest::newRow("SS") << "FormmemSS" << false << true << true;
        QTest::newRow("PS") << "FormmemPS" << false << false << true;
        QTest::newRow("GG") << "FormmemGG" << true << true << true;
        QTest::newRow("PG") << "FormmemPG" << true << true << true;
    }
    void theExitTouchesTimer2AsEachBoardDoes()
    {
        QFETCH(QString, tavola);
        Profilo.ModoInput = ModoInputValori::Tastiera;
        FileMemory = amb->Casa() + QStringLiteral("/manca");
        Tavola t(*TavolaDiNome(tavola), &vista);
        t.Form_Activate();
        QVERIFY(t.Timer2Enabled);
        t.mnuEsci_Prima();
        QTEST(t.Timer2Enabled, "prima");
        t.mnuEsci_Dopo();
        QTEST(t.Timer2Enabled, "dopo");
        t.CommandNo_Timer2();
        QTEST(t.Timer2Enabled, "dopoNo");
    }
};

QTEST_MAIN(TestScansione)
#include "test_scansione.moc"
