#pragma once

#include <QString>

#include <array>

// The table of pairs an editor works on: rows 0..100, columns 0..4; a pair is
// a row from 1 up, columns 1 to 4 its four fields, row 0 and column 0 empty.
// It differs from the boards' table on purpose (first record in row 1, 100
// rows at most).
struct ElencoCoppie {
    static constexpr int UltimaRiga = 100;
    using Riga = std::array<QString, 5>;
    std::array<Riga, UltimaRiga + 1> Righe;

    static bool RigaEsiste(int riga) { return riga >= 0 && riga <= UltimaRiga; }
    // A row beyond the table is no row: callers decide whether that is passed
    // over or ends the program.
    QString &Campo(int riga, int colonna) { return Righe[size_t(riga)][size_t(colonna)]; }
    const QString &Campo(int riga, int colonna) const { return Righe[size_t(riga)][size_t(colonna)]; }
    bool RigaVuota(int riga) const;
    void SvuotaRighe(int prima, int ultima);
};

// Reading a set for editing: the file is read field by field as the boards
// read it, from row 1, with every field as read. Returns the number of records
// read. A file that cannot be opened, ends inside a record or holds more than
// 100 records ends the program, naming the file and the line.
int LeggiElencoCoppie(const QString &file, ElencoCoppie *elenco);

// Writing: rows 1 up to coppiaMassima, four lines each; the first wholly
// empty row ends the file, and a row beyond the table ends it too. The file is
// replaced whole. False when it could not be written; the editors say nothing
// of it.
bool ScriviElencoCoppie(const QString &file, const ElencoCoppie &elenco, int coppiaMassima);

// The lines the writer would write, for the same rows.
QStringList RigheDaScrivere(const ElencoCoppie &elenco, int coppiaMassima);

// Copies a file over any existing target; a failure is swallowed, as the
// editors want, but told to the caller for tests.
bool CopiaFile(const QString &sorgente, const QString &destinazione);
