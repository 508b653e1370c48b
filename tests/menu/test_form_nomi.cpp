// The names box: which fields can be used, what it offers, the capitals, the
// button, the pointer held inside while it is up.

#include "AiutoMenu.h"

#include <QComboBox>
#include <QLabel>

namespace {
FormNomi *caricaNomi()
{
    return qobject_cast<FormNomi *>(Schermi::Carica(QStringLiteral("FormNomi")));
}
} // namespace

class ProvaFormNomi : public QObject
{
    Q_OBJECT

private slots:
    void fieldsStandAtTheirDesignRectangles()
    {
        AmbienteMenu a;
        FormNomi *f = caricaNomi();
        QVERIFY(!f->schermoIntero);
        const GeometriaTwips t2 = LeggiGeometria(f->Text1[2]);
        QVERIFY(qAbs(t2.Left - 1080) < 15 && qAbs(t2.Top - 2760) < 15 && qAbs(t2.Width - 4815) < 15);
        const GeometriaTwips c = LeggiGeometria(f->Command1);
        QVERIFY(qAbs(c.Left - 4200) < 15 && qAbs(c.Top - 3720) < 15);
        QVERIFY(qAbs(f->width() * 15 - 7515) < 15 && qAbs(f->height() * 15 - 4680) < 15);
        for (QLineEdit *t : f->Text1)
            QVERIFY(!t->accessibleName().isEmpty());
    }

    // Edge cases.
    void onePlayerHasOnlyTheFirstFieldAndTheTextForOne()
    {
        AmbienteMenu a;
        NumeroGiocatori = 1;
        FormNomi *f = caricaNomi();
        QCOMPARE(f->Label1->text(), TestoLingua(QStringLiteral("0045")));
        QVERIFY(f->Text1[0]->isEnabled());
        QVERIFY(!f->Text1[1]->isEnabled());
        QVERIFY(!f->Text1[2]->isEnabled());
        QVERIFY(!f->Command1->isEnabled());
    }

    void severalPlayersHaveTheirFieldsAndTheTextForMany_data()
    {
        QTest::addColumn<int>("giocatori");
        QTest::newRow("two") << 2;
        QTest::newRow("three") << 3;
    }
    void severalPlayersHaveTheirFieldsAndTheTextForMany()
    {
        QFETCH(int, giocatori);
        AmbienteMenu a;
        NumeroGiocatori = qint16(giocatori);
        FormNomi *f = caricaNomi();
        QCOMPARE(f->Label1->text(), TestoLingua(QStringLiteral("0046")));
        for (int i = 0; i < 3; ++i)
            QCOMPARE(f->Text1[i]->isEnabled(), i < giocatori);
    }

    void threePlayersAfterAGameOfOneSeeTheLastThreePlayerNames()
    {
        AmbienteMenu a;
        FormMenu *m = a.MostraMenu();
        QVERIFY(m);
        NumeroGiocatori = 3;
        a.RispondiNomi({QStringLiteral("Ada"), QStringLiteral("Bruno"), QStringLiteral("Carla")});
        Schermi::MostraModale(QStringLiteral("FormNomi"));
        NumeroGiocatori = 1;
        a.RispondiNomi({QStringLiteral("Dino")});
        Schermi::MostraModale(QStringLiteral("FormNomi"));
        QCOMPARE(NomiGiocatori[0], QStringLiteral("Dino"));
        QCOMPARE(NomiGiocatori[1], QStringLiteral("Bruno"));
        NumeroGiocatori = 3;
        a.RispondiNomi({}, true);
        Schermi::MostraModale(QStringLiteral("FormNomi"));
        QCOMPARE(a.offerti, (QStringList{QStringLiteral("Dino"), QStringLiteral("Bruno"), QStringLiteral("Carla")}));
    }

    void capitalsStoreTheNameInCapitalsAlsoWhenItCameFromTheArray()
    {
        AmbienteMenu a;
        FormMenu *m = a.MostraMenu();
        QVERIFY(m);
        Profilo.Maiuscolo1 = true;
        NumeroGiocatori = 2;
        NomiGiocatori[0] = QStringLiteral("Marta");
        NomiGiocatori[1] = QStringLiteral("luigi");
        a.RispondiNomi({}, true);
        Schermi::MostraModale(QStringLiteral("FormNomi"));
        QCOMPARE(NomiGiocatori[0], QStringLiteral("MARTA"));
        QCOMPARE(NomiGiocatori[1], QStringLiteral("LUIGI"));
    }

    void fifteenCharactersAreTakenAndASixteenthIsNot()
    {
        AmbienteMenu a;
        FormNomi *f = caricaNomi();
        f->show();
        QTest::keyClicks(f->Text1[0], QStringLiteral("abcdefghijklmno"));
        QCOMPARE(f->Text1[0]->text(), QStringLiteral("abcdefghijklmno"));
        QTest::keyClicks(f->Text1[0], QStringLiteral("p"));
        QCOMPARE(f->Text1[0]->text(), QStringLiteral("abcdefghijklmno"));
    }

    // The rest of the box.
    void capitalsLowerEveryCodeFrom97By32AsTyped()
    {
        AmbienteMenu a;
        Profilo.Maiuscolo1 = true;
        FormNomi *f = caricaNomi();
        f->show();
        QTest::keyClicks(f->Text1[0], QStringLiteral("ciao{"));
        QKeyEvent agrave(QEvent::KeyPress, Qt::Key_Agrave, Qt::NoModifier, QStringLiteral("à"));
        QApplication::sendEvent(f->Text1[0], &agrave);
        QCOMPARE(f->Text1[0]->text(), QStringLiteral("CIAO[À"));
        Profilo.Maiuscolo1 = false;
        QTest::keyClicks(f->Text1[0], QStringLiteral("x"));
        QCOMPARE(f->Text1[0]->text(), QStringLiteral("CIAO[Àx"));
    }

    void anyChangeEnablesTheButtonAndNothingDisablesIt()
    {
        AmbienteMenu a;
        FormNomi *f = caricaNomi();
        f->show();
        QVERIFY(!f->Command1->isEnabled());
        QTest::keyClicks(f->Text1[0], QStringLiteral("a"));
        QVERIFY(f->Command1->isEnabled());
        QTest::keyClick(f->Text1[0], Qt::Key_Backspace);
        QVERIFY(f->Text1[0]->text().isEmpty());
        QVERIFY(f->Command1->isEnabled());
    }

    void theDefaultProfilesNameIsNeverOffered()
    {
        AmbienteMenu a;
        FormMenu *m = a.MostraMenu();
        QVERIFY(m);
        NomiGiocatori[0] = QStringLiteral("_PREDEFINITO");
        a.RispondiNomi({}, false);
        Schermi::MostraModale(QStringLiteral("FormNomi"));
        QCOMPARE(a.offerti.value(0), QString());
        QVERIFY(!a.pulsanteAbilitato);
        NomiGiocatori[0] = QStringLiteral("Nina");
        a.RispondiNomi({}, false);
        Schermi::MostraModale(QStringLiteral("FormNomi"));
        QCOMPARE(a.offerti.value(0), QStringLiteral("Nina"));
        QVERIFY(a.pulsanteAbilitato);
    }

    void confirmingTurnsThePlayerListOffAndFreesThePointer()
    {
        AmbienteMenu a;
        FormMenu *m = a.MostraMenu();
        QVERIFY(m);
        QVERIFY(ComboUtenteAttiva);
        NumeroGiocatori = 1;
        NomiGiocatori[1] = QStringLiteral("resta");
        a.RispondiNomi({QStringLiteral("Ugo"), QStringLiteral("ignorato")});
        Schermi::MostraModale(QStringLiteral("FormNomi"));
        QVERIFY(!ComboUtenteAttiva);
        QCOMPARE(NomiGiocatori[0], QStringLiteral("Ugo"));
        QCOMPARE(NomiGiocatori[1], QStringLiteral("resta"));
        QVERIFY(!PuntatoreConfinato());
        QVERIFY(!Schermi::Riferimento(QStringLiteral("FormNomi")));
    }

    void thePointerIsHeldInsideTheBoxWhileItIsUp()
    {
        AmbienteMenu a;
        FormMenu *m = a.MostraMenu();
        QVERIFY(m);
        a.RispondiNomi({QStringLiteral("Ugo")});
        Schermi::MostraModale(QStringLiteral("FormNomi"));
        QVERIFY(!a.confinatoAllaNomi.isEmpty());
        QVERIFY(a.confinatoAllaNomi.width() < 1024);
        // Centred on the menu.
        QVERIFY(qAbs(a.confinatoAllaNomi.center().x() - m->geometry().center().x()) <= 3);
        QVERIFY(qAbs(a.confinatoAllaNomi.center().y() - m->geometry().center().y()) <= 3);
    }

    void theBoxDoesNotRescaleTheMenuBehindIt()
    {
        AmbienteMenu a;
        a.ProfiloSuDisco(QStringLiteral("_predefinito"), Profilo);
        a.ProfiloSuDisco(QStringLiteral("Nina"), Profilo);
        FormMenu *m = a.MostraMenu();
        QVERIFY(m);
        const QRect combo = m->Combo1->geometry();
        QVERIFY(combo.height() > PixelDaTwips(330) * 1024 / 587); // grown with its font
        a.RispondiNomi({QStringLiteral("Ugo")});
        Schermi::MostraModale(QStringLiteral("FormNomi"));
        QCOMPARE(m->Combo1->geometry(), combo);
    }

    void leavingAnotherWayKeepsTheNamesAndTheList()
    {
        AmbienteMenu a;
        FormMenu *m = a.MostraMenu();
        QVERIFY(m);
        NomiGiocatori[0] = QStringLiteral("Prima");
        a.RispondiNomi({QStringLiteral("Dopo")}, false);
        Schermi::MostraModale(QStringLiteral("FormNomi"));
        QCOMPARE(NomiGiocatori[0], QStringLiteral("Prima"));
        QVERIFY(ComboUtenteAttiva);
        QVERIFY(!PuntatoreConfinato());
    }
};

QTEST_MAIN(ProvaFormNomi)
#include "test_form_nomi.moc"
