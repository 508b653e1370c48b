#pragma once

#include <QString>
#include <QStringList>

class QObject;
class QWidget;

// The base name of the current language file; empty until the first lookup.
inline QString LinguaCorrente;

// One value of a private-profile file, or "". Files longer than 64000 bytes
// are read line by line instead, where sections play no part.
QString LeggiVoce(const QString &file, const QString &sezione, const QString &chiave);
// The same on the bytes of such a file.
QString LeggiVoceDaByte(const QByteArray &byte, const QString &sezione, const QString &chiave);
// False when the file could not be written; it is then as it was.
bool ScriviVoce(const QString &file, const QString &sezione, const QString &chiave, const QString &valore);

// The message text of a four-digit key in the current language, or "".
QString TestoLingua(const QString &chiave);

// Overwrites a form's captions, tool tips, tags and tab captions from the
// current language's file; the keys are the controls' names.
void TraduciForm(QWidget *form);

// The language file of a base name, and LangSetting.ini, in the program's folder.
QString PercorsoFileLingua(const QString &lingua);
QString PercorsoImpostazioneLingua();
// The user's own LangSetting.ini, for a program folder that cannot be
// written. Once it exists it is the one read and written.
QString PercorsoImpostazioneLinguaUtente();

// What the language menu is made of: the captions of the ".lng" files in the
// program's folder in the order of the listing, and which one to tick.
QStringList ElencoLingue();
QString LinguaImpostata(); // LangSetting.ini's CurrentLanguage, the user's copy first
int IndiceLinguaSpuntata(const QStringList &voci, const QString &lingua); // exact match, -1 if none

// A language picked on the menu: it becomes current, every open form is
// translated at once, and the choice is written to LangSetting.ini: beside
// the program, or in the user's copy when that exists or the program's
// folder cannot be written.
void ScegliLingua(const QString &lingua);

inline constexpr qint64 LimiteProfiloPrivato = 64000;

// The words of a failure that ends the program: the language's text of the
// key, or the Italian given here when the language file has none, so that the
// last message of a failing game is never empty.
QString TestoErrore(const QString &chiave, const QString &italiano);
