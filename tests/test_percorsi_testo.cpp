#include "AmbienteProva.h"

#include "platform/Casuale.h"
#include "platform/TestoFile.h"
#include "platform/Twips.h"

class TestPercorsiTesto : public QObject
{
    Q_OBJECT
private slots:
    void dataRootLiteralMapsToHomeInAnyCase()
    {
        AmbienteProva a;
        QCOMPARE(MappaPercorso(QStringLiteral("c:\\impostazioniprogrammilorea\\tesselo\\utenti\\x.ini")),
                 a.Radice() + QStringLiteral("/tesselo/utenti/x.ini"));
        QCOMPARE(MappaPercorso(QStringLiteral("C:\\ImpostazioniProgrammiLorea\\")), a.Radice() + u'/');
    }

    void doubledSeparatorsCollapse()
    {
        QCOMPARE(MappaPercorso(QStringLiteral("/tmp\\\\fonts\\penna1.ttf")), QStringLiteral("/tmp/fonts/penna1.ttf"));
    }

    void mixedCaseSetPathReachesTheFileInTheTree()
    {
        AmbienteProva a;
        const QString vero = a.Radice() + QStringLiteral("/tesselo/dati/ii/animali.AGG");
        AmbienteProva::Scrivi(vero, "x");
        const QString locale = PercorsoLocale(QStringLiteral("c:\\impostazioniprogrammilorea\\TESSELO\\dati\\ii\\Animali.agg"));
        QCOMPARE(locale, vero);
        QVERIFY(QFileInfo(locale).isFile());
    }

    void missingComponentsKeepTheirSpellingSoTheFileCanBeCreated()
    {
        AmbienteProva a;
        QDir().mkpath(a.Radice() + QStringLiteral("/Tesselo/utenti"));
        QCOMPARE(PercorsoLocale(QStringLiteral("C:\\ImpostazioniProgrammiLorea\\tesselo\\UTENTI\\Nuovo.ini")),
                 a.Radice() + QStringLiteral("/Tesselo/utenti/Nuovo.ini"));
    }

    void writingToANameDifferingOnlyInCaseWritesThatFile()
    {
        AmbienteProva a;
        const QString vero = a.Radice() + QStringLiteral("/tesselo/utenti/MARCO.ini");
        AmbienteProva::Scrivi(vero, "vecchio");
        QVERIFY(ScriviFileTesto(QStringLiteral("C:\\ImpostazioniProgrammiLorea\\tesselo\\utenti\\marco.ini"), {"nuovo"}));
        QCOMPARE(AmbienteProva::Leggi(vero), QByteArray("nuovo\r\n"));
        QCOMPARE(QDir(a.Radice() + QStringLiteral("/tesselo/utenti")).entryList(QDir::Files).size(), 1);
    }

    void aNulEndsThePath()
    {
        QCOMPARE(MappaPercorso(QStringLiteral("/tmp/a.gif") + QString(3, QChar(0))), QStringLiteral("/tmp/a.gif"));
    }

    void windows1252IsReadWhenTheBytesAreNotUtf8()
    {
        QCOMPARE(DecodificaTesto(QByteArray("Citt\xe0 \x80")), QString::fromUtf8("Città €"));
    }

    void utf8IsReadWhenValidAndNotAscii()
    {
        QCOMPARE(DecodificaTesto(QByteArray("Citt\xc3\xa0")), QString::fromUtf8("Città"));
    }

    void textIsWrittenIn1252WhenItFitsElseUtf8()
    {
        QCOMPARE(CodificaTesto(QString::fromUtf8("Città €")), QByteArray("Citt\xe0 \x80"));
        QCOMPARE(CodificaTesto(QString::fromUtf8("Łódź")), QString::fromUtf8("Łódź").toUtf8());
    }

    void linesSplitAtCrLfLfAndCr()
    {
        QCOMPARE(DividiRighe(QStringLiteral("a\r\nb\nc\rd")), QStringList({"a", "b", "c", "d"}));
        QCOMPARE(DividiRighe(QStringLiteral("a\r\n\r\n")), QStringList({"a", ""}));
    }

    void twipsAreFifteenToAPixel()
    {
        QCOMPARE(TwipsDaPixel(1024), 15360);
        QCOMPARE(PixelDaTwips(8640), 576);
    }

    void aSeededGeneratorRepeatsItsDraws()
    {
        SeminaCasuale(42);
        const double a = Casuale();
        const int b = IndiceCasuale(18);
        SeminaCasuale(42);
        QCOMPARE(Casuale(), a);
        QCOMPARE(IndiceCasuale(18), b);
        for (int i = 0; i < 10000; ++i) {
            const double r = Casuale();
            QVERIFY(r >= 0.0 && r < 1.0);
        }
    }
};

QTEST_APPLESS_MAIN(TestPercorsiTesto)
#include "test_percorsi_testo.moc"
