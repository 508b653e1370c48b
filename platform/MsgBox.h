#pragma once

#include <QString>

#include <functional>

// The game's message boxes: the old MsgBox values for buttons, icons and answers.
// Plain integers, as the old values were: a style is a button value plus an
// icon value, `Msg::vbYesNo | Msg::vbQuestion`.
namespace Msg {
// Buttons
inline constexpr int vbOKOnly = 0;
inline constexpr int vbYesNo = 4;
// Icons
inline constexpr int vbCritical = 16;
inline constexpr int vbQuestion = 32;
inline constexpr int vbExclamation = 48;
inline constexpr int vbInformation = 64;
// Answers
inline constexpr int vbOK = 1;
inline constexpr int vbYes = 6;
inline constexpr int vbNo = 7;
} // namespace Msg

inline const QString TitoloGioco = QStringLiteral("Coppie vivaci");

// Shows a box and returns the answer (Msg::vbOK, vbYes or vbNo). An empty title
// gives the game's own title. `stile` adds one button value and one icon value.
int MsgBox(const QString &testo, int stile = Msg::vbOKOnly, const QString &titolo = QString());

// The words on the yes and no buttons, in the game's language; an empty
// word leaves the platform's own.
void ImpostaParoleSiNo(std::function<QString()> si, std::function<QString()> no);

// What a box was asked to show: tests answer and record boxes through this seam.
struct RichiestaMsgBox {
    QString testo;
    int stile = 0;
    QString titolo;
};
using RispostaMsgBox = std::function<int(const RichiestaMsgBox &)>;
void ImpostaRispostaMsgBox(RispostaMsgBox risposta); // an empty function goes back to real boxes
