// From the splash's button to the menu fully dressed, with 200 sets in each
// data folder and 50 profiles. Prints figures; asserts nothing about time.

#include "AmbienteProva.h"

#include "app/Avvio.h"
#include "app/FormAvvio.h"
#include "menu/FormMenu.h"
#include "platform/Schermi.h"
#include "platform/TestoFile.h"
#include "platform/Twips.h"
#include "profiles/Profilo.h"
#include "profiles/StatoProcesso.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QTimer>
#include <QToolButton>

#include <algorithm>
#include <cstdio>
#include <vector>

namespace {
void preparaDati(const AmbienteProva &a, int setPerCartella, int profili)
{
    QByteArray set;
    for (int i = 0; i < 12; ++i)
        set += "C:\\ImpostazioniProgrammiLorea\\tesselo\\dati\\gif\\a" + QByteArray::number(i)
               + ".gif\r\nC:\\ImpostazioniProgrammiLorea\\tesselo\\dati\\gif\\b" + QByteArray::number(i)
               + ".gif\r\nC:\\ImpostazioniProgrammiLorea\\tesselo\\dati\\suoni\\a.wav\r\n\r\n";
    const QString dati = a.Radice() + QStringLiteral("/tesselo/dati/");
    const char *estensioni[2][2] = {{"ii", ".ass"}, {"ii", ".agg"}};
    const char *estensioniPi[2][2] = {{"pi", ".aps"}, {"pi", ".apg"}};
    for (int i = 0; i < setPerCartella; ++i) {
        const auto &e = estensioni[i % 2];
        const auto &p = estensioniPi[i % 2];
        AmbienteProva::Scrivi(dati + QLatin1String(e[0]) + QStringLiteral("/set%1").arg(i, 3, 10, QLatin1Char('0'))
                                  + QLatin1String(e[1]), set);
        AmbienteProva::Scrivi(dati + QLatin1String(p[0]) + QStringLiteral("/set%1").arg(i, 3, 10, QLatin1Char('0'))
                                  + QLatin1String(p[1]), set);
    }
    for (const char *c : {"suoni", "gif", "swf"})
        QDir().mkpath(dati + QLatin1String(c));
    ValoriPredefiniti();
    Profilo.ProntiImportati = true;
    const QByteArray profilo = CodificaTesto(TestoProfilo(Profilo));
    AmbienteProva::Scrivi(a.Radice() + QStringLiteral("/tesselo/utenti/_predefinito.ini"), profilo);
    for (int i = 1; i < profili; ++i)
        AmbienteProva::Scrivi(a.Radice() + QStringLiteral("/tesselo/utenti/giocatore%1.ini").arg(i, 2, 10, QLatin1Char('0')),
                              profilo);
}

struct Misura {
    double mostrato = 0, vestito = 0;
};

Misura unaVolta()
{
    Schermi::Mostra(QStringLiteral("FormAvvio"));
    auto *avvio = qobject_cast<FormAvvio *>(Schermi::Riferimento(QStringLiteral("FormAvvio")));
    QCoreApplication::processEvents();
    QElapsedTimer t;
    t.start();
    avvio->Command1->click();
    Misura m;
    m.mostrato = t.nsecsElapsed() / 1e6;
    auto *menu = qobject_cast<FormMenu *>(Schermi::Riferimento(QStringLiteral("FormMenu")));
    while (menu->Timer1->isActive())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    m.vestito = t.nsecsElapsed() / 1e6;
    Schermi::ScaricaTuttiPerProve();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return m;
}

void stampa(const char *cosa, std::vector<double> v)
{
    std::sort(v.begin(), v.end());
    std::printf("%-44s min %7.1f ms   mediana %7.1f ms   max %7.1f ms\n", cosa, v.front(), v[v.size() / 2], v.back());
}
} // namespace

int main(int argc, char *argv[])
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    // The offscreen platform says at each screen that it cannot raise windows.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &testo) {
        if (!testo.contains(QLatin1String("does not support raise")))
            std::fprintf(stderr, "%s\n", qPrintable(testo));
    });
    AmbienteProva ambiente;
    ImpostaScalaAttesa(1.0);
    ImpostaSchermoPerProve(QRect(0, 0, 1024, 768));
    preparaDati(ambiente, 200, 50);
    RegistraSchermi();
    NomeUtente = ProfiloPredefinito;
    FileUtente = CartellaUtenti + QStringLiteral("_predefinito.INI");
    LeggiProfilo();

    const int volte = argc > 1 ? QByteArray(argv[1]).toInt() : 15;
    unaVolta(); // the first run also loads fonts and plugins
    std::vector<double> mostrato, vestito;
    for (int i = 0; i < volte; ++i) {
        const Misura m = unaVolta();
        mostrato.push_back(m.mostrato);
        vestito.push_back(m.vestito);
    }
    std::printf("Menu con 200 memory per cartella (ii, pi) e 50 profili, %d prove, schermo 1024x768\n", volte);
    stampa("dal pulsante dell'avvio al menu mostrato", mostrato);
    stampa("dal pulsante al menu vestito (dopo il tick)", vestito);
    std::printf("(il tick arriva 50 ms dopo l'attivazione: quei 50 ms sono nella seconda misura)\n");
    return 0;
}
