#pragma once

// The start of the game, up to the splash on screen. False when another copy
// runs: then only its message was shown and nothing was touched.
bool AvvioProgramma();

// Makes every screen the game has known to the screen manager.
void RegistraSchermi();

// The regular end: the pointer freed, the profile saved, the process ended.
[[noreturn]] void FineDelProgramma();
