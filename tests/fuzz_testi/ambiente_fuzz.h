#pragma once

// What every text reader's fuzz entry shares: a home and a program folder of
// its own, message boxes answered at once, and the end of the process turned
// into an exception that the entry catches, so that a file the game would
// stop on is one more input and not the end of the run.

#include <QByteArray>
#include <QString>

struct FineDelGioco {
};

// Sets the folders and the seams up once; later calls do nothing.
void PreparaAmbienteFuzz();

// The local path of the data tree's file for a game path, after the set-up.
QString ScriviFileFuzz(const QString &percorsoGioco, const QByteArray &byte);

// Runs a reader that may end the program; true when it ended it.
template <typename F>
bool FinisceIlGioco(F &&lettore)
{
    try {
        lettore();
    } catch (const FineDelGioco &) {
        return true;
    }
    return false;
}
