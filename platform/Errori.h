#pragma once

#include <QString>

#include <functional>

// Where an error ends the program: one critical box titled "Coppie vivaci" that
// says what failed, then the process ends with a non-zero status.
[[noreturn]] void ErroreFatale(const QString &cosaNonRiuscito);

// The regular end of the process, with all its windows.
[[noreturn]] void TerminaProcesso(int stato);

// Tests replace the end of the process: the function must not return (it
// throws), so that the code after the failure never runs.
struct FineProcesso {
    int stato;
    QString messaggio;
};
void ImpostaFineProcessoPerProve(std::function<void(const FineProcesso &)> fine);
