#pragma once

#include <QString>

// What the whole process shares besides the player's profile. Nothing passes
// between screens by arguments: each screen reads what it needs from here.

inline qint16 NumeroGiocatori = 1;   // players of the next game, 1 to 3; never saved
inline QString NomiGiocatori[3];     // the names typed in for the game
inline QString FileMemory;           // full path of the set of the next game
// A click in the menu's player list is obeyed only while this is true: the
// names screen clears it, so that the menu, coming back, does not overwrite
// the first player's name with the profile's.
inline bool ComboUtenteAttiva = false;
inline QString TestoProfiloBase;     // fetched at start and read by nothing
