#pragma once

#include <QString>

class Tavola;

// What a screen reader says of the tiles, read from the board's model.

// The place whose highlight the screen shows now, or -1: none in mouse play,
// none after a choice that starts the scan again, none on an open tile.
int PostoEvidenziatoMostrato(const Tavola &t);

// The name of a picture or film as its file gives it: "C:\...\gif\cane_nero.gif"
// is "cane nero".
QString NomeDaFile(const QString &percorso);

// What lies on a place, as a sighted player sees it once it is turned: the
// word, or the name of the picture or film; "" when the place has no face.
QString FacciaDelPosto(const Tavola &t, int posto);

// The state of a place in words: covered, its face while it is open, found;
// "" for a place not in this game.
QString StatoTessera(const Tavola &t, int posto);

// The place and its state, as the reader says them: "Tessera 5, riga 2,
// colonna 1: coperta".
QString NomeTessera(const Tavola &t, int posto);
