// Writing a set and reading it back for editing: the file's bytes, the
// question under twelve pairs, and the ways a damaged set ends the editor.

#include "ProvaEditori.h"

#include "menu/SceltaMemory.h"
#include "platform/ScritturaIntera.h"
#include "sets/ElencoCoppie.h"

class TestElencoCoppie : public QObject
{
    Q_OBJECT
private:
    std::unique_ptr<AmbienteEditori> amb;
    AmbienteProva &a() { return *amb->ambiente; }

    QString scrivi(const QString &nome, const QByteArray &b)
    {
        const QString p = amb->Media(nome);
        AmbienteProva::Scrivi(p, b);
        return p;
    }
    // An editor loaded and activated, as the screen does.
    static std::unique_ptr<Editore> editore(const ImpostazioniEditore &imp)
    {
        auto e = std::make_unique<Editore>(imp);
        e->Form_Load();
        e->Form_Activate();
        return e;
    }
    // Opens a file in the editor through the dialog.
    void apri(Editore &e, const QString &file)
    {
        amb->Rispondi(file);
        e.CommandModificaLista_Click();
    }
    // Saves through the dialog, answering Yes to the question when it comes.
    void salva(Editore &e, const QString &file)
    {
        amb->Rispondi(file);
        e.Command1_Click();
    }

private slots:
    void init() { amb = std::make_unique<AmbienteEditori>(); }
    void cleanup() { amb.reset(); }

    void theWriterWritesFourBareLinesAPairWithCrLf()
    {
        ElencoCoppie el;
        el.Campo(1, 1) = QStringLiteral("Cane");
        el.Campo(1, 2) = QStringLiteral("C:\\ImpostazioniProgrammiLorea\\tesselo\\dati\\swf\\animali\\cane.swf");
        el.Campo(1, 3) = QStringLiteral("C:\\ImpostazioniProgrammiLorea\\tesselo\\dati\\suoni\\animali\\abbaia.wav");
        el.Campo(2, 1) = QStringLiteral("Perché");
        const QString f = amb->Media(QStringLiteral("a.aps"));
        QVERIFY(ScriviElencoCoppie(f, el, 3));
        QCOMPARE(AmbienteProva::Leggi(f),
                 QByteArray("Cane\r\nC:\\ImpostazioniProgrammiLorea\\tesselo\\dati\\swf\\animali\\cane.swf\r\n"
                            "C:\\ImpostazioniProgrammiLorea\\tesselo\\dati\\suoni\\animali\\abbaia.wav\r\n\r\n"
                            "Perch\xe9\r\n\r\n\r\n\r\n"));
    }

    void aRowBehindAWhollyEmptyRowIsLost()
    {
        ElencoCoppie el;
        el.Campo(1, 1) = QStringLiteral("uno");
        el.Campo(3, 1) = QStringLiteral("tre");
        QCOMPARE(RigheDaScrivere(el, 3), (QStringList{QStringLiteral("uno"), {}, {}, {}}));
    }

    void anEmptyFileReadsAsNoPairsAndLeavesOneFreePair()
    {
        const QString f = scrivi(QStringLiteral("vuoto.ass"), QByteArray());
        auto e = editore(EditoreSS());
        apri(*e, f);
        QCOMPARE(e->CoppiaMassima, qint16(1));
        QCOMPARE(e->HScroll1.Max, 1);
        QVERIFY(e->Elenco.RigaVuota(1));
        QVERIFY(a().scatole.empty());
    }

    void anEditorWithNothingEnteredWritesAnEmptyFileAfterTheQuestion()
    {
        auto e = editore(EditoreSS());
        const QString f = amb->Dati(QStringLiteral("ii/vuoto.ass"));
        salva(*e, f);
        QCOMPARE(int(a().scatole.size()), 1);
        QCOMPARE(a().scatole[0].testo, TestoLingua(QStringLiteral("0032")));
        QCOMPARE(a().scatole[0].stile, int(Msg::vbYesNo) | Msg::vbInformation);
        QVERIFY(QFileInfo::exists(f));
        QCOMPARE(QFileInfo(f).size(), 0);
    }

    void noToTheQuestionWritesNothingAndAsksNoFile()
    {
        auto e = editore(EditoreSS());
        a().risposte << Msg::vbNo;
        e->Command1_Click();
        QVERIFY(a().dialoghi.empty());
    }

    void theSaveDialogIsAskedAsTheKindSays_data()
    {
        QTest::addColumn<QString>("editore");
        QTest::addColumn<QString>("chiave");
        QTest::addColumn<QString>("cartella");
        QTest::addColumn<QString>("estensione");
        QTest::newRow("FormSS") << "FormSS" << "0032" << "ii" << "ass";
        QTest::newRow("FormPS") << "FormPS" << "0006" << "pi" << "aps";
        QTest::newRow("Formgg") << "Formgg" << "0047" << "ii" << "agg";
        QTest::newRow("Formpg") << "Formpg" << "0064" << "pi" << "apg";
    }
    void theSaveDialogIsAskedAsTheKindSays()
    {
        QFETCH(QString, editore);
        QFETCH(QString, chiave);
        QFETCH(QString, cartella);
        QFETCH(QString, estensione);
        QDir(amb->Dati(cartella)).removeRecursively();
        auto e = TestElencoCoppie::editore(*EditoreDiNome(editore));
        e->Command1_Click(); // cancelled
        QCOMPARE(a().scatole.at(0).testo, TestoLingua(chiave));
        QVERIFY(!a().scatole.at(0).testo.isEmpty());
        QCOMPARE(int(a().dialoghi.size()), 1);
        const RichiestaDialogo &d = a().dialoghi[0];
        QCOMPARE(d.modo, ModoSalva);
        QCOMPARE(d.titolo, QStringLiteral("Salva"));
        QCOMPARE(d.nomeIniziale, QString());
        QCOMPARE(d.filtro, (QStringList{QString(), QStringLiteral("*.") + estensione}));
        QCOMPARE(d.cartella, QStringLiteral("C:\\ImpostazioniProgrammiLorea\\tesselo\\dati\\") + cartella + u'\\');
        QCOMPARE(d.estensione, estensione);
        // The default folder is made when it is missing.
        QVERIFY(QFileInfo(amb->Dati(cartella)).isDir());
    }

    void aFolderThatCannotBeMadeIsPassedOverInSilence()
    {
        QDir(amb->Dati(QStringLiteral("ii"))).removeRecursively();
        AmbienteProva::Scrivi(amb->Dati(QStringLiteral("ii")), "a file where the folder should be");
        auto e = editore(EditoreSS());
        const QString f = amb->Media(QStringLiteral("altrove.ass"));
        salva(*e, f);
        QCOMPARE(int(a().scatole.size()), 1); // only the question
        QCOMPARE(QFileInfo(f).size(), 0);
    }

    void aPathThatCannotBeWrittenIsPassedOverInSilence()
    {
        auto e = editore(EditoreSS());
        e->Elenco.Campo(1, 1) = QStringLiteral("C:\\a.swf");
        // A file no one may write, root included.
        salva(*e, QStringLiteral("/proc/version"));
        QCOMPARE(int(a().dialoghi.size()), 1);
        QCOMPARE(int(a().scatole.size()), 1);
        QCOMPARE(e->Controlli.at(QStringLiteral("Label1")).Caption, TestoLingua(QStringLiteral("0042")));
    }

    void aWordWithACommaReadsOutOfStepAndOneRecordRunsPastTheEnd()
    {
        const QString f = scrivi(QStringLiteral("virgola.aps"), "Cane, gatto\r\nC:\\x.swf\r\n\r\n\r\n");
        auto e = editore(EditorePS());
        amb->Rispondi(f);
        try {
            e->CommandModificaLista_Click();
            QFAIL("the editor read past the end of the file");
        } catch (const ProcessoTerminato &p) {
            QCOMPARE(p.fine.stato, 1);
            QVERIFY2(p.fine.messaggio.contains(QStringLiteral("virgola.aps")), qPrintable(p.fine.messaggio));
            QVERIFY2(p.fine.messaggio.contains(QStringLiteral("riga 5")), qPrintable(p.fine.messaggio));
        }
        QCOMPARE(a().scatole.back().stile, int(Msg::vbCritical));
    }

    void aWordWithACommaInALongerSetShiftsEveryLaterField()
    {
        const QString f = scrivi(QStringLiteral("virgola.apg"),
                                 "Cane, gatto\r\nC:\\a.gif\r\n\r\n\r\nSole\r\nC:\\b.gif\r\n\r\n\r\n\r\n\r\n\r\n");
        auto e = editore(EditorePS());
        apri(*e, f);
        QCOMPARE(e->Elenco.Campo(1, 1), QStringLiteral("Cane"));
        QCOMPARE(e->Elenco.Campo(1, 2), QStringLiteral("gatto"));
        QCOMPARE(e->Elenco.Campo(1, 3), QStringLiteral("C:\\a.gif"));
        QCOMPARE(e->Elenco.Campo(2, 2), QStringLiteral("Sole"));
        QCOMPARE(e->CoppiaMassima, qint16(4));
    }

    void aWordInCapitalsIsKeptAsTypedInFileAndEditor()
    {
        auto e = editore(EditorePS());
        e->Text1_Scrivi(QStringLiteral("CANE"));
        const QString f = amb->Media(QStringLiteral("maiuscole.aps"));
        salva(*e, f);
        QCOMPARE(AmbienteProva::Leggi(f), QByteArray("CANE\r\n\r\n\r\n\r\n"));
        auto altro = editore(EditorePS());
        apri(*altro, f);
        QCOMPARE(altro->Text1, QStringLiteral("CANE"));
        QCOMPARE(altro->Elenco.Campo(1, 1), QStringLiteral("CANE"));
    }

    void emptySoundFieldsAreTwoEmptyLinesReadBackEmpty()
    {
        ElencoCoppie el;
        el.Campo(1, 1) = QStringLiteral("C:\\a.swf");
        el.Campo(1, 2) = QStringLiteral("C:\\b.swf");
        const QString f = amb->Media(QStringLiteral("s.ass"));
        ScriviElencoCoppie(f, el, 1);
        QCOMPARE(AmbienteProva::Leggi(f), QByteArray("C:\\a.swf\r\nC:\\b.swf\r\n\r\n\r\n"));
        ElencoCoppie letto;
        letto.Campo(1, 3) = QStringLiteral("stale");
        QCOMPARE(LeggiElencoCoppie(f, &letto), 1);
        QCOMPARE(letto.Campo(1, 3), QString());
        QCOMPARE(letto.Campo(1, 4), QString());
    }

    void aFirstFilmAloneIsWrittenWithThreeEmptyLines()
    {
        ElencoCoppie el;
        el.Campo(1, 1) = QStringLiteral("C:\\solo.swf");
        QCOMPARE(RigheDaScrivere(el, 2), (QStringList{QStringLiteral("C:\\solo.swf"), {}, {}, {}}));
    }

    void aSetSavedUnderAnotherExtensionIsNotOfferedForPlay()
    {
        auto e = editore(EditoreSS());
        e->Elenco.Campo(1, 1) = QStringLiteral("C:\\a.swf");
        salva(*e, amb->Dati(QStringLiteral("ii/film.txt")));
        QVERIFY(QFileInfo::exists(amb->Dati(QStringLiteral("ii/film.txt"))));
        QVERIFY(FileDellaCartella(Cartelle::Dati + QStringLiteral("ii\\"), QStringLiteral("*.ass")).isEmpty());
        // The readers go by the contents: the editor opens it all the same.
        auto altro = editore(EditoreSS());
        apri(*altro, amb->Dati(QStringLiteral("ii/film.txt")));
        QCOMPARE(altro->Elenco.Campo(1, 1), QStringLiteral("C:\\a.swf"));
    }

    void savingASecondTimeReplacesTheFileWhole()
    {
        const QString f = amb->Dati(QStringLiteral("ii/due.ass"));
        AmbienteProva::Scrivi(f, QByteArray(5000, 'x'));
        auto e = editore(EditoreSS());
        e->Elenco.Campo(1, 1) = QStringLiteral("C:\\a.swf");
        salva(*e, f);
        QCOMPARE(AmbienteProva::Leggi(f), QByteArray("C:\\a.swf\r\n\r\n\r\n\r\n"));
    }

    void aWriteCutShortLeavesTheOldSetWholeAndSaysNothing()
    {
        const QString f = amb->Dati(QStringLiteral("ii/vecchio.ass"));
        const QByteArray vecchio("C:\\vecchio.swf\r\n\r\n\r\n\r\n");
        AmbienteProva::Scrivi(f, vecchio);
        auto e = editore(EditoreSS());
        e->Elenco.Campo(1, 1) = QStringLiteral("C:\\nuovo.swf");
        ImpostaGuastoScritturaPerProve([](FaseScrittura fase, const QString &) { return fase == FaseScrittura::Scrittura; });
        salva(*e, f);
        ImpostaGuastoScritturaPerProve({});
        QCOMPARE(AmbienteProva::Leggi(f), vecchio);
        QCOMPARE(QDir(amb->Dati(QStringLiteral("ii"))).entryList(QDir::Files | QDir::Hidden), QStringList{QStringLiteral("vecchio.ass")});
        QCOMPARE(int(a().scatole.size()), 1); // the question, and no word of the failure
    }

    void theWriterChangesNothingOnTheForm()
    {
        auto e = editore(EditoreSS());
        e->Elenco.Campo(1, 1) = QStringLiteral("C:\\a.swf");
        const auto prima = e->Controlli;
        salva(*e, amb->Dati(QStringLiteral("ii/x.ass")));
        for (const auto &[nome, s] : prima)
            QCOMPARE(e->Controlli.at(nome).Caption, s.Caption);
        QCOMPARE(e->Elenco.Campo(1, 1), QStringLiteral("C:\\a.swf"));
    }

    void theReaderKeepsFieldsAsReadFromRowOne()
    {
        const QString f = scrivi(QStringLiteral("x.agg"), "C:\\Dati\\A.GIF\r\n\"C:\\b.gif\"\r\n  C:\\s.wav\r\n\r\n");
        ElencoCoppie el;
        QCOMPARE(LeggiElencoCoppie(f, &el), 1);
        QCOMPARE(el.Campo(1, 1), QStringLiteral("C:\\Dati\\A.GIF"));
        QCOMPARE(el.Campo(1, 2), QStringLiteral("C:\\b.gif"));
        QCOMPARE(el.Campo(1, 3), QStringLiteral("C:\\s.wav"));
        QVERIFY(el.RigaVuota(0));
    }

    void aSetOfMoreThanAHundredRecordsEndsTheEditorNamingTheLine()
    {
        QByteArray b;
        for (int i = 0; i < 101; ++i)
            b += "w" + QByteArray::number(i) + "\r\nC:\\a.swf\r\n\r\n\r\n";
        const QString f = scrivi(QStringLiteral("grande.aps"), b);
        ElencoCoppie el;
        try {
            LeggiElencoCoppie(f, &el);
            QFAIL("read 101 records");
        } catch (const ProcessoTerminato &p) {
            QVERIFY2(p.fine.messaggio.contains(QStringLiteral("grande.aps")), qPrintable(p.fine.messaggio));
            QVERIFY2(p.fine.messaggio.contains(QStringLiteral("riga 401")), qPrintable(p.fine.messaggio));
        }
    }

    void aSetThatEndsInsideARecordEndsTheEditor()
    {
        const QString f = scrivi(QStringLiteral("corto.ass"), "C:\\a.swf\r\nC:\\b.swf\r\n\r\n\r\nC:\\c.swf\r\n");
        ElencoCoppie el;
        try {
            LeggiElencoCoppie(f, &el);
            QFAIL("read a half record");
        } catch (const ProcessoTerminato &p) {
            QVERIFY2(p.fine.messaggio.contains(QStringLiteral("corto.ass")), qPrintable(p.fine.messaggio));
            QVERIFY2(p.fine.messaggio.contains(QStringLiteral("riga 6")), qPrintable(p.fine.messaggio));
        }
    }

    void aPathWithTheDialogsNulsIsWrittenWithThemAndEndsAtTheFirstOnReading()
    {
        ElencoCoppie el;
        el.Campo(1, 1) = PercorsoGioco(QStringLiteral("swf/")) + AmbienteEditori::NulTitolo(QStringLiteral("cane.swf"));
        const QString f = amb->Media(QStringLiteral("nul.ass"));
        ScriviElencoCoppie(f, el, 1);
        const QByteArray b = AmbienteProva::Leggi(f);
        QCOMPARE(b.size(), int(PercorsoGioco(QStringLiteral("swf/")).size()) + 255 + 8);
        QVERIFY(b.contains(QByteArray("cane.swf") + QByteArray(247, '\0') + "\r\n"));
        ElencoCoppie letto;
        QCOMPARE(LeggiElencoCoppie(f, &letto), 1);
        QCOMPARE(letto.Campo(1, 1), PercorsoGioco(QStringLiteral("swf/cane.swf")));
    }
};

QTEST_MAIN(TestElencoCoppie)
#include "test_elenco_coppie.moc"
