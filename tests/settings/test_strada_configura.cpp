// The road of a switch user: a new player made in the settings dialog, set to
// automatic scanning, then a game from the menu played to the reward with one
// key alone. The scan's period is the one chosen; each tick of the board's
// scanning timer stands for that period going by.

#include "AiutoConfigura.h"

#include "board/FormPremio.h"
#include "board/FormTavola.h"
#include "board/RegistraBoard.h"
#include "platform/Casuale.h"

#include <QApplication>
#include <QComboBox>
#include <QListWidget>
#include <QPointer>
#include <QPushButton>

namespace {
// A key as a person presses it on a switch: to the window, which hands it on.
void premi(QWidget *finestra, Qt::Key k)
{
    finestra->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(finestra));
    if (QApplication::focusWidget())
        QApplication::focusWidget()->clearFocus();
    QTest::keyClick(finestra->windowHandle(), k);
}

void scriviGif(const QString &percorso)
{
    static const unsigned char gif[] = {0x47, 0x49, 0x46, 0x38, 0x39, 0x61, 0x01, 0x00, 0x01, 0x00, 0x80, 0x00,
                                        0x00, 0x00, 0x00, 0x00, 0xFF, 0xFF, 0xFF, 0x21, 0xF9, 0x04, 0x01, 0x00,
                                        0x00, 0x00, 0x00, 0x2C, 0x00, 0x00, 0x00, 0x00, 0x01, 0x00, 0x01, 0x00,
                                        0x00, 0x02, 0x02, 0x44, 0x01, 0x00, 0x3B};
    AmbienteProva::Scrivi(percorso, QByteArray(reinterpret_cast<const char *>(gif), sizeof gif));
}
} // namespace

class TestStradaConfigura : public QObject
{
    Q_OBJECT
private slots:
    void aNewPlayerMadeInTheDialogPlaysByAutomaticScanningWithOneKey()
    {
        AmbienteConfigura a;
        RegistraSchermiBoard();
        SeminaCasuale(11);
        a.Set(QStringLiteral("ii/animali.agg"), 12);
        for (int i = 0; i < 12; ++i)
            for (const char *lato : {"a", "b"})
                scriviGif(a.Dati(QStringLiteral("gif/%1%2.gif").arg(QLatin1String(lato)).arg(i)));

        // The dialog, from the menu.
        FormConfigura *f = a.ApriDalMenu();
        QVERIFY(f);
        AmbienteConfigura::Clicca(f->OptionUtente[2]);
        QTest::keyClicks(f->TextNuovoUtente, QStringLiteral("Lucia"));
        AmbienteConfigura::Scheda(f, 2);
        AmbienteConfigura::Clicca(f->Option4[2]);
        QVERIFY(f->HScroll3->isVisible());
        f->HScroll3->setFocus();
        for (int i = 0; i < 4; ++i)
            QTest::keyClick(f->HScroll3, Qt::Key_Right);
        QCOMPARE(f->Label7->text(), QStringLiteral("Velocità scansione: 2.00 secondi"));
        AmbienteConfigura::Clicca(f->CheckRiquadro);
        QVERIFY(f->HScrollRiquadro->isVisible());
        f->HScrollRiquadro->setFocus();
        QTest::keyClick(f->HScrollRiquadro, Qt::Key_Right);
        QCOMPARE(f->ShapeRiquadro->spessore, 10);
        f->mnuEsci_Click();
        const QList<QByteArray> righe = AmbienteProva::Leggi(a.Utenti(QStringLiteral("Lucia.ini"))).split('\n');
        QCOMPARE(righe.value(13), QByteArray(" 2 \r"));
        QCOMPARE(righe.value(14), QByteArray(" 8 \r"));
        QCOMPARE(righe.value(16), QByteArray("True\r"));
        QCOMPARE(righe.value(17), QByteArray(" 10 \r"));

        // The game, from the menu that came back.
        auto *m = qobject_cast<FormMenu *>(Schermi::Riferimento(QStringLiteral("FormMenu")));
        QVERIFY(m);
        QVERIFY(AmbienteMenu::AttendiVestizione(m));
        QCOMPARE(NomeUtente.toUpper(), QStringLiteral("LUCIA"));
        QTest::mouseClick(m->Option1[2], Qt::LeftButton);
        QTest::mouseClick(m->Option3[0], Qt::LeftButton);
        const auto trovati = m->List2->findItems(QStringLiteral("animali.agg"), Qt::MatchExactly);
        QCOMPARE(trovati.size(), 1);
        QTest::mouseClick(m->List2->viewport(), Qt::LeftButton, {}, m->List2->visualItemRect(trovati.first()).center());
        QTest::mouseClick(m->Option2[4], Qt::LeftButton);
        QCOMPARE(Profilo.NumeroTessere, qint16(4));
        a.RispondiNomi({QStringLiteral("Lucia")});
        try {
            m->Command1_Click(0);
        } catch (const ProcessoTerminato &p) {
            QFAIL(qPrintable(QStringLiteral("the program ended: ") + p.fine.messaggio));
        }
        auto *t = qobject_cast<FormTavola *>(Schermi::Riferimento(QStringLiteral("FormmemGG")));
        QVERIFY(t);
        QVERIFY(t->Timer1.isActive());
        QCOMPARE(t->Timer1.interval(), 2000);

        // The reward closes with the same key, once it takes keys.
        int premiVisti = 0;
        QTimer chiudiPremio;
        chiudiPremio.setInterval(5);
        QObject::connect(&chiudiPremio, &QTimer::timeout, [&] {
            auto *p = qobject_cast<FormPremio *>(Schermi::Riferimento(QStringLiteral("FormPremio")));
            if (!p || !p->isVisible() || !p->Command1->isEnabled())
                return;
            ++premiVisti;
            QTest::keyClick(p->Command1, Qt::Key_Space);
        });
        chiudiPremio.start();

        // Ticks go by at the chosen period; the player presses the one key when
        // the highlight is where they want it.
        const Tavola &gioco = t->Partita();
        int scatti = 0, tasti = 0;
        QString primaScelta;
        int postoPrimo = -1;
        while (premiVisti == 0 && scatti < 400) {
            QCOMPARE(t->Timer1.interval(), 2000);
            const int posto = gioco.PostoEvidenziato;
            const bool coperta = posto >= 0 && posto < 24 && gioco.FramePosto[posto].Visible;
            const bool giusta = coperta
                                && (postoPrimo < 0 || (posto != postoPrimo && gioco.FramePosto[posto].Tag == primaScelta));
            if (giusta && t->Timer1.isActive()) {
                if (postoPrimo < 0) {
                    postoPrimo = posto;
                    primaScelta = gioco.FramePosto[posto].Tag;
                } else {
                    postoPrimo = -1;
                }
                premi(t, Qt::Key_Space);
                ++tasti;
                if (Profilo.Riquadro)
                    QCOMPARE(t->ShapeRiquadro->spessore, 10);
                continue;
            }
            if (t->Timer1.isActive()) {
                QMetaObject::invokeMethod(&t->Timer1, "timeout");
                ++scatti;
            } else {
                QTest::qWait(5); // a move is being shown
            }
        }
        QCOMPARE(premiVisti, 1);
        QCOMPARE(tasti, 4);
        qInfo("played in %d scanning steps of 2.00 s, %d presses of one key", scatti, tasti);
        QCOMPARE(Schermi::Corrente(), t);
    }
};

QTEST_MAIN(TestStradaConfigura)
#include "test_strada_configura.moc"
