#pragma once

#include <QString>

// The old formatted text input, which every reader of the game's files uses:
// blanks in front of a field are skipped; a field that begins with a double
// quote runs to the next double quote; any other field runs to the first
// comma or the end of the line; an empty line is an empty field. A NUL ends a
// field's useful text. Line ends may be CR LF, LF or CR.
class LettoreCampi
{
public:
    explicit LettoreCampi(QString testo);

    // True when nothing is left to read: what the old EOF told.
    bool Fine() const;

    // Reads the next field. False when the end of the file was already
    // reached (input past the end of the file).
    bool LeggiCampo(QString *campo);

    // The line (from 1) where the last field began; for messages.
    int Riga() const { return rigaCampo; }

private:
    bool fineRiga(qsizetype i) const;
    void saltaFineRiga();

    QString testo;
    qsizetype pos = 0;
    int riga = 1;
    int rigaCampo = 0;
};
