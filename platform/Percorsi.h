#pragma once

#include <QString>

// Where the game's folders are on this platform, and how a path written the
// Windows way ("C:\ImpostazioniProgrammiLorea\tesselo\dati\ii\animali.agg")
// reaches a real file.

// The data root, with a trailing separator: C:\ImpostazioniProgrammiLorea\ on
// Windows, <home>/ImpostazioniProgrammiLorea/ elsewhere.
QString RadiceDatiLocale();

// The folder of the executable, without a trailing separator, in the Windows
// form the game's code builds paths with (App.Path style).
QString CartellaProgramma();
void ImpostaCartellaProgramma(const QString &cartella); // for tests; empty goes back to the executable's

// The user's own copy of what the game writes beside the program, for a
// program folder that cannot be written (an installed game): a local path,
// without a trailing separator. ~/.config/coppie-vivaci on Linux,
// %APPDATA%\coppie-vivaci on Windows. Not created here.
QString CartellaUtenteProgramma();

// Maps a game path to a local one: the data root literal in any letter case
// becomes the local data root, backslashes become the platform's separators,
// doubled separators collapse. Nothing is looked up on disk.
QString MappaPercorso(const QString &percorso);

// As MappaPercorso, then behaves as a case-insensitive file system: each
// component that is not found as written is matched without regard to case.
// Components that match nothing stay as written, so the result also names
// the file to create.
QString PercorsoLocale(const QString &percorso);

// The literal of the data root, as the game writes it.
inline constexpr char RadiceDati[] = "C:\\ImpostazioniProgrammiLorea\\";
