#pragma once

#include <QString>
#include <QStringList>

#include <array>
#include <optional>

// The rules of the menu's choice, without widgets: which sets may be played
// with the choices made, how many tiles a set can fill, which board plays it.

// The members of Option2 are indexed by the tile count itself.
inline constexpr std::array<qint16, 7> ValoriTessere = {4, 6, 8, 12, 16, 18, 24};

// One pass of the listing: a folder of the data tree and a mask.
struct PassataElenco {
    QString cartella; // with a trailing backslash, in the game's Windows form
    QString maschera; // "*.ass" ...
};

// The two passes for the options that are on: the first lists nothing with
// words and words.
struct PassateElenco {
    std::optional<PassataElenco> prima;
    PassataElenco seconda;
};
PassateElenco PassatePerTipo(int opzioneAccesa);

// The set files of a folder that match a mask, in the order the listing gives
// them (by name, as the game's first file system gave them).
QStringList FileDellaCartella(const QString &cartella, const QString &maschera);

// Reads a set file two values at a time, adding 1 for each two: the number of
// tiles that it can fill. Empty when the file cannot be opened. A last pair
// that lacks its second value still counts; `oltreFine` tells that the read
// went past the end of the file.
std::optional<int> ContaTessereFile(const QString &percorso, bool *oltreFine = nullptr);

// What AggiornaFiles lists: the names to show, and the folder of the last pass.
struct EsitoElenco {
    QStringList nomi;
    QString cartellaMemory;
};
// The count is carried through all the files of both passes on purpose: a
// later small set is listed once the sets before it have raised the sum.
EsitoElenco ElencaMemory(int opzioneAccesa, int numeroTessere, bool maiuscolo);

// The ladder of tile counts for a set that fills `conteggio` tiles: which
// counts stay enabled, and where NumeroTessere falls.
struct EsitoScala {
    std::array<bool, 7> abilitato{}; // by position in ValoriTessere
    qint16 numeroTessere = 0;
};
EsitoScala ScalaTessere(int conteggio, qint16 numeroTessere);

// The board for a kind of game and the name of a set, or empty for none.
QString SchermoPerGioco(int tipoMemory, const QString &nomeSet);

// The profiles in the folder of players: names without ".ini", in capitals when asked.
QStringList ElencoProfili(bool maiuscolo);
