#pragma once

#include <QString>

#include <functional>

// The game's folder tree, written the Windows way and mapped to the platform.
namespace Cartelle {
inline const QString Radice = QStringLiteral("C:\\ImpostazioniProgrammiLorea\\");
inline const QString Tesselo = QStringLiteral("C:\\ImpostazioniProgrammiLorea\\tesselo\\");
inline const QString Utenti = QStringLiteral("C:\\ImpostazioniProgrammiLorea\\tesselo\\utenti\\");
inline const QString Dati = QStringLiteral("C:\\ImpostazioniProgrammiLorea\\tesselo\\dati\\");
inline const QString Leggimi = QStringLiteral("C:\\ImpostazioniProgrammiLorea\\leggimi.txt");
} // namespace Cartelle

void CreaCartelleDati();
bool FileEsiste(const QString &percorso);
bool CartellaEsiste(const QString &percorso);
void CreaCartella(const QString &percorso);
// As CreaCartella, for the callers that pass a failure over: false when the folder could not be made.
bool TentaCreaCartella(const QString &percorso);
QString CartellaSistema();
void InstallaFont();
void ImportaMemoryPronti();

// The cursive font, when it lies in the fonts folder, is made known to this
// process; on a first run InstallaFont does it.
void RegistraFontCorsivo();

// Tests follow the folders made and the files copied, in their order.
void ImpostaDiarioPerProve(std::function<void(const QString &)> diario);

// Where the platform keeps the user's fonts: a test can point it elsewhere.
void ImpostaCartellaSistemaPerProve(const QString &cartella);

// The credit line of the cursive font's author, shown when it is installed.
inline const QString CreditoFontCorsivo =
    QStringLiteral("Font \"Écolier Court\" di Jean-Marie Douteau, sotto SIL Open Font License");
