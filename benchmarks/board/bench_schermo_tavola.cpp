#include "board/FormTavola.h"
#include "platform/Attendi.h"
#include "platform/Casuale.h"
#include "platform/Controlli.h"
#include "platform/Percorsi.h"
#include "platform/Twips.h"
#include "profiles/Profilo.h"
#include "profiles/StatoProcesso.h"

#include <QTemporaryDir>
#include <QtTest>

// What showing the board costs: one pass of the view over the model, and a
// restart with 24 tiles, on the offscreen platform.
class BenchSchermoTavola : public QObject
{
    Q_OBJECT
private:
    QTemporaryDir cartella;

private slots:
    void initTestCase()
    {
        ImpostaCartellaProgramma(cartella.path());
        ImpostaSchermoPerProve(QRect(0, 0, 1024, 768));
        ImpostaScalaAttesa(0.001);
        Profilo = ProfiloGiocatore{};
        Profilo.NumeroTessere = 24;
        Profilo.ColoreTessere = 0x00FFFF;
        NumeroGiocatori = 1;
        QByteArray b;
        for (int i = 0; i < 12; ++i)
            b += "a" + QByteArray::number(i) + ".swf\r\nb.swf\r\n\r\n\r\n";
        FileMemory = cartella.filePath(QStringLiteral("s.ass"));
        QFile f(FileMemory);
        f.open(QIODevice::WriteOnly);
        f.write(b);
    }

    void oneViewPassOver24Tiles()
    {
        FormTavola f(TavolaSS());
        f.show();
        f.Form_Activate();
        QBENCHMARK {
            f.Aggiorna();
        }
        QVERIFY(f.FramePosto[23]->isVisible());
    }

    void aRestartWith24TilesOnScreen()
    {
        FormTavola f(TavolaSS());
        f.show();
        f.Form_Activate();
        QBENCHMARK {
            f.mnuAvvia->trigger();
        }
        QVERIFY(f.FramePosto[23]->isVisible());
    }
};

QTEST_MAIN(BenchSchermoTavola)
#include "bench_schermo_tavola.moc"
