#pragma once

#include <QString>

// What the files of Tavola share and nobody else needs.
namespace TavolaInterno {
inline const QString Trovata = QStringLiteral("trovata");

// The old run-time failure of an index outside its array: it ends the program.
[[noreturn]] void FuoriLimiti(const QString &dove);
} // namespace TavolaInterno
