// The editors' rules without their screens: the pairs, the scroll bar, the
// insertions, copying and the sub-folder, emptying, opening, and the ends
// that stop the program, for the film editor and the three that differ.

#include "ProvaEditori.h"
#include "AttendiLavoro.h"

#include "platform/TestoFile.h"
#include "sets/ElencoCoppie.h"

#include <QSignalSpy>

class TestEditore : public QObject
{
    Q_OBJECT
private:
    std::unique_ptr<AmbienteEditori> amb;
    AmbienteProva &a() { return *amb->ambiente; }

    static std::unique_ptr<Editore> editore(const ImpostazioniEditore &imp)
    {
        auto e = std::make_unique<Editore>(imp);
        e->Form_Load();
        e->Form_Activate();
        return e;
    }
    // A film picked in the picker panel for one side, and confirmed.
    void film(Editore &e, int lato, const QString &percorso)
    {
        lato == 1 ? e.Command3_Click() : e.Command4_Click();
        amb->Rispondi(percorso);
        e.Command5_Click();
        e.Command6_Click();
    }
    void apri(Editore &e, const QString &file)
    {
        amb->Rispondi(file);
        e.CommandModificaLista_Click();
    }
    QString setDi(const QString &nome, int coppie, bool immagini = false)
    {
        QByteArray b;
        for (int i = 0; i < coppie; ++i) {
            const QString p1 = immagini ? amb->Immagine(QStringLiteral("a%1.gif").arg(i)) : QStringLiteral("C:\\a%1.swf").arg(i);
            const QString p2 = immagini ? amb->Immagine(QStringLiteral("b%1.gif").arg(i)) : QStringLiteral("C:\\b%1.swf").arg(i);
            b += p1.toUtf8() + "\r\n" + p2.toUtf8() + "\r\n\r\n\r\n";
        }
        const QString p = amb->Media(nome);
        AmbienteProva::Scrivi(p, b);
        return p;
    }
    static QString caption(const Editore &e, const char *nome) { return e.C(QLatin1String(nome)).Caption; }
    static bool abilitato(const Editore &e, const char *nome) { return e.C(QLatin1String(nome)).Enabled; }
    static bool visibile(const Editore &e, const char *nome) { return e.C(QLatin1String(nome)).Visible; }
    static void attendiMiniature(Editore &e)
    {
        AttendiFinche([&e] { return !e.Miniature()->InCorso(); });
    }

private slots:
    void init() { amb = std::make_unique<AmbienteEditori>(); }
    void cleanup() { amb.reset(); }

    // -- The film pair editor ------------------------------------------------

    void loadAndActivationSetTheFormAsItStarts()
    {
        auto e = editore(EditoreSS());
        QCOMPARE(e->CoppiaCorrente, qint16(1));
        QCOMPARE(e->CoppiaMassima, qint16(1));
        QCOMPARE(e->HScroll1.Min, 1);
        QCOMPARE(e->HScroll1.Max, 1);
        QCOMPARE(e->HScroll1.Value, 1);
        QVERIFY(!abilitato(*e, "CommandSuono1"));
        QVERIFY(!abilitato(*e, "CommandSuono2"));
        QVERIFY(abilitato(*e, "CheckCopiaFile"));
        QVERIFY(!visibile(*e, "CommandSottocartella"));
        QVERIFY(!visibile(*e, "Frame1"));
        QCOMPARE(caption(*e, "Label1"), TestoLingua(QStringLiteral("0042")));
        QCOMPARE(caption(*e, "Label2"), QStringLiteral("1") + TestoLingua(QStringLiteral("0043")) + QStringLiteral("1"));
        QVERIFY(TestoLingua(QStringLiteral("0043")).startsWith(u' '));
        QVERIFY(!e->ShockwaveFlash[1].Visible);
        QVERIFY(!e->ShockwaveFlash[2].Visible);
    }

    void aFilmInsertedPlaysShowsItsPathAndGrowsTheBarByOne()
    {
        auto e = editore(EditoreSS());
        const QString f = amb->Film(QStringLiteral("cane.swf"));
        film(*e, 1, f);
        QCOMPARE(e->Elenco.Campo(1, 1), f);
        QVERIFY(e->ShockwaveFlash[1].Visible);
        QVERIFY(e->ShockwaveFlash[1].InRiproduzione);
        QCOMPARE(e->ShockwaveFlash[1].Movie, f);
        QCOMPARE(caption(*e, "Label3"), f);
        QCOMPARE(e->HScroll1.Max, 2);
        QVERIFY(!abilitato(*e, "CheckCopiaFile"));
        QVERIFY(abilitato(*e, "CommandSuono1"));
        QVERIFY(!visibile(*e, "Frame1"));
        QVERIFY(!e->ShockwaveFlash[3].InRiproduzione);
        const RichiestaDialogo &d = a().dialoghi.at(0);
        QCOMPARE(d.titolo, QStringLiteral("Open"));
        QCOMPARE(d.nomeIniziale, QStringLiteral("*.swf"));
        QCOMPARE(d.filtro, (QStringList{"*.swf", "*.swf", "Tutti i files", "*.*"}));
        QCOMPARE(d.cartella, QString());
        QCOMPARE(d.estensione, QStringLiteral("swf"));
    }

    void confirmingThePickerWithoutBrowsingAsTheFirstActionGrowsTheListByOne()
    {
        auto e = editore(EditoreSS());
        e->Command3_Click();
        QVERIFY(visibile(*e, "Frame1"));
        QVERIFY(e->Frame1AllOrigine);
        e->Command6_Click();
        QCOMPARE(e->Elenco.Campo(1, 1), QString());
        QVERIFY(e->ShockwaveFlash[1].Visible);
        QCOMPARE(e->ShockwaveFlash[1].Movie, QString());
        QCOMPARE(e->HScroll1.Max, 2);
        QVERIFY(a().dialoghi.empty());
    }

    void noFilmPickedGivesTheMessage()
    {
        auto e = editore(EditoreSS());
        e->Command3_Click();
        e->Command5_Click();
        QCOMPARE(a().scatole.at(0).testo, TestoLingua(QStringLiteral("0035")));
        QCOMPARE(a().scatole.at(0).stile, int(Msg::vbCritical));
        e->Command7_Click();
        QVERIFY(!visibile(*e, "Frame1"));
        QCOMPARE(e->HScroll1.Max, 1);
    }

    void command3TwiceOnThePairReplacesTheFilmAndTheFirstCopyStays()
    {
        auto e = editore(EditoreSS());
        e->CheckCopiaFile_Click(true);
        film(*e, 1, amb->Film(QStringLiteral("primo.swf")));
        film(*e, 1, amb->Film(QStringLiteral("secondo.swf")));
        QCOMPARE(e->Elenco.Campo(1, 1), PercorsoGioco(QStringLiteral("swf\\")) + AmbienteEditori::NulTitolo(QStringLiteral("secondo.swf")));
        QVERIFY(QFileInfo::exists(amb->Dati(QStringLiteral("swf/primo.swf"))));
        QVERIFY(QFileInfo::exists(amb->Dati(QStringLiteral("swf/secondo.swf"))));
        QCOMPARE(caption(*e, "Label3"), amb->Dati(QStringLiteral("swf/secondo.swf")));
    }

    void theFirstInsertionFixesTheChoiceToCopyUntilTheListIsEmptied()
    {
        auto e = editore(EditoreSS());
        film(*e, 2, amb->Film(QStringLiteral("x.swf")));
        QVERIFY(!abilitato(*e, "CheckCopiaFile"));
        e->Command2_Click();
        QVERIFY(abilitato(*e, "CheckCopiaFile"));
    }

    void aCancelledPromptGivesBothMessagesAndALoneBackslash()
    {
        auto e = editore(EditoreSS());
        e->CheckCopiaFile_Click(true);
        QVERIFY(visibile(*e, "CommandSottocartella"));
        e->CommandSottocartella_Click(); // the prompt answers nothing
        QCOMPARE(amb->domande, QStringList{TestoLingua(QStringLiteral("0037"))});
        QCOMPARE(int(a().scatole.size()), 2);
        QCOMPARE(a().scatole[0].testo, TestoLingua(QStringLiteral("0038")));
        QCOMPARE(a().scatole[1].testo, TestoLingua(QStringLiteral("0039")));
        QCOMPARE(e->Sottocartella, QStringLiteral("\\"));
        film(*e, 1, amb->Film(QStringLiteral("gatto.swf")));
        QCOMPARE(e->Elenco.Campo(1, 1),
                 PercorsoGioco(QStringLiteral("swf\\\\")) + AmbienteEditori::NulTitolo(QStringLiteral("gatto.swf")));
        QVERIFY(QFileInfo::exists(amb->Dati(QStringLiteral("swf/gatto.swf"))));
    }

    void aSubFolderIsMadeUnderSoundsAndFilmsAndNamedOnTheCopyBox()
    {
        auto e = editore(EditoreSS());
        e->CheckCopiaFile_Click(true);
        amb->risposteInput << QStringLiteral("animali");
        e->CommandSottocartella_Click();
        QVERIFY(a().scatole.empty());
        QVERIFY(QFileInfo(amb->Dati(QStringLiteral("suoni/animali"))).isDir());
        QVERIFY(QFileInfo(amb->Dati(QStringLiteral("swf/animali"))).isDir());
        QCOMPARE(e->Sottocartella, QStringLiteral("animali\\"));
        QCOMPARE(caption(*e, "CheckCopiaFile"), TestoLingua(QStringLiteral("0040")) + amb->Dati(QStringLiteral("swf/animali/")));
        // The same name again: both warnings, and the name stays in force.
        amb->risposteInput << QStringLiteral("animali");
        e->CommandSottocartella_Click();
        QCOMPARE(int(a().scatole.size()), 2);
        QCOMPARE(e->Sottocartella, QStringLiteral("animali\\"));
    }

    void aSubFolderThatCannotBeMadeEndsTheHandlerInSilence()
    {
        auto e = editore(EditoreSS());
        AmbienteProva::Scrivi(amb->Dati(QStringLiteral("suoni/sbarra")), "x");
        QFile::remove(amb->Dati(QStringLiteral("suoni/sbarra")));
        amb->risposteInput << QStringLiteral("a/b/c");
        e->CommandSottocartella_Click();
        QVERIFY(a().scatole.empty());
        QCOMPARE(e->Sottocartella, QStringLiteral("a/b/c"));
    }

    void check1OnThenASoundForSide1GoesToField4AndStaysWhenCheck1GoesOff()
    {
        auto e = editore(EditoreSS());
        e->Check1_Click(true);
        QVERIFY(!abilitato(*e, "Command4"));
        QVERIFY(!abilitato(*e, "CommandSuono2"));
        film(*e, 1, amb->Film(QStringLiteral("uno.swf")));
        QCOMPARE(e->Elenco.Campo(1, 2), e->Elenco.Campo(1, 1));
        QVERIFY(e->ShockwaveFlash[2].Visible);
        const QString s = amb->Suono(QStringLiteral("verso.wav"));
        amb->Rispondi(s);
        e->CommandSuono1_Click();
        QCOMPARE(e->Elenco.Campo(1, 3), s);
        QCOMPARE(e->Elenco.Campo(1, 4), s);
        QCOMPARE(caption(*e, "Label6"), s);
        e->Check1_Click(false);
        QVERIFY(abilitato(*e, "Command4"));
        QVERIFY(abilitato(*e, "CommandSuono2"));
        QCOMPARE(e->Elenco.Campo(1, 4), s);
        QCOMPARE(e->Elenco.Campo(1, 2), e->Elenco.Campo(1, 1));
    }

    void aCancelledSoundEmptiesTheFieldWithNoMessageAndWithCopyingLeavesTheFolder()
    {
        auto e = editore(EditoreSS());
        e->Elenco.Campo(1, 3) = QStringLiteral("C:\\vecchio.wav");
        e->CommandSuono1_Click();
        QCOMPARE(e->Elenco.Campo(1, 3), QString());
        QVERIFY(a().scatole.empty());
        QVERIFY(!abilitato(*e, "CheckCopiaFile"));

        auto c = editore(EditoreSS());
        c->CheckCopiaFile_Click(true);
        c->CommandSuono2_Click();
        QCOMPARE(c->Elenco.Campo(1, 4), PercorsoGioco(QStringLiteral("suoni\\")) + QString(255, QChar(0)));
    }

    void command2AnsweredNoThenASaveWritesOnlyRowOne()
    {
        auto e = editore(EditoreSS());
        for (int i = 0; i < 3; ++i) {
            film(*e, 1, amb->Film(QStringLiteral("f%1.swf").arg(i)));
            e->HScroll1_Scorri(i + 2);
        }
        QCOMPARE(e->CoppiaMassima, qint16(4));
        a().risposte << Msg::vbNo;
        e->Command2_Click();
        QCOMPARE(a().scatole.at(0).testo, TestoLingua(QStringLiteral("0033")));
        QCOMPARE(a().scatole.at(0).stile, int(Msg::vbYesNo) | Msg::vbCritical);
        QCOMPARE(e->CoppiaMassima, qint16(1));
        QCOMPARE(e->HScroll1.Max, 1);
        QCOMPARE(e->HScroll1.Value, 1);
        QCOMPARE(caption(*e, "Label1"), QStringLiteral("Senza nome"));
        QVERIFY(!e->ShockwaveFlash[1].Visible);
        QCOMPARE(caption(*e, "CheckCopiaFile"), TestoLingua(QStringLiteral("0034")));
        QCOMPARE(e->Elenco.Campo(2, 1), amb->Media(QStringLiteral("f1.swf"))); // the rows stay in the table
        const QString f = amb->Dati(QStringLiteral("ii/no.ass"));
        amb->Rispondi(f);
        e->Command1_Click();
        QCOMPARE(AmbienteProva::Leggi(f), amb->Media(QStringLiteral("f0.swf")).toUtf8() + "\r\n\r\n\r\n\r\n");
    }

    void command2AnsweredYesEmptiesTheRows()
    {
        auto e = editore(EditoreSS());
        film(*e, 1, amb->Film(QStringLiteral("f.swf")));
        e->Command2_Click();
        QVERIFY(e->Elenco.RigaVuota(1));
    }

    void openingAHundredPairsReachesPair101WhichIsPassedOverWhenScrolledButEndsRiempi1()
    {
        auto e = editore(EditoreSS());
        apri(*e, setDi(QStringLiteral("cento.ass"), 100));
        QCOMPARE(e->CoppiaMassima, qint16(101));
        QCOMPARE(e->HScroll1.Max, 101);
        QCOMPARE(e->HScroll1.Value, 1);
        QCOMPARE(caption(*e, "Label1"), amb->Media(QStringLiteral("cento.ass")));
        QVERIFY(abilitato(*e, "CommandSuono1"));
        e->HScroll1_Scorri(100);
        QCOMPARE(e->ShockwaveFlash[1].Movie, QStringLiteral("C:\\a99.swf"));
        e->HScroll1_Scorri(101);
        QCOMPARE(e->CoppiaCorrente, qint16(101));
        QCOMPARE(e->ShockwaveFlash[1].Movie, QStringLiteral("C:\\a99.swf")); // passed over
        e->Command3_Click();
        try {
            e->Command6_Click();
            QFAIL("pair 101 was filled");
        } catch (const ProcessoTerminato &p) {
            QVERIFY2(p.fine.messaggio.contains(QStringLiteral("101")), qPrintable(p.fine.messaggio));
            QVERIFY2(p.fine.messaggio.contains(QStringLiteral("FormSS")), qPrintable(p.fine.messaggio));
        }
    }

    void twelvePairsEnteredByHandAskNothingWhenTheUserStaysOnTheTwelfth()
    {
        auto e = editore(EditoreSS());
        for (int i = 1; i <= 12; ++i) {
            e->HScroll1_Scorri(i);
            film(*e, 1, amb->Film(QStringLiteral("a%1.swf").arg(i)));
            film(*e, 2, amb->Film(QStringLiteral("b%1.swf").arg(i)));
        }
        QCOMPARE(e->CoppiaMassima, qint16(12));
        QCOMPARE(e->HScroll1.Max, 13);
        amb->Rispondi(amb->Dati(QStringLiteral("ii/dodici.ass")));
        e->Command1_Click();
        QVERIFY(a().scatole.empty());
        QCOMPARE(DividiRighe(QString::fromUtf8(AmbienteProva::Leggi(amb->Dati(QStringLiteral("ii/dodici.ass"))))).size(), 48);
    }

    void elevenPairsOpenedAndSavedAskNothing()
    {
        auto e = editore(EditoreSS());
        apri(*e, setDi(QStringLiteral("undici.ass"), 11));
        QCOMPARE(e->CoppiaMassima, qint16(12));
        amb->Rispondi(amb->Media(QStringLiteral("undici2.ass")));
        e->Command1_Click();
        QVERIFY(a().scatole.empty());
        QCOMPARE(AmbienteProva::Leggi(amb->Media(QStringLiteral("undici2.ass"))),
                 AmbienteProva::Leggi(amb->Media(QStringLiteral("undici.ass"))));
    }

    void noSetPickedEmptiesTheTableAndGivesTheMessage()
    {
        auto e = editore(EditoreSS());
        film(*e, 1, amb->Film(QStringLiteral("x.swf")));
        e->CommandModificaLista_Click();
        QCOMPARE(a().scatole.at(0).testo, TestoLingua(QStringLiteral("0036")));
        QVERIFY(e->Elenco.RigaVuota(1));
        QCOMPARE(e->ShockwaveFlash[1].Movie, amb->Media(QStringLiteral("x.swf"))); // the old pair still on show
        const RichiestaDialogo &d = a().dialoghi.back();
        QCOMPARE(d.filtro, (QStringList{QString(), "*.ass", "Tutti i files", "*.*"}));
        QCOMPARE(d.cartella, PercorsoGioco(QStringLiteral("ii\\")));
        QCOMPARE(d.estensione, QStringLiteral("ass"));
    }

    void theScrollBarShowsTheFieldsButNotTheLabelsOfTheLastInsertion()
    {
        auto e = editore(EditoreSS());
        apri(*e, setDi(QStringLiteral("due.ass"), 2));
        e->Elenco.Campo(2, 3) = QStringLiteral("C:\\s.wav");
        film(*e, 1, amb->Film(QStringLiteral("nuovo.swf")));
        e->HScroll1_Scorri(2);
        QCOMPARE(caption(*e, "Label3"), amb->Media(QStringLiteral("nuovo.swf")));
        QCOMPARE(caption(*e, "Label5"), MappaPercorso(QStringLiteral("C:\\s.wav")));
        QCOMPARE(e->ShockwaveFlash[2].Movie, QStringLiteral("C:\\b1.swf"));
        QCOMPARE(caption(*e, "Label2"), QStringLiteral("2") + TestoLingua(QStringLiteral("0043")) + QStringLiteral("3"));
    }

    void leavingAsksAndOnlyYesLeaves()
    {
        auto e = editore(EditoreSS());
        a().risposte << Msg::vbNo << Msg::vbYes;
        QVERIFY(!e->mnuEsci_Click());
        QVERIFY(e->mnuEsci_Click());
        QCOMPARE(a().scatole.at(0).testo, TestoLingua(QStringLiteral("0044")));
        QCOMPARE(a().scatole.at(0).stile, int(Msg::vbYesNo) | Msg::vbQuestion);
    }

    // -- The word and film editor -------------------------------------------

    void typingAWordIntoTheEmptyFirstPairFixesCopyingAtTheFirstKey()
    {
        auto e = editore(EditorePS());
        QVERIFY(abilitato(*e, "CheckCopiaFile"));
        e->Text1_Scrivi(QStringLiteral("c"));
        QVERIFY(!abilitato(*e, "CheckCopiaFile"));
        QVERIFY(abilitato(*e, "CommandSuono1"));
        QCOMPARE(e->HScroll1.Max, 2);
        QCOMPARE(e->Elenco.Campo(1, 1), QStringLiteral("c"));
    }

    void aWordAloneOnEachPairIsSavedWithEmptyLines()
    {
        auto e = editore(EditorePS());
        const QStringList parole{QStringLiteral("sole"), QStringLiteral("luna"), QStringLiteral("mare")};
        for (int i = 0; i < 3; ++i) {
            e->HScroll1_Scorri(i + 1);
            e->Text1_Scrivi(parole[i]);
        }
        const QString f = amb->Dati(QStringLiteral("pi/parole.aps"));
        amb->Rispondi(f);
        e->Command1_Click();
        QCOMPARE(AmbienteProva::Leggi(f), QByteArray("sole\r\n\r\n\r\n\r\nluna\r\n\r\n\r\n\r\nmare\r\n\r\n\r\n\r\n"));
        QCOMPARE(a().scatole.at(0).testo, TestoLingua(QStringLiteral("0006")));
    }

    void aWordWithACommaIsSavedAsItIs()
    {
        auto e = editore(EditorePS());
        e->Text1_Scrivi(QStringLiteral("cane, gatto"));
        const QString f = amb->Dati(QStringLiteral("pi/virgola.aps"));
        amb->Rispondi(f);
        e->Command1_Click();
        QCOMPARE(AmbienteProva::Leggi(f), QByteArray("cane, gatto\r\n\r\n\r\n\r\n"));
    }

    void navigationToTheFreePairEmptiesTheWordAndRaisesTheBarByOneMore()
    {
        auto e = editore(EditorePS());
        e->Text1_Scrivi(QStringLiteral("uno"));
        e->HScroll1_Scorri(2);
        e->Text1_Scrivi(QStringLiteral("due"));
        QCOMPARE(e->HScroll1.Max, 3);
        e->HScroll1_Scorri(3);
        QCOMPARE(e->Text1, QString());
        QCOMPARE(e->HScroll1.Max, 4);
        QCOMPARE(e->CoppiaMassima, qint16(3));
        e->HScroll1_Scorri(4);
        QCOMPARE(e->HScroll1.Max, 4); // the word did not change: no further
    }

    void theFilmOfAWordPairIsConfirmedFromThePanel()
    {
        auto e = editore(EditorePS());
        e->CheckCopiaFile_Click(true);
        amb->risposteInput << QStringLiteral("zoo");
        e->CommandSottocartella_Click();
        e->Text1_Scrivi(QStringLiteral("leone"));
        e->Command3_Click();
        QVERIFY(e->ShockwaveFlash[1].Visible);
        amb->Rispondi(amb->Film(QStringLiteral("leone.swf")));
        e->Command5_Click();
        e->Command6_Click();
        QCOMPARE(e->Elenco.Campo(1, 2), PercorsoGioco(QStringLiteral("swf\\zoo\\")) + AmbienteEditori::NulTitolo(QStringLiteral("leone.swf")));
        QVERIFY(QFileInfo::exists(amb->Dati(QStringLiteral("swf/zoo/leone.swf"))));
        QCOMPARE(caption(*e, "Label4"), amb->Dati(QStringLiteral("swf/zoo/leone.swf")));
        QVERIFY(abilitato(*e, "CommandSuono2"));
        QVERIFY(!visibile(*e, "Frame1"));
    }

    void emptyingTheWordsAndFilmsListEndsTheProgramNamingTheFormAndTheStep()
    {
        auto e = editore(EditorePS());
        e->Text1_Scrivi(QStringLiteral("casa"));
        try {
            e->Command2_Click();
            QFAIL("the words and films editor went on after emptying");
        } catch (const ProcessoTerminato &p) {
            QVERIFY2(p.fine.messaggio.contains(QStringLiteral("FormPS")), qPrintable(p.fine.messaggio));
            QVERIFY2(p.fine.messaggio.contains(QStringLiteral("Command2")), qPrintable(p.fine.messaggio));
        }
        QCOMPARE(e->FileScelto, QStringLiteral("Senza nome"));
        QCOMPARE(e->CoppiaMassima, qint16(1));
    }

    // -- The image pair editors ----------------------------------------------

    void anImageChosenByDialogFillsItsSideAndWithCheck1TheOther()
    {
        auto e = editore(Editoregg());
        e->Check1_Click(true);
        QVERIFY(!abilitato(*e, "Image2"));
        const QString img = amb->Immagine(QStringLiteral("mela.gif"), Qt::red);
        amb->Rispondi(img);
        e->Image_Click(1);
        QCOMPARE(e->Elenco.Campo(1, 1), img);
        QCOMPARE(e->Elenco.Campo(1, 2), img);
        QCOMPARE(e->Image[1].Picture.pixelColor(0, 0), QColor(Qt::red));
        QCOMPARE(e->Image[2].Picture.pixelColor(0, 0), QColor(Qt::red));
        QCOMPARE(caption(*e, "Label3"), img);
        QCOMPARE(caption(*e, "Label4"), img);
        QCOMPARE(e->HScroll1.Max, 2);
        const RichiestaDialogo &d = a().dialoghi.at(0);
        QCOMPARE(d.nomeIniziale, QStringLiteral("*.gif"));
        QCOMPARE(d.filtro, (QStringList{"*.gif", "*.gif", "Tutti i files", "*.*"}));
        QCOMPARE(d.estensione, QStringLiteral("gif"));
    }

    void noImagePickedGivesTheSidesMessage_data()
    {
        QTest::addColumn<QString>("editore");
        QTest::addColumn<int>("lato");
        QTest::addColumn<QString>("chiave");
        QTest::newRow("gg 1") << "Formgg" << 1 << "0058";
        QTest::newRow("gg 2") << "Formgg" << 2 << "0059";
        QTest::newRow("pg 2") << "Formpg" << 2 << "0076";
    }
    void noImagePickedGivesTheSidesMessage()
    {
        QFETCH(QString, editore);
        QFETCH(int, lato);
        QFETCH(QString, chiave);
        auto e = TestEditore::editore(*EditoreDiNome(editore));
        e->Image_Click(lato);
        QCOMPARE(a().scatole.at(0).testo, TestoLingua(chiave));
        QVERIFY(!TestoLingua(chiave).isEmpty());
        QCOMPARE(e->HScroll1.Max, 1);
    }

    void aPictureThatCannotBeLoadedWhileWalkingASetEndsTheProgramNamingFileAndLine()
    {
        const QString f = setDi(QStringLiteral("spostate.agg"), 3, true);
        QFile::remove(amb->Media(QStringLiteral("b1.gif")));
        auto e = editore(Editoregg());
        apri(*e, f);
        try {
            e->HScroll1_Scorri(2);
            QFAIL("walked onto a missing picture");
        } catch (const ProcessoTerminato &p) {
            QVERIFY2(p.fine.messaggio.contains(amb->Media(QStringLiteral("b1.gif"))), qPrintable(p.fine.messaggio));
            QVERIFY2(p.fine.messaggio.contains(QStringLiteral("riga 6")), qPrintable(p.fine.messaggio));
            QVERIFY2(p.fine.messaggio.contains(QStringLiteral("spostate.agg")), qPrintable(p.fine.messaggio));
        }
    }

    void aRenamedTextFilePickedByDialogEndsTheProgramAtTheLoad()
    {
        auto e = editore(Editorepg());
        const QString falsa = amb->Media(QStringLiteral("testo.gif"));
        AmbienteProva::Scrivi(falsa, "not a picture at all\n");
        amb->Rispondi(falsa);
        QVERIFY_THROWS_EXCEPTION(ProcessoTerminato, e->Image_Click(2));
    }

    void aSetOfAHundredImagePairsEndsTheImageEditorAtThePair101()
    {
        auto e = editore(Editoregg());
        QByteArray b;
        const QString img = amb->Immagine(QStringLiteral("x.png"));
        for (int i = 0; i < 100; ++i)
            b += img.toUtf8() + "\r\n" + img.toUtf8() + "\r\n\r\n\r\n";
        AmbienteProva::Scrivi(amb->Media(QStringLiteral("cento.agg")), b);
        amb->Rispondi(amb->Media(QStringLiteral("cento.agg")));
        QVERIFY_THROWS_EXCEPTION(ProcessoTerminato, e->CommandModificaLista_Click());
    }

    void theBrowserFillsOnItsFolderBeforeThePanelShowsTheFirstTime()
    {
        auto e = editore(Editoregg());
        for (int i = 0; i < 3; ++i)
            amb->Immagine(QStringLiteral("p%1.gif").arg(i));
        e->Miniature()->ImpostaDir1(amb->Media());
        attendiMiniature(*e);
        e->MiniatureCaricate = false;
        e->Miniature()->ImageList1.clear();
        bool pannelloAlRiempimento = true;
        e->Miniature()->AllInizioRiempimento = [&] {
            pannelloAlRiempimento = e->C(QStringLiteral("Frame1")).Visible;
            e->MiniatureCaricate = true;
        };
        e->CheckAnteprima_Click(true);
        e->Image_Click(1);
        QVERIFY(!pannelloAlRiempimento);
        QVERIFY(e->MiniatureCaricate);
        QVERIFY(visibile(*e, "Frame1"));
        QCOMPARE(e->LatoInserimento, qint16(1));
        QVERIFY(a().dialoghi.empty());
        attendiMiniature(*e);
        QCOMPARE(e->Miniature()->ListView1.size(), 3);
    }

    void thePanelOpenedASecondTimeShowsTheOldThumbnailsWithNoFilling()
    {
        auto e = editore(Editorepg());
        for (int i = 0; i < 4; ++i)
            amb->Immagine(QStringLiteral("p%1.gif").arg(i));
        e->Miniature()->Dir1Path = amb->Media();
        e->CheckAnteprima_Click(true);
        e->Image_Click(2);
        attendiMiniature(*e);
        QCOMPARE(e->Miniature()->ListView1.size(), 4);
        const int decodifiche = e->Miniature()->Lavoro.Decodifiche;
        e->CommandChiudiMiniature_Click();
        QVERIFY(!visibile(*e, "Frame1"));
        e->Image_Click(2);
        QVERIFY(visibile(*e, "Frame1"));
        QVERIFY(!e->Miniature()->InCorso());
        QCOMPARE(e->Miniature()->Lavoro.Decodifiche, decodifiche);
        QCOMPARE(e->Miniature()->ListView1.size(), 4);
    }

    void goingBackToAFolderAlreadyShownShowsItEmpty()
    {
        auto e = editore(Editoregg());
        QDir().mkpath(amb->Media(QStringLiteral("altra")));
        amb->Immagine(QStringLiteral("a.gif"));
        amb->Immagine(QStringLiteral("altra/b.gif"));
        Sfogliatore &s = *e->Miniature();
        s.ImpostaDir1(amb->Media());
        attendiMiniature(*e);
        QCOMPARE(s.ListView1, QStringList{QDir::toNativeSeparators(amb->Media(QStringLiteral("a.gif")))});
        s.ImpostaDir1(amb->Media(QStringLiteral("altra")));
        attendiMiniature(*e);
        QCOMPARE(s.ListView1.size(), 1);
        s.ImpostaDir1(amb->Media());
        attendiMiniature(*e);
        QVERIFY(s.ListView1.isEmpty());
        QVERIFY(s.ImageList1.contains(QDir::toNativeSeparators(amb->Media(QStringLiteral("a.gif")))));
    }

    void aBrowserPickForSideTwoChangesOnlyFieldTwoWithoutCopying()
    {
        auto e = editore(Editoregg());
        const QString vecchia = amb->Immagine(QStringLiteral("vecchia.gif"), Qt::green);
        amb->Rispondi(vecchia);
        e->Image_Click(1);
        e->CheckAnteprima_Click(true);
        e->Miniature()->Dir1Path = amb->Media();
        e->Image_Click(2);
        attendiMiniature(*e);
        const QString nuova = amb->Immagine(QStringLiteral("nuova.gif"), Qt::yellow);
        e->ListView1_Click(nuova);
        QCOMPARE(e->Elenco.Campo(1, 1), vecchia);
        QCOMPARE(e->Elenco.Campo(1, 2), nuova);
        QCOMPARE(e->Image[2].Picture.pixelColor(0, 0), QColor(Qt::yellow));
        QVERIFY(!visibile(*e, "Frame1"));
        QVERIFY(abilitato(*e, "CommandSuono2"));
    }

    void aBrowserPickForSideTwoWithCopyingPutsTheCopyInFieldOne()
    {
        auto e = editore(Editoregg());
        e->CheckCopiaFile_Click(true);
        const QString vecchia = amb->Immagine(QStringLiteral("vecchia.gif"), Qt::green);
        amb->Rispondi(vecchia);
        e->Image_Click(1);
        e->CheckAnteprima_Click(true);
        e->Miniature()->Dir1Path = amb->Media();
        e->Image_Click(2);
        attendiMiniature(*e);
        const QString nuova = amb->Immagine(QStringLiteral("nuova.gif"), Qt::yellow);
        e->ListView1_Click(nuova);
        QCOMPARE(e->Elenco.Campo(1, 2), nuova);
        QCOMPARE(e->Elenco.Campo(1, 1), PercorsoGioco(QStringLiteral("gif\\nuova.gif")));
        QVERIFY(QFileInfo::exists(amb->Dati(QStringLiteral("gif/nuova.gif"))));
        QCOMPARE(e->Image[1].Picture.pixelColor(0, 0), QColor(Qt::green)); // until the bar moves
        QCOMPARE(caption(*e, "Label3"), amb->Dati(QStringLiteral("gif/nuova.gif")));
    }

    void aBrowserPickInTheWordsAndPicturesEditorWithCopyingLosesTheWord()
    {
        auto e = editore(Editorepg());
        e->CheckCopiaFile_Click(true);
        e->Text1_Scrivi(QStringLiteral("gatto"));
        e->CheckAnteprima_Click(true);
        e->Miniature()->Dir1Path = amb->Media();
        e->Image_Click(2);
        attendiMiniature(*e);
        const QString img = amb->Immagine(QStringLiteral("gatto.gif"));
        e->ListView1_Click(img);
        QCOMPARE(e->Elenco.Campo(1, 1), PercorsoGioco(QStringLiteral("gif\\gatto.gif")));
        QCOMPARE(e->Elenco.Campo(1, 2), img);
        QCOMPARE(e->Text1, QStringLiteral("gatto")); // the box goes on showing it
        QCOMPARE(caption(*e, "Label4"), img);
    }

    void aFolderWithASingleFileKeepsTheBarsRangeAndListsTheFile()
    {
        auto e = editore(Editoregg());
        QDir().mkpath(amb->Media(QStringLiteral("una")));
        amb->Immagine(QStringLiteral("una/sola.gif"));
        Sfogliatore &s = *e->Miniature();
        QSignalSpy spy(&s, &Sfogliatore::Cambiato);
        s.ImpostaDir1(amb->Media(QStringLiteral("una")));
        QVERIFY(s.barr1.Visible);
        QCOMPARE(s.barr1.Min, 0);
        QCOMPARE(s.barr1.Max, 100); // the Max of 0 was refused
        attendiMiniature(*e);
        QCOMPARE(s.ListView1.size(), 1);
        QVERIFY(!s.barr1.Visible);
        QCOMPARE(s.barr1.Value, 0);
    }

    void anEmptyFolderStopsTheFillingAndKeepsTheEarlierThumbnails()
    {
        auto e = editore(Editoregg());
        QDir().mkpath(amb->Media(QStringLiteral("vuota")));
        amb->Immagine(QStringLiteral("a.gif"));
        Sfogliatore &s = *e->Miniature();
        s.ImpostaDir1(amb->Media());
        attendiMiniature(*e);
        QCOMPARE(s.ListView1.size(), 1);
        bool barraVista = false;
        connect(&s, &Sfogliatore::Cambiato, this, [&] { barraVista |= s.barr1.Visible; });
        s.ImpostaDir1(amb->Media(QStringLiteral("vuota")));
        QVERIFY(!s.InCorso());
        QVERIFY(!barraVista);
        QVERIFY(!s.PuntatoreAttesa);
        QCOMPARE(s.ListView1.size(), 1);
        QVERIFY(e->MiniatureCaricate);
    }

    void command2InTheImageEditorLoadsTheRowsPictures()
    {
        auto e = editore(Editoregg());
        amb->Rispondi(amb->Immagine(QStringLiteral("r.gif"), Qt::red));
        e->Image_Click(1);
        a().risposte << Msg::vbNo;
        e->Command2_Click();
        QCOMPARE(e->Image[1].Picture.pixelColor(0, 0), QColor(Qt::red)); // No leaves the old pictures
        e->Command2_Click();
        QVERIFY(e->Image[1].Picture.isNull());
        QCOMPARE(caption(*e, "CheckCopiaFile"), TestoLingua(QStringLiteral("0049")));
    }

    void command2InTheWordsAndPicturesEditorRunsOnToTheEnd()
    {
        auto e = editore(Editorepg());
        e->Text1_Scrivi(QStringLiteral("casa"));
        e->Command2_Click();
        QCOMPARE(caption(*e, "Label1"), QStringLiteral("Senza nome"));
        QCOMPARE(e->FileScelto, QString());
        QCOMPARE(e->Text1, QString());
        QVERIFY(abilitato(*e, "CheckCopiaFile"));
        QCOMPARE(caption(*e, "CheckCopiaFile"), TestoLingua(QStringLiteral("0066")));
    }
};

QTEST_MAIN(TestEditore)
#include "test_editore.moc"
