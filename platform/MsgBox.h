#pragma once

#include <QString>

#include <functional>

// The game's message boxes: the old MsgBox values for buttons, icons and answers.
namespace Msg {
enum Pulsanti { vbOKOnly = 0, vbYesNo = 4 };
enum Icone { vbCritical = 16, vbQuestion = 32, vbExclamation = 48, vbInformation = 64 };
enum Risposte { vbOK = 1, vbYes = 6, vbNo = 7 };
} // namespace Msg

inline const QString TitoloGioco = QStringLiteral("Coppie vivaci");

// Shows a box and returns the answer (Msg::vbOK, vbYes or vbNo). An empty title
// gives the game's own title. `stile` adds one Pulsanti and one Icone value.
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
