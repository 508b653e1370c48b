#pragma once

#include "platform/Schermi.h"

class Filmato;
class QPushButton;

// The prize of a finished game: a film drawn at random on a cheerful colour,
// and one button back to the board, which starts the next game.
class FormPremio final : public Form
{
    Q_OBJECT
public:
    FormPremio();

    void Form_Load() override;
    void Form_Activate() override;

    void Carica();

    Filmato *ShockwaveFlash1 = nullptr;
    QPushButton *Command1 = nullptr;
};
