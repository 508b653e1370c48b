#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

// Text files of the game: read as UTF-8 when the bytes are valid UTF-8 and hold
// something beyond ASCII, otherwise as Windows-1252; written in Windows-1252
// when every character fits, else in UTF-8. Lines are written with CR LF and
// read with CR LF, LF or CR.

QString DecodificaTesto(const QByteArray &byte);
QByteArray CodificaTesto(const QString &testo);
bool CabeInWindows1252(const QString &testo);

// Splits text into lines at CR LF, LF or CR. A last line without an end is a
// line; a text that ends with a line end has no empty line after it.
QStringList DividiRighe(const QString &testo);

// Reads a whole text file by a game path. False when the file cannot be opened.
bool LeggiFileTesto(const QString &percorso, QString *testo);

// Writes lines, each ended by CR LF, replacing the file whole (ScritturaIntera.h).
// False when the file cannot be written; the old file is then as it was.
bool ScriviFileTesto(const QString &percorso, const QStringList &righe);
