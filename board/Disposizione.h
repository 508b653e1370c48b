#pragma once

#include <QtGlobal>

// The geometry of one game's tiles, in twips, as the board's fields keep it.
struct Disposizione {
    qint16 LatoTessera = 0;
    qint16 MargineAlto = 0;
    qint16 MargineSinistro = 0;
    qint16 SpazioTessere = 0;
    qint16 NumeroColonne = 0;

    qint16 Top(int posto) const;
    qint16 Left(int posto) const;
};

// To the nearest whole number, ties to the even neighbour, as a 16-bit
// integer; beyond 16 bits the program ends with an overflow.
qint16 Arrotonda16(double x);
qint16 Intero16(long long x); // checks the 16-bit range of whole-number arithmetic

// Columns for a tile count, 0 for a count with no layout.
qint16 ColonnePer(int numeroTessere);

// One rung down the ladder 24, 18, 16, 12, 8, 6, 4 while the set has fewer
// records than the pairs of the count.
qint16 ScendiScala(qint16 numeroTessere, int numeroCoppie);

// Disponi4 ... Disponi24 on a form of the given Width and Height; false when
// the count has no layout routine.
bool CalcolaDisposizione(int numeroTessere, double larghezza, double altezza, Disposizione *d);
