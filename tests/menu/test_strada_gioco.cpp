// The road of one game, as far as the menu leads it: the choices, the names
// for one, two and three players, the board for the kind of game and the
// set's extension, and the way back to a menu loaded anew.
// The boards here are stand-ins; the real ones show the names on their status bar.

#include "AiutoMenu.h"

#include <QListWidget>
#include <QPointer>

class ProvaStradaGioco : public QObject
{
    Q_OBJECT

private slots:
    void aGameGoesFromTheMenuToItsBoardAndBack_data()
    {
        QTest::addColumn<int>("tipo");
        QTest::addColumn<QString>("set");
        QTest::addColumn<QString>("tavola");
        QTest::addColumn<int>("giocatori");
        QTest::newRow("words-words, agg, one player") << 0 << QStringLiteral("ii/parole.agg") << QStringLiteral("FormmemGGCS") << 1;
        QTest::newRow("words-images, apg, two players") << 1 << QStringLiteral("pi/colori.apg") << QStringLiteral("FormmemPG") << 2;
        QTest::newRow("words-images, aps, three players") << 1 << QStringLiteral("pi/numeri.aps") << QStringLiteral("FormmemPS") << 3;
        QTest::newRow("images-images, agg, two players") << 2 << QStringLiteral("ii/animali.agg") << QStringLiteral("FormmemGG") << 2;
        QTest::newRow("images-images, ass, one player") << 2 << QStringLiteral("ii/mare.ass") << QStringLiteral("FormmemSS") << 1;
        QTest::newRow("images-images, capitals, three") << 2 << QStringLiteral("ii/Mare.ASS") << QStringLiteral("FormmemSS") << 3;
    }
    void aGameGoesFromTheMenuToItsBoardAndBack()
    {
        QFETCH(int, tipo);
        QFETCH(QString, set);
        QFETCH(QString, tavola);
        QFETCH(int, giocatori);
        AmbienteMenu a;
        for (const QString &s : {QStringLiteral("ii/parole.agg"), QStringLiteral("pi/colori.apg"),
                                 QStringLiteral("pi/numeri.aps"), QStringLiteral("ii/animali.agg"),
                                 QStringLiteral("ii/mare.ass")})
            if (s.toLower() != set.toLower())
                a.Set(s, 12);
        a.Set(set, 12);
        a.ProfiloSuDisco(QStringLiteral("_predefinito"), Profilo);
        a.ProfiloSuDisco(QStringLiteral("Sara"), Profilo);
        NomeUtente = QStringLiteral("Sara");
        FileUtente = CartellaUtenti + QStringLiteral("Sara.ini");

        QPointer<FormMenu> m = a.MostraMenu();
        QVERIFY(m);
        QTest::mouseClick(m->Option1[tipo], Qt::LeftButton);
        QTest::mouseClick(m->Option2[16], Qt::LeftButton);
        QTest::mouseClick(m->Option3[giocatori - 1], Qt::LeftButton);
        const QString nome = set.section(u'/', 1);
        const auto trovati = m->List2->findItems(nome, Qt::MatchExactly);
        QCOMPARE(trovati.size(), 1);
        QTest::mouseClick(m->List2->viewport(), Qt::LeftButton, {}, m->List2->visualItemRect(trovati.first()).center());
        QCOMPARE(m->TestoList2(), nome);

        const QStringList nomi = {QStringLiteral("Sara"), QStringLiteral("Piero"), QStringLiteral("Gaia")};
        a.RispondiNomi(nomi);
        QTest::mouseClick(m->Command1[0], Qt::LeftButton);

        auto *t = dynamic_cast<TavolaProva *>(Schermi::Riferimento(tavola));
        QVERIFY2(t, qPrintable(tavola));
        for (const QString &altra : NomiTavole)
            if (altra != tavola)
                QVERIFY(!Schermi::Riferimento(altra));
        QTRY_VERIFY(!m); // the menu is unloaded once the board is up
        QCOMPARE(a.offerti.value(0), QStringLiteral("Sara")); // a named profile offers its name
        QCOMPARE(t->giocatoriAllaPartenza, giocatori);
        for (int i = 0; i < giocatori; ++i)
            QCOMPARE(t->nomiAllaPartenza[i], nomi[i]);
        const QString cartella = set.startsWith(QLatin1String("ii")) ? QStringLiteral("ii") : QStringLiteral("pi");
        QCOMPARE(t->fileAllaPartenza, QStringLiteral("C:\\ImpostazioniProgrammiLorea\\tesselo\\dati\\") + cartella + u'\\' + nome);
        QVERIFY(QFileInfo(PercorsoLocale(t->fileAllaPartenza)).isFile());
        QCOMPARE(int(Profilo.TipoMemory), tipo);
        QCOMPARE(int(Profilo.NumeroTessere), 16);

        // Yes on the board's exit question: the menu comes up loaded anew.
        AmbienteProva::Scrivi(a.Utenti(QStringLiteral("Sara.ini")), AmbienteMenu::CodificaTestoProfilo(Profilo));
        t->Esci();
        auto *nuovo = qobject_cast<FormMenu *>(Schermi::Riferimento(QStringLiteral("FormMenu")));
        QVERIFY(nuovo);
        QVERIFY(AmbienteMenu::AttendiVestizione(nuovo));
        QTRY_VERIFY(!Schermi::Riferimento(tavola));
        QVERIFY(nuovo->Option1[tipo]->Valore());
        QVERIFY(nuovo->Option2[16]->Valore());
        QVERIFY(nuovo->Option3[giocatori - 1]->Valore());
        QCOMPARE(ColoreSfondoDi(nuovo->Option1[tipo]), ColoreOpzioneScelta);
        QCOMPARE(ColoreSfondoDi(nuovo->Option3[giocatori - 1]), ColoreOpzioneScelta);
        QVERIFY(nuovo->List2->findItems(nome, Qt::MatchExactly).size() == 1);
        // The board set the player list on again, so the dressing chose the profile anew.
        QVERIFY(ComboUtenteAttiva);
        QCOMPARE(NomeUtente, QStringLiteral("Sara"));
        QCOMPARE(NomiGiocatori[0], QStringLiteral("Sara"));
        QCOMPARE(nuovo->Combo1->currentText(), QStringLiteral("Sara"));
    }

    void aBoardThatLetsEventsRunAtItsStartKeepsTheTypedNames()
    {
        AmbienteMenu a;
        a.Set(QStringLiteral("ii/a.agg"), 12);
        a.ProfiloSuDisco(QStringLiteral("_predefinito"), Profilo);
        Profilo.TipoMemory = 0;
        QPointer<FormMenu> m = a.MostraMenu();
        QVERIFY(m);
        QCOMPARE(NomiGiocatori[0], QStringLiteral("_predefinito"));
        TavolaProva::attesaAvvioMs = 200;
        a.RispondiNomi({QStringLiteral("Anna")});
        m->Command1_Click(0);
        TavolaProva::attesaAvvioMs = 0;
        auto *t = dynamic_cast<TavolaProva *>(Schermi::Riferimento(QStringLiteral("FormmemGGCS")));
        QVERIFY(t);
        QCOMPARE(t->nomiAllaPartenza.value(0), QStringLiteral("Anna"));
        QCOMPARE(NomiGiocatori[0], QStringLiteral("Anna"));
    }

    void theNamesAreAskedBeforeAnyTestOfTheSet()
    {
        AmbienteMenu a;
        FormMenu *m = a.MostraMenu();
        QVERIFY(m);
        NumeroGiocatori = 1;
        a.Set(QStringLiteral("ii/a.agg"), 12);
        Profilo.TipoMemory = 0;
        m->AggiornaFiles();
        QVERIFY(m->TestoList2().isEmpty());
        a.RispondiNomi({QStringLiteral("Ivo")});
        m->Command1_Click(0);
        QCOMPARE(a.offerti.size(), 3); // the box came up
        QVERIFY(Schermi::Riferimento(QStringLiteral("FormmemGGCS")));
        QCOMPARE(NomiGiocatori[0], QStringLiteral("Ivo"));
        QCOMPARE(FileMemory, QStringLiteral("C:\\ImpostazioniProgrammiLorea\\tesselo\\dati\\ii\\a.agg"));
    }
};

QTEST_MAIN(ProvaStradaGioco)
#include "test_strada_gioco.moc"
