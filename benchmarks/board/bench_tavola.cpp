#include "board/Disposizione.h"
#include "board/Tavola.h"
#include "platform/Attendi.h"
#include "platform/Casuale.h"
#include "platform/Percorsi.h"
#include "profiles/Profilo.h"
#include "profiles/StatoProcesso.h"

#include <QTemporaryDir>
#include <QtTest>

namespace {
class VistaVuota final : public VistaTavola
{
public:
    void Attendi(double) override {}
    void MostraPremio() override {}
};
} // namespace

// How long the board's rules take: a layout, a whole deal from a full set,
// and reading a set of 1001 records.
class BenchTavola : public QObject
{
    Q_OBJECT
private:
    QTemporaryDir cartella;
    QString scriviSet(int n)
    {
        QByteArray b;
        for (int i = 0; i < n; ++i)
            b += "C:\\dati\\swf\\a" + QByteArray::number(i) + ".swf\r\nC:\\dati\\swf\\b" + QByteArray::number(i)
                 + ".swf\r\nC:\\suoni\\s.wav\r\n\r\n";
        const QString p = cartella.filePath(QStringLiteral("set%1.ass").arg(n));
        QFile f(p);
        f.open(QIODevice::WriteOnly);
        f.write(b);
        return p;
    }

private slots:
    void initTestCase()
    {
        ImpostaCartellaProgramma(cartella.path());
        Profilo = ProfiloGiocatore{};
        NumeroGiocatori = 1;
    }

    void layoutOf24Tiles()
    {
        Disposizione d;
        QBENCHMARK {
            CalcolaDisposizione(24, 15360, 11520, &d);
        }
        QCOMPARE(d.LatoTessera, qint16(2194));
    }

    void dealOf24TilesFrom12Records()
    {
        VistaVuota v;
        Tavola t(TavolaSS(), &v);
        t.Width = 15360;
        t.Height = 11520;
        FileMemory = scriviSet(12);
        Profilo.NumeroTessere = 24;
        t.CaricaMemory();
        SeminaCasuale(1);
        QBENCHMARK {
            t.mnuAvvia_Click();
        }
        QCOMPARE(t.FramePosto[23].Visible, true);
    }

    void dealOf24TilesFrom1001Records()
    {
        VistaVuota v;
        Tavola t(TavolaSS(), &v);
        t.Width = 15360;
        t.Height = 11520;
        FileMemory = scriviSet(1001);
        Profilo.NumeroTessere = 24;
        t.CaricaMemory();
        QBENCHMARK {
            t.mnuAvvia_Click();
        }
        QCOMPARE(t.NumeroCoppie(), qint16(1001));
    }

    void readingASetOf1001Records()
    {
        TabellaMemoria tab;
        const QString p = scriviSet(1001);
        QBENCHMARK {
            ::CaricaMemory(p, QStringLiteral("0024"), &tab);
        }
        QCOMPARE(tab.NumeroCoppie, qint16(1001));
    }
};

QTEST_GUILESS_MAIN(BenchTavola)
#include "bench_tavola.moc"
