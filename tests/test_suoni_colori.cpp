#include "AmbienteProva.h"

#include "platform/Casuale.h"
#include "profiles/Profilo.h"

#include <QCoreApplication>

class TestSuoniColori : public QObject
{
    Q_OBJECT
private slots:
    void withSuoniOffTheFixedSoundsAreSilentButTheTilesSoundsPlay()
    {
        AmbienteProva a;
        ValoriPredefiniti();
        Profilo.Suoni = false;
        SuonaSi();
        SuonaNo();
        SuonaApplauso();
        SuonaFile(QStringLiteral("/tmp/cane.wav"));
        QCOMPARE(a.suoni.richieste, QStringList({QStringLiteral("/tmp/cane.wav")}));
    }

    void withSuoniOnTheFixedSoundsComeFromTheProgramFolder()
    {
        AmbienteProva a;
        ValoriPredefiniti();
        SuonaSi();
        SuonaNo();
        SuonaApplauso();
        QCOMPARE(a.suoni.richieste,
                 QStringList({a.Programma() + QStringLiteral("/suoni/si.wav"), a.Programma() + QStringLiteral("/suoni/no.wav"),
                              a.Programma() + QStringLiteral("/suoni/applauso.wav")}));
    }

    void turningATileWhileAnotherSoundPlaysStopsThatSound()
    {
        // The real channel: one player for the whole program, so the second
        // request replaces the first while it still plays.
        ImpostaCanaleSuoni(nullptr);
        const QString lungo = QStringLiteral(COPPIE_SORGENTI "/app/programma/suoni/applauso.wav");
        const QString breve = QStringLiteral(COPPIE_SORGENTI "/app/programma/suoni/si.wav");
        SuonaFile(lungo);
        QCOMPARE(SorgenteSuonoInCorso(), lungo);
        SuonaFile(breve);
        QCOMPARE(SorgenteSuonoInCorso(), breve);
    }

    void aMissingOrEmptyFileIsSilenceNotAFailure()
    {
        ImpostaCanaleSuoni(nullptr);
        SuonaFile(QStringLiteral("/nessun/posto/x.wav"));
        QCOMPARE(SorgenteSuonoInCorso(), QString());
        SuonaFile(QString());
        QCOMPARE(SorgenteSuonoInCorso(), QString());
    }

    void coloreCasualeDrawsFromTheTableOfEighteen()
    {
        const QList<int> tabella = {0xC0C0FF, 0x8080FF, 0x0080FF, 0x80C0FF, 0x0080FF, 0xC0FFFF,
                                    0x8080FF, 0x0040C0, 0x80FF80, 0x0040C0, 0xFFFFC0, 0xFFFF00,
                                    0xFFC0C0, 0xFFC0FF, 0xFFC0FF, 0xE0E0E0, 0xFFC0FF, 0xFF00FF};
        for (int seme = 1; seme <= 200; ++seme) {
            SeminaCasuale(seme);
            const double r = Casuale();
            SeminaCasuale(seme);
            QCOMPARE(ColoreCasuale(), tabella[int(r * 18)]);
        }
    }

    void theRepeatsOfTheTableWeighTheDraw()
    {
        SeminaCasuale(7);
        int magenta = 0, verde = 0;
        for (int i = 0; i < 18000; ++i) {
            const int c = ColoreCasuale();
            magenta += c == 0xFFC0FF;
            verde += c == 0x80FF80;
        }
        // Three entries against one: about 3000 against 1000.
        QVERIFY(magenta > 2600 && magenta < 3400);
        QVERIFY(verde > 800 && verde < 1200);
    }
};

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    TestSuoniColori t;
    return QTest::qExec(&t, argc, argv);
}
#include "test_suoni_colori.moc"
