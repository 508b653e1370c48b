#pragma once

#include <QString>

#include <array>
#include <vector>

// The table of pairs a board plays from: rows 0..1000, first record in row 0,
// columns 0..4 with column 0 left empty. Column 1 side 1, column 2 side 2,
// columns 3 and 4 the sounds of the two sides.
struct TabellaMemoria {
    static constexpr int RigheMassime = 1001;
    using Riga = std::array<QString, 5>;

    qint16 NumeroCoppie = 0;
    std::vector<Riga> Memoria = std::vector<Riga>(RigheMassime);

    const QString &Campo(int riga, int colonna) const { return Memoria[size_t(riga)][size_t(colonna)]; }
};

// The file side of the boards' CaricaMemory. NumeroCoppie becomes 0; a file
// that does not exist shows the critical box of the board's key and gives
// false. Otherwise every record is read in file order, side 1 and side 2
// lower-cased, the sounds as they stand; a file that ends inside a record or
// holds more than 1001 records ends the program, naming the file and the line.
bool CaricaMemory(const QString &fileMemory, const QString &chiaveFileMancante, TabellaMemoria *tabella);

// The case rule of the load, kept with its selector that nothing ever sets:
// "maiuscolo" would mean capitals, anything else lower case.
QString ApplicaMaiuscolo(const QString &testo, const QString &selettore);
