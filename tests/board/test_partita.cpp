#include "ProvaTavola.h"

#include "platform/Casuale.h"

#include <QSet>

// Start, deal, turns and faces of a board, without widgets.
class TestPartita : public QObject
{
    Q_OBJECT
private:
    std::unique_ptr<AmbienteProva> amb;
    VistaProva vista;

    std::unique_ptr<Tavola> tavola(const ImpostazioniTavola &imp = TavolaSS()) { return TavolaSuSchermo(imp, &vista); }
    QString set(int n, std::function<QString(int, int)> suono = {}, std::function<QString(int, int)> lato = {})
    {
        FileMemory = ScriviSet(amb->Casa(), QStringLiteral("prova.ass"), n, std::move(suono), std::move(lato));
        return FileMemory;
    }
    static int postoCon(const Tavola &t, const QString &tag, int dopo = -1)
    {
        for (int k = dopo + 1; k < 24; ++k)
            if (t.FramePosto[k].Tag == tag)
                return k;
        return -1;
    }
    // Two places of different pairs.
    static std::pair<int, int> coppiaSbagliata(const Tavola &t)
    {
        int a = 0;
        while (a < 24 && !t.FramePosto[a].Visible)
            ++a;
        int b = a + 1;
        while (b < 24 && (!t.FramePosto[b].Visible || t.FramePosto[b].Tag == t.FramePosto[a].Tag))
            ++b;
        return {a, b};
    }
    static std::pair<int, int> coppiaGiusta(const Tavola &t, int n = 0)
    {
        const int a = postoCon(t, QString::number(n));
        return {a, postoCon(t, QString::number(n), a)};
    }
    int conteggioSuono(const char *nome) const
    {
        int c = 0;
        for (const QString &s : amb->suoni.richieste)
            if (s.endsWith(QLatin1String(nome)))
                ++c;
        return c;
    }

private slots:
    void init()
    {
        amb = std::make_unique<AmbienteProva>();
        ProfiloDiProva();
        vista = VistaProva();
        SeminaCasuale(7);
    }
    void cleanup() { amb.reset(); }

    // --- start -------------------------------------------------------------

    void activationRunsItsStepsAndDeals()
    {
        set(12);
        auto t = tavola();
        ComboUtenteAttiva = false;
        t->Form_Activate();
        QVERIFY(ComboUtenteAttiva);
        QCOMPARE(vista.attese, std::vector<double>({1.0}));
        QCOMPARE(t->NumeroCoppie(), qint16(12));
        QVERIFY(t->mnuAvviaEnabled);
        QCOMPARE(t->ColoreSfondoForm, Profilo.ColoreSfondo);
        QVERIFY(t->StatusBar1[0].Visible);
        QVERIFY(!t->StatusBar1[1].Visible);
        QVERIFY(t->StatusBar1[0].Immagine);
        QCOMPARE(t->StatusBar1[0].Text, QStringLiteral("Anna   ") + TestoLingua(QStringLiteral("0025")) + QStringLiteral(" 0"));
        for (int k = 0; k < 12; ++k) {
            QVERIFY(t->FramePosto[k].Visible);
            QVERIFY(t->FramePosto[k].PuntatorePersonalizzato);
        }
        for (int k = 12; k < 24; ++k)
            QVERIFY(!t->FramePosto[k].Visible);
    }

    void aSetOfTwoRecordsAnd24TilesEndsAtFourForLaterGames()
    {
        set(2);
        Profilo.NumeroTessere = 24;
        auto t = tavola();
        t->Form_Activate();
        QCOMPARE(Profilo.NumeroTessere, qint16(4));
        QCOMPARE(t->Geometria.NumeroColonne, qint16(2));
        auto altra = tavola(TavolaGGCS());
        QCOMPARE(altra->NumeroTessere(), qint16(4));
    }

    void aSetOfFiveRecordsWithTwelveTilesPlaysEightAndLeavesOneOut()
    {
        set(5);
        auto t = tavola();
        t->Form_Activate();
        QCOMPARE(Profilo.NumeroTessere, qint16(8));
        QSet<QString> usati;
        for (int i = 0; i < 4; ++i)
            usati << t->Lato1[i].File;
        QCOMPARE(usati.size(), 4);
        int visibili = 0;
        for (const Copertura &c : t->FramePosto)
            visibili += c.Visible;
        QCOMPARE(visibili, 8);
    }

    void aWordInCapitalsIsHeldInLowerCaseOnTheBoard()
    {
        Profilo.Maiuscolo1 = true;
        set(2, {}, [](int i, int c) { return c == 1 ? QStringLiteral("CANE%1").arg(i) : QStringLiteral("X.SWF"); });
        auto t = tavola();
        t->Form_Activate();
        QCOMPARE(t->Tabella.Campo(0, 1), QStringLiteral("cane0"));
        QCOMPARE(t->Tabella.Campo(1, 2), QStringLiteral("x.swf"));
    }

    void aMissingSetShowsItsMessageAndLeavesTheBoardEmpty()
    {
        FileMemory = amb->Casa() + QStringLiteral("/manca.ass");
        auto t = tavola();
        t->mnuAvviaEnabled = false;
        t->Form_Activate();
        QCOMPARE(int(amb->scatole.size()), 1);
        QCOMPARE(amb->scatole[0].testo, TestoLingua(QStringLiteral("0024")));
        QVERIFY(!t->mnuAvviaEnabled);
        for (const Copertura &c : t->FramePosto)
            QVERIFY(!c.Visible);
        t->mnuAvvia_Click();
        for (const Copertura &c : t->FramePosto)
            QVERIFY(!c.Visible);
    }

    void anEmptySetEnablesRestartAndDealsNothing()
    {
        set(0);
        auto t = tavola();
        t->mnuAvviaEnabled = false;
        t->Form_Activate();
        QVERIFY(t->mnuAvviaEnabled);
        QCOMPARE(t->NumeroCoppie(), qint16(0));
        for (const Copertura &c : t->FramePosto)
            QVERIFY(!c.Visible);
    }

    void aSetOfOneRecordLeavesTheBoardEmptyAndStartsNoDeal()
    {
        set(1);
        auto t = tavola();
        t->Form_Activate();
        QCOMPARE(t->NumeroCoppie(), qint16(1));
        for (const Copertura &c : t->FramePosto) {
            QVERIFY(!c.Visible);
            QVERIFY(c.Tag.isEmpty());
        }
        QCOMPARE(Profilo.NumeroTessere, qint16(12));
    }

    void aSetOfOneRecordInKeyboardModeEndsTheProgram()
    {
        set(1);
        Profilo.ModoInput = ModoInputValori::Tastiera;
        auto t = tavola();
        QVERIFY_THROWS_EXCEPTION(ProcessoTerminato, t->Form_Activate());
    }

    void placesBeyondTheCountStayHiddenButEnabled()
    {
        set(12);
        auto t = tavola();
        t->Form_Activate();
        for (int k = 12; k < 24; ++k) {
            QVERIFY(!t->FramePosto[k].Visible);
            QVERIFY(t->FramePosto[k].Enabled);
        }
    }

    void closingTheRewardStartsWithTheFirstPlayerAndReadsTheFileAgain()
    {
        NumeroGiocatori = 2;
        set(2);
        auto t = tavola();
        t->Form_Activate();
        t->GiocatoreCorrente = 1;
        t->Mosse[0] = 3;
        t->AggiornaMosse();
        set(3); // the file changes meanwhile
        QString duranteAttesa;
        vista.durante = [&](double) { duranteAttesa = t->StatusBar1[0].Text; };
        t->Form_Activate();
        QCOMPARE(t->GiocatoreCorrente, qint16(0));
        QCOMPARE(t->NumeroCoppie(), qint16(3));
        // During the wait of one second the old scores still show.
        QVERIFY2(duranteAttesa.endsWith(QLatin1String(" 3")), qPrintable(duranteAttesa));
        QCOMPARE(t->Mosse[0], qint16(0));
        QVERIFY(t->StatusBar1[0].Text.endsWith(QLatin1String(" 0")));
    }

    // --- deal --------------------------------------------------------------

    // Pins the deal of one seed, so that a change of the generator or of the
    // order of the draws shows; the next test walks the same rules by hand.
    void aSeededDealDrawsTheseRecordsOntoThesePlaces()
    {
        set(20);
        SeminaCasuale(20260319);
        auto t = tavola();
        t->Form_Activate();
        QStringList lati;
        for (int i = 0; i < 6; ++i)
            lati << t->Lato1[i].File;
        QCOMPARE(lati, QStringList({"a5.swf", "a17.swf", "a8.swf", "a0.swf", "a1.swf", "a13.swf"}));
        QStringList tag;
        for (int k = 0; k < 12; ++k)
            tag << t->FramePosto[k].Tag;
        QCOMPARE(tag, QStringList({"2", "4", "4", "1", "5", "0", "3", "1", "5", "2", "0", "3"}));
    }

    void theSeededDealFollowsTheGeneratorByRejection()
    {
        set(20);
        SeminaCasuale(99);
        auto t = tavola();
        t->Form_Activate();
        // The same draws, walked by hand on the same sequence.
        SeminaCasuale(99);
        bool usata[20] = {};
        QStringList attesi;
        for (int i = 0; i < 6; ++i) {
            int r = IndiceCasuale(20);
            while (usata[r])
                r = IndiceCasuale(20);
            usata[r] = true;
            attesi << QStringLiteral("a%1.swf").arg(r);
        }
        QString posti[12];
        for (int i = 0; i < 12; ++i) {
            int p = IndiceCasuale(12);
            while (!posti[p].isEmpty())
                p = IndiceCasuale(12);
            posti[p] = QString::number(i < 6 ? i : i - 6);
        }
        for (int i = 0; i < 6; ++i)
            QCOMPARE(t->Lato1[i].File, attesi[i]);
        for (int k = 0; k < 12; ++k)
            QCOMPARE(t->FramePosto[k].Tag, posti[k]);
    }

    void everyPairLiesOnExactlyTwoPlacesWithBothSides()
    {
        set(12);
        auto t = tavola();
        t->Form_Activate();
        for (int i = 0; i < 6; ++i) {
            const auto [a, b] = coppiaGiusta(*t, i);
            QVERIFY(a >= 0 && b >= 0);
            QCOMPARE(postoCon(*t, QString::number(i), b), -1);
            const bool aLato1 = t->Lato1[i].Left == t->FramePosto[a].Left && t->Lato1[i].Top == t->FramePosto[a].Top;
            const int lato1 = aLato1 ? a : b, lato2 = aLato1 ? b : a;
            QCOMPARE(t->Lato1[i].Left, t->FramePosto[lato1].Left);
            QCOMPARE(t->Lato2[i].Top, t->FramePosto[lato2].Top);
            QVERIFY(t->Lato1[i].Visible);
            QVERIFY(!t->Lato1[i].InRiproduzione);
        }
    }

    void whenRecordsEqualPairsEveryRecordIsDrawn()
    {
        set(6);
        auto t = tavola();
        t->Form_Activate();
        QSet<QString> usati;
        for (int i = 0; i < 6; ++i)
            usati << t->Lato1[i].File;
        QCOMPARE(usati, QSet<QString>({"a0.swf", "a1.swf", "a2.swf", "a3.swf", "a4.swf", "a5.swf"}));
    }

    void withFourTilesTheSecondPairsSoundCellIsStillFilled()
    {
        Profilo.NumeroTessere = 4;
        set(2, [](int i, int c) { return QStringLiteral("s%1_%2.wav").arg(i).arg(c); });
        auto t = tavola();
        t->Form_Activate();
        QVERIFY(!t->SuoniCoppia[1][1].isEmpty());
        QCOMPARE(t->PausaConfronto, qint16(3));
    }

    void thePauseComesFromTheSecondPairsFirstSoundAlone()
    {
        // Only record 0 has a first-side sound: the pause is long exactly when it is drawn second.
        Profilo.NumeroTessere = 4;
        set(2, [](int i, int c) { return i == 0 && c == 3 ? QStringLiteral("s.wav") : QString(); });
        bool lunga = false, breve = false;
        for (int seme = 1; seme <= 20; ++seme) {
            SeminaCasuale(seme);
            auto t = tavola();
            t->Form_Activate();
            const bool secondoConSuono = t->Lato1[1].File == QLatin1String("a0.swf");
            QCOMPARE(int(t->PausaConfronto), secondoConSuono ? 3 : 2);
            (secondoConSuono ? lunga : breve) = true;
        }
        QVERIFY(lunga && breve);
    }

    void soundsOnTheSecondSideOnlyKeepTheShortPause()
    {
        set(12, [](int, int c) { return c == 4 ? QStringLiteral("s.wav") : QString(); });
        auto t = tavola();
        t->Form_Activate();
        QCOMPARE(t->PausaConfronto, qint16(2));
    }

    void aSecondDealEmptiesTagsAndCanDrawTheSameRecordsAgain()
    {
        set(6);
        auto t = tavola();
        t->Form_Activate();
        const auto [a, b] = coppiaGiusta(*t);
        t->FramePosto_Click(a);
        t->FramePosto_Click(b);
        QCOMPARE(t->FramePosto[a].Tag, QStringLiteral("trovata"));
        t->mnuAvvia_Click();
        QSet<QString> usati;
        for (int i = 0; i < 6; ++i)
            usati << t->Lato1[i].File;
        QCOMPARE(usati.size(), 6); // all six records again, from a clean Usata
        for (int k = 0; k < 12; ++k) {
            QVERIFY(t->FramePosto[k].Tag != QLatin1String("trovata"));
            QVERIFY(t->FramePosto[k].Visible);
        }
        QCOMPARE(t->TessereTrovate, qint16(0));
    }

    void soundCellsOfALargerDealStayWhenTheCountFalls()
    {
        set(12, [](int i, int c) { return QStringLiteral("s%1_%2.wav").arg(i).arg(c); });
        auto t = tavola();
        t->Form_Activate();
        const QString vecchio = t->SuoniCoppia[5][1];
        QVERIFY(!vecchio.isEmpty());
        Profilo.NumeroTessere = 4;
        t->mnuAvvia_Click();
        QCOMPARE(t->SuoniCoppia[5][1], vecchio);
        for (int k = 0; k < 24; ++k)
            QVERIFY(t->SuonoPosto[k] != vecchio);
    }

    void aRecordWithAnEmptySoundLeavesItsPlaceSilent()
    {
        set(6, [](int i, int c) { return i == 0 && c == 3 ? QString() : QStringLiteral("s%1_%2.wav").arg(i).arg(c); });
        Profilo.NumeroTessere = 12;
        auto t = tavola();
        t->Form_Activate();
        int vuoti = 0;
        for (int k = 0; k < 12; ++k)
            vuoti += t->SuonoPosto[k].isEmpty();
        QCOMPARE(vuoti, 1);
    }

    // --- turns -------------------------------------------------------------

    void onePlayerCountsAtTheSecondTileBeforeThePause()
    {
        set(6);
        auto t = tavola();
        t->Form_Activate();
        const auto [a, b] = coppiaSbagliata(*t);
        t->FramePosto_Click(a);
        QCOMPARE(t->Mosse[0], qint16(0));
        qint16 durante = -1;
        vista.durante = [&](double) { durante = t->Mosse[0]; };
        t->FramePosto_Click(b);
        QCOMPARE(durante, qint16(1));
        QCOMPARE(t->Mosse[0], qint16(1));
        QCOMPARE(t->GiocatoreCorrente, qint16(0));
        // A wrong move covers both again at once.
        QVERIFY(t->FramePosto[a].Visible);
        QVERIFY(t->FramePosto[b].Visible);
    }

    void aFirstTileHasNoPause()
    {
        set(6);
        auto t = tavola();
        t->Form_Activate();
        vista.attese.clear();
        t->FramePosto_Click(coppiaSbagliata(*t).first);
        QVERIFY(vista.attese.empty());
        QVERIFY(t->PrimaScoperta);
    }

    void twoPlayersTheFinderPlaysOnAndTheMarkerMovesOnlyAfterThePause()
    {
        NumeroGiocatori = 2;
        set(6);
        auto t = tavola();
        t->Form_Activate();
        auto [a, b] = coppiaGiusta(*t);
        t->FramePosto_Click(a);
        t->FramePosto_Click(b);
        QCOMPARE(t->Mosse[0], qint16(1));
        QVERIFY(t->StatusBar1[0].Immagine);
        QCOMPARE(t->GiocatoreCorrente, qint16(0));
        const auto [c, d] = coppiaSbagliata(*t);
        bool marcatoreDuranteAttesa = false;
        vista.durante = [&](double) { marcatoreDuranteAttesa = t->StatusBar1[0].Immagine; };
        t->FramePosto_Click(c);
        t->FramePosto_Click(d);
        QVERIFY(marcatoreDuranteAttesa);
        QVERIFY(t->StatusBar1[1].Immagine);
        QVERIFY(!t->StatusBar1[0].Immagine);
        QCOMPARE(t->GiocatoreCorrente, qint16(1));
        QCOMPARE(t->StatusBar1[1].Text, QStringLiteral("Bruno   ") + TestoLingua(QStringLiteral("0026")) + QStringLiteral(" 0"));
    }

    void threePlayersTheTurnReturnsToTheFirstAfterTheThird()
    {
        NumeroGiocatori = 3;
        set(6);
        auto t = tavola();
        t->Form_Activate();
        QList<qint16> turni;
        for (int mossa = 0; mossa < 3; ++mossa) {
            const auto [a, b] = coppiaSbagliata(*t);
            t->FramePosto_Click(a);
            t->FramePosto_Click(b);
            turni << t->GiocatoreCorrente;
        }
        QCOMPARE(turni, QList<qint16>({1, 2, 0}));
    }

    void aRestartDuringTheSecondWaitCoversTheTileZeroesScoresAndKeepsTheTurn()
    {
        NumeroGiocatori = 2;
        set(6);
        auto t = tavola();
        t->Form_Activate();
        auto [a, b] = coppiaGiusta(*t);
        t->FramePosto_Click(a);
        t->FramePosto_Click(b);
        const auto [c, d] = coppiaSbagliata(*t);
        t->FramePosto_Click(c);
        t->FramePosto_Click(d);
        QCOMPARE(t->GiocatoreCorrente, qint16(1));
        const int e = postoCon(*t, QStringLiteral("2"));
        t->FramePosto_Click(e);
        t->mnuAvvia_Click();
        for (int k = 0; k < 12; ++k)
            QVERIFY(t->FramePosto[k].Visible);
        QVERIFY(!t->PrimaScoperta);
        QCOMPARE(t->Mosse[0], qint16(0));
        QCOMPARE(t->GiocatoreCorrente, qint16(1));
    }

    void duringTheCompareWaitTheBarriersHoldAndTheExitStaysOpen()
    {
        Profilo.ModoInput = ModoInputValori::ScansioneManuale;
        set(6);
        auto t = tavola();
        t->Form_Activate();
        const auto [a, b] = coppiaSbagliata(*t);
        t->FramePosto_Click(a);
        bool copertureDisabilitate = true, riavvioDisabilitato = false, ingressoChiuso = false;
        vista.durante = [&](double) {
            for (int k = 0; k < 12; ++k)
                copertureDisabilitate = copertureDisabilitate && !t->FramePosto[k].Enabled;
            riavvioDisabilitato = !t->mnuAvviaEnabled;
            ingressoChiuso = !t->InputAbilitato;
        };
        t->FramePosto_Click(b);
        QVERIFY(copertureDisabilitate);
        QVERIFY(riavvioDisabilitato);
        QVERIFY(ingressoChiuso);
        QVERIFY(t->mnuAvviaEnabled);
        QVERIFY(t->InputAbilitato);
    }

    void inKeyboardModeTheHighlightMovesOnFromTheFirstTileAndRestartsAfterAMove()
    {
        Profilo.ModoInput = ModoInputValori::Tastiera;
        set(6);
        auto t = tavola();
        t->Form_Activate();
        QCOMPARE(t->PostoEvidenziato, qint16(0));
        QCOMPARE(t->FramePosto[0].BackColor, Profilo.ColoreScansione);
        t->PostoEvidenziato = 4;
        int chiave = CodiciTasto::Invio;
        QVERIFY(t->TastoGiu(chiave, OrigineTasto::PictureScansione));
        QCOMPARE(chiave, 0);
        QCOMPARE(t->PostoEvidenziato, qint16(5));
        QCOMPARE(t->FramePosto[5].BackColor, Profilo.ColoreScansione);
        // The second tile: after the move the search starts at place 0.
        const QString tag4 = t->FramePosto[4].Tag;
        int altro = 0;
        while (altro == 4 || t->FramePosto[altro].Tag == tag4)
            ++altro;
        t->PostoEvidenziato = qint16(altro);
        chiave = CodiciTasto::Invio;
        t->TastoGiu(chiave, OrigineTasto::PictureScansione);
        QCOMPARE(t->PostoEvidenziato, qint16(0));
        QCOMPARE(t->FramePosto[0].BackColor, Profilo.ColoreScansione);
    }

    void theLastPairBringsSiThenTheApplauseWithoutAPauseAndTheReward()
    {
        Profilo.NumeroTessere = 4;
        set(2);
        auto t = tavola();
        t->Form_Activate();
        auto [a, b] = coppiaGiusta(*t, 0);
        t->FramePosto_Click(a);
        t->FramePosto_Click(b);
        std::tie(a, b) = coppiaGiusta(*t, 1);
        t->FramePosto_Click(a);
        amb->suoni.richieste.clear();
        vista.attese.clear();
        t->FramePosto_Click(b);
        QVERIFY(amb->suoni.richieste.size() >= 2);
        QVERIFY(amb->suoni.richieste[amb->suoni.richieste.size() - 2].endsWith(QLatin1String("si.wav")));
        QVERIFY(amb->suoni.richieste.last().endsWith(QLatin1String("applauso.wav")));
        QCOMPARE(vista.attese, std::vector<double>({2.0, 3.0}));
        QCOMPARE(vista.premi, 1);
        QCOMPARE(t->TessereTrovate, qint16(4));
    }

    void withSoundsOffAMoveIsSilentButForTheTilesOwnSounds()
    {
        Profilo.Suoni = false;
        set(6, [](int i, int c) { return QStringLiteral("C:\\s%1_%2.wav").arg(i).arg(c); });
        auto t = tavola();
        t->Form_Activate();
        auto [a, b] = coppiaGiusta(*t);
        t->FramePosto_Click(a);
        t->FramePosto_Click(b);
        const auto [c, d] = coppiaSbagliata(*t);
        t->FramePosto_Click(c);
        t->FramePosto_Click(d);
        QCOMPARE(amb->suoni.richieste.size(), 4);
        QCOMPARE(conteggioSuono("si.wav") + conteggioSuono("no.wav"), 0);
        QVERIFY(amb->suoni.richieste[0].endsWith(QLatin1String(".wav")));
    }

    void foundTilesKeepPlayingTheirFilmsUntilTheNextDeal()
    {
        set(6);
        auto t = tavola();
        t->Form_Activate();
        auto [a, b] = coppiaGiusta(*t, 2);
        t->FramePosto_Click(a);
        t->FramePosto_Click(b);
        QVERIFY(t->Lato1[2].InRiproduzione);
        QVERIFY(t->Lato2[2].InRiproduzione);
        const auto [c, d] = coppiaSbagliata(*t);
        t->FramePosto_Click(c);
        t->FramePosto_Click(d);
        QVERIFY(t->Lato1[2].InRiproduzione);
        QVERIFY(!t->Lato1[0].InRiproduzione);
        t->mnuAvvia_Click();
        for (int i = 0; i < 6; ++i)
            QVERIFY(!t->Lato1[i].InRiproduzione);
    }

    // --- faces -------------------------------------------------------------

    void nascondiHidesEveryCoverAndFace()
    {
        set(12);
        auto t = tavola();
        t->Form_Activate();
        t->Nascondi();
        for (const Copertura &c : t->FramePosto)
            QVERIFY(!c.Visible);
        for (int i = 0; i < 12; ++i) {
            QVERIFY(!t->Lato1[i].Visible);
            QVERIFY(!t->Lato2[i].Visible);
        }
    }

    void aOneLetterWordGrowsUntilWiderThanTheYardstick()
    {
        FileMemory = ScriviSet(amb->Casa(), QStringLiteral("p.aps"), 6, {},
                               [](int i, int c) { return c == 1 ? QStringLiteral("abcdef").mid(i, 1) : QStringLiteral("f.swf"); });
        // Ten twips for each point of each letter.
        auto misura = [](const QString &s, const QString &, double p) { return QSizeF(s.size() * p * 10, p * 20); };
        Tavola t(TavolaPS(), &vista, misura);
        t.Width = 15360;
        t.Height = 11520;
        t.Form_Activate();
        QCOMPARE(t.LarghezzaParola, qint16(1575));
        // 157 points give 1570 twips, still not wider; 158 give 1580.
        QCOMPARE(t.FontDimensionaFont, 158.0);
        for (int i = 0; i < 12; ++i)
            QCOMPARE(t.Lato1[i].DimensioneFont, 158.0);
        QCOMPARE(t.Lato1[0].EtichettaLeft, qint16(std::floor((t.Lato1[0].Width - 1580) / 2.0)));
    }

    void withAllWordsEmptyTheFitRunsUntilThePlatformRefusesAndTheProgramEnds()
    {
        FileMemory = ScriviSet(amb->Casa(), QStringLiteral("v.aps"), 6, {},
                               [](int, int c) { return c == 1 ? QString() : QStringLiteral("f.swf"); });
        auto misura = [](const QString &s, const QString &, double p) { return QSizeF(s.size() * p * 10, p * 20); };
        Tavola t(TavolaPS(), &vista, misura);
        t.Width = 15360;
        t.Height = 11520;
        QVERIFY_THROWS_EXCEPTION(ProcessoTerminato, t.Form_Activate());
    }

    void theLongestWordByLettersSetsOneSizeForAllAndCapitalsComeFromTheProfile()
    {
        Profilo.Maiuscolo1 = true;
        FileMemory = ScriviSet(amb->Casa(), QStringLiteral("p.aps"), 6, {}, [](int i, int c) {
            return c == 1 ? (i == 3 ? QStringLiteral("Elefante") : QStringLiteral("Re")) : QStringLiteral("f.swf");
        });
        auto misura = [](const QString &s, const QString &, double p) { return QSizeF(s.size() * p * 10, p * 20); };
        Tavola t(TavolaPS(), &vista, misura);
        t.Width = 15360;
        t.Height = 11520;
        t.Form_Activate();
        QCOMPARE(t.CaptionDimensionaFont, QStringLiteral("ELEFANTE"));
        // 8 letters: 8 x 10 x p > 1575 first at p = 20.
        QCOMPARE(t.FontDimensionaFont, 20.0);
    }

    void theYardstickDriftsToTheSizeTheLastGameLeftOnLabel11()
    {
        Profilo.NumeroTessere = 24;
        FileMemory = ScriviSet(amb->Casa(), QStringLiteral("p.aps"), 12, {},
                               [](int, int c) { return c == 1 ? QStringLiteral("gatto") : QStringLiteral("f.swf"); });
        auto misura = [](const QString &s, const QString &, double p) { return QSizeF(s.size() * p * 10, p * 20); };
        Tavola t(TavolaPS(), &vista, misura);
        t.Width = 15360;
        t.Height = 11520;
        t.Form_Activate();
        QCOMPARE(t.FontDimensionaFont, 32.0); // 5 x 10 x 32 = 1600 > 1575
        t.Form_Activate();
        QCOMPARE(t.LarghezzaParola, qint16(1600));
        QCOMPARE(t.AltezzaParola, qint16(640));
        QCOMPARE(t.FontDimensionaFont, 33.0);
    }

    void onAnImageBoardBothSidesShowStillDuringTheCompareAndMoveOnlyOnAMatch()
    {
        for (int i = 0; i < 6; ++i) {
            ScriviImmagine(amb->Casa(), QStringLiteral("a%1.png").arg(i));
            ScriviImmagine(amb->Casa(), QStringLiteral("b%1.png").arg(i));
        }
        const QString casa = amb->Casa();
        FileMemory = ScriviSet(casa, QStringLiteral("g.agg"), 6, {}, [casa](int i, int c) {
            return QStringLiteral("%1/%2%3.png").arg(casa).arg(QChar(c == 1 ? u'a' : u'b')).arg(i);
        });
        auto t = tavola(TavolaGG());
        t->Form_Activate();
        for (int i = 0; i < 6; ++i)
            QVERIFY(!t->Lato1[i].Visible);
        auto [a, b] = coppiaGiusta(*t, 1);
        t->FramePosto_Click(a);
        bool ferme = false;
        vista.durante = [&](double) {
            ferme = t->Lato1[1].Visible && t->Lato2[1].Visible && !t->Lato1[1].AnimataVisible
                    && !t->Lato2[1].AnimataVisible;
        };
        t->FramePosto_Click(b);
        QVERIFY(ferme);
        QVERIFY(t->Lato1[1].AnimataVisible && t->Lato1[1].AnimataAvviata);
        QVERIFY(!t->Lato1[1].Visible);
        QCOMPARE(t->Lato1[1].FileAnimata, t->Lato1[1].TagAnimata);
        // A wrong move: the images stay shown behind their covers.
        const auto [c, d] = coppiaSbagliata(*t);
        t->FramePosto_Click(c);
        t->FramePosto_Click(d);
        QVERIFY(t->Lato1[0].Visible || t->Lato2[0].Visible);
        QVERIFY(!t->Lato1[0].AnimataVisible);
    }

    void anImageThatCannotBeLoadedEndsTheProgram()
    {
        const QString casa = amb->Casa();
        FileMemory = ScriviSet(casa, QStringLiteral("g.agg"), 6, {},
                               [casa](int i, int) { return QStringLiteral("%1/manca%2.png").arg(casa).arg(i); });
        auto t = tavola(TavolaGG());
        QVERIFY_THROWS_EXCEPTION(ProcessoTerminato, t->Form_Activate());
    }
};

QTEST_MAIN(TestPartita)
#include "test_partita.moc"
