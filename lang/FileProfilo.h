#pragma once

#include <QString>

// Private-profile files ("[Section]" then "key=value" lines), read and written
// the way the old system calls did: sections and keys without regard to case,
// values trimmed, one pair of surrounding quotes removed, at most 511 characters.

inline constexpr int LunghezzaMassimaVoce = 511;

QString LeggiVoceProfiloPrivato(const QString &testo, const QString &sezione, const QString &chiave);

// Returns the file's new text with key=value set in its section, adding the
// key at the end of the section, or the section at the end of the file.
QString ScriviVoceProfiloPrivato(const QString &testo, const QString &sezione, const QString &chiave,
                                 const QString &valore);
