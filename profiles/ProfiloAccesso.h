#pragma once

#include <QString>

// A player's switch access settings. They live in a file of their own beside
// the player's profile (the profile's name with ".accesso"), so the profile
// file stays as it always was; the file is read at every LeggiProfilo and
// written at every SalvaProfilo. With every setting at its default the game
// plays as it always did.

// Which inputs are the two switches of scanning. The first stands for Space
// (a step in manual scanning, the selection in automatic scanning), the
// second for Enter (the selection in manual scanning).
enum class SceltaInterruttori : int {
    Tasti = 0,     // Space and Enter
    Mouse = 1,     // left and right mouse buttons, anywhere on the board
    Joystick = 2,  // the first two buttons of a joystick or gamepad
    TastiScelti = 3, // two keys the player chose by pressing them
};

struct ImpostazioniAccesso {
    int AccettazioneMs = 0;   // 0..2000: a press counts once held this long
    int IgnoraMs = 0;         // 0..3000: presses after a counted one are ignored this long
    SceltaInterruttori Interruttori = SceltaInterruttori::Tasti;
    int Tasto1 = 0;           // Qt key codes of the chosen keys; 0 until chosen
    int Tasto2 = 0;
    int PausaDopoGiri = 0;    // automatic scanning rests after this many rounds without a press; 0 never
    bool SuonoPasso = false;  // a soft cue at each step of the highlight
    bool SuonoTessera = false; // on the open-tile board, the tile's own sound as the highlight reaches it

    static constexpr int PausaMassima = 10;

    bool operator==(const ImpostazioniAccesso &) const = default;
};

// The current player's settings.
inline ImpostazioniAccesso Accesso;

// The file of the settings for a profile's file.
QString FileAccesso(const QString &fileProfilo);

// The file's text, and the settings from a text: a line missing, unknown or
// out of range keeps its default; nothing fails.
QString TestoAccesso(const ImpostazioniAccesso &a);
ImpostazioniAccesso AccessoDaTesto(const QString &testo);

// The settings of the profile whose file is given: the defaults when the
// file is missing or unreadable.
ImpostazioniAccesso LeggiAccesso(const QString &fileProfilo);
// Written whole; false when the file could not be written (the old one stays).
bool SalvaAccesso(const QString &fileProfilo, const ImpostazioniAccesso &a, QString *errore = nullptr);
