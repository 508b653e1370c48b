#include "AmbienteProva.h"

#include "lang/modLanguageSupport.h"
#include "profiles/Profilo.h"
#include "sets/CaricaMemory.h"

#include <QtTest>

// Reading a set for play: fields, case, and the ways a damaged set ends the game.
class TestCaricaMemory : public QObject
{
    Q_OBJECT
private:
    std::unique_ptr<AmbienteProva> amb;
    QString file(const QString &nome) const { return amb->Casa() + QLatin1Char('/') + nome; }
    void scrivi(const QString &nome, const QByteArray &b) { AmbienteProva::Scrivi(file(nome), b); }

private slots:
    void init() { amb = std::make_unique<AmbienteProva>(); }
    void cleanup() { amb.reset(); }

    void anEmptyFileHasNoPairs()
    {
        scrivi(QStringLiteral("vuoto.ass"), QByteArray());
        TabellaMemoria t;
        t.NumeroCoppie = 7;
        QVERIFY(CaricaMemory(file(QStringLiteral("vuoto.ass")), QStringLiteral("0024"), &t));
        QCOMPARE(t.NumeroCoppie, qint16(0));
        QVERIFY(amb->scatole.empty());
    }

    void aMissingFileShowsTheBoardsKey_data()
    {
        QTest::addColumn<QString>("chiave");
        for (const char *k : {"0024", "0030", "0078", "0081", "0061"})
            QTest::newRow(k) << QString::fromLatin1(k);
    }
    void aMissingFileShowsTheBoardsKey()
    {
        QFETCH(QString, chiave);
        TabellaMemoria t;
        t.NumeroCoppie = 3;
        QVERIFY(!CaricaMemory(file(QStringLiteral("manca.ass")), chiave, &t));
        QCOMPARE(t.NumeroCoppie, qint16(0));
        QCOMPARE(int(amb->scatole.size()), 1);
        QCOMPARE(amb->scatole[0].stile, int(Msg::vbCritical));
        QCOMPARE(amb->scatole[0].titolo, QStringLiteral("Coppie vivaci"));
        QCOMPARE(amb->scatole[0].testo, TestoLingua(chiave));
        QVERIFY(!amb->scatole[0].testo.isEmpty());
    }

    void aWordInCapitalsIsHeldInLowerCase()
    {
        Profilo.Maiuscolo1 = true;
        scrivi(QStringLiteral("p.aps"), "CANE\r\nC:\\Dati\\Swf\\Cane.SWF\r\nC:\\Suoni\\Abbaia.WAV\r\nC:\\Suoni\\B.wav\r\n");
        TabellaMemoria t;
        QVERIFY(CaricaMemory(file(QStringLiteral("p.aps")), QStringLiteral("0030"), &t));
        QCOMPARE(t.NumeroCoppie, qint16(1));
        QCOMPARE(t.Campo(0, 1), QStringLiteral("cane"));
        QCOMPARE(t.Campo(0, 2), QStringLiteral("c:\\dati\\swf\\cane.swf"));
        // Sounds keep their case.
        QCOMPARE(t.Campo(0, 3), QStringLiteral("C:\\Suoni\\Abbaia.WAV"));
        QCOMPARE(t.Campo(0, 4), QStringLiteral("C:\\Suoni\\B.wav"));
        QVERIFY(t.Campo(0, 0).isEmpty());
        Profilo.Maiuscolo1 = false;
    }

    void theCaseSelectorIsComparedWithMaiuscolo()
    {
        QCOMPARE(ApplicaMaiuscolo(QStringLiteral("Cane"), QString()), QStringLiteral("cane"));
        QCOMPARE(ApplicaMaiuscolo(QStringLiteral("Cane"), QStringLiteral("maiuscolo")), QStringLiteral("CANE"));
        QCOMPARE(ApplicaMaiuscolo(QStringLiteral("Cane"), QStringLiteral("MAIUSCOLO")), QStringLiteral("cane"));
    }

    void emptySoundLinesReadAsEmptyFields()
    {
        scrivi(QStringLiteral("s.ass"), "a.swf\r\nb.swf\r\n\r\n\r\nc.swf\r\nd.swf\r\n\r\n\r\n");
        TabellaMemoria t;
        QVERIFY(CaricaMemory(file(QStringLiteral("s.ass")), QStringLiteral("0024"), &t));
        QCOMPARE(t.NumeroCoppie, qint16(2));
        QCOMPARE(t.Campo(1, 1), QStringLiteral("c.swf"));
        QVERIFY(t.Campo(0, 3).isEmpty());
        QVERIFY(t.Campo(1, 4).isEmpty());
    }

    void aFirstFilmAloneCountsAsARecord()
    {
        scrivi(QStringLiteral("f.ass"), "a.swf\r\n\r\n\r\n\r\n");
        TabellaMemoria t;
        QVERIFY(CaricaMemory(file(QStringLiteral("f.ass")), QStringLiteral("0024"), &t));
        QCOMPARE(t.NumeroCoppie, qint16(1));
        QVERIFY(t.Campo(0, 2).isEmpty());
    }

    void aNulEndsTheUsefulTextOfAField()
    {
        QByteArray b("C:\\x\\a.gif");
        b.append(QByteArray(3, '\0'));
        b.append("\r\nb.gif\r\n\r\n\r\n");
        scrivi(QStringLiteral("n.agg"), b);
        TabellaMemoria t;
        QVERIFY(CaricaMemory(file(QStringLiteral("n.agg")), QStringLiteral("0078"), &t));
        QCOMPARE(t.Campo(0, 1), QStringLiteral("c:\\x\\a.gif"));
    }

    void aWordWithACommaPutsTheSetOutOfStepAndEndsTheProgram()
    {
        scrivi(QStringLiteral("v.aps"), "Cane, gatto\r\nC:\\cane.swf\r\nC:\\a.wav\r\nC:\\b.wav\r\n");
        TabellaMemoria t;
        try {
            CaricaMemory(file(QStringLiteral("v.aps")), QStringLiteral("0030"), &t);
            QFAIL("the read past the end did not end the program");
        } catch (const ProcessoTerminato &p) {
            QVERIFY(p.fine.stato != 0);
            QVERIFY(p.fine.messaggio.contains(QStringLiteral("v.aps")));
        }
        // The first record was read out of step.
        QCOMPARE(t.Campo(0, 1), QStringLiteral("cane"));
        QCOMPARE(t.Campo(0, 2), QStringLiteral("gatto"));
        QCOMPARE(t.Campo(0, 3), QStringLiteral("C:\\cane.swf"));
    }

    void aFileEndingInsideARecordEndsTheProgramNamingFileAndLine()
    {
        scrivi(QStringLiteral("corto.ass"), "a.swf\r\nb.swf\r\n\r\n\r\nc.swf\r\nd.swf\r\n");
        TabellaMemoria t;
        try {
            CaricaMemory(file(QStringLiteral("corto.ass")), QStringLiteral("0024"), &t);
            QFAIL("a set ending inside a record did not end the program");
        } catch (const ProcessoTerminato &p) {
            QVERIFY(p.fine.messaggio.contains(QStringLiteral("corto.ass")));
            QVERIFY2(p.fine.messaggio.contains(QStringLiteral("riga 7")), qPrintable(p.fine.messaggio));
        }
        QCOMPARE(t.NumeroCoppie, qint16(1));
    }

    void exactly1001RecordsAreRead()
    {
        QByteArray b;
        for (int i = 0; i < 1001; ++i)
            b += "p" + QByteArray::number(i) + "\r\nq\r\n\r\n\r\n";
        scrivi(QStringLiteral("mille.ass"), b);
        TabellaMemoria t;
        QVERIFY(CaricaMemory(file(QStringLiteral("mille.ass")), QStringLiteral("0024"), &t));
        QCOMPARE(t.NumeroCoppie, qint16(1001));
        QCOMPARE(t.Campo(1000, 1), QStringLiteral("p1000"));
    }

    void record1002EndsTheProgram()
    {
        QByteArray b;
        for (int i = 0; i < 1002; ++i)
            b += "p\r\nq\r\n\r\n\r\n";
        scrivi(QStringLiteral("troppi.ass"), b);
        TabellaMemoria t;
        try {
            CaricaMemory(file(QStringLiteral("troppi.ass")), QStringLiteral("0024"), &t);
            QFAIL("record 1002 did not end the program");
        } catch (const ProcessoTerminato &p) {
            QVERIFY(p.fine.messaggio.contains(QStringLiteral("troppi.ass")));
            QVERIFY2(p.fine.messaggio.contains(QStringLiteral("riga 4005")), qPrintable(p.fine.messaggio));
        }
        QCOMPARE(t.NumeroCoppie, qint16(1001));
    }

    void aWindowsPathToTheDataRootFindsTheFile()
    {
        scrivi(QStringLiteral("ImpostazioniProgrammiLorea/tesselo/dati/ii/animali.agg"), "a.gif\r\nb.gif\r\n\r\n\r\n");
        TabellaMemoria t;
        QVERIFY(CaricaMemory(QStringLiteral("C:\\ImpostazioniProgrammiLorea\\tesselo\\dati\\II\\Animali.agg"),
                             QStringLiteral("0078"), &t));
        QCOMPARE(t.NumeroCoppie, qint16(1));
    }

    void aDamagedSetNamedTheWindowsWayIsNamedUnderTheHomeFolderInTheMessage()
    {
        scrivi(QStringLiteral("ImpostazioniProgrammiLorea/tesselo/dati/ii/rotto.agg"), "a.gif\r\nb.gif\r\n\r\n");
        TabellaMemoria t;
        try {
            CaricaMemory(QStringLiteral("C:\\ImpostazioniProgrammiLorea\\tesselo\\dati\\ii\\rotto.agg"),
                         QStringLiteral("0078"), &t);
            QFAIL("a set ending inside a record did not end the program");
        } catch (const ProcessoTerminato &p) {
            const QString atteso = QDir::toNativeSeparators(amb->Radice() + QStringLiteral("/tesselo/dati/ii/rotto.agg"));
            QVERIFY2(p.fine.messaggio.contains(atteso), qPrintable(p.fine.messaggio));
            QVERIFY2(!p.fine.messaggio.contains(QStringLiteral("C:\\")), qPrintable(p.fine.messaggio));
        }
    }
};

QTEST_GUILESS_MAIN(TestCaricaMemory)
#include "test_carica_memory.moc"
