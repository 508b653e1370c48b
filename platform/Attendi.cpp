#include "platform/Attendi.h"

#include <QEventLoop>
#include <QTime>
#include <QTimer>

#include <algorithm>
#include <vector>

namespace {
double scalaAttesa = 1.0;
std::function<double()> orologioDiProva;
std::vector<QEventLoop *> atteseAperte;
} // namespace

void ImpostaScalaAttesa(double scala) { scalaAttesa = scala; }
void ImpostaOrologioPerProve(std::function<double()> orologio) { orologioDiProva = std::move(orologio); }
int AtteseInCorso() { return int(atteseAperte.size()); }

void InterrompiAttesePerProve()
{
    for (QEventLoop *l : atteseAperte)
        l->exit(1);
}

double SecondiDallaMezzanotte()
{
    if (orologioDiProva)
        return orologioDiProva();
    return QTime::currentTime().msecsSinceStartOfDay() / 1000.0;
}

void Attendi(double secondi)
{
    const double fine = SecondiDallaMezzanotte() + secondi * scalaAttesa;
    if (SecondiDallaMezzanotte() >= fine)
        return;

    QEventLoop ciclo;
    QTimer sveglia;
    sveglia.setSingleShot(true);
    sveglia.setTimerType(Qt::PreciseTimer);
    auto arma = [&] {
        const double resto = fine - SecondiDallaMezzanotte();
        sveglia.start(std::clamp(int(resto * 1000.0 + 0.999), 1, 250));
    };
    QObject::connect(&sveglia, &QTimer::timeout, &ciclo, [&] {
        if (SecondiDallaMezzanotte() >= fine)
            ciclo.exit(0);
        else
            arma();
    });
    arma();
    atteseAperte.push_back(&ciclo);
    ciclo.exec();
    atteseAperte.erase(std::find(atteseAperte.begin(), atteseAperte.end(), &ciclo));
}
