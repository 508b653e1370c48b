#include "platform/FiltroPressioni.h"

#include <QStringList>
#include <QtTest>

// The rules that clean a switch's presses, fed with press and release times.
// A sequence is written as words: "P0@100" the first switch down at 100 ms,
// "R0@180" up again, "A0@130" an auto-repeat of a held key, "T@2500" time
// reaching 2500 ms with nothing happening. Out come the moments of the
// presses that counted, each as "switch@ms".
class TestFiltroPressioni : public QObject
{
    Q_OBJECT
private slots:
    void countedPressesForEachSetting_data()
    {
        QTest::addColumn<int>("accettazione");
        QTest::addColumn<int>("ignora");
        QTest::addColumn<QString>("sequenza");
        QTest::addColumn<QStringList>("contate");

        QTest::newRow("defaults: every press counts at once")
            << 0 << 0 << "P0@0 R0@10 P0@20 R0@25 P1@30 R1@40" << QStringList{"0@0", "0@20", "1@30"};
        QTest::newRow("defaults: auto-repeat never counts")
            << 0 << 0 << "P0@0 A0@500 A0@530 A0@560 R0@600 P0@700" << QStringList{"0@0", "0@700"};
        QTest::newRow("a second down without an up is no new press")
            << 0 << 0 << "P0@0 P0@50 R0@60 P0@70" << QStringList{"0@0", "0@70"};
        QTest::newRow("acceptance 300: a short tap does not count")
            << 300 << 0 << "P0@0 R0@120 T@1000" << QStringList{};
        QTest::newRow("acceptance 300: held long enough counts at 300")
            << 300 << 0 << "P0@0 T@1000 R0@1200" << QStringList{"0@300"};
        QTest::newRow("acceptance 300: held exactly that long counts")
            << 300 << 0 << "P0@1000 R0@1300" << QStringList{"0@1300"};
        QTest::newRow("acceptance 300: one ms short does not")
            << 300 << 0 << "P0@1000 R0@1299" << QStringList{};
        QTest::newRow("acceptance 300: a bounce inside a hold restarts it")
            << 300 << 0 << "P0@0 R0@200 P0@220 R0@600" << QStringList{"0@520"};
        QTest::newRow("acceptance 2000, the longest")
            << 2000 << 0 << "P0@0 R0@1999 P0@3000 T@5000 R0@6000" << QStringList{"0@5000"};
        QTest::newRow("acceptance past its range is the longest")
            << 5000 << 0 << "P0@0 T@2000 R0@2100" << QStringList{"0@2000"};
        QTest::newRow("ignore 500: a double press counts once")
            << 0 << 500 << "P0@0 R0@40 P0@90 R0@130 P0@600 R0@640" << QStringList{"0@0", "0@600"};
        QTest::newRow("ignore 500: the other switch is ignored too")
            << 0 << 500 << "P0@0 R0@40 P1@100 R1@140 P1@520" << QStringList{"0@0", "1@520"};
        QTest::newRow("ignore 500: a press held across its end still does not count")
            << 0 << 500 << "P0@0 R0@40 P0@400 T@900 R0@1000 P0@1100" << QStringList{"0@0", "0@1100"};
        QTest::newRow("ignore 500: it runs from the press that counted, not from the ignored ones")
            << 0 << 500 << "P0@0 R0@10 P0@300 R0@310 P0@450 R0@460 P0@500" << QStringList{"0@0", "0@500"};
        QTest::newRow("ignore 3000, the longest")
            << 0 << 9000 << "P0@0 R0@10 P0@2990 R0@2995 P0@3000" << QStringList{"0@0", "0@3000"};
        QTest::newRow("acceptance 300 and ignore 1000: the ignore time runs from the count")
            << 300 << 1000 << "P0@0 R0@400 P0@1200 R0@1600 P0@1700 R0@1800 P0@2000 R0@2400"
            << QStringList{"0@300", "0@2300"};
        QTest::newRow("acceptance 300: two switches held, each counts on its own")
            << 300 << 0 << "P0@0 P1@100 T@1000 R0@1100 R1@1100" << QStringList{"0@300", "1@400"};
        QTest::newRow("acceptance 300, ignore 500: the second held switch falls in the first one's ignore time")
            << 300 << 500 << "P0@0 P1@100 T@1000 R0@1100 R1@1100" << QStringList{"0@300"};
        QTest::newRow("acceptance 300: auto-repeat while held changes nothing")
            << 300 << 0 << "P0@0 A0@250 A0@280 T@1000 R0@1100" << QStringList{"0@300"};
    }
    void countedPressesForEachSetting()
    {
        QFETCH(int, accettazione);
        QFETCH(int, ignora);
        QFETCH(QString, sequenza);
        QFETCH(QStringList, contate);
        FiltroPressioni f;
        f.Imposta(accettazione, ignora);
        QCOMPARE(conta(f, sequenza), contate);
    }

    void eachEventSaysWhatBecameOfThePress()
    {
        FiltroPressioni f;
        f.Imposta(300, 1000);
        QCOMPARE(f.Premuto(0, 0), FiltroPressioni::Esito::InAttesa);
        QCOMPARE(f.Scadenza(), std::optional<qint64>(300));
        QCOMPARE(f.Rilasciato(0, 100), FiltroPressioni::Esito::TroppoBreve);
        QVERIFY(!f.Scadenza());
        QCOMPARE(f.Premuto(0, 200), FiltroPressioni::Esito::InAttesa);
        QCOMPARE(f.Premuto(0, 300, true), FiltroPressioni::Esito::Ripetizione);
        int i = -1;
        QCOMPARE(f.Tempo(499, &i), FiltroPressioni::Esito::Nessuno);
        QCOMPARE(f.Tempo(500, &i), FiltroPressioni::Esito::Contata);
        QCOMPARE(i, 0);
        QCOMPARE(f.Rilasciato(0, 700), FiltroPressioni::Esito::Nessuno);
        QCOMPARE(f.Premuto(1, 800), FiltroPressioni::Esito::Ignorata);
        QCOMPARE(f.Rilasciato(1, 900), FiltroPressioni::Esito::Nessuno);
        QCOMPARE(f.Premuto(1, 1500), FiltroPressioni::Esito::InAttesa);
        f.Azzera();
        QVERIFY(!f.Scadenza());
        QCOMPARE(f.Premuto(1, 1600), FiltroPressioni::Esito::InAttesa);
    }

    void aSwitchOutsideTheTwoIsNothing()
    {
        FiltroPressioni f;
        QCOMPARE(f.Premuto(2, 0), FiltroPressioni::Esito::Nessuno);
        QCOMPARE(f.Premuto(-1, 0), FiltroPressioni::Esito::Nessuno);
        QCOMPARE(f.Rilasciato(5, 0), FiltroPressioni::Esito::Nessuno);
    }

private:
    // The counted moments of a sequence.
    static QStringList conta(FiltroPressioni &f, const QString &sequenza)
    {
        QStringList contate;
        auto dovuto = [&](qint64 fino) {
            while (f.Scadenza() && *f.Scadenza() <= fino) {
                const qint64 s = *f.Scadenza();
                int k = -1;
                if (f.Tempo(s, &k) == FiltroPressioni::Esito::Contata)
                    contate << QStringLiteral("%1@%2").arg(k).arg(s);
            }
        };
        qint64 inizio[2] = {0, 0};
        for (const QString &parola : sequenza.split(u' ', Qt::SkipEmptyParts)) {
            const QChar tipo = parola.at(0);
            const int chiocciola = parola.indexOf(u'@');
            const qint64 ms = parola.mid(chiocciola + 1).toLongLong();
            const int i = chiocciola > 1 ? parola.mid(1, chiocciola - 1).toInt() : 0;
            // What fell due before this moment is settled first, as the
            // board's timer does; a release exactly at the moment is the
            // release's to tell.
            dovuto(ms - 1);
            if (tipo == u'T') {
                dovuto(ms);
                continue;
            }
            FiltroPressioni::Esito e = FiltroPressioni::Esito::Nessuno;
            if (tipo == u'P') {
                e = f.Premuto(i, ms);
                if (e == FiltroPressioni::Esito::InAttesa)
                    inizio[i] = ms;
            } else if (tipo == u'A') {
                e = f.Premuto(i, ms, true);
            } else if (tipo == u'R') {
                e = f.Rilasciato(i, ms);
            }
            if (e == FiltroPressioni::Esito::Contata)
                contate << QStringLiteral("%1@%2").arg(i).arg(tipo == u'R' ? inizio[i] + f.Accettazione() : ms);
        }
        return contate;
    }
};

QTEST_APPLESS_MAIN(TestFiltroPressioni)
#include "test_filtro_pressioni.moc"
