// The settings dialog: from the click on Configurazioni in the menu to the
// dialog painted, and from a click on a tab to that tab's frame painted.
// Prints figures; asserts nothing about time. Runs on the offscreen platform
// unless QT_QPA_PLATFORM says otherwise (under Xvfb: QT_QPA_PLATFORM=xcb).

#include "AmbienteProva.h"

#include "app/Avvio.h"
#include "menu/FormMenu.h"
#include "platform/ControlliACapo.h"
#include "platform/Schermi.h"
#include "platform/TestoFile.h"
#include "platform/Twips.h"
#include "profiles/Profilo.h"
#include "settings/FormConfigura.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFrame>
#include <QMenuBar>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <vector>

namespace {
// Notes the first paint of one widget after it is armed.
class Pittura final : public QObject
{
public:
    QWidget *atteso = nullptr;
    bool dipinto = false;
    bool eventFilter(QObject *o, QEvent *e) override
    {
        if (e->type() == QEvent::Paint && o == atteso)
            dipinto = true;
        return false;
    }
    void arma(QWidget *w)
    {
        atteso = w;
        dipinto = false;
    }
    void attendi()
    {
        while (!dipinto)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
};

// The process's own processor time: on a machine shared with other work it
// shows what the dialog costs, where the clock also counts the waits for a core.
double msProcessore()
{
    timespec t{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &t);
    return double(t.tv_sec) * 1e3 + double(t.tv_nsec) / 1e6;
}

void stampa(const char *cosa, std::vector<double> v)
{
    std::sort(v.begin(), v.end());
    std::printf("%-48s min %7.2f ms   mediana %7.2f ms   max %7.2f ms\n", cosa, v.front(), v[v.size() / 2], v.back());
}

void prepara(const AmbienteProva &a, int profili)
{
    for (const char *c : {"tesselo/utenti", "tesselo/dati/ii", "tesselo/dati/pi", "tesselo/dati/suoni",
                          "tesselo/dati/gif", "tesselo/dati/swf"})
        QDir().mkpath(a.Radice() + u'/' + QLatin1String(c));
    ValoriPredefiniti();
    Profilo.ProntiImportati = true;
    const QByteArray profilo = CodificaTesto(TestoProfilo(Profilo));
    AmbienteProva::Scrivi(a.Radice() + QStringLiteral("/tesselo/utenti/_predefinito.ini"), profilo);
    for (int i = 1; i < profili; ++i)
        AmbienteProva::Scrivi(a.Radice() + QStringLiteral("/tesselo/utenti/giocatore%1.ini").arg(i, 2, 10, QLatin1Char('0')),
                              profilo);
}
} // namespace

int main(int argc, char *argv[])
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &testo) {
        if (!testo.contains(QLatin1String("does not support")))
            std::fprintf(stderr, "%s\n", qPrintable(testo));
    });
    AmbienteProva ambiente;
    ImpostaScalaAttesa(1.0);
    const bool schermoVero = QGuiApplication::platformName() != QLatin1String("offscreen");
    if (!schermoVero)
        ImpostaSchermoPerProve(QRect(0, 0, 1024, 768));
    prepara(ambiente, 50);
    RegistraSchermi();
    NomeUtente = ProfiloPredefinito;
    FileUtente = CartellaUtenti + QStringLiteral("_predefinito.INI");
    LeggiProfilo();

    Pittura pittura;
    app.installEventFilter(&pittura);
    const int volte = argc > 1 ? QByteArray(argv[1]).toInt() : 15;
    std::vector<double> apertura, schede, aperturaCpu, schedeCpu;
    for (int i = 0; i <= volte; ++i) {
        Schermi::Mostra(QStringLiteral("FormMenu"));
        auto *menu = qobject_cast<FormMenu *>(Schermi::Riferimento(QStringLiteral("FormMenu")));
        while (menu->Timer1->isActive())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        QTest::qWait(20);

        QElapsedTimer t;
        const double cpu = msProcessore();
        t.start();
        QTest::mouseClick(menu->BarraMenu, Qt::LeftButton, {},
                          menu->BarraMenu->actionGeometry(menu->mnuConfigurazioni).center());
        auto *f = qobject_cast<FormConfigura *>(Schermi::Riferimento(QStringLiteral("FormConfigura")));
        pittura.arma(static_cast<QWidget *>(f->OptionUtente[2]));
        pittura.attendi();
        const double aperto = t.nsecsElapsed() / 1e6;
        const double apertoCpu = msProcessore() - cpu;
        QTest::qWait(20);

        std::vector<double> cambi, cambiCpu;
        QTabBar *barra = f->TabStrip1->tabBar();
        for (int scheda : {1, 2, 0, 2, 1, 0}) {
            // A control of the tab's frame: it is painted once the frame is.
            QWidget *frame = scheda == 0   ? static_cast<QWidget *>(f->OptionUtente[2])
                             : scheda == 1 ? static_cast<QWidget *>(f->CheckSuoni)
                                           : static_cast<QWidget *>(f->Option4[3]);
            pittura.arma(frame);
            QElapsedTimer c;
            const double cpuScheda = msProcessore();
            c.start();
            QTest::mouseClick(barra, Qt::LeftButton, {}, barra->tabRect(scheda).center());
            pittura.attendi();
            cambi.push_back(c.nsecsElapsed() / 1e6);
            cambiCpu.push_back(msProcessore() - cpuScheda);
            QTest::qWait(10);
        }
        f->mnuEsci_Click();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        if (i == 0)
            continue; // the first run also loads fonts and plugins
        apertura.push_back(aperto);
        aperturaCpu.push_back(apertoCpu);
        schede.insert(schede.end(), cambi.begin(), cambi.end());
        schedeCpu.insert(schedeCpu.end(), cambiCpu.begin(), cambiCpu.end());
    }
    const QRect s = RettangoloSchermo();
    std::printf("Configurazioni, %d prove, piattaforma %s, schermo %dx%d, 50 profili\n", volte,
                qPrintable(QGuiApplication::platformName()), s.width(), s.height());
    stampa("dal clic su Configurazioni al dialogo dipinto", apertura);
    stampa("dal clic su una scheda alla scheda ridipinta", schede);
    stampa("  tempo di processore, apertura", aperturaCpu);
    stampa("  tempo di processore, cambio di scheda", schedeCpu);
    Schermi::ScaricaTuttiPerProve();
    return 0;
}
