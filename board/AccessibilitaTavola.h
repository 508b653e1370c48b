#pragma once

#include <QString>

class FormTavola;

// The interfaces through which a screen reader reads a board: the board
// lists its tiles in play, the menu bar, the focus holder, the players'
// panels and the exit question, not the faces behind the covers; each tile
// tells its place and its state; the exit question is an alert.
void InstallaAccessibilitaTavola();

// Tells a screen reader what changed on a board since it was last told: a
// tile whose state changed is renamed, and the tile that the highlight
// reaches takes the reader's focus. The keyboard focus itself stays where
// the board keeps it, so keys and scanning work as they always did.
class SegnalatoreTavola
{
public:
    explicit SegnalatoreTavola(FormTavola *f) : form(f) {}
    void Aggiorna();
    // The place that has the reader's focus, or -1.
    int Fuoco() const { return fuoco; }

private:
    FormTavola *form;
    QString nomi[24];
    int fuoco = -1;
};
