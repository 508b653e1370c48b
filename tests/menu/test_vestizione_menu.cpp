// The menu's one-shot dressing: pointers, fitted captions, the list of
// players and the choice of the current profile inside the tick.

#include "AiutoMenu.h"

#include "menu/ControlliMenu.h"

#include <QComboBox>
#include <QGroupBox>
#include <QLabel>

namespace {
int larghezzaTwips(const QString &testo, int punti)
{
    QFont f(QStringLiteral("Arial"));
    f.setPointSize(punti);
    return QFontMetrics(f).horizontalAdvance(testo) * TwipsPerPixel;
}

// A language whose first kind of game has a very long caption.
void linguaLunga(const AmbienteMenu &a)
{
    QString testo;
    LeggiFileTesto(PercorsoFileLingua(QStringLiteral("Italiano")), &testo);
    // In front of the section's own line, so that it is the one found.
    testo.replace(QStringLiteral("[FormMenu]\n"), QStringLiteral("[FormMenu]\nOption1(2).Caption="
                                                                "immagini che vanno insieme - immagini\n"));
    AmbienteProva::Scrivi(a.ambiente->Programma() + QStringLiteral("/Lungo.lng"), testo.toUtf8());
    ScriviVoce(PercorsoImpostazioneLingua(), QStringLiteral("Language"), QStringLiteral("CurrentLanguage"),
               QStringLiteral("Lungo"));
}
} // namespace

class ProvaVestizioneMenu : public QObject
{
    Q_OBJECT

private slots:
    void tickRunsOnceAfterActivationAndStopsItself()
    {
        AmbienteMenu a;
        Schermi::Mostra(QStringLiteral("FormMenu"));
        auto *m = qobject_cast<FormMenu *>(Schermi::Riferimento(QStringLiteral("FormMenu")));
        QVERIFY(m->Timer1->isActive());
        QCOMPARE(m->Timer1->interval(), 50);
        QCOMPARE(m->MisureVestizione.opzioni, 0); // nothing dressed before the tick
        QVERIFY(AmbienteMenu::AttendiVestizione(m));
        QVERIFY(m->MisureVestizione.opzioni > 0);
        QTest::qWait(120);
        QVERIFY(!m->Timer1->isActive());
    }

    void largeLabelsShareTheSizeOfTheLongerCaption()
    {
        AmbienteMenu a;
        FormMenu *m = a.MostraMenu();
        QVERIFY(m);
        const int punti = m->LabelGioca->font().pointSize();
        QCOMPARE(m->LabelEsci->font().pointSize(), punti);
        QCOMPARE(m->MisureVestizione.etichette, punti);
        // "Gioca" is longer than "Esci"; three blanks follow it.
        const QString misura = QStringLiteral("Gioca   ");
        const int bersaglio = int(LeggiGeometria(m->LabelEsci).Width);
        QVERIFY(larghezzaTwips(misura, punti) >= bersaglio);
        QVERIFY(larghezzaTwips(misura, punti - 1) < bersaglio);
    }

    void allOptionsTakeTheSizeOfTheFirstGroupsLongestCaption()
    {
        AmbienteMenu a;
        FormMenu *m = a.MostraMenu();
        QVERIFY(m);
        const int punti = m->MisureVestizione.opzioni;
        QVERIFY(punti >= 14);
        for (auto *gruppo : {&m->Option1, &m->Option2, &m->Option3})
            for (auto &[indice, o] : *gruppo)
                QCOMPARE(o->font().pointSize(), punti);
        const QString misura = QStringLiteral("immagini - immagini      ");
        const GeometriaTwips g = LeggiGeometria(m->Option1[0]);
        QFont f(QStringLiteral("Arial"));
        f.setPointSize(punti - 1);
        QVERIFY(larghezzaTwips(misura, punti - 1) < int(g.Width));
        QVERIFY(QFontMetrics(f).height() * TwipsPerPixel < int(g.Height));
        f.setPointSize(punti);
        QVERIFY(larghezzaTwips(misura, punti) >= int(g.Width) || QFontMetrics(f).height() * TwipsPerPixel >= int(g.Height));
    }

    void framesFitTheirLongestCaption()
    {
        AmbienteMenu a;
        FormMenu *m = a.MostraMenu();
        QVERIFY(m);
        const int punti = m->MisureVestizione.cornici;
        QVERIFY(punti >= 14);
        for (QGroupBox *f : {m->Frame1, m->Frame2, m->Frame3})
            QCOMPARE(f->font().pointSize(), punti);
        const QString misura = QStringLiteral("Memory con ...     ");
        const int larghezza = int(LeggiGeometria(m->Frame2).Width);
        const int altezza = int(LeggiGeometria(m->Option2[4]).Height) / 3 * 2;
        QFont f(QStringLiteral("Arial"));
        f.setPointSize(punti);
        QVERIFY(larghezzaTwips(misura, punti) >= larghezza || QFontMetrics(f).height() * TwipsPerPixel >= altezza);
    }

    void pointerKindFollowsTheProfile()
    {
        AmbienteMenu a;
        Profilo.DisabilitaMousePersonalizzato = true;
        FormMenu *m = a.MostraMenu();
        QVERIFY(m);
        QCOMPARE(m->Option2[8]->cursor().shape(), Qt::ArrowCursor);
        QCOMPARE(m->ImageGioca->cursor().shape(), Qt::ArrowCursor);
        Schermi::Scarica(m);
        Profilo.DisabilitaMousePersonalizzato = false;
        m = a.MostraMenu();
        QVERIFY(m);
        QCOMPARE(m->Option2[8]->cursor().shape(), Qt::BitmapCursor);
        QCOMPARE(m->PictureEsci->cursor().shape(), Qt::BitmapCursor);
        QCOMPARE(m->LabelSi->cursor().shape(), Qt::BitmapCursor);
    }

    // Edge cases.
    void firstRunLeavesTheListOfPlayersEmptyHiddenAndSavesNothing()
    {
        AmbienteMenu a;
        FormMenu *m = a.MostraMenu();
        QVERIFY(m);
        QCOMPARE(m->Combo1->count(), 0);
        QVERIFY(m->Combo1->isHidden());
        QVERIFY(QDir(a.Utenti(QString())).entryList(QDir::Files).isEmpty());
        QCOMPARE(NomeUtente, QStringLiteral("_predefinito"));
    }

    void onlyTheDefaultProfileIsHiddenButStillSavedAndRead()
    {
        AmbienteMenu a;
        AmbienteProva::Scrivi(a.Utenti(QStringLiteral("_predefinito.ini")),
                              AmbienteMenu::CodificaTestoProfilo(Profilo) + "in piu\r\n");
        Profilo.ColoreScansione = 99; // written by the save, then read back
        FormMenu *m = a.MostraMenu();
        QVERIFY(m);
        QCOMPARE(m->Combo1->count(), 1);
        QVERIFY(m->Combo1->isHidden());
        const QByteArray scritto = AmbienteProva::Leggi(a.Utenti(QStringLiteral("_predefinito.ini")));
        QVERIFY(!scritto.contains("in piu"));
        QVERIFY(scritto.contains(" 99 \r\n"));
        QCOMPARE(Profilo.ColoreScansione, 99.0);
    }

    void capitalsNameTheSameProfileFile()
    {
        AmbienteMenu a;
        Profilo.Maiuscolo1 = true;
        a.ProfiloSuDisco(QStringLiteral("_predefinito"), Profilo);
        a.ProfiloSuDisco(QStringLiteral("Nina"), Profilo);
        FormMenu *m = a.MostraMenu();
        QVERIFY(m);
        QCOMPARE(m->Combo1->itemText(0), QStringLiteral("NINA"));
        QCOMPARE(m->Combo1->itemText(1), QStringLiteral("_PREDEFINITO"));
        QCOMPARE(NomeUtente, QStringLiteral("_PREDEFINITO"));
        QCOMPARE(FileUtente, QStringLiteral("C:\\ImpostazioniProgrammiLorea\\tesselo\\utenti\\_PREDEFINITO.ini"));
        // (the profiles; each has its switch settings' file beside it)
        QCOMPARE(QDir(a.Utenti(QString())).entryList({QStringLiteral("*.ini")}, QDir::Files, QDir::Name),
                 (QStringList{QStringLiteral("Nina.ini"), QStringLiteral("_predefinito.ini")}));
        QCOMPARE(QDir(a.Utenti(QString())).entryList({QStringLiteral("*.accesso")}, QDir::Files).size(), 1);
        QCOMPARE(m->LabelGioca->text(), QStringLiteral("GIOCA"));
        QCOMPARE(m->Frame2->title(), QStringLiteral("TESSERE"));
        QCOMPARE(m->Option1[1]->text(), QStringLiteral("PAROLE - IMMAGINI"));
    }

    void inactivePlayerListKeepsTheNamesJustTyped()
    {
        AmbienteMenu a;
        a.ProfiloSuDisco(QStringLiteral("_predefinito"), Profilo);
        a.ProfiloSuDisco(QStringLiteral("Nina"), Profilo);
        NomeUtente = QStringLiteral("Nina");
        FileUtente = CartellaUtenti + QStringLiteral("Nina.ini");
        FormMenu *m = a.MostraMenu();
        QVERIFY(m);
        QCOMPARE(NomiGiocatori[0], QStringLiteral("Nina"));
        // As the names box leaves it: the list is off, a name was typed.
        ComboUtenteAttiva = false;
        NomiGiocatori[0] = QStringLiteral("Teo");
        AmbienteProva::Scrivi(a.Utenti(QStringLiteral("Nina.ini")), "non toccare\r\n");
        m->Form_Activate();
        QVERIFY(AmbienteMenu::AttendiVestizione(m));
        QCOMPARE(NomiGiocatori[0], QStringLiteral("Teo"));
        QCOMPARE(AmbienteProva::Leggi(a.Utenti(QStringLiteral("Nina.ini"))), QByteArray("non toccare\r\n"));
    }

    void aVeryLongCaptionGivesSmallFontsOnAllOptions()
    {
        int normale = 0, primaNormale = 0;
        {
            AmbienteMenu a;
            FormMenu *m = a.MostraMenu();
            QVERIFY(m);
            normale = m->MisureVestizione.opzioni;
            primaNormale = m->MisureVestizione.opzioniPrima;
        }
        AmbienteMenu a;
        linguaLunga(a);
        FormMenu *m = a.MostraMenu();
        QVERIFY(m);
        QCOMPARE(m->Option1[2]->text(), QStringLiteral("immagini che vanno insieme - immagini"));
        QVERIFY2(m->MisureVestizione.opzioni < normale,
                 qPrintable(QStringLiteral("%1 / %2").arg(m->MisureVestizione.opzioni).arg(normale)));
        QCOMPARE(m->Option2[24]->font().pointSize(), m->MisureVestizione.opzioni);
        QCOMPARE(m->Option3[0]->font().pointSize(), m->MisureVestizione.opzioni);
        // The first fit measures a fixed text, not a caption: the language leaves it alone.
        QCOMPARE(m->MisureVestizione.opzioniPrima, primaNormale);
    }

    void manyPlayersShowTheListInAFontFromThePlayButton()
    {
        AmbienteMenu a;
        a.ProfiloSuDisco(QStringLiteral("_predefinito"), Profilo);
        a.ProfiloSuDisco(QStringLiteral("Nina"), Profilo);
        a.ProfiloSuDisco(QStringLiteral("Olga"), Profilo);
        FormMenu *m = a.MostraMenu();
        QVERIFY(m);
        QCOMPARE(m->Combo1->count(), 3);
        QVERIFY(m->Combo1->isVisible());
        QCOMPARE(m->Combo1->font().pointSize(), qMax(14, m->LabelGioca->font().pointSize() - 20));
        QCOMPARE(m->Combo1->currentText(), QStringLiteral("_predefinito"));
    }
};

QTEST_MAIN(ProvaVestizioneMenu)
#include "test_vestizione_menu.moc"
