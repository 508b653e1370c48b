#pragma once

#include "platform/Schermi.h"

#include <QStringList>

class Etichetta;
class QLabel;
class QPushButton;

// Who made the game, the terms of use, and who translated it; the picture
// opens the document about the game.
class FormInfo final : public Form
{
    Q_OBJECT
public:
    FormInfo();

    void Form_Load() override;
    void Form_Activate() override;

    Etichetta *Image1 = nullptr;
    QLabel *Label1 = nullptr;
    QLabel *Label3 = nullptr;
    QLabel *Label4 = nullptr;
    QPushButton *Command1 = nullptr;

    void Command1_Click();
    void Image1_Click();
};

// The maker's fixed texts: they are not translated.
inline const QStringList RigheCrediti = {
    QStringLiteral("Ideazione, giochi e programma: la squadra di Coppie vivaci"),
    QStringLiteral("Disegni, suoni e memory pronti: la squadra di Coppie vivaci"),
    QStringLiteral("Corsivo scolastico: \"Écolier Court\" di Jean-Marie Douteau (SIL Open Font License)"),
};
inline const QStringList CondizioniUso = {
    QStringLiteral("Questo programma può essere copiato, distribuito e usato liberamente."),
    QStringLiteral("Non è permesso usarlo a fini commerciali, né smontarlo o decompilarlo."),
    QStringLiteral("Tutti gli archivi esterni (memory, immagini, filmati, suoni e file di lingua) possono essere "
                   "modificati liberamente."),
};
