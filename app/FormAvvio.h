#pragma once

#include "platform/Schermi.h"

class Etichetta;
class QLabel;
class QMovie;
class QToolButton;

// The splash: the title, the date, a moving picture and the button that leads
// to the menu. It stays until the player acts.
class FormAvvio final : public Form
{
    Q_OBJECT
public:
    FormAvvio();

    void Form_Load() override;
    void Form_Activate() override;

    Etichetta *Label2[2] = {};
    QLabel *Image1 = nullptr;
    QToolButton *Command1 = nullptr;

private:
    void VaiAlMenu();
    QMovie *animazione = nullptr;
};
