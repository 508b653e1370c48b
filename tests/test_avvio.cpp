#include "AmbienteProva.h"
#include "AttendiLavoro.h"

#include "platform/TestoFile.h"

#include "app/Avvio.h"
#include "app/FormAvvio.h"
#include "lang/modLanguageSupport.h"
#include "platform/Casuale.h"
#include "platform/Colori.h"
#include "platform/Controlli.h"
#include "platform/IstanzaUnica.h"
#include "platform/Puntatore.h"
#include "platform/Schermi.h"
#include "platform/Twips.h"
#include "platform/clsResize.h"
#include "profiles/CartelleDati.h"
#include "profiles/Profilo.h"
#include "profiles/StatoProcesso.h"

#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QMovie>
#include <QProcess>
#include <QToolButton>

namespace {
// A screen that counts its loads and activations, in place of the menu.
class FormConteggio final : public Form
{
public:
    explicit FormConteggio(const QString &nome) : Form(nome, 6000, 4500) {}
    void Form_Load() override { ++carichi; }
    void Form_Activate() override { ++attivazioni; }
    static inline int carichi = 0;
    int attivazioni = 0;
};

void registraMenuFinto()
{
    Schermi::Registra(QStringLiteral("FormMenu"), [] { return new FormConteggio(QStringLiteral("FormMenu")); });
}

void mettiFontEPronti(const AmbienteProva &a)
{
    AmbienteProva::Scrivi(a.Programma() + QStringLiteral("/penna1.ttf"), "font");
    const QString p = a.Programma() + QStringLiteral("/memorypronti/");
    AmbienteProva::Scrivi(p + QStringLiteral("gif/cane.gif"), "GIF89a");
    AmbienteProva::Scrivi(p + QStringLiteral("ii/animali.agg"), "set");
}

// A tree and a default profile as a game that ran before leaves them.
void mettiAlberoPronto(const AmbienteProva &a)
{
    for (const char *c : {"tesselo/utenti", "tesselo/dati/ii", "tesselo/dati/pi", "tesselo/dati/suoni",
                          "tesselo/dati/gif", "tesselo/dati/swf"})
        QDir().mkpath(a.Radice() + u'/' + QLatin1String(c));
    AmbienteProva::Scrivi(a.Radice() + QStringLiteral("/leggimi.txt"), "x\r\n");
    ValoriPredefiniti();
    Profilo.ProntiImportati = true;
    AmbienteProva::Scrivi(a.Radice() + QStringLiteral("/tesselo/utenti/_predefinito.ini"),
                          CodificaTesto(TestoProfilo(Profilo)));
}
} // namespace

class TestAvvio : public QObject
{
    Q_OBJECT
private slots:
    void init()
    {
        LinguaCorrente.clear();
        RegistraSchermi();
        registraMenuFinto();
    }

    void cleanup()
    {
        Schermi::ScaricaTuttiPerProve();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        RilasciaIstanzaUnica();
        LiberaPuntatore();
    }

    void aFirstRunOnAnEmptyHomeOffersFontAndImportThenShowsTheSplash()
    {
        AmbienteProva a;
        qputenv("XDG_RUNTIME_DIR", a.Casa().toUtf8());
        mettiFontEPronti(a);
        a.risposte = {Msg::vbOK, Msg::vbNo};
        QVERIFY(AvvioProgramma());
        QCOMPARE(a.scatole.size(), size_t(2));
        QVERIFY(a.scatole[0].testo.startsWith(QStringLiteral("Ho installato il font")));
        QCOMPARE(a.scatole[1].testo, QStringLiteral("Vuoi cancellare i files dei memory pronti dalla posizione di origine?"));
        QCOMPARE(AmbienteProva::Leggi(a.Radice() + QStringLiteral("/tesselo/dati/ii/animali.agg")), QByteArray("set"));
        QCOMPARE(NomeUtente, QStringLiteral("_predefinito"));
        QCOMPARE(FileUtente, QStringLiteral("C:\\ImpostazioniProgrammiLorea\\tesselo\\utenti\\_predefinito.INI"));
        QCOMPARE(TestoProfiloBase, TestoLingua(QStringLiteral("0003")));
        QCOMPARE(NumeroGiocatori, qint16(1));
        QVERIFY(Profilo.ProntiImportati);
        // The default profile lives only in memory until the first saving moment.
        QVERIFY(QDir(a.Radice() + QStringLiteral("/tesselo/utenti")).isEmpty());
        QVERIFY(qobject_cast<FormAvvio *>(Schermi::Corrente()));
        QVERIFY(Schermi::Corrente()->isVisible());
    }

    void aSecondStartCreatesNothingAndAsksNothing()
    {
        AmbienteProva a;
        QTemporaryDir runtime;
        qputenv("XDG_RUNTIME_DIR", runtime.path().toUtf8());
        mettiFontEPronti(a);
        QVERIFY(AvvioProgramma());
        SalvaProfilo(); // the confirmed exit of that first run
        Schermi::ScaricaTuttiPerProve();
        RilasciaIstanzaUnica();
        const QStringList prima = AmbienteProva::Elenco(a.Casa());
        a.scatole.clear();
        QVERIFY(AvvioProgramma());
        QVERIFY(a.scatole.empty());
        QCOMPARE(AmbienteProva::Elenco(a.Casa()), prima);
    }

    void aDamagedDefaultProfileOffersTheImportAgain()
    {
        AmbienteProva a;
        qputenv("XDG_RUNTIME_DIR", a.Casa().toUtf8());
        mettiAlberoPronto(a);
        AmbienteProva::Scrivi(a.Radice() + QStringLiteral("/tesselo/utenti/_predefinito.ini"), "Arial\r\n");
        QVERIFY(AvvioProgramma());
        QCOMPARE(a.scatole.size(), size_t(1));
        QCOMPARE(a.scatole[0].testo, QStringLiteral("Vuoi cancellare i files dei memory pronti dalla posizione di origine?"));
    }

    void withoutARuntimeFolderTheLockIsInAFolderOfTheUsersOwn()
    {
        AmbienteProva a;
        qunsetenv("XDG_RUNTIME_DIR");
        RilasciaIstanzaUnica();
        QVERIFY(PrendiIstanzaUnica());
        const QString blocco = a.Casa() + QStringLiteral("/.cache/coppie-vivaci/coppie-vivaci.lock");
        QVERIFY2(QFileInfo::exists(blocco), qPrintable(blocco));
        RilasciaIstanzaUnica();
        QVERIFY(!QFileInfo::exists(blocco));
    }

    void aSecondCopyStartedWhileOneRunsShowsOnlyItsMessageAndTouchesNothing()
    {
        AmbienteProva a;
        mettiAlberoPronto(a);
        QTemporaryDir runtime;
        QProcess primo;
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert(QStringLiteral("HOME"), a.Casa());
        env.insert(QStringLiteral("XDG_DATA_HOME"), a.Casa() + QStringLiteral("/.local/share"));
        env.insert(QStringLiteral("XDG_RUNTIME_DIR"), runtime.path());
        env.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
        primo.setProcessEnvironment(env);
        primo.start(QStringLiteral(COPPIE_ESEGUIBILE), {});
        QVERIFY(primo.waitForStarted(10000));
        const QString blocco = runtime.filePath(QStringLiteral("coppie-vivaci.lock"));
        AttendiFinche([&] { return QFileInfo::exists(blocco); });
        QTest::qWait(1500); // let the first copy reach its splash
        QCOMPARE(primo.state(), QProcess::Running);

        qputenv("XDG_RUNTIME_DIR", runtime.path().toUtf8());
        const QStringList prima = AmbienteProva::Elenco(a.Casa());
        QVERIFY(!AvvioProgramma());
        QCOMPARE(a.scatole.size(), size_t(1));
        QCOMPARE(a.scatole[0].testo, TestoLingua(QStringLiteral("0001")));
        QVERIFY(!a.scatole[0].testo.isEmpty());
        QCOMPARE(a.scatole[0].titolo, TestoLingua(QStringLiteral("0002")));
        QCOMPARE(a.scatole[0].stile & 0x70, int(Msg::vbCritical));
        QCOMPARE(AmbienteProva::Elenco(a.Casa()), prima);
        QVERIFY(Schermi::Aperti().isEmpty());

        primo.kill();
        primo.waitForFinished(5000);
    }

    void theSplashShowsTitleDateButtonAndARandomColour()
    {
        AmbienteProva a;
        SeminaCasuale(11);
        const QColor atteso = ColoreDaNumero(ColoreCasuale());
        SeminaCasuale(11);
        Schermi::Mostra(QStringLiteral("FormAvvio"));
        auto *f = qobject_cast<FormAvvio *>(Schermi::Corrente());
        QVERIFY(f);
        QCOMPARE(f->palette().color(QPalette::Window), atteso);
        QCOMPARE(f->Label2[0]->text(), QStringLiteral("Coppie vivaci"));
        QCOMPARE(f->Label2[0]->font().families().value(0), QStringLiteral("Comic Sans MS"));
        QVERIFY(f->Label2[0]->font().bold());
        QCOMPARE(f->Label2[0]->font().pointSizeF(), 72.0);
        QCOMPARE(f->Label2[1]->text(), QStringLiteral("19/03/2005"));
        QCOMPARE(f->Label2[1]->font().pointSizeF(), 15.75);
        QCOMPARE(f->Command1->text(), QStringLiteral("&Avvio"));
        QVERIFY(f->Image1->movie() && f->Image1->movie()->frameCount() > 1);
        QCOMPARE(f->geometry(), RettangoloSchermo());
    }

    void theSplashNeverLeavesByItself()
    {
        AmbienteProva a;
        Schermi::Mostra(QStringLiteral("FormAvvio"));
        Form *f = Schermi::Corrente();
        QTest::qWait(2500);
        QCOMPARE(Schermi::Corrente(), f);
        QVERIFY(f->isVisible());
        QVERIFY(!Schermi::Riferimento(QStringLiteral("FormMenu")));
    }

    void theButtonAndEitherLabelLeadToTheMenuAndUnloadTheSplash_data()
    {
        QTest::addColumn<int>("quale");
        QTest::newRow("Command1") << 0;
        QTest::newRow("Label2(0)") << 1;
        QTest::newRow("Label2(1)") << 2;
    }

    void theButtonAndEitherLabelLeadToTheMenuAndUnloadTheSplash()
    {
        QFETCH(int, quale);
        AmbienteProva a;
        Schermi::Mostra(QStringLiteral("FormAvvio"));
        auto *f = qobject_cast<FormAvvio *>(Schermi::Corrente());
        const int carichi = FormConteggio::carichi;
        QWidget *bersaglio = quale == 0 ? static_cast<QWidget *>(f->Command1) : f->Label2[quale - 1];
        QTest::mouseClick(bersaglio, Qt::LeftButton);
        auto *menu = dynamic_cast<FormConteggio *>(Schermi::Corrente());
        QVERIFY(menu);
        QCOMPARE(menu->objectName(), QStringLiteral("FormMenu"));
        QCOMPARE(FormConteggio::carichi, carichi + 1);
        QCOMPARE(menu->attivazioni, 1);
        QVERIFY(!Schermi::Riferimento(QStringLiteral("FormAvvio")));
    }

    void aScreenShownAgainLoadsAfreshAndTheReferenceIsReused()
    {
        AmbienteProva a;
        const int carichi = FormConteggio::carichi;
        Schermi::Mostra(QStringLiteral("FormMenu"));
        Form *primo = Schermi::Riferimento(QStringLiteral("FormMenu"));
        Schermi::Mostra(QStringLiteral("FormMenu"));
        QCOMPARE(Schermi::Riferimento(QStringLiteral("FormMenu")), primo);
        QCOMPARE(FormConteggio::carichi, carichi + 1);
        Schermi::Scarica(primo);
        QVERIFY(!Schermi::Riferimento(QStringLiteral("FormMenu")));
        Schermi::Mostra(QStringLiteral("FormMenu"));
        QCOMPARE(FormConteggio::carichi, carichi + 2);
    }

    void theNextScreenIsLoadedBeforeTheLastIsGone()
    {
        AmbienteProva a;
        Schermi::Mostra(QStringLiteral("FormAvvio"));
        QPointer<Form> avvio = Schermi::Corrente();
        bool avvioEraVivo = false;
        Schermi::Registra(QStringLiteral("FormMenu"), [&] {
            avvioEraVivo = avvio && avvio->isVisible();
            return new FormConteggio(QStringLiteral("FormMenu"));
        });
        QTest::mouseClick(qobject_cast<FormAvvio *>(avvio.data())->Command1, Qt::LeftButton);
        QVERIFY(avvioEraVivo);
    }

    void closingAModalScreenActivatesItsOpenerAgain()
    {
        AmbienteProva a;
        Schermi::Mostra(QStringLiteral("FormMenu"));
        auto *menu = dynamic_cast<FormConteggio *>(Schermi::Corrente());
        QVERIFY(menu);
        Schermi::Registra(QStringLiteral("FormModale"), [] {
            auto *f = new FormConteggio(QStringLiteral("FormModale"));
            f->schermoIntero = false;
            return f;
        });
        QTimer::singleShot(50, [] {
            Form *m = Schermi::Riferimento(QStringLiteral("FormModale"));
            QVERIFY(m && m->isModal() && m->isVisible());
            QCOMPARE(Schermi::Corrente(), m);
            Schermi::Scarica(m);
        });
        Schermi::MostraModale(QStringLiteral("FormModale"));
        QCOMPARE(Schermi::Corrente(), menu);
        QCOMPARE(menu->attivazioni, 2);
    }

    void theYesAndNoButtonsOfABoxSpeakTheGamesLanguage()
    {
        AmbienteProva a;
        ImpostaRispostaMsgBox({}); // the real box, answered below as a person would
        QStringList parole;
        QTimer::singleShot(100, [&] {
            auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
            QVERIFY(box);
            parole << box->button(QMessageBox::Yes)->text() << box->button(QMessageBox::No)->text();
            box->button(QMessageBox::No)->click();
        });
        const int risposta = MsgBox(QStringLiteral("Domanda"), Msg::vbYesNo | Msg::vbQuestion);
        QCOMPARE(risposta, int(Msg::vbNo));
        QCOMPARE(parole, QStringList({TestoLingua(QStringLiteral("0005")), TestoLingua(QStringLiteral("0004"))}));
        QCOMPARE(parole.value(0), QString::fromUtf8("SÌ"));
    }

    void theEndOfTheProgramFreesThePointerSavesTheProfileAndEndsWithZero()
    {
        AmbienteProva a;
        mettiAlberoPronto(a);
        FileUtente = CartellaUtenti + QStringLiteral("_predefinito.INI");
        ValoriPredefiniti();
        Profilo.ProntiImportati = true;
        Profilo.NumeroTessere = 16;
        ConfinaPuntatore(QRect(10, 10, 100, 100));
        ResizeCondiviso = std::make_unique<clsResize>();
        try {
            FineDelProgramma();
            QFAIL("the program went on");
        } catch (const ProcessoTerminato &t) {
            QCOMPARE(t.fine.stato, 0);
        }
        QVERIFY(!PuntatoreConfinato());
        QVERIFY(!ResizeCondiviso);
        QVERIFY(AmbienteProva::Leggi(a.Radice() + QStringLiteral("/tesselo/utenti/_predefinito.ini")).contains("\r\n 16 \r\n"));
    }
};

QTEST_MAIN(TestAvvio)
#include "test_avvio.moc"
