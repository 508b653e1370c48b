// The switch settings panel: opened from the input tab of the settings
// dialog, what each control writes, the place to try the switch, the keys
// chosen by pressing them, the languages, and the file the settings reach.

#include "AiutoConfigura.h"

#include "platform/Joystick.h"
#include "profiles/ProfiloAccesso.h"
#include "settings/FormAccesso.h"

#include <QGroupBox>
#include <QMenuBar>
#include <QPushButton>

namespace {
class JoystickProva final : public SorgenteJoystick
{
public:
    void premi(int numero, bool premuto) { emit Pulsante(numero, premuto); }
};
} // namespace

class TestFormAccesso : public QObject
{
    Q_OBJECT
private:
    std::unique_ptr<AmbienteConfigura> a;
    qint64 adesso = 5000;
    JoystickProva *joystick = nullptr;

    static FormAccesso *apri()
    {
        Schermi::Mostra(QStringLiteral("FormAccesso"));
        return qobject_cast<FormAccesso *>(Schermi::Riferimento(QStringLiteral("FormAccesso")));
    }
    static QString prima(FormAccesso *f) { return f->ListProva->count() ? f->ListProva->item(0)->text() : QString(); }
    void tieni(QWidget *w, Qt::Key k, int ms)
    {
        QTest::keyPress(w, k);
        adesso += ms;
        QTest::keyRelease(w, k);
    }

private slots:
    void init()
    {
        a = std::make_unique<AmbienteConfigura>();
        Accesso = ImpostazioniAccesso{};
        adesso = 5000;
        ImpostaMomentoIngressoPerProve([this] { return adesso; });
        joystick = nullptr;
        ImpostaJoystickPerProve([this] {
            auto j = std::make_unique<JoystickProva>();
            joystick = j.get();
            return std::unique_ptr<SorgenteJoystick>(std::move(j));
        });
    }
    void cleanup()
    {
        a.reset();
        ImpostaMomentoIngressoPerProve({});
        ImpostaJoystickPerProve({});
        Accesso = ImpostazioniAccesso{};
    }

    void theButtonStandsInTheInputTabClearOfEveryDesignedControl()
    {
        FormConfigura *f = AmbienteConfigura::Apri();
        QVERIFY(f && ResizeCondiviso);
        QCOMPARE(f->CommandAccesso->parentWidget(), f->FramePunt);
        QCOMPARE(f->CommandAccesso->text(), QStringLiteral("Accesso con sensori"));
        QRect nostro;
        QList<QPair<QString, QRect>> altri;
        for (const clsResize::Controllo &c : ResizeCondiviso->Tabella()) {
            if (!c.control)
                continue;
            const QRect r(c.Left, c.Top, c.Width, c.Height);
            if (c.control == f->CommandAccesso)
                nostro = r;
            else if (c.control->parentWidget() == f->FramePunt)
                altri << qMakePair(c.control->objectName(), r);
        }
        QCOMPARE(nostro, QRect(6600, 4680, 2655, 1095));
        QVERIFY(altri.size() >= 11);
        for (const auto &[nome, r] : altri)
            QVERIFY2(!r.intersects(nostro), qPrintable(nome));
        QVERIFY(QRect(0, 0, 9495, 6735).contains(nostro));
        // It scales with the form as the designed controls do.
        const double ro = double(TwipsDaPixel(f->width())) / ResizeCondiviso->LarghezzaProgetto();
        const GeometriaTwips g = LeggiGeometria(f->CommandAccesso);
        QVERIFY(std::abs(g.Left - 6600 * ro) <= TwipsPerPixel);
        QVERIFY(std::abs(g.Width - 2655 * ro) <= TwipsPerPixel);
        AmbienteConfigura::Scheda(f, 2);
        QVERIFY(f->CommandAccesso->isVisible());
        for (int modo = 0; modo < 4; ++modo) {
            AmbienteConfigura::Clicca(f->Option4[size_t(modo)]);
            QVERIFY(f->CommandAccesso->isVisible());
        }
    }

    void theButtonOpensThePanelAndLeavingItComesBackToTheInputTab()
    {
        FormConfigura *f = AmbienteConfigura::Apri();
        AmbienteConfigura::Scheda(f, 2);
        bool visto = false;
        // The panel is modal: it is looked at and left from inside its own loop.
        std::function<void()> guarda = [&] {
            auto *p = qobject_cast<FormAccesso *>(Schermi::Riferimento(QStringLiteral("FormAccesso")));
            if (!p || !p->isVisible() || !p->isModal()) {
                QTimer::singleShot(5, guarda);
                return;
            }
            visto = true;
            QCOMPARE(p->geometry(), QRect(0, 0, 1024, 768));
            QCOMPARE(p->LabelTitolo->text(), QStringLiteral("Accesso con sensori: _predefinito"));
            p->mnuEsci->trigger();
        };
        QTimer::singleShot(5, guarda);
        AmbienteConfigura::Clicca(f->CommandAccesso);
        QVERIFY(visto);
        QVERIFY(!Schermi::Riferimento(QStringLiteral("FormAccesso")));
        QCOMPARE(f->TabStrip1->currentIndex(), 2);
        QVERIFY(f->FramePunt->isVisible());
        QVERIFY(!f->FrameUtente->isVisible());
    }

    void eachControlWritesItsSettingAtOnce()
    {
        FormAccesso *f = apri();
        QVERIFY(f);
        QCOMPARE(f->LabelAccettazione->text(), QStringLiteral("Tempo di pressione: 0,00 secondi"));
        QCOMPARE(f->LabelPausa->text(), QStringLiteral("La scansione automatica non si ferma mai"));
        QCOMPARE(f->HScrollAccettazione->maximum() * FormAccesso::PassoMs, 2000);
        QCOMPARE(f->HScrollIgnora->maximum() * FormAccesso::PassoMs, 3000);
        QCOMPARE(f->HScrollPausa->maximum(), 10);
        f->HScrollAccettazione->setValue(6);
        QCOMPARE(Accesso.AccettazioneMs, 300);
        QCOMPARE(f->LabelAccettazione->text(), QStringLiteral("Tempo di pressione: 0,30 secondi"));
        f->HScrollIgnora->setValue(f->HScrollIgnora->maximum());
        QCOMPARE(Accesso.IgnoraMs, 3000);
        QCOMPARE(f->LabelIgnora->text(), QStringLiteral("Pausa dopo una pressione: 3,00 secondi"));
        f->HScrollPausa->setValue(3);
        QCOMPARE(Accesso.PausaDopoGiri, 3);
        QCOMPARE(f->LabelPausa->text(), QStringLiteral("La scansione automatica si ferma dopo 3 giri senza pressioni"));
        AmbienteConfigura::Clicca(f->CheckSuonoPasso);
        QVERIFY(Accesso.SuonoPasso);
        AmbienteConfigura::Clicca(f->CheckSuonoTessera);
        QVERIFY(Accesso.SuonoTessera);
        AmbienteConfigura::Clicca(f->OptionInterruttori[1]);
        QCOMPARE(Accesso.Interruttori, SceltaInterruttori::Mouse);
        AmbienteConfigura::Clicca(f->OptionInterruttori[2]);
        QCOMPARE(Accesso.Interruttori, SceltaInterruttori::Joystick);
        QVERIFY(joystick);
        AmbienteConfigura::Clicca(f->OptionInterruttori[0]);
        QCOMPARE(Accesso.Interruttori, SceltaInterruttori::Tasti);
    }

    void theTryAreaShowsEachPressAsCountedOrFiltered()
    {
        Accesso.AccettazioneMs = 300;
        Accesso.IgnoraMs = 1000;
        FormAccesso *f = apri();
        QWidget *prova = f->PictureProva;
        tieni(prova, Qt::Key_Space, 120);
        QCOMPARE(prima(f), QStringLiteral("Sensore 1: troppo breve: non contata"));
        adesso += 500;
        tieni(prova, Qt::Key_Space, 400);
        QCOMPARE(prima(f), QStringLiteral("Sensore 1: contata"));
        adesso += 100;
        tieni(prova, Qt::Key_Return, 400);
        QCOMPARE(prima(f), QStringLiteral("Sensore 2: troppo vicina alla precedente: non contata"));
        adesso += 2000;
        QTest::keyPress(prova, Qt::Key_Return);
        QCOMPARE(f->PictureProva->Stato, 3);
        // A key held down repeats: told once a hold, however many come.
        // (as X11 sends it: an auto-repeated release, then an auto-repeated press)
        for (int i = 0; i < 20; ++i) {
            QKeyEvent su(QEvent::KeyRelease, Qt::Key_Return, Qt::NoModifier, QString(), true);
            QApplication::sendEvent(prova, &su);
            QKeyEvent giu(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QString(), true);
            QApplication::sendEvent(prova, &giu);
        }
        QCOMPARE(prima(f), QStringLiteral("Sensore 2: ripetizione del tasto: non contata"));
        adesso += 300;
        QTest::keyRelease(prova, Qt::Key_Return);
        QCOMPARE(prima(f), QStringLiteral("Sensore 2: contata"));
        QCOMPARE(f->Contate(), 2);
        QCOMPARE(f->Filtrate(), 3);
        QCOMPARE(f->LabelConteggio->text(), QStringLiteral("Contate: 2    Filtrate: 3"));
        QCOMPARE(f->ListProva->count(), 5);
        // Changing a time changes the next tries at once: no ignore time now.
        f->HScrollIgnora->setValue(0);
        f->HScrollAccettazione->setValue(0);
        adesso += 10;
        tieni(prova, Qt::Key_Space, 5);
        adesso += 10;
        tieni(prova, Qt::Key_Space, 5);
        QCOMPARE(f->Contate(), 4);
    }

    void twoKeysAreChosenByPressingThem()
    {
        FormAccesso *f = apri();
        AmbienteConfigura::Clicca(f->OptionInterruttori[3]);
        // No keys yet: choosing them begins at once.
        QCOMPARE(f->TastoAtteso(), 1);
        QCOMPARE(f->LabelTasti->text(), QStringLiteral("Premi il primo tasto"));
        QTest::keyClick(f->PictureProva, Qt::Key_A);
        QCOMPARE(f->TastoAtteso(), 2);
        QCOMPARE(f->LabelTasti->text(), QStringLiteral("Premi il secondo tasto"));
        QTest::keyClick(f->PictureProva, Qt::Key_A); // the same key twice is no pair
        QCOMPARE(f->TastoAtteso(), 2);
        QTest::keyClick(f->PictureProva, Qt::Key_L);
        QCOMPARE(f->TastoAtteso(), 0);
        QCOMPARE(Accesso.Interruttori, SceltaInterruttori::TastiScelti);
        QCOMPARE(Accesso.Tasto1, int(Qt::Key_A));
        QCOMPARE(Accesso.Tasto2, int(Qt::Key_L));
        QCOMPARE(f->LabelTasti->text(), QStringLiteral("A e L"));
        QVERIFY(f->OptionInterruttori[3]->isChecked());
        // Now those keys are the switches, and Space is not.
        QTest::keyClick(f->PictureProva, Qt::Key_L);
        QCOMPARE(prima(f), QStringLiteral("Sensore 2: contata"));
        QTest::keyClick(f->PictureProva, Qt::Key_Space);
        QCOMPARE(f->ListProva->count(), 1);
        // Escape leaves a new choice with the old keys.
        AmbienteConfigura::Clicca(f->CommandScegliTasti);
        QTest::keyClick(f->PictureProva, Qt::Key_B);
        QTest::keyClick(f->PictureProva, Qt::Key_Escape);
        QCOMPARE(f->TastoAtteso(), 0);
        QCOMPARE(Accesso.Tasto1, int(Qt::Key_A));
    }

    void mouseButtonsAndAJoystickAreTriedWhenChosen()
    {
        FormAccesso *f = apri();
        // Clicks are no presses while keys are the switches.
        AmbienteConfigura::Clicca(f->PictureProva);
        QCOMPARE(f->ListProva->count(), 0);
        AmbienteConfigura::Clicca(f->OptionInterruttori[1]);
        QTest::mouseClick(f->PictureProva, Qt::LeftButton);
        QCOMPARE(prima(f), QStringLiteral("Sensore 1: contata"));
        QTest::mouseClick(f->PictureProva, Qt::RightButton);
        QCOMPARE(prima(f), QStringLiteral("Sensore 2: contata"));
        AmbienteConfigura::Clicca(f->OptionInterruttori[2]);
        QVERIFY(joystick);
        joystick->premi(1, true);
        joystick->premi(1, false);
        QCOMPARE(prima(f), QStringLiteral("Sensore 2: contata"));
        joystick->premi(5, true);
        QCOMPARE(f->ListProva->count(), 3);
    }

    void theSettingsReachTheirFileWhenTheDialogIsLeftAndTheProfileKeepsItsBytes()
    {
        FormConfigura *f = AmbienteConfigura::Apri();
        const QByteArray profiloPrima = [] {
            return CodificaTesto(TestoProfilo(Profilo));
        }();
        FormAccesso *p = apri();
        p->HScrollAccettazione->setValue(6);
        AmbienteConfigura::Clicca(p->OptionInterruttori[1]);
        p->mnuEsci->trigger();
        Schermi::Mostra(QStringLiteral("FormConfigura"));
        f->mnuEsci->trigger();
        const QStringList file = QDir(a->Utenti(QString())).entryList(QDir::Files);
        auto nome = [&](const QString &n) {
            for (const QString &f2 : file)
                if (f2.compare(n, Qt::CaseInsensitive) == 0)
                    return a->Utenti(f2);
            return QString();
        };
        QCOMPARE(AmbienteProva::Leggi(nome(QStringLiteral("_predefinito.ini"))), profiloPrima);
        const ImpostazioniAccesso letto =
            AccessoDaTesto(DecodificaTesto(AmbienteProva::Leggi(nome(QStringLiteral("_predefinito.accesso")))));
        QCOMPARE(letto.AccettazioneMs, 300);
        QCOMPARE(letto.Interruttori, SceltaInterruttori::Mouse);
    }

    void thePanelSpeaksTheCurrentLanguage()
    {
        LinguaCorrente = QStringLiteral("English");
        FormAccesso *f = apri();
        QCOMPARE(f->windowTitle(), QStringLiteral("Switch access"));
        QCOMPARE(f->FrameProva->title(), QStringLiteral("Try the switch"));
        QCOMPARE(f->OptionInterruttori[1]->text(), QStringLiteral("Mouse buttons (left and right)"));
        QCOMPARE(f->LabelAccettazione->text(), QStringLiteral("Hold time: 0.00 seconds"));
        QCOMPARE(f->mnuEsci->text(), QStringLiteral("&Exit"));
        QTest::keyClick(f->PictureProva, Qt::Key_Space);
        QCOMPARE(prima(f), QStringLiteral("Switch 1: counted"));
    }
};

QTEST_MAIN(TestFormAccesso)
#include "test_form_accesso.moc"
