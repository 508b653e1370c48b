#pragma once

#include <QByteArray>
#include <QString>

#include <functional>

// Every file the game writes is replaced whole or not at all: profiles,
// LangSetting.ini, the notice in the data tree, and the set files of the
// editors all go through SostituisciFile. The bytes are written to a file
// beside the target, flushed to the disk, and only then renamed over it, so a
// full disk, a write error or the end of the process at any moment leaves
// either the old file or the new one, never a cut one. A failure is found at
// the end of the write too (a full disk often shows only when the last
// buffer goes out, and QSaveFile alone would then rename the cut file over
// the target), and nothing half-written is left behind.

// Takes a game path (mapped, case-insensitive). True when the new bytes are in
// place; on false the old file is as it was and *errore says why.
bool SostituisciFile(const QString &percorso, const QByteArray &byte, QString *errore = nullptr);

// For tests: a fault at one stage of the write. The function is asked at each
// stage with the local path; true makes that stage fail as the disk would.
enum class FaseScrittura { Apertura, Scrittura, Chiusura };
void ImpostaGuastoScritturaPerProve(std::function<bool(FaseScrittura, const QString &percorsoLocale)> guasto);
