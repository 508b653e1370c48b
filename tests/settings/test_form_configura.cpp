// The settings dialog on the screen: its controls, what each writes into the
// profile, the run that brings the controls into line, choosing a player,
// and when the profile reaches the disk.

#include "AiutoConfigura.h"

#include "platform/Colori.h"
#include "platform/CommDlgs.h"
#include "settings/RegoleConfigura.h"

#include <QApplication>
#include <QFrame>
#include <QGroupBox>
#include <QMenuBar>
#include <QPushButton>
#include <QScrollBar>

namespace {
bool stessoProfilo(const ProfiloGiocatore &a, const ProfiloGiocatore &b) { return TestoProfilo(a) == TestoProfilo(b); }

bool visibileNelFrame(QWidget *w, QWidget *frame) { return w->isVisibleTo(frame); }
} // namespace

class TestFormConfigura : public QObject
{
    Q_OBJECT
private:
    std::unique_ptr<AmbienteConfigura> a;

    FormConfigura *apri()
    {
        FormConfigura *f = AmbienteConfigura::Apri();
        if (f)
            f->EsecuzioniImpostaConfigurazioni = f->AnnidamentoMassimo = 0;
        return f;
    }
    QByteArray utente(const QString &nome) const { return AmbienteProva::Leggi(a->Utenti(nome)); }

private slots:
    void init() { a = std::make_unique<AmbienteConfigura>(); }
    void cleanup() { a.reset(); }

    // --- the form

    void theFormCoversTheScreenWithItsTabsAndShowsThePlayersTabFirst()
    {
        FormConfigura *f = AmbienteConfigura::Apri();
        QVERIFY(f);
        QCOMPARE(f->geometry(), QRect(0, 0, 1024, 768));
        QCOMPARE(f->TabStrip1->count(), 3);
        QCOMPARE(f->TabStrip1->tabText(0), QStringLiteral("Giocatori"));
        QCOMPARE(f->TabStrip1->tabText(1), QStringLiteral("Colori e suoni"));
        QCOMPARE(f->TabStrip1->tabText(2), QStringLiteral("Modalità di input"));
        QVERIFY(f->FrameUtente->isVisible());
        QVERIFY(!f->FrameParole->isVisible());
        QVERIFY(!f->FramePunt->isVisible());
        QCOMPARE(f->Label4->text(), QStringLiteral("_predefinito"));
        QVERIFY(!f->ListModificaUtente->isVisible());
        QVERIFY(!f->TextNuovoUtente->isVisible());
        QCOMPARE(f->mnuEsci->text(), QStringLiteral("&Esci"));
    }

    void everyControlStandsAtItsDesignRectangleScaledToTheScreen_data()
    {
        QTest::addColumn<QString>("nome");
        QTest::addColumn<QRect>("progetto");
        QTest::newRow("Label4") << "Label4" << QRect(960, 360, 7695, 615);
        QTest::newRow("TabStrip1") << "TabStrip1" << QRect(600, 1080, 9975, 7575);
        QTest::newRow("FrameUtente") << "FrameUtente" << QRect(720, 1680, 9375, 6735);
        QTest::newRow("FrameParole") << "FrameParole" << QRect(720, 1560, 9735, 6975);
        QTest::newRow("FramePunt") << "FramePunt" << QRect(720, 1680, 9495, 6735);
        QTest::newRow("ListModificaUtente") << "ListModificaUtente" << QRect(4560, 2280, 3135, 390);
        QTest::newRow("TextNuovoUtente") << "TextNuovoUtente" << QRect(4560, 3240, 3135, 495);
        QTest::newRow("PicturePosto") << "PicturePosto" << QRect(480, 5520, 1335, 1215);
        QTest::newRow("CheckDisabilitaMousePersonalizzato") << "CheckDisabilitaMousePersonalizzato"
                                                            << QRect(4320, 720, 3975, 615);
        QTest::newRow("CheckRiparti") << "CheckRiparti" << QRect(6480, 2280, 2775, 1215);
        QTest::newRow("HScroll3") << "HScroll3" << QRect(5280, 3600, 3975, 375);
        QTest::newRow("Label7") << "Label7" << QRect(5400, 3960, 3975, 375);
        QTest::newRow("CheckRiquadro") << "CheckRiquadro" << QRect(2640, 4800, 1935, 855);
        QTest::newRow("HScrollRiquadro") << "HScrollRiquadro" << QRect(4920, 6360, 1335, 255);
        QTest::newRow("ShapeRiquadro") << "ShapeRiquadro" << QRect(4920, 4680, 1335, 1215);
        QTest::newRow("CommandScansione") << "CommandScansione" << QRect(240, 4680, 2055, 1095);
    }
    void everyControlStandsAtItsDesignRectangleScaledToTheScreen()
    {
        QFETCH(QString, nome);
        QFETCH(QRect, progetto);
        FormConfigura *f = AmbienteConfigura::Apri();
        QVERIFY(ResizeCondiviso);
        bool trovato = false;
        for (const clsResize::Controllo &c : ResizeCondiviso->Tabella()) {
            if (!c.control || c.control->objectName() != nome)
                continue;
            trovato = true;
            QCOMPARE(QRect(c.Left, c.Top, c.Width, c.Height), progetto);
            // Scaled from the design by the form's ratios.
            const double ro = double(TwipsDaPixel(f->width())) / ResizeCondiviso->LarghezzaProgetto();
            const GeometriaTwips g = LeggiGeometria(c.control);
            QVERIFY2(std::abs(g.Left - progetto.x() * ro) <= TwipsPerPixel, qPrintable(nome));
            QVERIFY2(std::abs(g.Width - progetto.width() * ro) <= TwipsPerPixel, qPrintable(nome));
        }
        QVERIFY2(trovato, qPrintable(nome));
    }

    void theWordFramesAndSamplesStandAtTheirDesignPlaces()
    {
        FormConfigura *f = AmbienteConfigura::Apri();
        QCOMPARE(f->Frame1[0]->title(), QStringLiteral("Prima parola"));
        QCOMPARE(f->Frame1[1]->title(), QStringLiteral("Seconda parola"));
        QVERIFY(ResizeCondiviso);
        QMap<QWidget *, QRect> progetto;
        for (const clsResize::Controllo &c : ResizeCondiviso->Tabella())
            progetto[c.control] = QRect(c.Left, c.Top, c.Width, c.Height);
        QCOMPARE(progetto.value(f->Frame1[0]), QRect(120, 240, 4575, 5175));
        QCOMPARE(progetto.value(f->Frame1[1]), QRect(4920, 240, 4575, 5175));
        for (QFrame *p : f->PictureSfondoParola) {
            QCOMPARE(progetto.value(p).width(), 1935);
            QCOMPARE(progetto.value(p).height(), 1935);
        }
        QCOMPARE(f->LabelFontSelezionato1->parentWidget(), f->PictureSfondoParola[0]);
        QCOMPARE(f->LabelFontSelezionato2->parentWidget(), f->PictureSfondoParola[1]);
        QCOMPARE(f->Label1->parentWidget(), f->Frame1[0]);
        QCOMPARE(f->Label2->parentWidget(), f->Frame1[1]);
        QVERIFY(f->Label1->text().startsWith(QStringLiteral("Per il corsivo selezionare ")));
        QVERIFY(!f->LabelDimensionaFont->isVisible());
        QVERIFY(!f->LabelPerColore->isVisible());
    }

    void aTabClickShowsOnlyItsFrame_data()
    {
        QTest::addColumn<int>("scheda");
        QTest::newRow("players") << 0;
        QTest::newRow("colours and sounds") << 1;
        QTest::newRow("input mode") << 2;
    }
    void aTabClickShowsOnlyItsFrame()
    {
        QFETCH(int, scheda);
        FormConfigura *f = AmbienteConfigura::Apri();
        AmbienteConfigura::Scheda(f, scheda == 0 ? 1 : 0);
        AmbienteConfigura::Scheda(f, scheda);
        QCOMPARE(f->FrameUtente->isVisible(), scheda == 0);
        QCOMPARE(f->FrameParole->isVisible(), scheda == 1);
        QCOMPARE(f->FramePunt->isVisible(), scheda == 2);
    }

    void everyUsableControlHasAName()
    {
        FormConfigura *f = AmbienteConfigura::Apri();
        QList<QWidget *> usabili = {f->TabStrip1, f->ListModificaUtente, f->TextNuovoUtente, f->PicturePosto,
                                    f->PictureSfondoParola[0], f->PictureSfondoParola[1], f->HScroll3,
                                    f->HScrollRiquadro, f->ShapeRiquadro};
        for (QAbstractButton *b : f->findChildren<QAbstractButton *>())
            if (!b->objectName().isEmpty() && !b->objectName().startsWith(QLatin1String("qt_")))
                usabili << b;
        QVERIFY(usabili.size() > 25);
        for (QWidget *w : usabili)
            QVERIFY2(!w->accessibleName().isEmpty(), qPrintable(NomeControllo(w)));
    }

    void enterPressesNoButtonOfTheDialog()
    {
        FormConfigura *f = AmbienteConfigura::Apri();
        AmbienteConfigura::Scheda(f, 1);
        f->optMaiuscolo1[1]->setFocus();
        QTest::keyClick(f->optMaiuscolo1[1], Qt::Key_Return);
        AmbienteConfigura::Scheda(f, 2);
        QTest::keyClick(f->Option4[0], Qt::Key_Enter);
        QVERIFY(a->ambiente->dialoghi.empty());
        QVERIFY(AmbienteConfigura::Configura());
    }

    // --- ImpostaConfigurazioni

    void theSamplesAndFramesTakeTheProfilesColours()
    {
        Profilo.ColoreTessere = 0x112233;
        Profilo.ColoreSfondoTesto1 = 0x445566;
        Profilo.ColoreSfondoTesto2 = 0x778899;
        Profilo.ColoreSfondo = 0x00AA00;
        Profilo.ColoreFont1 = 0x0000FF;
        Profilo.ColoreFont2 = 0xFF0000;
        Profilo.ColoreScansione = 0x00FFFF;
        FormConfigura *f = AmbienteConfigura::Apri();
        QCOMPARE(f->PicturePosto->palette().color(QPalette::Window), ColoreDaNumero(0x112233));
        QCOMPARE(f->PictureSfondoParola[0]->palette().color(QPalette::Window), ColoreDaNumero(0x445566));
        QCOMPARE(f->PictureSfondoParola[1]->palette().color(QPalette::Window), ColoreDaNumero(0x778899));
        for (QWidget *w : std::initializer_list<QWidget *>{f->FrameParole, f->FrameUtente, f->FramePunt, f->CheckRiparti,
                                                           f->Frame1[0], f->Frame1[1], f->optMaiuscolo1[0],
                                                           f->optMaiuscolo2[1], f->OptionUtente[2], f->Option4[3],
                                                           f->CheckRiquadro, f->Label1, f->Label2, f->CheckSuoni,
                                                           f->CheckDisabilitaMousePersonalizzato})
            QCOMPARE(w->palette().color(QPalette::Window), ColoreDaNumero(0x00AA00));
        QCOMPARE(f->LabelFontSelezionato1->palette().color(QPalette::WindowText), ColoreDaNumero(0x0000FF));
        QCOMPARE(f->LabelFontSelezionato2->palette().color(QPalette::WindowText), ColoreDaNumero(0xFF0000));
        QCOMPARE(f->ShapeRiquadro->colore, ColoreDaNumero(0x00FFFF));
    }

    void theScanningFrameSampleTakesTheThicknessAndColour()
    {
        Profilo.ModoInput = ModoInputValori::ScansioneManuale;
        Profilo.Riquadro = true;
        Profilo.SpessoreRiquadro = 17;
        FormConfigura *f = AmbienteConfigura::Apri();
        QCOMPARE(f->ShapeRiquadro->spessore, 17);
        QCOMPARE(f->HScrollRiquadro->value(), 17);
        QVERIFY(f->ShapeRiquadro->linea);
        // The person moves the bar: the sample follows at once.
        AmbienteConfigura::Scheda(f, 2);
        f->HScrollRiquadro->setFocus();
        QTest::keyClick(f->HScrollRiquadro, Qt::Key_Right);
        QCOMPARE(Profilo.SpessoreRiquadro, qint16(18));
        QCOMPARE(f->ShapeRiquadro->spessore, 18);
    }

    void imposta_changesNoProfileField()
    {
        Profilo.ModoInput = ModoInputValori::ScansioneAutomatica;
        Profilo.Riquadro = true;
        Profilo.VelocitaScansione = 23;
        Profilo.SpessoreRiquadro = 21;
        Profilo.Maiuscolo2 = true;
        Profilo.FontParola2 = QStringLiteral("Comic Neue");
        FormConfigura *f = apri();
        const ProfiloGiocatore prima = Profilo;
        f->ImpostaConfigurazioni();
        QVERIFY(stessoProfilo(prima, Profilo));
    }

    void stepFourNestsOneImpostaConfigurazioniThatChangesNothingMore()
    {
        Profilo.SpessoreRiquadro = 9;
        FormConfigura *f = apri();
        QCOMPARE(f->HScrollRiquadro->value(), 9);
        // A new thickness moves the bar: one run inside the outer one, and no deeper.
        Profilo.SpessoreRiquadro = 20;
        const ProfiloGiocatore prima = Profilo;
        f->ImpostaConfigurazioni();
        QCOMPARE(f->EsecuzioniImpostaConfigurazioni, 2);
        QCOMPARE(f->AnnidamentoMassimo, 2);
        QVERIFY(stessoProfilo(prima, Profilo));
        QCOMPARE(f->HScrollRiquadro->value(), 20);
        // The outer run went on to the end after the inner one.
        Profilo.VelocitaScansione = 40;
        Profilo.ModoInput = ModoInputValori::ScansioneAutomatica;
        Profilo.SpessoreRiquadro = 5;
        f->ImpostaConfigurazioni();
        QCOMPARE(f->HScroll3->value(), 40);
        QCOMPARE(f->Label7->text(), QStringLiteral("Velocità scansione: 10.00 secondi"));
        // With the bar where the field says, no run nests.
        f->EsecuzioniImpostaConfigurazioni = f->AnnidamentoMassimo = 0;
        f->ImpostaConfigurazioni();
        QCOMPARE(f->EsecuzioniImpostaConfigurazioni, 1);
        QCOMPARE(f->AnnidamentoMassimo, 1);
    }

    void theSamplesCaseFollowsTheProfileAtEachRun()
    {
        Profilo.Maiuscolo1 = true;
        Profilo.Maiuscolo2 = false;
        FormConfigura *f = AmbienteConfigura::Apri();
        QCOMPARE(f->LabelFontSelezionato1->text(), QStringLiteral("PRIMA PAROLA"));
        QCOMPARE(f->LabelFontSelezionato2->text(), QStringLiteral("seconda parola"));
        QVERIFY(f->optMaiuscolo1[0]->isChecked());
        QVERIFY(f->optMaiuscolo2[1]->isChecked());
    }

    void capitalsClickedThenTabChangedLeaveTheSampleUntilTheNextRun()
    {
        FormConfigura *f = AmbienteConfigura::Apri();
        AmbienteConfigura::Scheda(f, 1);
        QCOMPARE(f->LabelFontSelezionato1->text(), QStringLiteral("prima parola"));
        AmbienteConfigura::Clicca(f->optMaiuscolo1[0]);
        QVERIFY(Profilo.Maiuscolo1);
        QCOMPARE(f->LabelFontSelezionato1->text(), QStringLiteral("prima parola"));
        AmbienteConfigura::Scheda(f, 2);
        AmbienteConfigura::Scheda(f, 1);
        QCOMPARE(f->LabelFontSelezionato1->text(), QStringLiteral("prima parola"));
        // Something that runs ImpostaConfigurazioni, such as a click on an input mode.
        AmbienteConfigura::Scheda(f, 2);
        AmbienteConfigura::Clicca(f->Option4[3]);
        QCOMPARE(f->LabelFontSelezionato1->text(), QStringLiteral("PRIMA PAROLA"));
        // And back: "invariato" lowers the whole caption.
        AmbienteConfigura::Scheda(f, 1);
        AmbienteConfigura::Clicca(f->optMaiuscolo1[1]);
        QVERIFY(!Profilo.Maiuscolo1);
        QCOMPARE(f->LabelFontSelezionato1->text(), QStringLiteral("PRIMA PAROLA"));
        AmbienteConfigura::Clicca(f->CommandSceltaFont1); // cancelled, and the form is brought into line
        QCOMPARE(f->LabelFontSelezionato1->text(), QStringLiteral("prima parola"));
    }

    void aNarrowFontAfterAWideOneGrowsTheSampleAndAWideOneDoesNotShrinkIt()
    {
        FormConfigura *f = AmbienteConfigura::Apri();
        AmbienteConfigura::Scheda(f, 1);
        a->ambiente->risposteDialoghi << RispostaDialogo::Font(QStringLiteral("DejaVu Sans"), 120);
        AmbienteConfigura::Clicca(f->CommandSceltaFont1);
        QCOMPARE(Profilo.FontParola1, QStringLiteral("DejaVu Sans"));
        const double largo = f->LabelFontSelezionato1->font().pointSizeF();
        a->ambiente->risposteDialoghi << RispostaDialogo::Font(QStringLiteral("Liberation Sans Narrow"), 120);
        AmbienteConfigura::Clicca(f->CommandSceltaFont1);
        QCOMPARE(Profilo.FontParola1, QStringLiteral("Liberation Sans Narrow"));
        const double stretto = f->LabelFontSelezionato1->font().pointSizeF();
        QVERIFY2(stretto > largo, qPrintable(QStringLiteral("%1 %2").arg(largo).arg(stretto)));
        a->ambiente->risposteDialoghi << RispostaDialogo::Font(QStringLiteral("DejaVu Sans"), 120);
        AmbienteConfigura::Clicca(f->CommandSceltaFont1);
        QCOMPARE(f->LabelFontSelezionato1->font().pointSizeF(), stretto);
        // The second word is measured after the first and is at least as large.
        QVERIFY(f->LabelFontSelezionato2->font().pointSizeF() >= f->LabelFontSelezionato1->font().pointSizeF());
    }

    void theSamplesAreCentredInTheirPictures()
    {
        FormConfigura *f = AmbienteConfigura::Apri();
        for (int i = 0; i < 2; ++i) {
            QWidget *l = i == 0 ? static_cast<QWidget *>(f->LabelFontSelezionato1) : f->LabelFontSelezionato2;
            const GeometriaTwips g = LeggiGeometria(l);
            const GeometriaTwips p = LeggiGeometria(f->PictureSfondoParola[size_t(i)]);
            QVERIFY(std::abs(g.Left - std::trunc((p.Width - g.Width) / 2)) <= TwipsPerPixel);
            QVERIFY(std::abs(g.Top - std::trunc((p.Height - g.Height) / 2)) <= TwipsPerPixel);
        }
    }

    // --- step 9: the four input modes

    void eachInputModeShowsExactlyItsControls_data()
    {
        QTest::addColumn<int>("modo");
        QTest::addColumn<bool>("riquadro");
        // Riparti, Riquadro check, shape line, thickness bar, speed bar, speed text, system mouse
        QTest::addColumn<QList<bool>>("attesi");
        QTest::newRow("mouse") << 0 << false << QList<bool>{false, false, false, false, false, false, true};
        QTest::newRow("mouse, frame kept") << 0 << true << QList<bool>{false, false, false, false, false, false, true};
        QTest::newRow("manual") << 1 << false << QList<bool>{true, true, false, false, false, false, false};
        QTest::newRow("manual, frame") << 1 << true << QList<bool>{true, true, true, true, false, false, false};
        QTest::newRow("automatic") << 2 << false << QList<bool>{true, true, false, false, true, true, false};
        QTest::newRow("automatic, frame") << 2 << true << QList<bool>{true, true, true, true, true, true, false};
        QTest::newRow("keyboard") << 3 << false << QList<bool>{false, true, false, false, false, false, false};
        QTest::newRow("keyboard, frame") << 3 << true << QList<bool>{false, true, true, true, false, false, false};
    }
    void eachInputModeShowsExactlyItsControls()
    {
        QFETCH(int, modo);
        QFETCH(bool, riquadro);
        QFETCH(QList<bool>, attesi);
        Profilo.Riquadro = riquadro;
        Profilo.VelocitaScansione = 12;
        FormConfigura *f = AmbienteConfigura::Apri();
        AmbienteConfigura::Scheda(f, 2);
        // Chosen by the person, from another mode.
        AmbienteConfigura::Clicca(f->Option4[size_t((modo + 1) % 4)]);
        AmbienteConfigura::Clicca(f->Option4[size_t(modo)]);
        QCOMPARE(Profilo.ModoInput, qint16(modo));
        QWidget *p = f->FramePunt;
        const QList<bool> visti = {visibileNelFrame(f->CheckRiparti, p),   visibileNelFrame(f->CheckRiquadro, p),
                                   f->ShapeRiquadro->linea,                 visibileNelFrame(f->HScrollRiquadro, p),
                                   visibileNelFrame(f->HScroll3, p),        visibileNelFrame(f->Label7, p),
                                   visibileNelFrame(f->CheckDisabilitaMousePersonalizzato, p)};
        QCOMPARE(visti, attesi);
        // What stays whatever the mode: the four modes, the colour button and the sample.
        for (QWidget *w : std::initializer_list<QWidget *>{f->Option4[0], f->Option4[1], f->Option4[2], f->Option4[3],
                                                           f->CommandScansione, f->ShapeRiquadro})
            QVERIFY(w->isVisible());
        if (modo == 2) {
            QCOMPARE(f->HScroll3->value(), 12);
            QCOMPARE(f->Label7->text(), QStringLiteral("Velocità scansione: 3.00 secondi"));
        }
        QCOMPARE(Profilo.Riquadro, riquadro);
    }

    void mouseModeKeepsRiquadroWhileItsCheckBoxAndBarAreHidden()
    {
        Profilo.ModoInput = ModoInputValori::Mouse;
        Profilo.Riquadro = true;
        FormConfigura *f = AmbienteConfigura::Apri();
        AmbienteConfigura::Scheda(f, 2);
        QVERIFY(!f->CheckRiquadro->isVisible());
        QVERIFY(!f->HScrollRiquadro->isVisible());
        QVERIFY(f->CheckRiquadro->isChecked());
        QVERIFY(Profilo.Riquadro);
        f->mnuEsci_Click();
        const QList<QByteArray> righe = utente(QStringLiteral("_predefinito.INI")).split('\n');
        QCOMPARE(righe.value(16), QByteArray("True\r"));
    }

    void activationWithAutomaticScanningShowsTheStoredSpeed()
    {
        Profilo.ModoInput = ModoInputValori::ScansioneAutomatica;
        Profilo.VelocitaScansione = 8;
        FormConfigura *f = AmbienteConfigura::Apri();
        QVERIFY(f->Option4[2]->isChecked());
        QCOMPARE(f->HScroll3->value(), 8);
        QCOMPARE(f->HScroll3->minimum(), 4);
        QCOMPARE(f->HScroll3->maximum(), 60);
        QCOMPARE(f->Label7->text(), QStringLiteral("Velocità scansione: 2.00 secondi"));
    }

    void aSpeedOutsideTheBarsRangeIsRefusedByTheBar_data()
    {
        QTest::addColumn<int>("velocita");
        QTest::addColumn<QString>("testo");
        QTest::newRow("999") << 999 << "Velocità scansione: 249.75 secondi";
        QTest::newRow("3") << 3 << "Velocità scansione: 0.75 secondi";
        QTest::newRow("61") << 61 << "Velocità scansione: 15.25 secondi";
        QTest::newRow("-8") << -8 << "Velocità scansione: -2.00 secondi";
    }
    void aSpeedOutsideTheBarsRangeIsRefusedByTheBar()
    {
        QFETCH(int, velocita);
        QFETCH(QString, testo);
        Profilo.ModoInput = ModoInputValori::ScansioneAutomatica;
        Profilo.VelocitaScansione = qint16(velocita);
        FormConfigura *f = AmbienteConfigura::Apri();
        QCOMPARE(f->HScroll3->value(), 4); // where the bar stood, refusing the value
        QCOMPARE(Profilo.VelocitaScansione, qint16(velocita));
        QCOMPARE(f->Label7->text(), testo);
    }

    void theSpeedBarWritesTheFieldAndTheText()
    {
        Profilo.ModoInput = ModoInputValori::ScansioneAutomatica;
        Profilo.VelocitaScansione = 4;
        FormConfigura *f = AmbienteConfigura::Apri();
        AmbienteConfigura::Scheda(f, 2);
        f->HScroll3->setFocus();
        for (int i = 0; i < 4; ++i)
            QTest::keyClick(f->HScroll3, Qt::Key_Right);
        QCOMPARE(Profilo.VelocitaScansione, qint16(8));
        QCOMPARE(f->Label7->text(), QStringLiteral("Velocità scansione: 2.00 secondi"));
        QTest::keyClick(f->HScroll3, Qt::Key_End);
        QCOMPARE(Profilo.VelocitaScansione, qint16(60));
        QCOMPARE(f->Label7->text(), QStringLiteral("Velocità scansione: 15.00 secondi"));
    }

    // --- what each control writes

    void theCheckBoxesWriteTheirFields()
    {
        Profilo.ModoInput = ModoInputValori::ScansioneManuale;
        FormConfigura *f = AmbienteConfigura::Apri();
        AmbienteConfigura::Scheda(f, 2);
        AmbienteConfigura::Clicca(f->CheckRiparti);
        QVERIFY(Profilo.Riparti);
        AmbienteConfigura::Clicca(f->CheckRiquadro);
        QVERIFY(Profilo.Riquadro);
        QVERIFY(f->HScrollRiquadro->isVisible()); // the form was brought into line
        AmbienteConfigura::Clicca(f->Option4[0]);
        AmbienteConfigura::Clicca(f->CheckDisabilitaMousePersonalizzato);
        QVERIFY(Profilo.DisabilitaMousePersonalizzato);
        AmbienteConfigura::Scheda(f, 1);
        QVERIFY(f->CheckSuoni->isChecked());
        AmbienteConfigura::Clicca(f->CheckSuoni);
        QVERIFY(!Profilo.Suoni);
    }

    void eachColourButtonWritesItsFieldFromTheControlThatStandsForIt_data()
    {
        QTest::addColumn<QString>("pulsante");
        QTest::addColumn<int>("campo"); // line of the profile file, from 1
        QTest::newRow("first word background") << "CommandSceltaSfondoTesto1" << 6;
        QTest::newRow("second word background") << "CommandSceltaSfondoTesto2" << 8;
        QTest::newRow("first word colour") << "CommandSceltaColoreFont1" << 5;
        QTest::newRow("second word colour") << "CommandSceltaColoreFont2" << 7;
        QTest::newRow("tiles") << "CommandSceltaColoreTessere" << 9;
        QTest::newRow("background") << "Command1" << 11;
        QTest::newRow("scanning") << "CommandScansione" << 10;
    }
    void eachColourButtonWritesItsFieldFromTheControlThatStandsForIt()
    {
        QFETCH(QString, pulsante);
        QFETCH(int, campo);
        FormConfigura *f = AmbienteConfigura::Apri();
        auto *b = f->findChild<QPushButton *>(pulsante);
        QVERIFY(b);
        AmbienteConfigura::Scheda(f, pulsante == QLatin1String("CommandScansione") ? 2 : 1);
        const QString prima = TestoProfilo(Profilo);
        // A cancel changes nothing.
        AmbienteConfigura::Clicca(b);
        QCOMPARE(TestoProfilo(Profilo), prima);
        a->ambiente->risposteDialoghi << RispostaDialogo::Colore(0x123456);
        AmbienteConfigura::Clicca(b);
        QCOMPARE(a->ambiente->dialoghi.size(), size_t(2));
        QCOMPARE(a->ambiente->dialoghi[1].tipo, TipoDialogo::Colore);
        QCOMPARE(a->ambiente->dialoghi[1].coloreIniziale, 0.0); // never the colour in force
        QCOMPARE(TestoProfilo(Profilo).split(QStringLiteral("\r\n")).value(campo - 1), QStringLiteral(" 1193046 "));
    }

    void theFirstWordsColourButtonLeavesTheFormWhileTheSecondsBringsItIntoLine()
    {
        FormConfigura *f = apri();
        AmbienteConfigura::Scheda(f, 1);
        a->ambiente->risposteDialoghi << RispostaDialogo::Colore(0x0000FF);
        AmbienteConfigura::Clicca(f->CommandSceltaColoreFont1);
        QCOMPARE(f->EsecuzioniImpostaConfigurazioni, 0);
        QCOMPARE(Profilo.ColoreFont1, double(0x0000FF));
        QCOMPARE(f->LabelFontSelezionato1->palette().color(QPalette::WindowText), QColor(255, 0, 0)); // by the chooser
        a->ambiente->risposteDialoghi << RispostaDialogo::Colore(0x00FF00);
        AmbienteConfigura::Clicca(f->CommandSceltaColoreFont2);
        QCOMPARE(f->EsecuzioniImpostaConfigurazioni, 1);
        QCOMPARE(Profilo.ColoreFont2, double(0x00FF00));
        // Cancelled, the first still leaves the form and the second still brings it into line.
        AmbienteConfigura::Clicca(f->CommandSceltaColoreFont1);
        QCOMPARE(f->EsecuzioniImpostaConfigurazioni, 1);
        AmbienteConfigura::Clicca(f->CommandSceltaColoreFont2);
        QCOMPARE(f->EsecuzioniImpostaConfigurazioni, 2);
    }

    void aBackgroundColourDoesNotColourTheTextsOfTheFrame()
    {
        FormConfigura *f = AmbienteConfigura::Apri();
        AmbienteConfigura::Scheda(f, 1);
        const QColor testo = f->CheckSuoni->palette().color(QPalette::WindowText);
        a->ambiente->risposteDialoghi << RispostaDialogo::Colore(0xFFFFFF);
        AmbienteConfigura::Clicca(f->Command1);
        QCOMPARE(Profilo.ColoreSfondo, double(0xFFFFFF));
        QCOMPARE(f->FrameParole->palette().color(QPalette::Window), QColor(255, 255, 255));
        QCOMPARE(f->CheckSuoni->palette().color(QPalette::WindowText), testo);
        QCOMPARE(f->Label1->palette().color(QPalette::WindowText), testo);
    }

    void aChosenFontKeepsOnlyItsNameAndACancelKeepsTheOldName()
    {
        FormConfigura *f = apri();
        AmbienteConfigura::Scheda(f, 1);
        a->ambiente->risposteDialoghi << RispostaDialogo::Font(QStringLiteral("Comic Neue"), 360, true, true, true);
        AmbienteConfigura::Clicca(f->CommandSceltaFont2);
        QCOMPARE(Profilo.FontParola2, QStringLiteral("Comic Neue"));
        QCOMPARE(f->EsecuzioniImpostaConfigurazioni, 1);
        // Bold, italic and underline live on the sample only.
        QVERIFY(f->LabelFontSelezionato2->font().bold());
        QVERIFY(f->LabelFontSelezionato2->font().italic());
        QCOMPARE(f->LabelFontSelezionato2->font().family(), QStringLiteral("Comic Neue"));
        // The dialog opened on no face, from the sample's style.
        QCOMPARE(a->ambiente->dialoghi.back().volto, QString());
        AmbienteConfigura::Clicca(f->CommandSceltaFont2);
        QCOMPARE(Profilo.FontParola2, QStringLiteral("Comic Neue"));
        QCOMPARE(f->EsecuzioniImpostaConfigurazioni, 2);
        QVERIFY(a->ambiente->dialoghi.back().grassetto);
        f->mnuEsci_Click();
        const QList<QByteArray> righe = utente(QStringLiteral("_predefinito.INI")).split('\n');
        QCOMPARE(righe.value(0), QByteArray("Arial\r"));
        QCOMPARE(righe.value(1), QByteArray("Comic Neue\r"));
    }

    // --- choosing a player

    void optionUtenteSavesFirstUnderTheCurrentFile()
    {
        FormConfigura *f = AmbienteConfigura::Apri();
        QVERIFY(!QFileInfo::exists(a->Utenti(QStringLiteral("_predefinito.INI"))));
        AmbienteConfigura::Clicca(f->OptionUtente[1]);
        QCOMPARE(utente(QStringLiteral("_predefinito.INI")), ProfiloPredefinitoImportato());
    }

    void theDefaultPlayerOptionCarriesTheFieldsOfThePlayerLeft()
    {
        ValoriPredefiniti();
        Profilo.ProntiImportati = true;
        Profilo.ModoInput = ModoInputValori::Tastiera;
        NomeUtente = QStringLiteral("ANNA");
        FileUtente = CartellaUtenti + QStringLiteral("ANNA.ini");
        FormConfigura *f = AmbienteConfigura::Apri();
        AmbienteConfigura::Clicca(f->OptionUtente[0]);
        QCOMPARE(NomeUtente, QStringLiteral("_predefinito"));
        QCOMPARE(FileUtente, CartellaUtenti + QStringLiteral("_predefinito.ini"));
        QCOMPARE(f->Label4->text(), QStringLiteral("_predefinito"));
        QCOMPARE(Profilo.ModoInput, ModoInputValori::Tastiera); // nothing was read
        f->mnuEsci_Click();
        QCOMPARE(utente(QStringLiteral("_predefinito.ini")).split('\n').value(13), QByteArray(" 3 \r"));
    }

    void theListShowsTheOtherPlayersInCapitalsWithoutTheDefault()
    {
        for (const char *n : {"anna.ini", "Bruno.INI", "_predefinito.ini", "note.txt", "Nicolò.ini"})
            AmbienteProva::Scrivi(a->Utenti(QString::fromUtf8(n)), ProfiloPredefinitoImportato());
        FormConfigura *f = AmbienteConfigura::Apri();
        AmbienteConfigura::Clicca(f->OptionUtente[1]);
        QVERIFY(f->ListModificaUtente->isVisible());
        QVERIFY(!f->TextNuovoUtente->isVisible());
        QStringList voci;
        for (int i = 0; i < f->ListModificaUtente->count(); ++i)
            voci << f->ListModificaUtente->item(i)->text();
        QCOMPARE(voci, (QStringList{QStringLiteral("ANNA"), QStringLiteral("BRUNO"), QStringLiteral("NICOLÒ")}));
        // Chosen again, the list is emptied first.
        AmbienteConfigura::Clicca(f->OptionUtente[1]);
        QCOMPARE(f->ListModificaUtente->count(), 3);
    }

    void theListOfPlayersShowsWholeRowsAtEveryScroll()
    {
        for (const char *n : {"Anna", "Bruno", "Carla", "Davide", "Elena", "Franco"})
            a->ProfiloSuDisco(QString::fromUtf8(n), Profilo);
        FormConfigura *f = AmbienteConfigura::Apri();
        AmbienteConfigura::Clicca(f->OptionUtente[1]);
        QListWidget *l = f->ListModificaUtente;
        QCOMPARE(l->count(), 6);
        QCoreApplication::processEvents();
        const QRect area = l->viewport()->rect();
        QVERIFY(area.height() > 0);
        QVERIFY(l->verticalScrollBar()->maximum() > 0);
        for (int v = 0; v <= l->verticalScrollBar()->maximum(); ++v) {
            l->verticalScrollBar()->setValue(v);
            QCoreApplication::processEvents();
            int viste = 0;
            for (int i = 0; i < l->count(); ++i) {
                const QRect r = l->visualItemRect(l->item(i));
                QVERIFY(r.height() >= l->fontMetrics().height());
                if (!r.intersects(area))
                    continue;
                ++viste;
                QVERIFY2(area.contains(r), qPrintable(QStringLiteral("row %1 at scroll %2 is cut").arg(i).arg(v)));
            }
            QVERIFY(viste >= 1);
        }
    }

    void theListSavesThenReadsTheChosenPlayer()
    {
        ProfiloGiocatore anna;
        {
            const ProfiloGiocatore salvato = Profilo;
            ValoriPredefiniti();
            Profilo.ModoInput = ModoInputValori::ScansioneManuale;
            Profilo.ColoreTessere = 0xABCDEF;
            anna = Profilo;
            Profilo = salvato;
        }
        a->ProfiloSuDisco(QStringLiteral("anna"), anna);
        FormConfigura *f = AmbienteConfigura::Apri();
        AmbienteConfigura::Clicca(f->OptionUtente[1]);
        Profilo.NumeroTessere = 16; // a change to the default player, saved by the click in the list
        AmbienteConfigura::ScegliNellaLista(f, QStringLiteral("ANNA"));
        QCOMPARE(utente(QStringLiteral("_predefinito.INI")).split('\n').value(3), QByteArray(" 16 \r"));
        QCOMPARE(NomeUtente, QStringLiteral("ANNA"));
        QCOMPARE(FileUtente, CartellaUtenti + QStringLiteral("ANNA.ini"));
        QCOMPARE(f->Label4->text(), QStringLiteral("ANNA"));
        QVERIFY(stessoProfilo(Profilo, anna));
        QCOMPARE(f->PicturePosto->palette().color(QPalette::Window), ColoreDaNumero(0xABCDEF));
        QVERIFY(f->CheckRiparti->isVisibleTo(f->FramePunt)); // the input-mode tab follows the player read
    }

    void aNewPlayerTakesTheNameAtEachKeystrokeAndNoFileIsMadeUntilASave()
    {
        FormConfigura *f = AmbienteConfigura::Apri();
        AmbienteConfigura::Clicca(f->OptionUtente[2]);
        QVERIFY(f->TextNuovoUtente->isVisible());
        QCOMPARE(f->focusWidget(), f->TextNuovoUtente);
        const QStringList prima = AmbienteProva::Elenco(a->Utenti(QString()));
        QTest::keyClicks(f->TextNuovoUtente, QStringLiteral("Lu"));
        QCOMPARE(NomeUtente, QStringLiteral("Lu"));
        QCOMPARE(FileUtente, CartellaUtenti + QStringLiteral("Lu.ini"));
        QCOMPARE(f->Label4->text(), QStringLiteral("Lu"));
        QTest::keyClicks(f->TextNuovoUtente, QStringLiteral("ca"));
        QCOMPARE(NomeUtente, QStringLiteral("Luca"));
        QCOMPARE(AmbienteProva::Elenco(a->Utenti(QString())), prima);
        f->mnuEsci_Click();
        QCOMPARE(utente(QStringLiteral("Luca.ini")), ProfiloPredefinitoImportato());
    }

    void aNewPlayerLeftEmptyIsSavedAsDotIniAndListedAsAnEmptyEntry()
    {
        FormConfigura *f = AmbienteConfigura::Apri();
        AmbienteConfigura::Clicca(f->OptionUtente[2]);
        QCOMPARE(NomeUtente, QString());
        QCOMPARE(FileUtente, CartellaUtenti + QStringLiteral(".ini"));
        QCOMPARE(f->Label4->text(), QString());
        f->mnuEsci_Click();
        QCOMPARE(utente(QStringLiteral(".ini")), ProfiloPredefinitoImportato());
        FormConfigura *g = AmbienteConfigura::Apri();
        AmbienteConfigura::Clicca(g->OptionUtente[1]);
        QCOMPARE(g->ListModificaUtente->count(), 1);
        QCOMPARE(g->ListModificaUtente->item(0)->text(), QString());
    }

    void aNewPlayerNamedAsAnExistingOneReplacesItsFileAtTheNextSave()
    {
        ProfiloGiocatore vecchio = Profilo;
        vecchio.ColoreTessere = 0x010203;
        vecchio.ModoInput = ModoInputValori::Tastiera;
        a->ProfiloSuDisco(QStringLiteral("Sara"), vecchio);
        Profilo.ColoreTessere = 0x0A0B0C;
        FormConfigura *f = AmbienteConfigura::Apri();
        AmbienteConfigura::Clicca(f->OptionUtente[2]);
        QTest::keyClicks(f->TextNuovoUtente, QStringLiteral("Sara"));
        QCOMPARE(Profilo.ColoreTessere, double(0x0A0B0C)); // nothing was read
        f->mnuEsci_Click();
        const QList<QByteArray> righe = utente(QStringLiteral("Sara.ini")).split('\n');
        QCOMPARE(righe.value(8), QByteArray(" 658188 \r"));
        QCOMPARE(righe.value(13), QByteArray(" 0 \r"));
    }

    void aPlayerTypedInLowerCaseIsListedInCapitalsAndNamesTheSameFile()
    {
        FormConfigura *f = AmbienteConfigura::Apri();
        AmbienteConfigura::Clicca(f->OptionUtente[2]);
        QTest::keyClicks(f->TextNuovoUtente, QStringLiteral("marco"));
        Profilo.SpessoreRiquadro = 12;
        AmbienteConfigura::Clicca(f->OptionUtente[1]); // saves marco.ini
        QVERIFY(QFileInfo::exists(a->Utenti(QStringLiteral("marco.ini"))));
        AmbienteConfigura::Clicca(f->OptionUtente[0]);
        Profilo.SpessoreRiquadro = 9;
        AmbienteConfigura::Clicca(f->OptionUtente[1]);
        AmbienteConfigura::ScegliNellaLista(f, QStringLiteral("MARCO"));
        QCOMPARE(NomeUtente, QStringLiteral("MARCO"));
        QCOMPARE(Profilo.SpessoreRiquadro, qint16(12)); // read from marco.ini
        Profilo.SpessoreRiquadro = 14;
        f->mnuEsci_Click();
        QDir utenti(a->Utenti(QString()));
        QCOMPARE(utenti.entryList({QStringLiteral("*.ini")}, QDir::Files | QDir::Hidden, QDir::Name),
                 (QStringList{QStringLiteral("_predefinito.INI"), QStringLiteral("marco.ini")}));
        QCOMPARE(utente(QStringLiteral("marco.ini")).split('\n').value(17), QByteArray(" 14 \r"));
    }

    void leavingSavesEvenWhenNothingChangedAndGoesBackToTheMenuWithNoQuestion()
    {
        AmbienteProva::Scrivi(a->Utenti(QStringLiteral("_predefinito.INI")), "vecchio\r\n");
        FormConfigura *f = AmbienteConfigura::Apri();
        f->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(f));
        QTest::keyClick(f->windowHandle(), Qt::Key_E, Qt::AltModifier);
        QTRY_VERIFY(!AmbienteConfigura::Configura());
        QVERIFY(Schermi::Riferimento(QStringLiteral("FormMenu")));
        QVERIFY(a->ambiente->scatole.empty());
        QCOMPARE(utente(QStringLiteral("_predefinito.INI")), ProfiloPredefinitoImportato());
    }

    // --- the three saving moments, byte for byte

    void theFileAfterEachSavingMomentIsExactlyTheProfile()
    {
        const QByteArray nicoloIniziale =
            Righe({"Comic Neue", "Arial", " 1 ", " 8 ", " 255 ", " 16777215 ", "-2147483640 ", " 16777215 ",
                   " 65535 ", " 255 ", " 16777152 ", "False", "False", " 3 ", " 4 ", "False", "True", " 9 ",
                   "True", "False", "True"});
        FormConfigura *f = AmbienteConfigura::Apri();

        // 1. OptionUtente: the default player is written as it stands.
        AmbienteConfigura::Clicca(f->OptionUtente[2]);
        QCOMPARE(utente(QStringLiteral("_predefinito.INI")), ProfiloPredefinitoImportato());

        // A player with an accent in the name, set up through the dialog.
        AmbienteConfigura::Scrivi(f->TextNuovoUtente, QStringLiteral("Nicolò"));
        QCOMPARE(FileUtente, CartellaUtenti + QStringLiteral("Nicolò.ini"));
        Profilo.TipoMemory = 1;
        Profilo.NumeroTessere = 8;
        AmbienteConfigura::Scheda(f, 1);
        a->ambiente->risposteDialoghi << RispostaDialogo::Font(QStringLiteral("Comic Neue"), 140)
                                      << RispostaDialogo::Colore(255);
        AmbienteConfigura::Clicca(f->CommandSceltaFont1);
        AmbienteConfigura::Clicca(f->CommandSceltaColoreFont1);
        AmbienteConfigura::Clicca(f->optMaiuscolo1[0]);
        AmbienteConfigura::Clicca(f->CheckSuoni);
        AmbienteConfigura::Scheda(f, 2);
        AmbienteConfigura::Clicca(f->Option4[3]);
        AmbienteConfigura::Clicca(f->CheckRiquadro);

        // 3. mnuEsci.
        f->mnuEsci_Click();
        QCOMPARE(utente(QStringLiteral("Nicolò.ini")), nicoloIniziale);

        // An upper-case player, made the same way, with the fields carried over.
        f = AmbienteConfigura::Apri();
        AmbienteConfigura::Clicca(f->OptionUtente[2]);
        QCOMPARE(utente(QStringLiteral("Nicolò.ini")), nicoloIniziale); // moment 1 again
        QTest::keyClicks(f->TextNuovoUtente, QStringLiteral("MARCO"));
        AmbienteConfigura::Scheda(f, 2);
        AmbienteConfigura::Clicca(f->Option4[2]);
        AmbienteConfigura::Clicca(f->CheckRiparti);
        AmbienteConfigura::Scheda(f, 0);
        AmbienteConfigura::Clicca(f->OptionUtente[1]);
        const QByteArray marco =
            Righe({"Comic Neue", "Arial", " 1 ", " 8 ", " 255 ", " 16777215 ", "-2147483640 ", " 16777215 ",
                   " 65535 ", " 255 ", " 16777152 ", "False", "False", " 2 ", " 4 ", "True", "True", " 9 ",
                   "True", "False", "True"});
        QCOMPARE(utente(QStringLiteral("MARCO.ini")), marco);

        // 2. The list: saves the player left, then reads the one chosen.
        AmbienteConfigura::ScegliNellaLista(f, QStringLiteral("NICOLÒ"));
        QCOMPARE(utente(QStringLiteral("MARCO.ini")), marco);
        QCOMPARE(NomeUtente, QStringLiteral("NICOLÒ"));
        QCOMPARE(Profilo.ModoInput, ModoInputValori::Tastiera);
        AmbienteConfigura::Scheda(f, 2);
        AmbienteConfigura::Clicca(f->Option4[1]);
        AmbienteConfigura::Scheda(f, 0);
        AmbienteConfigura::ScegliNellaLista(f, QStringLiteral("MARCO"));
        const QByteArray nicoloManuale =
            Righe({"Comic Neue", "Arial", " 1 ", " 8 ", " 255 ", " 16777215 ", "-2147483640 ", " 16777215 ",
                   " 65535 ", " 255 ", " 16777152 ", "False", "False", " 1 ", " 4 ", "False", "True", " 9 ",
                   "True", "False", "True"});
        QCOMPARE(utente(QStringLiteral("Nicolò.ini")), nicoloManuale);
        f->mnuEsci_Click();
        QCOMPARE(utente(QStringLiteral("MARCO.ini")), marco);
        // The names in capitals reached the same files: none was made twice.
        QCOMPARE(QDir(a->Utenti(QString())).entryList({QStringLiteral("*.ini")}, QDir::Files | QDir::Hidden, QDir::Name),
                 (QStringList{QStringLiteral("MARCO.ini"), QStringLiteral("Nicolò.ini"),
                              QStringLiteral("_predefinito.INI")}));
        // and beside each one file of its switch settings, none made twice
        QCOMPARE(QDir(a->Utenti(QString())).entryList({QStringLiteral("*.accesso")}, QDir::Files | QDir::Hidden).size(), 3);
    }

    // --- bad input

    void aDamagedProfileOpensAsTheDesignSaysAndIsWrittenOnlyAtASavingMoment()
    {
        const QByteArray danneggiato =
            Righe({"Arial", "Arial", " 2 ", " 12 ", "-2147483640 ", " 16777215 ", "-2147483640 ", " 16777215 ",
                   " 65535 ", " 255 ", " 16777152 ", "True", "False", " 2 ", " 999 ", "False", "True", "-5 ",
                   "False", "False", "True"});
        AmbienteProva::Scrivi(a->Utenti(QStringLiteral("_predefinito.INI")), danneggiato);
        LeggiProfilo();
        QCOMPARE(Profilo.VelocitaScansione, qint16(999));
        QCOMPARE(Profilo.SpessoreRiquadro, qint16(-5));
        FormConfigura *f = AmbienteConfigura::Apri();
        QVERIFY(f->isVisible());
        QVERIFY(a->ambiente->scatole.empty());
        QCOMPARE(f->HScroll3->value(), 4);
        QCOMPARE(f->HScrollRiquadro->value(), 3);
        QCOMPARE(f->ShapeRiquadro->spessore, 1); // the line the sample had
        QCOMPARE(f->Label7->text(), QStringLiteral("Velocità scansione: 249.75 secondi"));
        QCOMPARE(Profilo.VelocitaScansione, qint16(999));
        QCOMPARE(Profilo.SpessoreRiquadro, qint16(-5));
        AmbienteConfigura::Scheda(f, 1);
        AmbienteConfigura::Scheda(f, 2);
        QCOMPARE(utente(QStringLiteral("_predefinito.INI")), danneggiato);
        f->mnuEsci_Click();
        QCOMPARE(utente(QStringLiteral("_predefinito.INI")), danneggiato);
    }

    void aProfileWithColoursThatAreNotNumbersOpensOnTheDefaults()
    {
        const QByteArray danneggiato =
            Righe({"Arial", "Arial", " 2 ", " 12 ", "rosso", "bianco", "-2147483640 ", " 16777215 ", "giallo ",
                   " 255 ", " 16777152 ", "True", "False", " 3 ", " 8 ", "False", "True", " 20 ", "False", "False",
                   "True"});
        a->ProfiloSuDisco(QStringLiteral("Eva"), Profilo);
        AmbienteProva::Scrivi(a->Utenti(QStringLiteral("Eva.ini")), danneggiato);
        FormConfigura *f = AmbienteConfigura::Apri();
        AmbienteConfigura::Clicca(f->OptionUtente[1]);
        AmbienteConfigura::ScegliNellaLista(f, QStringLiteral("EVA"));
        QVERIFY(a->ambiente->scatole.empty());
        QCOMPARE(f->PicturePosto->palette().color(QPalette::Window), ColoreDaNumero(Colori::Giallo));
        QCOMPARE(Profilo.ModoInput, ModoInputValori::Mouse);
        QVERIFY(f->Option4[0]->isChecked());
        QCOMPARE(utente(QStringLiteral("Eva.ini")), danneggiato);
        f->mnuEsci_Click();
        // The defaults it fell back on reach the disk at the saving moment.
        QCOMPARE(utente(QStringLiteral("Eva.ini")),
                 Righe({"Arial", "Arial", " 2 ", " 12 ", "-2147483640 ", " 16777215 ", "-2147483640 ", " 16777215 ",
                        " 65535 ", " 255 ", " 16777152 ", "True", "False", " 0 ", " 4 ", "False", "False", " 9 ",
                        "False", "False", "False"}));
    }

    void aPlayerNameThatCannotBeAFileEndsThroughTheFailureMessageAndTouchesNoOtherProfile()
    {
        a->ProfiloSuDisco(QStringLiteral("Anna"), Profilo);
        FormConfigura *f = AmbienteConfigura::Apri();
        AmbienteConfigura::Clicca(f->OptionUtente[2]);
        const QStringList prima = AmbienteProva::Elenco(a->Utenti(QString()));
#ifdef Q_OS_WIN
        const QString nome = QStringLiteral("a:b");
#else
        const QString nome = QStringLiteral("Anna/Bo");
#endif
        QTest::keyClicks(f->TextNuovoUtente, nome);
        bool terminato = false;
        try {
            f->mnuEsci_Click();
        } catch (const ProcessoTerminato &p) {
            terminato = true;
            QCOMPARE(p.fine.stato, 1);
            QVERIFY2(p.fine.messaggio.contains(MappaPercorso(CartellaUtenti + nome + QStringLiteral(".ini"))),
                     qPrintable(p.fine.messaggio));
        }
        QVERIFY(terminato);
        QCOMPARE(a->ambiente->scatole.size(), size_t(1));
        QCOMPARE(a->ambiente->scatole[0].stile, int(Msg::vbCritical));
        QCOMPARE(a->ambiente->scatole[0].titolo, QStringLiteral("Coppie vivaci"));
        QVERIFY(a->ambiente->scatole[0].testo.contains(QStringLiteral("Bo.ini")));
        QCOMPARE(AmbienteProva::Elenco(a->Utenti(QString())), prima);
    }

    // --- the menu

    void theMenuOpensTheDialogAndItComesBackToAMenuThatListsTheNewPlayer()
    {
        FormMenu *m = a->MostraMenu();
        QVERIFY(m);
        QVERIFY(m->mnuConfigurazioni->isEnabled());
        QPointer<FormMenu> vecchio = m;
        m->mnuConfigurazioni->trigger();
        FormConfigura *f = AmbienteConfigura::Configura();
        QVERIFY(f);
        QCOMPARE(Schermi::Corrente(), f);
        QTRY_VERIFY(!vecchio);
        AmbienteConfigura::Clicca(f->OptionUtente[2]);
        QTest::keyClicks(f->TextNuovoUtente, QStringLiteral("Lucia"));
        AmbienteConfigura::Scheda(f, 2);
        AmbienteConfigura::Clicca(f->Option4[3]);
        f->mnuEsci_Click();
        auto *nuovo = qobject_cast<FormMenu *>(Schermi::Riferimento(QStringLiteral("FormMenu")));
        QVERIFY(nuovo);
        QVERIFY(AmbienteMenu::AttendiVestizione(nuovo));
        QStringList giocatori;
        for (int i = 0; i < nuovo->Combo1->count(); ++i)
            giocatori << nuovo->Combo1->itemText(i);
        QVERIFY2(giocatori.contains(QStringLiteral("Lucia"), Qt::CaseInsensitive), qPrintable(giocatori.join(u',')));
        QCOMPARE(nuovo->Combo1->currentText().toUpper(), QStringLiteral("LUCIA"));
        QCOMPARE(NomeUtente.toUpper(), QStringLiteral("LUCIA"));
        QCOMPARE(Profilo.ModoInput, ModoInputValori::Tastiera);
    }
};

QTEST_MAIN(TestFormConfigura)
#include "test_form_configura.moc"
