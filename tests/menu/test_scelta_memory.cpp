// The rules of the menu's choice, without a window: the listing with its
// carried count, the count of one set, the ladder of tile counts, the board
// for a kind of game.

#include "AmbienteProva.h"

#include "menu/SceltaMemory.h"

#include <QtTest>

namespace {
QByteArray record(int i)
{
    return "C:\\ImpostazioniProgrammiLorea\\tesselo\\dati\\gif\\a" + QByteArray::number(i)
           + ".gif\r\nC:\\ImpostazioniProgrammiLorea\\tesselo\\dati\\gif\\b" + QByteArray::number(i) + ".gif\r\n\r\n\r\n";
}
} // namespace

class ProvaSceltaMemory : public QObject
{
    Q_OBJECT

    QString dati(const AmbienteProva &a, const QString &r) { return a.Radice() + QStringLiteral("/tesselo/dati/") + r; }
    void set(const AmbienteProva &a, const QString &r, int coppie)
    {
        QByteArray b;
        for (int i = 0; i < coppie; ++i)
            b += record(i);
        AmbienteProva::Scrivi(dati(a, r), b);
    }

private slots:
    void countIsTwoTilesForEachRecord_data()
    {
        QTest::addColumn<QByteArray>("contenuto");
        QTest::addColumn<int>("tessere");
        QTest::addColumn<bool>("oltreFine");
        QTest::newRow("five records") << record(0) + record(1) + record(2) + record(3) + record(4) << 10 << false;
        QTest::newRow("two records") << record(0) + record(1) << 4 << false;
        QTest::newRow("empty file") << QByteArray() << 0 << false;
        QTest::newRow("lone last value still counts") << QByteArray("a\r\nb\r\nc\r\n") << 2 << true;
        QTest::newRow("LF only") << QByteArray("a\nb\nc\nd\n") << 2 << false;
    }
    void countIsTwoTilesForEachRecord()
    {
        QFETCH(QByteArray, contenuto);
        QFETCH(int, tessere);
        QFETCH(bool, oltreFine);
        AmbienteProva a;
        AmbienteProva::Scrivi(dati(a, QStringLiteral("ii/x.agg")), contenuto);
        bool oltre = !oltreFine;
        const auto conteggio = ContaTessereFile(QStringLiteral("C:\\ImpostazioniProgrammiLorea\\tesselo\\dati\\ii\\x.agg"), &oltre);
        QVERIFY(conteggio.has_value());
        QCOMPARE(*conteggio, tessere);
        QCOMPARE(oltre, oltreFine);
    }

    void missingFileHasNoCount()
    {
        AmbienteProva a;
        QVERIFY(!ContaTessereFile(QStringLiteral("C:\\ImpostazioniProgrammiLorea\\tesselo\\dati\\ii\\nessuno.agg")));
    }

    void kindsOfGameListTheirFoldersAndExtensions_data()
    {
        QTest::addColumn<int>("tipo");
        QTest::addColumn<QStringList>("attesi");
        QTest::addColumn<QString>("cartella");
        QTest::newRow("words-words: agg only") << 0 << QStringList{QStringLiteral("b.agg")} << QStringLiteral("ii\\");
        QTest::newRow("words-images: aps then apg")
            << 1 << QStringList{QStringLiteral("d.aps"), QStringLiteral("c.apg")} << QStringLiteral("pi\\");
        QTest::newRow("images-images: ass then agg")
            << 2 << QStringList{QStringLiteral("a.ass"), QStringLiteral("b.agg")} << QStringLiteral("ii\\");
    }
    void kindsOfGameListTheirFoldersAndExtensions()
    {
        QFETCH(int, tipo);
        QFETCH(QStringList, attesi);
        QFETCH(QString, cartella);
        AmbienteProva a;
        set(a, QStringLiteral("ii/a.ass"), 12);
        set(a, QStringLiteral("ii/b.agg"), 12);
        set(a, QStringLiteral("pi/c.apg"), 12);
        set(a, QStringLiteral("pi/d.aps"), 12);
        AmbienteProva::Scrivi(dati(a, QStringLiteral("ii/e.txt")), record(0));
        const EsitoElenco e = ElencaMemory(tipo, 4, false);
        QCOMPARE(e.nomi, attesi);
        QCOMPARE(e.cartellaMemory, QStringLiteral("C:\\ImpostazioniProgrammiLorea\\tesselo\\dati\\") + cartella);
    }

    void countIsCarriedAcrossFilesAndPasses()
    {
        AmbienteProva a;
        // 8 tiles, then 4, then 6: with 12 asked the first is too small, the
        // second raises the sum to 12, and the third rides on the sum.
        set(a, QStringLiteral("ii/a.ass"), 4);
        set(a, QStringLiteral("ii/b.ass"), 2);
        set(a, QStringLiteral("ii/c.agg"), 3);
        const EsitoElenco e = ElencaMemory(2, 12, false);
        QCOMPARE(e.nomi, (QStringList{QStringLiteral("b.ass"), QStringLiteral("c.agg")}));
    }

    void capitalsListNamesInCapitals()
    {
        AmbienteProva a;
        set(a, QStringLiteral("ii/Gatti.agg"), 12);
        QCOMPARE(ElencaMemory(0, 12, true).nomi, QStringList{QStringLiteral("GATTI.AGG")});
        QCOMPARE(ElencaMemory(0, 12, false).nomi, QStringList{QStringLiteral("Gatti.agg")});
    }

    void unreadableFileAddsNothingAndTheTestStillRuns()
    {
        AmbienteProva a;
        set(a, QStringLiteral("ii/a.agg"), 12);
        QDir().mkpath(dati(a, QStringLiteral("ii/b.agg"))); // a folder: no file to read
        set(a, QStringLiteral("ii/c.agg"), 1);
        QCOMPARE(ElencaMemory(0, 24, false).nomi, (QStringList{QStringLiteral("a.agg"), QStringLiteral("c.agg")}));
    }

    void ladderOfTileCounts_data()
    {
        QTest::addColumn<int>("conteggio");
        QTest::addColumn<int>("prima");
        QTest::addColumn<int>("dopo");
        QTest::addColumn<QString>("abilitati"); // for 4, 6, 8, 12, 16, 18, 24
        QTest::newRow("five records: 24 falls to 8") << 10 << 24 << 8 << QStringLiteral("1110000");
        QTest::newRow("two records: falls to 4") << 4 << 24 << 4 << QStringLiteral("1000000");
        QTest::newRow("two records from 6") << 4 << 6 << 4 << QStringLiteral("1000000");
        QTest::newRow("big set keeps 18") << 24 << 18 << 18 << QStringLiteral("1111111");
        QTest::newRow("12 stays with 12") << 12 << 12 << 12 << QStringLiteral("1111000");
        QTest::newRow("smaller count unaffected") << 10 << 6 << 6 << QStringLiteral("1110000");
        QTest::newRow("even an empty set keeps 4") << 0 << 12 << 4 << QStringLiteral("1000000");
    }
    void ladderOfTileCounts()
    {
        QFETCH(int, conteggio);
        QFETCH(int, prima);
        QFETCH(int, dopo);
        QFETCH(QString, abilitati);
        const EsitoScala e = ScalaTessere(conteggio, qint16(prima));
        QCOMPARE(int(e.numeroTessere), dopo);
        QString visti;
        for (bool b : e.abilitato)
            visti += b ? u'1' : u'0';
        QCOMPARE(visti, abilitati);
    }

    void boardByKindAndExtension_data()
    {
        QTest::addColumn<int>("tipo");
        QTest::addColumn<QString>("nome");
        QTest::addColumn<QString>("schermo");
        QTest::newRow("0 any") << 0 << QStringLiteral("x.agg") << QStringLiteral("FormmemGGCS");
        QTest::newRow("0 even ass") << 0 << QStringLiteral("x.ass") << QStringLiteral("FormmemGGCS");
        QTest::newRow("1 apg") << 1 << QStringLiteral("x.apg") << QStringLiteral("FormmemPG");
        QTest::newRow("1 aps capitals") << 1 << QStringLiteral("X.APS") << QStringLiteral("FormmemPS");
        QTest::newRow("2 agg") << 2 << QStringLiteral("x.agg") << QStringLiteral("FormmemGG");
        QTest::newRow("2 ass") << 2 << QStringLiteral("x.ass") << QStringLiteral("FormmemSS");
        QTest::newRow("1 with agg: none") << 1 << QStringLiteral("x.agg") << QString();
        QTest::newRow("2 other extension: none") << 2 << QStringLiteral("x.txt") << QString();
        QTest::newRow("kind 3: none") << 3 << QStringLiteral("x.agg") << QString();
    }
    void boardByKindAndExtension()
    {
        QFETCH(int, tipo);
        QFETCH(QString, nome);
        QFETCH(QString, schermo);
        QCOMPARE(SchermoPerGioco(tipo, nome), schermo);
    }
};

QTEST_GUILESS_MAIN(ProvaSceltaMemory)
#include "test_scelta_memory.moc"
