#pragma once

#include <QFont>
#include <QString>
#include <QStringList>

// The rules of the settings dialog that need no widget.

// The speed as the dialog shows it: "Velocità scansione: ", the period in
// seconds (quarters divided by 4, as "##0.00"), " secondi". Not translated.
QString TestoVelocita(qint16 velocitaScansione);

// The players the list offers: every "*.ini" in the players' folder (a game
// path) but "_predefinito.ini", without its last four characters and in
// capitals, in alphabetical order. An entry that cannot be read is
// passed over; a folder that cannot be listed gives an empty list.
QStringList ElencoGiocatori(const QString &cartellaUtenti);

// Which controls of the input-mode tab show, by input mode.
struct ControlliModo {
    bool CheckRiparti = false;
    bool CheckRiquadro = false;
    bool lineaShapeRiquadro = false;
    bool HScrollRiquadro = false;
    bool HScroll3 = false;
    bool Label7 = false;
    bool CheckDisabilitaMousePersonalizzato = false;
    bool operator==(const ControlliModo &) const = default;
};
// A mode outside 0 to 3, which only a damaged profile holds, shows none of them.
ControlliModo ControlliPerModo(qint16 modoInput, bool riquadro);

// The word samples' measure: from `punti`, one point more while the text is
// narrower than `larghezzaTwips`. The result is never below `punti`.
double CresciCampione(QFont font, const QString &testo, double punti, double larghezzaTwips);

// The ranges the dialog's bars accept.
inline constexpr int VelocitaMinima = 4, VelocitaMassima = 60;
inline constexpr int SpessoreMinimo = 3, SpessoreMassimo = 30;
