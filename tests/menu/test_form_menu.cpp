// The menu on the offscreen platform: the choice of game, the list of sets
// and its tile ladder, the pointer's colours, the play path and its failures,
// the exit panel and the end of the program.

#include "AiutoMenu.h"

#include "menu/ControlliMenu.h"
#include "menu/SceltaMemory.h"
#include "platform/Controlli.h"
#include "platform/Colori.h"

#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>

namespace {
QStringList righe(const QListWidget *l)
{
    QStringList r;
    for (int i = 0; i < l->count(); ++i)
        r << l->item(i)->text();
    return r;
}

void scegliRiga(FormMenu *m, const QString &testo)
{
    const auto trovati = m->List2->findItems(testo, Qt::MatchExactly);
    QVERIFY(!trovati.isEmpty());
    QTest::mouseClick(m->List2->viewport(), Qt::LeftButton, {}, m->List2->visualItemRect(trovati.first()).center());
}

QString abilitati(FormMenu *m)
{
    QString r;
    for (int n : ValoriTessere)
        r += m->Option2[n]->isEnabled() ? u'1' : u'0';
    return r;
}

int coloreDi(QWidget *w) { return ColoreSfondoDi(w); }
} // namespace

class ProvaFormMenu : public QObject
{
    Q_OBJECT

private slots:
    void controlsStandAtTheirDesignRectangles_data()
    {
        QTest::addColumn<QString>("nome");
        QTest::addColumn<QRect>("progetto");
        QTest::newRow("Frame1") << QStringLiteral("Frame1") << QRect(120, 120, 4095, 1815);
        QTest::newRow("Frame2") << QStringLiteral("Frame2") << QRect(120, 2040, 4095, 2175);
        QTest::newRow("Frame3") << QStringLiteral("Frame3") << QRect(120, 4320, 4095, 1095);
        QTest::newRow("List2") << QStringLiteral("List2") << QRect(4800, 240, 3735, 1050);
        QTest::newRow("Combo1") << QStringLiteral("Combo1") << QRect(4800, 2760, 3495, 330);
        QTest::newRow("Command1(0)") << QStringLiteral("Command1(0)") << QRect(4800, 1440, 3500, 1095);
        QTest::newRow("Command1(1)") << QStringLiteral("Command1(1)") << QRect(4800, 4320, 3500, 1095);
        QTest::newRow("FrameUscita") << QStringLiteral("FrameUscita") << QRect(720, 1800, 5655, 2775);
        QTest::newRow("LabelDimensionaFont") << QStringLiteral("LabelDimensionaFont") << QRect(360, 120, 2085, 330);
        QTest::newRow("Option1(2)") << QStringLiteral("Option1(2)") << QRect(120, 360, 3500, 375);
        QTest::newRow("Option1(0)") << QStringLiteral("Option1(0)") << QRect(120, 1320, 3500, 375);
        QTest::newRow("Option2(16)") << QStringLiteral("Option2(16)") << QRect(1680, 960, 800, 350);
        QTest::newRow("Option2(24)") << QStringLiteral("Option2(24)") << QRect(3000, 480, 800, 350);
        QTest::newRow("Option3(2)") << QStringLiteral("Option3(2)") << QRect(3000, 360, 750, 350);
    }
    void controlsStandAtTheirDesignRectangles()
    {
        QFETCH(QString, nome);
        QFETCH(QRect, progetto);
        AmbienteMenu a;
        FormMenu m;
        QWidget *trovato = nullptr;
        for (QWidget *w : ControlliDelForm(&m))
            if (NomeControllo(w) == nome)
                trovato = w;
        QVERIFY(trovato);
        const GeometriaTwips g = LeggiGeometria(trovato);
        // Within the one pixel that a design value in twips can fall short of.
        QVERIFY2(qAbs(g.Left - progetto.x()) < 15 && qAbs(g.Top - progetto.y()) < 15
                     && qAbs(g.Width - progetto.width()) < 15 && qAbs(g.Height - progetto.height()) < 15,
                 qPrintable(QStringLiteral("%1 %2 %3 %4").arg(g.Left).arg(g.Top).arg(g.Width).arg(g.Height)));
        QVERIFY(!trovato->accessibleName().isEmpty() || nome == QLatin1String("LabelDimensionaFont")
                || nome.startsWith(QLatin1String("Frame")));
    }

    void menuBarHoldsItsItemsAllEnabled()
    {
        AmbienteMenu a;
        FormMenu *m = a.MostraMenu();
        QVERIFY(m);
        QStringList titoli;
        for (QAction *x : m->BarraMenu->actions())
            titoli << x->text();
        QCOMPARE(titoli, (QStringList{QStringLiteral("Crea Memory"), QStringLiteral("Configurazioni"),
                                      QStringLiteral("Informazioni"), QStringLiteral("Lingua")}));
        for (QAction *x : {m->mnugg, m->mnuSS, m->mnuPG, m->mnuPS})
            QVERIFY2(x->isEnabled(), qPrintable(x->objectName()));
        QVERIFY(m->mnuConfigurazioni->isEnabled());
        QVERIFY(m->mnuDocumentazione->isEnabled());
        QVERIFY(m->mnuAbout->isEnabled());
        QCOMPARE(m->mnuLanguages->actions().size(), 2);
    }

    void dressingRestoresTheProfilesChoices()
    {
        AmbienteMenu a;
        a.Set(QStringLiteral("pi/colori.apg"), 12);
        Profilo.TipoMemory = 1;
        Profilo.NumeroTessere = 16;
        NumeroGiocatori = 3;
        FormMenu *m = a.MostraMenu();
        QVERIFY(m);
        QVERIFY(m->Option1[1]->Valore());
        QVERIFY(m->Option2[16]->Valore());
        QVERIFY(m->Option3[2]->Valore());
        QCOMPARE(coloreDi(m->Option1[1]), ColoreOpzioneScelta);
        QCOMPARE(coloreDi(m->Option1[2]), ColoreOpzione);
        QCOMPARE(coloreDi(m->Option2[16]), ColoreOpzioneScelta);
        QCOMPARE(coloreDi(m->Option3[2]), ColoreOpzioneScelta);
        QCOMPARE(coloreDi(m->Command1[0]), ColorePulsante);
        QCOMPARE(righe(m->List2), QStringList{QStringLiteral("colori.apg")});
        QCOMPARE(m->CartellaMemory, QStringLiteral("C:\\ImpostazioniProgrammiLorea\\tesselo\\dati\\pi\\"));
        QVERIFY(!m->Timer1->isActive());
    }

    void optionClicksSetTheChoice()
    {
        AmbienteMenu a;
        a.Set(QStringLiteral("ii/a.agg"), 12);
        FormMenu *m = a.MostraMenu();
        QVERIFY(m);
        FileMemory = QStringLiteral("qualcosa");
        QTest::mouseClick(m->Option1[0], Qt::LeftButton);
        QCOMPARE(int(Profilo.TipoMemory), 0);
        QVERIFY(FileMemory.isEmpty());
        QCOMPARE(coloreDi(m->Option1[0]), ColoreOpzioneScelta);
        QCOMPARE(coloreDi(m->Option1[2]), ColoreOpzione);
        QTest::mouseClick(m->Option2[6], Qt::LeftButton);
        QCOMPARE(int(Profilo.NumeroTessere), 6);
        QCOMPARE(coloreDi(m->Option2[6]), ColoreOpzioneScelta);
        QCOMPARE(coloreDi(m->Option2[12]), ColoreOpzione);
        QTest::mouseClick(m->Option3[1], Qt::LeftButton);
        QCOMPARE(int(NumeroGiocatori), 2);
        QCOMPARE(coloreDi(m->Option3[1]), ColoreOpzioneScelta);
        QCOMPARE(coloreDi(m->Option3[0]), ColoreOpzione);
    }

    // Edge cases of the choice.
    void kindZeroHidesAssAndSendsAggToTheOpenTileBoard()
    {
        AmbienteMenu a;
        a.Set(QStringLiteral("ii/film.ass"), 12);
        a.Set(QStringLiteral("ii/gatti.agg"), 12);
        Profilo.TipoMemory = 0;
        FormMenu *m = a.MostraMenu();
        QVERIFY(m);
        QCOMPARE(righe(m->List2), QStringList{QStringLiteral("gatti.agg")});
        scegliRiga(m, QStringLiteral("gatti.agg"));
        a.RispondiNomi({QStringLiteral("Ada")});
        m->Command1_Click(0);
        QVERIFY(Schermi::Riferimento(QStringLiteral("FormmemGGCS")));
        QVERIFY(!Schermi::Riferimento(QStringLiteral("FormmemGG")));
        auto *t = dynamic_cast<TavolaProva *>(Schermi::Riferimento(QStringLiteral("FormmemGGCS")));
        t->Esci();
        QTRY_VERIFY(!Schermi::Riferimento(QStringLiteral("FormmemGGCS")));
        m = qobject_cast<FormMenu *>(Schermi::Riferimento(QStringLiteral("FormMenu")));
        QVERIFY(m && AmbienteMenu::AttendiVestizione(m));
        QTest::mouseClick(m->Option1[2], Qt::LeftButton);
        QCOMPARE(righe(m->List2), (QStringList{QStringLiteral("film.ass"), QStringLiteral("gatti.agg")}));
        scegliRiga(m, QStringLiteral("gatti.agg"));
        a.RispondiNomi({QStringLiteral("Ada")});
        m->Command1_Click(0);
        QVERIFY(Schermi::Riferimento(QStringLiteral("FormmemGG")));
    }

    void laterSmallSetIsListedAndItsClickLowersTheTiles()
    {
        AmbienteMenu a;
        a.Set(QStringLiteral("ii/a.agg"), 12); // 24 tiles
        a.Set(QStringLiteral("ii/b.agg"), 3);  // 6 tiles
        Profilo.TipoMemory = 0;
        Profilo.NumeroTessere = 16;
        FormMenu *m = a.MostraMenu();
        QVERIFY(m);
        QCOMPARE(righe(m->List2), (QStringList{QStringLiteral("a.agg"), QStringLiteral("b.agg")}));
        scegliRiga(m, QStringLiteral("b.agg"));
        QCOMPARE(int(Profilo.NumeroTessere), 6);
        QCOMPARE(abilitati(m), QStringLiteral("1100000"));
        QVERIFY(m->Option2[6]->Valore());
        QCOMPARE(coloreDi(m->Option2[6]), ColoreOpzioneScelta);
    }

    void fiveRecordSetDropsTwentyFourToEight()
    {
        AmbienteMenu a;
        a.Set(QStringLiteral("ii/grande.agg"), 12);
        a.Set(QStringLiteral("ii/piccolo.agg"), 5);
        Profilo.TipoMemory = 2;
        Profilo.NumeroTessere = 24;
        FormMenu *m = a.MostraMenu();
        QVERIFY(m);
        QCOMPARE(righe(m->List2), (QStringList{QStringLiteral("grande.agg"), QStringLiteral("piccolo.agg")}));
        scegliRiga(m, QStringLiteral("piccolo.agg"));
        QCOMPARE(int(Profilo.NumeroTessere), 8);
        QCOMPARE(abilitati(m), QStringLiteral("1110000"));
        QVERIFY(m->Command1[0]->isEnabled());
    }

    void twoRecordSetLeavesOnlyFour()
    {
        AmbienteMenu a;
        a.Set(QStringLiteral("ii/grande.agg"), 12);
        a.Set(QStringLiteral("ii/minimo.agg"), 2);
        Profilo.TipoMemory = 0;
        Profilo.NumeroTessere = 12;
        FormMenu *m = a.MostraMenu();
        QVERIFY(m);
        scegliRiga(m, QStringLiteral("minimo.agg"));
        QCOMPARE(int(Profilo.NumeroTessere), 4);
        QCOMPARE(abilitati(m), QStringLiteral("1000000"));
        QVERIFY(m->Option2[4]->Valore());
    }

    void disabledCountsStayUntilAnotherListClick()
    {
        AmbienteMenu a;
        a.Set(QStringLiteral("ii/grande.agg"), 12);
        a.Set(QStringLiteral("ii/piccolo.agg"), 5);
        a.Set(QStringLiteral("ii/film.ass"), 12);
        Profilo.TipoMemory = 0;
        Profilo.NumeroTessere = 4;
        FormMenu *m = a.MostraMenu();
        QVERIFY(m);
        scegliRiga(m, QStringLiteral("piccolo.agg"));
        QCOMPARE(abilitati(m), QStringLiteral("1110000"));
        QTest::mouseClick(m->Option1[2], Qt::LeftButton);
        QCOMPARE(abilitati(m), QStringLiteral("1110000"));
        scegliRiga(m, QStringLiteral("film.ass"));
        QCOMPARE(abilitati(m), QStringLiteral("1111111"));
    }

    void disabledCountsComeBackWithTheNextLoad()
    {
        AmbienteMenu a;
        a.Set(QStringLiteral("ii/piccolo.agg"), 5);
        Profilo.TipoMemory = 0;
        Profilo.NumeroTessere = 4;
        FormMenu *m = a.MostraMenu();
        QVERIFY(m);
        scegliRiga(m, QStringLiteral("piccolo.agg"));
        QCOMPARE(abilitati(m), QStringLiteral("1110000"));
        Schermi::Scarica(m);
        m = a.MostraMenu();
        QVERIFY(m);
        QCOMPARE(abilitati(m), QStringLiteral("1111111"));
    }

    void changingTilesAfterASelectionMakesPlayTakeTheFirstLine()
    {
        AmbienteMenu a;
        a.Set(QStringLiteral("ii/a.agg"), 12);
        a.Set(QStringLiteral("ii/b.agg"), 12);
        Profilo.TipoMemory = 2;
        Profilo.NumeroTessere = 4;
        FormMenu *m = a.MostraMenu();
        QVERIFY(m);
        scegliRiga(m, QStringLiteral("b.agg"));
        QCOMPARE(m->TestoList2(), QStringLiteral("b.agg"));
        QTest::mouseClick(m->Option2[6], Qt::LeftButton);
        QVERIFY(m->TestoList2().isEmpty());
        QCOMPARE(righe(m->List2), (QStringList{QStringLiteral("a.agg"), QStringLiteral("b.agg")}));
        a.RispondiNomi({QStringLiteral("Ada")});
        m->Command1_Click(0);
        auto *t = dynamic_cast<TavolaProva *>(Schermi::Riferimento(QStringLiteral("FormmemGG")));
        QVERIFY(t);
        QCOMPARE(t->fileAllaPartenza, QStringLiteral("C:\\ImpostazioniProgrammiLorea\\tesselo\\dati\\ii\\a.agg"));
    }

    void listClickWithASmallerCountLosesTheSelection()
    {
        AmbienteMenu a;
        a.Set(QStringLiteral("ii/a.agg"), 12);
        a.Set(QStringLiteral("ii/b.agg"), 4);
        Profilo.TipoMemory = 0;
        Profilo.NumeroTessere = 12;
        FormMenu *m = a.MostraMenu();
        QVERIFY(m);
        scegliRiga(m, QStringLiteral("b.agg"));
        QCOMPARE(int(Profilo.NumeroTessere), 8);
        QVERIFY(m->TestoList2().isEmpty());
        QCOMPARE(FileMemory, QStringLiteral("C:\\ImpostazioniProgrammiLorea\\tesselo\\dati\\ii\\b.agg"));
    }

    // Bad input.
    void setThatCannotBeOpenedOnAListClickEndsTheProgram()
    {
        AmbienteMenu a;
        a.Set(QStringLiteral("ii/a.agg"), 12);
        Profilo.TipoMemory = 0;
        FormMenu *m = a.MostraMenu();
        QVERIFY(m);
        QVERIFY(QFile::remove(a.Dati(QStringLiteral("ii/a.agg"))));
        {
            const QSignalBlocker b(m->List2);
            m->List2->setCurrentRow(0);
        }
        try {
            m->List2_Click();
            QFAIL("the program went on");
        } catch (const ProcessoTerminato &p) {
            QCOMPARE(p.fine.stato, 1);
        }
        QCOMPARE(a.ambiente->scatole.size(), size_t(1));
        QVERIFY(a.ambiente->scatole[0].testo.startsWith(QStringLiteral("Non riesco a leggere il file del memory:")));
        // named as a person finds it: under the home folder, never as C:\...
        QVERIFY2(a.ambiente->scatole[0].testo.contains(QDir::toNativeSeparators(a.Dati(QStringLiteral("ii/a.agg")))),
                 qPrintable(a.ambiente->scatole[0].testo));
        QVERIFY(!a.ambiente->scatole[0].testo.contains(QStringLiteral("C:\\")));
        QCOMPARE(a.ambiente->scatole[0].stile, Msg::vbCritical);
    }

    void playWithAnEmptyListEndsTheProgramAfterTheNames()
    {
        AmbienteMenu a;
        Profilo.TipoMemory = 2;
        FormMenu *m = a.MostraMenu();
        QVERIFY(m);
        QCOMPARE(m->List2->count(), 0);
        a.RispondiNomi({QStringLiteral("Bea")});
        try {
            m->Command1_Click(0);
            QFAIL("the program went on");
        } catch (const ProcessoTerminato &p) {
            QCOMPARE(p.fine.stato, 1);
        }
        QCOMPARE(NomiGiocatori[0], QStringLiteral("Bea"));
        QCOMPARE(a.ambiente->scatole.size(), size_t(1));
        QCOMPARE(a.ambiente->scatole[0].stile, Msg::vbCritical);
        QVERIFY(!a.ambiente->scatole[0].testo.isEmpty());
    }

    void vanishedSetLeavesThePlayerOnTheMenuSilently()
    {
        AmbienteMenu a;
        a.Set(QStringLiteral("ii/a.agg"), 12);
        Profilo.TipoMemory = 0;
        FormMenu *m = a.MostraMenu();
        QVERIFY(m);
        scegliRiga(m, QStringLiteral("a.agg"));
        QVERIFY(QFile::remove(a.Dati(QStringLiteral("ii/a.agg"))));
        a.RispondiNomi({QStringLiteral("Ada")});
        m->Command1_Click(0);
        QCOMPARE(Schermi::Riferimento(QStringLiteral("FormMenu")), m);
        for (const QString &n : NomiTavole)
            QVERIFY(!Schermi::Riferimento(n));
        QVERIFY(a.ambiente->scatole.empty());
    }

    void unreadablePlayersFolderGivesAnEmptyHiddenCombo()
    {
        AmbienteMenu a;
        QVERIFY(QDir(a.Utenti(QString())).removeRecursively());
        AmbienteProva::Scrivi(a.ambiente->Radice() + QStringLiteral("/tesselo/utenti"), "non una cartella");
        FormMenu *m = a.MostraMenu();
        QVERIFY(m);
        QCOMPARE(m->Combo1->count(), 0);
        QVERIFY(m->Combo1->isHidden());
        QVERIFY(a.ambiente->scatole.empty());
    }

    // The pointer's colours.
    void optionUnderThePointerTurnsOrangeAndTheRestFollowTheirState()
    {
        AmbienteMenu a;
        Profilo.NumeroTessere = 12;
        FormMenu *m = a.MostraMenu();
        QVERIFY(m);
        m->Option_MouseMove(m->Option2, 12);
        QCOMPARE(coloreDi(m->Option2[12]), ColoreOpzioneSotto);
        m->Option_MouseMove(m->Option2, 6);
        QCOMPARE(coloreDi(m->Option2[6]), ColoreOpzioneSotto);
        QCOMPARE(coloreDi(m->Option2[12]), ColoreOpzioneScelta);
        QCOMPARE(coloreDi(m->Option2[4]), ColoreOpzione);
        m->Frame_MouseMove(m->Option2);
        QCOMPARE(coloreDi(m->Option2[6]), ColoreOpzione);
        QCOMPARE(coloreDi(m->Option2[12]), ColoreOpzioneScelta);
    }

    void aColourIsWrittenOnlyWhenItChanges()
    {
        AmbienteMenu a;
        FormMenu *m = a.MostraMenu();
        QVERIFY(m);
        m->Option_MouseMove(m->Option3, 2);
        const int dopoPrimo = ScrittureColore();
        for (int i = 0; i < 5; ++i)
            m->Option_MouseMove(m->Option3, 2);
        QCOMPARE(ScrittureColore(), dopoPrimo);
        m->Form_MouseMove();
        const int dopoSuperficie = ScrittureColore();
        QCOMPARE(dopoSuperficie, dopoPrimo + 1); // Option3(2) back to white, nothing else
        m->Form_MouseMove();
        QCOMPARE(ScrittureColore(), dopoSuperficie);
    }

    void pointerMovesReachTheHandlersThroughTheControls()
    {
        AmbienteMenu a;
        FormMenu *m = a.MostraMenu();
        QVERIFY(m);
        QTest::mouseMove(m->Option2[18]);
        QTRY_COMPARE(coloreDi(m->Option2[18]), ColoreOpzioneSotto);
        QTest::mouseMove(m->LabelGioca);
        QTRY_COMPARE(coloreDi(m->Command1[0]), ColorePulsanteSotto);
        QCOMPARE(coloreDi(m->PictureGioca), ColorePulsanteSotto);
        QTest::mouseMove(m, QPoint(m->width() / 2, m->height() - 3));
        QTRY_COMPARE(coloreDi(m->Command1[0]), ColorePulsante);
        QCOMPARE(coloreDi(m->Option2[18]), ColoreOpzione);
    }

    void largeButtonsLightUpUnderThePointer()
    {
        AmbienteMenu a;
        FormMenu *m = a.MostraMenu();
        QVERIFY(m);
        m->Command1_MouseMove(1);
        QCOMPARE(coloreDi(m->Command1[1]), ColorePulsanteSotto);
        QCOMPARE(coloreDi(m->PictureEsci), ColorePulsanteSotto);
        QCOMPARE(coloreDi(m->Command1[0]), ColorePulsante);
        const int prima = ScrittureColore();
        m->Command1_MouseMove(1);
        QCOMPARE(ScrittureColore(), prima);
        m->Command1_MouseMove(0);
        QCOMPARE(coloreDi(m->Command1[0]), ColorePulsanteSotto);
        QCOMPARE(coloreDi(m->Command1[1]), ColorePulsante);
        QCOMPARE(coloreDi(m->PictureEsci), ColorePulsante);
        m->Form_MouseMove();
        QCOMPARE(coloreDi(m->Command1[0]), ColorePulsante);
        QCOMPARE(coloreDi(m->PictureGioca), ColorePulsante);
    }

    // The exit panel.
    void exitPanelComesUpCentredConfinedAndFitted()
    {
        AmbienteMenu a;
        FormMenu *m = a.MostraMenu();
        QVERIFY(m);
        QTest::mouseClick(m->Command1[1], Qt::LeftButton);
        QVERIFY(m->FrameUscita->isVisible());
        const QWidget *superficie = m->FrameUscita->parentWidget();
        const QRect r = m->FrameUscita->geometry();
        QVERIFY(qAbs(r.center().x() - superficie->width() / 2) <= 1);
        QVERIFY(qAbs(r.center().y() - superficie->height() / 2) <= 1);
        QCOMPARE(m->LabelSi->text(), TestoLingua(QStringLiteral("0005")));
        QCOMPARE(m->LabelNo->text(), TestoLingua(QStringLiteral("0004")));
        QVERIFY(PuntatoreConfinato());
        QCOMPARE(RettangoloConfinamento(), QRect(m->FrameUscita->mapToGlobal(QPoint(0, 0)), m->FrameUscita->size()));
        QVERIFY(RettangoloConfinamento().contains(QCursor::pos()));
        // The fitted size is the first at which the longer caption is as wide as LabelSi.
        QFont f(QStringLiteral("Arial"));
        const int punti = m->LabelSi->font().pointSize();
        QCOMPARE(m->LabelNo->font().pointSize(), punti);
        QVERIFY(punti > 12);
        f.setPointSize(punti);
        QVERIFY(QFontMetrics(f).horizontalAdvance(QStringLiteral("NO")) * 15 >= int(LeggiGeometria(m->LabelSi).Width));
        f.setPointSize(punti - 1);
        QVERIFY(QFontMetrics(f).horizontalAdvance(QStringLiteral("NO")) * 15 < int(LeggiGeometria(m->LabelSi).Width));
        QCOMPARE(coloreDi(m->CommandSi), ColorePulsante);
        QCOMPARE(coloreDi(m->PictureSi), ColorePulsante);
    }

    void exitPanelButtonsLightUpAndThePanelPutsThemBack()
    {
        AmbienteMenu a;
        FormMenu *m = a.MostraMenu();
        QVERIFY(m);
        m->PresentaFinestraUscita();
        m->CommandSiNo_MouseMove(false);
        QCOMPARE(coloreDi(m->CommandNo), ColorePulsanteSotto);
        QCOMPARE(coloreDi(m->PictureNo), ColorePulsanteSotto);
        QCOMPARE(coloreDi(m->CommandSi), ColorePulsante);
        m->CommandSiNo_MouseMove(true);
        QCOMPARE(coloreDi(m->CommandSi), ColorePulsanteSotto);
        QCOMPARE(coloreDi(m->CommandNo), ColorePulsante);
        QCOMPARE(coloreDi(m->PictureNo), ColorePulsante);
        m->FrameUscita_MouseMove();
        for (QWidget *w : std::initializer_list<QWidget *>{m->CommandSi, m->CommandNo, m->PictureSi, m->PictureNo})
            QCOMPARE(coloreDi(w), ColorePulsante);
    }

    void noHidesThePanelAndFreesThePointer()
    {
        AmbienteMenu a;
        FormMenu *m = a.MostraMenu();
        QVERIFY(m);
        QTest::mouseClick(m->Command1[1], Qt::LeftButton);
        QVERIFY(PuntatoreConfinato());
        QTest::mouseClick(m->LabelNo, Qt::LeftButton);
        QVERIFY(m->FrameUscita->isHidden());
        QVERIFY(!PuntatoreConfinato());
        QCOMPARE(Schermi::Riferimento(QStringLiteral("FormMenu")), m);
    }

    void exitCapitalsFollowTheProfile()
    {
        AmbienteMenu a;
        Profilo.Maiuscolo1 = true;
        ScriviVoce(PercorsoImpostazioneLingua(), QStringLiteral("Language"), QStringLiteral("CurrentLanguage"),
                   QStringLiteral("English"));
        FormMenu *m = a.MostraMenu();
        QVERIFY(m);
        m->PresentaFinestraUscita();
        QCOMPARE(m->LabelSi->text(), QStringLiteral("YES"));
        QCOMPARE(m->LabelNo->text(), QStringLiteral("NO"));
    }

    void pointerIsTakenToTheEdgeOfThePanel()
    {
        AmbienteMenu a;
        FormMenu *m = a.MostraMenu();
        QVERIFY(m);
        m->PresentaFinestraUscita();
        const QRect r = RettangoloConfinamento();
        const GeometriaTwips g = LeggiGeometria(m->Frame2);
        const QPoint voluto(int(g.Top - g.Height / 2), int(g.Left - g.Width / 2));
        const QPoint atteso(std::clamp(voluto.x(), r.left(), r.right()), std::clamp(voluto.y(), r.top(), r.bottom()));
        QCOMPARE(QCursor::pos(), atteso);
        QCOMPARE(QCursor::pos().y(), r.top()); // the odd formula sends it above the panel
    }

    void confirmedExitWritesTheDefaultProfileAndEndsWithZero()
    {
        AmbienteMenu a;
        FormMenu *m = a.MostraMenu();
        QVERIFY(m);
        QVERIFY(!QFileInfo::exists(a.Utenti(QStringLiteral("_predefinito.INI"))));
        m->PresentaFinestraUscita();
        try {
            m->CommandSi_Click();
            QFAIL("the program went on");
        } catch (const ProcessoTerminato &p) {
            QCOMPARE(p.fine.stato, 0);
        }
        const QByteArray atteso = "Arial\r\nArial\r\n 2 \r\n 12 \r\n-2147483640 \r\n 16777215 \r\n-2147483640 \r\n"
                                  " 16777215 \r\n 65535 \r\n 255 \r\n 16777152 \r\nTrue\r\nFalse\r\n 0 \r\n 4 \r\n"
                                  "False\r\nFalse\r\n 9 \r\nFalse\r\nFalse\r\nTrue\r\n";
        QCOMPARE(AmbienteProva::Leggi(a.Utenti(QStringLiteral("_predefinito.INI"))), atteso);
        QVERIFY(!PuntatoreConfinato());
        QVERIFY(!ResizeCondiviso);
    }

    // The profile and the dressing.
    void profileIsSavedAndReadBackEachTimeTheMenuIsDressed()
    {
        AmbienteMenu a;
        ProfiloGiocatore suDisco = Profilo;
        a.ProfiloSuDisco(QStringLiteral("_predefinito"), suDisco);
        AmbienteProva::Scrivi(a.Utenti(QStringLiteral("_predefinito.ini")),
                              AmbienteMenu::CodificaTestoProfilo(suDisco) + "riga in piu\r\n");
        Profilo.ColoreTessere = 4242; // only in memory: the save writes it, the read brings it back
        FormMenu *m = a.MostraMenu();
        QVERIFY(m);
        QVERIFY(ComboUtenteAttiva);
        const QByteArray scritto = AmbienteProva::Leggi(a.Utenti(QStringLiteral("_predefinito.ini")));
        QVERIFY(!scritto.contains("riga in piu"));
        QVERIFY(scritto.contains(" 4242 \r\n"));
        QCOMPARE(Profilo.ColoreTessere, 4242.0);
        QCOMPARE(NomeUtente, QStringLiteral("_predefinito"));
        QCOMPARE(FileUtente, QStringLiteral("C:\\ImpostazioniProgrammiLorea\\tesselo\\utenti\\_predefinito.ini"));
    }

    void profileIsNotSavedWhenTheMenuComesBackFromTheNames()
    {
        AmbienteMenu a;
        a.ProfiloSuDisco(QStringLiteral("Marta"), Profilo);
        a.ProfiloSuDisco(QStringLiteral("_predefinito"), Profilo);
        NomeUtente = QStringLiteral("Marta");
        FileUtente = CartellaUtenti + QStringLiteral("Marta.ini");
        FormMenu *m = a.MostraMenu();
        QVERIFY(m);
        QCOMPARE(NomiGiocatori[0], QStringLiteral("Marta"));
        const QString file = a.Utenti(QStringLiteral("Marta.ini"));
        AmbienteProva::Scrivi(file, "cambiato a mano\r\n");
        // No set, so the play path stops after the names, on the menu.
        a.Set(QStringLiteral("ii/a.agg"), 12);
        Profilo.TipoMemory = 0;
        m->AggiornaFiles();
        scegliRiga(m, QStringLiteral("a.agg"));
        QVERIFY(QFile::remove(a.Dati(QStringLiteral("ii/a.agg"))));
        a.RispondiNomi({QStringLiteral("Teo")});
        m->Command1_Click(0);
        QVERIFY(!ComboUtenteAttiva);
        QVERIFY(AmbienteMenu::AttendiVestizione(m));
        QCOMPARE(AmbienteProva::Leggi(file), QByteArray("cambiato a mano\r\n"));
        QCOMPARE(NomiGiocatori[0], QStringLiteral("Teo"));
    }

    void selectingTheProfileAlreadyCurrentStillSavesAndReadsItAgain()
    {
        AmbienteMenu a;
        a.ProfiloSuDisco(QStringLiteral("Luca"), Profilo);
        a.ProfiloSuDisco(QStringLiteral("_predefinito"), Profilo);
        FormMenu *m = a.MostraMenu();
        QVERIFY(m);
        QVERIFY(AmbienteMenu::AttendiVestizione(m));
        m->Combo1->setCurrentIndex(m->Combo1->findText(QStringLiteral("Luca")));
        m->Combo1_Click();
        QCOMPARE(NomeUtente, QStringLiteral("Luca"));
        // Once more on Luca: the file gets what is in memory, then is read back.
        const QString file = a.Utenti(QStringLiteral("Luca.ini"));
        AmbienteProva::Scrivi(file, AmbienteMenu::CodificaTestoProfilo(Profilo) + "riga in piu\r\n");
        Profilo.VelocitaScansione = 33;
        m->Combo1_Click();
        QCOMPARE(NomeUtente, QStringLiteral("Luca"));
        const QByteArray scritto = AmbienteProva::Leggi(file);
        QVERIFY(!scritto.contains("riga in piu"));
        QVERIFY(scritto.contains("\r\n 33 \r\n"));
        QCOMPARE(int(Profilo.VelocitaScansione), 33);
    }

    void choosingAProfileSavesTheOldAndReadsTheNew()
    {
        AmbienteMenu a;
        ProfiloGiocatore luca = Profilo;
        luca.TipoMemory = 1;
        luca.NumeroTessere = 6;
        a.ProfiloSuDisco(QStringLiteral("Luca"), luca);
        a.ProfiloSuDisco(QStringLiteral("_predefinito"), Profilo);
        FormMenu *m = a.MostraMenu();
        QVERIFY(m);
        QCOMPARE(m->Combo1->count(), 2);
        QVERIFY(m->Combo1->isVisible());
        Profilo.ColoreSfondo = 777;
        m->Combo1->setCurrentIndex(m->Combo1->findText(QStringLiteral("Luca")));
        m->Combo1_Click();
        QVERIFY(AmbienteProva::Leggi(a.Utenti(QStringLiteral("_predefinito.ini"))).contains(" 777 \r\n"));
        QCOMPARE(NomeUtente, QStringLiteral("Luca"));
        QCOMPARE(NomiGiocatori[0], QStringLiteral("Luca"));
        QCOMPARE(int(Profilo.TipoMemory), 1);
        QVERIFY(m->Option1[1]->Valore());
        QVERIFY(m->Option2[6]->Valore());
        QVERIFY(m->Timer1->isActive());
        QVERIFY(AmbienteMenu::AttendiVestizione(m));
        QCOMPARE(NomeUtente, QStringLiteral("Luca"));
    }

    void combo1ClickIsIgnoredWhileInactive()
    {
        AmbienteMenu a;
        a.ProfiloSuDisco(QStringLiteral("Luca"), Profilo);
        a.ProfiloSuDisco(QStringLiteral("_predefinito"), Profilo);
        FormMenu *m = a.MostraMenu();
        QVERIFY(m);
        ComboUtenteAttiva = false;
        m->Combo1->setCurrentIndex(m->Combo1->findText(QStringLiteral("Luca")));
        m->Combo1_Click();
        QCOMPARE(NomeUtente, QStringLiteral("_predefinito"));
    }
};

QTEST_MAIN(ProvaFormMenu)
#include "test_form_menu.moc"
