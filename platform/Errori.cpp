#include "platform/Errori.h"

#include "platform/MsgBox.h"

#include <cstdio>
#include <cstdlib>

namespace {
std::function<void(const FineProcesso &)> fineDiProva;
}

void ImpostaFineProcessoPerProve(std::function<void(const FineProcesso &)> fine) { fineDiProva = std::move(fine); }

void ErroreFatale(const QString &cosaNonRiuscito)
{
    MsgBox(cosaNonRiuscito, Msg::vbOKOnly | Msg::vbCritical, TitoloGioco);
    if (fineDiProva)
        fineDiProva({1, cosaNonRiuscito});
    std::fflush(nullptr);
    std::_Exit(1);
}

void TerminaProcesso(int stato)
{
    if (fineDiProva)
        fineDiProva({stato, QString()});
    std::fflush(nullptr);
    std::_Exit(stato);
}
