// The road of a game with the real boards: from the menu's choices and the
// names to the board for the kind of game and the set's extension, the names
// on its status bar, and yes on its exit question back to a menu loaded anew.

#include "AiutoMenu.h"

#include "board/FormTavola.h"
#include "board/FrameUscitaTavola.h"
#include "board/RegistraBoard.h"

#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QPointer>
#include <QPushButton>
#include <QTimer>

class ProvaStradaTavole : public QObject
{
    Q_OBJECT

private slots:
    void aGameReachesItsBoardShowsTheNamesAndComesBack_data()
    {
        QTest::addColumn<int>("tipo");
        QTest::addColumn<QString>("set");
        QTest::addColumn<QString>("tavola");
        QTest::addColumn<int>("giocatori");
        QTest::newRow("words-words, agg, one player") << 0 << QStringLiteral("ii/parole.agg") << QStringLiteral("FormmemGGCS") << 1;
        QTest::newRow("words-images, apg, two players") << 1 << QStringLiteral("pi/colori.apg") << QStringLiteral("FormmemPG") << 2;
        QTest::newRow("words-images, aps, three players") << 1 << QStringLiteral("pi/numeri.aps") << QStringLiteral("FormmemPS") << 3;
        QTest::newRow("images-images, agg, three players") << 2 << QStringLiteral("ii/animali.agg") << QStringLiteral("FormmemGG") << 3;
        QTest::newRow("images-images, ass, two players") << 2 << QStringLiteral("ii/mare.ass") << QStringLiteral("FormmemSS") << 2;
    }
    void aGameReachesItsBoardShowsTheNamesAndComesBack()
    {
        QFETCH(int, tipo);
        QFETCH(QString, set);
        QFETCH(QString, tavola);
        QFETCH(int, giocatori);
        AmbienteMenu a;
        RegistraSchermiBoard(); // the real boards in place of the stand-ins
        a.Set(set, 12);
        // The pictures the sets name: an image board cannot go on without them.
        static const unsigned char gif[] = {0x47, 0x49, 0x46, 0x38, 0x39, 0x61, 0x01, 0x00, 0x01, 0x00, 0x80, 0x00,
                                            0x00, 0x00, 0x00, 0x00, 0xFF, 0xFF, 0xFF, 0x21, 0xF9, 0x04, 0x01, 0x00,
                                            0x00, 0x00, 0x00, 0x2C, 0x00, 0x00, 0x00, 0x00, 0x01, 0x00, 0x01, 0x00,
                                            0x00, 0x02, 0x02, 0x44, 0x01, 0x00, 0x3B};
        for (int i = 0; i < 12; ++i)
            for (const char *lato : {"a", "b"})
                AmbienteProva::Scrivi(a.Dati(QStringLiteral("gif/%1%2.gif").arg(QLatin1String(lato)).arg(i)),
                                      QByteArray(reinterpret_cast<const char *>(gif), sizeof gif));
        Profilo.NumeroTessere = 8;

        QPointer<FormMenu> m = a.MostraMenu();
        QVERIFY(m);
        QTest::mouseClick(m->Option1[tipo], Qt::LeftButton);
        QTest::mouseClick(m->Option3[giocatori - 1], Qt::LeftButton);
        const QString nome = set.section(u'/', 1);
        const auto trovati = m->List2->findItems(nome, Qt::MatchExactly);
        QCOMPARE(trovati.size(), 1);
        QTest::mouseClick(m->List2->viewport(), Qt::LeftButton, {}, m->List2->visualItemRect(trovati.first()).center());

        const QStringList nomi = {QStringLiteral("Sara"), QStringLiteral("Piero"), QStringLiteral("Gaia")};
        a.RispondiNomi(nomi);
        try {
            m->Command1_Click(0);
        } catch (const ProcessoTerminato &p) {
            QFAIL(qPrintable(QStringLiteral("the program ended: ") + p.fine.messaggio));
        }

        auto *t = qobject_cast<FormTavola *>(Schermi::Riferimento(tavola));
        QVERIFY2(t, qPrintable(tavola));
        QTRY_VERIFY(!m);
        QVERIFY(ComboUtenteAttiva); // the board's activation put the player list back in force
        for (int k = 0; k < giocatori; ++k)
            QVERIFY2(t->Pannello[k]->text().startsWith(nomi[k]), qPrintable(t->Pannello[k]->text()));

        // Yes on the board's exit question.
        t->mnuEsci_Click();
        QVERIFY(t->FrameUscita->isVisible());
        QTest::mouseClick(t->FrameUscita->CommandSi, Qt::LeftButton);
        auto *nuovo = qobject_cast<FormMenu *>(Schermi::Riferimento(QStringLiteral("FormMenu")));
        QVERIFY(nuovo);
        QVERIFY(AmbienteMenu::AttendiVestizione(nuovo));
        QTRY_VERIFY(!Schermi::Riferimento(tavola));
        QVERIFY(nuovo->Option1[tipo]->Valore());
        QVERIFY(nuovo->Option2[8]->Valore());
        QVERIFY(nuovo->Option3[giocatori - 1]->Valore());
        QCOMPARE(nuovo->List2->findItems(nome, Qt::MatchExactly).size(), 1);
        QCOMPARE(NomiGiocatori[0], QStringLiteral("Sara"));
    }

    // A set of two pairs fills four tiles only: choosing it turns the greater
    // counts off on that menu. After a whole game on it, the menu that comes
    // back is a new one and starts as its load says: every count offered.
    void aMenuShownAgainAfterAGameOfTwoPairsOffersEveryTileCount()
    {
        AmbienteMenu a;
        RegistraSchermiBoard();
        a.Set(QStringLiteral("ii/due.agg"), 2);
        static const unsigned char gif[] = {0x47, 0x49, 0x46, 0x38, 0x39, 0x61, 0x01, 0x00, 0x01, 0x00, 0x80, 0x00,
                                            0x00, 0x00, 0x00, 0x00, 0xFF, 0xFF, 0xFF, 0x21, 0xF9, 0x04, 0x01, 0x00,
                                            0x00, 0x00, 0x00, 0x2C, 0x00, 0x00, 0x00, 0x00, 0x01, 0x00, 0x01, 0x00,
                                            0x00, 0x02, 0x02, 0x44, 0x01, 0x00, 0x3B};
        for (int i = 0; i < 2; ++i)
            for (const char *lato : {"a", "b"})
                AmbienteProva::Scrivi(a.Dati(QStringLiteral("gif/%1%2.gif").arg(QLatin1String(lato)).arg(i)),
                                      QByteArray(reinterpret_cast<const char *>(gif), sizeof gif));
        Profilo.NumeroTessere = 4; // a set of two pairs is listed for four tiles only
        Profilo.TipoMemory = 2;

        QPointer<FormMenu> m = a.MostraMenu();
        QVERIFY(m);
        const auto trovati = m->List2->findItems(QStringLiteral("due.agg"), Qt::MatchExactly);
        QCOMPARE(trovati.size(), 1);
        QTest::mouseClick(m->List2->viewport(), Qt::LeftButton, {}, m->List2->visualItemRect(trovati.first()).center());
        QCOMPARE(int(Profilo.NumeroTessere), 4);
        for (int n : {6, 8, 12, 16, 18, 24})
            QVERIFY(!m->Option2[n]->isEnabled());

        a.RispondiNomi({QStringLiteral("Sara")});
        try {
            m->Command1_Click(0);
        } catch (const ProcessoTerminato &p) {
            QFAIL(qPrintable(QStringLiteral("the program ended: ") + p.fine.messaggio));
        }
        auto *t = qobject_cast<FormTavola *>(Schermi::Riferimento(QStringLiteral("FormmemGG")));
        QVERIFY(t);
        QTRY_VERIFY(!m);

        // The whole game: both pairs found, the reward closed, the next game dealt.
        bool premioChiuso = false;
        QTimer sonda;
        connect(&sonda, &QTimer::timeout, this, [&] {
            auto *p = Schermi::Riferimento(QStringLiteral("FormPremio"));
            if (!p || !p->isVisible() || AtteseInCorso() > 0)
                return;
            if (auto *b = p->findChild<QPushButton *>(QStringLiteral("Command1")); b && b->isEnabled()) {
                premioChiuso = true;
                b->click();
            }
        });
        sonda.start(5);
        for (int coppia = 0; coppia < 2; ++coppia) {
            AttendiFinche([t] { return t->Partita().InputAbilitato && AtteseInCorso() == 0; });
            int primo = 0;
            while (t->Partita().FramePosto[primo].Tag == QLatin1String("trovata"))
                ++primo;
            int secondo = primo + 1;
            while (t->Partita().FramePosto[secondo].Tag != t->Partita().FramePosto[primo].Tag)
                ++secondo;
            QTest::mouseClick(t->FramePosto[primo], Qt::LeftButton);
            QTest::mouseClick(t->FramePosto[secondo], Qt::LeftButton);
        }
        sonda.stop();
        QVERIFY(premioChiuso);

        t->mnuEsci_Click();
        QVERIFY(t->FrameUscita->isVisible());
        QTest::mouseClick(t->FrameUscita->CommandSi, Qt::LeftButton);
        auto *nuovo = qobject_cast<FormMenu *>(Schermi::Riferimento(QStringLiteral("FormMenu")));
        QVERIFY(nuovo);
        QVERIFY(AmbienteMenu::AttendiVestizione(nuovo));
        QTRY_VERIFY(!Schermi::Riferimento(QStringLiteral("FormmemGG")));
        for (int n : {4, 6, 8, 12, 16, 18, 24})
            QVERIFY2(nuovo->Option2[n]->isEnabled(), qPrintable(QStringLiteral("%1 tiles are not offered").arg(n)));
        QVERIFY(nuovo->Option2[4]->Valore());
        QVERIFY(nuovo->Command1[0]->isEnabled());
    }
};

QTEST_MAIN(ProvaStradaTavole)
#include "test_strada_tavole.moc"
