#pragma once

#include "platform/FiltroPressioni.h"

#include <QtGlobal>

#include <functional>
#include <optional>

class Tavola;

// Between a player's two switches and the board in the scanning modes: the
// presses cleaned by the player's times, the rest of automatic scanning after
// rounds with no press, and the cue heard at each step of the highlight.
// Switch 0 stands for Space and switch 1 for Enter; a counted press is handed
// on as that key. Times come in from the caller, in milliseconds.
class InterruttoriTavola
{
public:
    // Hands a key code to the board's key handlers; true when it was acted on.
    using Consegna = std::function<bool(int codiceTasto)>;

    InterruttoriTavola(Tavola &tavola, Consegna consegna);

    // Whether switches drive the board now: manual or automatic scanning.
    static bool ModoAScansione();
    // Whether the player's settings ask anything of the presses; with all at
    // their defaults the design's keys go on to the board as they always did.
    static bool FiltroAttivo();

    // Takes the player's times and forgets presses and rest: at each start of a game.
    void Azzera();

    FiltroPressioni::Esito Premuto(int interruttore, qint64 ms, bool ripetizione = false);
    FiltroPressioni::Esito Rilasciato(int interruttore, qint64 ms, bool ripetizione = false);
    // Time has come to ms: held presses whose moment has come count.
    void Tempo(qint64 ms);
    std::optional<qint64> Scadenza() const { return filtro.Scadenza(); }

    // The tick of Timer1 passes here: resting, it moves nothing.
    void Timer1();
    bool InPausa() const { return pausa; }
    int PassiSenzaPressione() const { return passiSenzaPressione; }

    // Whether the last press handed on was acted on by the board.
    bool UltimaAgita() const { return ultimaAgita; }

    // How many presses counted and how many were filtered, since Azzera.
    int Contate() const { return contate; }
    int Filtrate() const { return filtrate; }

    // The cue of each step, beside the program.
    static QString FileSuonoPasso();

private:
    void contata(int interruttore);
    void annota(FiltroPressioni::Esito e);
    void passoFatto();
    int coperteVisibili() const;

    Tavola &tavola;
    Consegna consegna;
    FiltroPressioni filtro;
    bool pausa = false;
    int passiSenzaPressione = 0;
    int contate = 0;
    int filtrate = 0;
    bool ultimaAgita = false;
};
