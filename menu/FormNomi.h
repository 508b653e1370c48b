#pragma once

#include "platform/Schermi.h"

#include <array>

class QLabel;
class QLineEdit;
class QPushButton;

// The small box between the play button and the board: one name for each
// player of the next game. The one screen of the game that does not fill the display.
class FormNomi final : public Form
{
    Q_OBJECT
public:
    FormNomi();

    void Form_Load() override;
    void Form_Activate() override;
    void Form_Unload() override;
    // The box keeps its design size and has no resize handler: the shared
    // resizer serves the menu behind it, which must not be rescaled from here.
    void Form_Resize() override {}

    QLabel *Label1 = nullptr;
    std::array<QLineEdit *, 3> Text1{};
    QPushButton *Command1 = nullptr;

    void Command1_Click();
    void BloccaMouse();
    void SbloccaMouse();

    inline static constexpr int LunghezzaNome = 15;
};
