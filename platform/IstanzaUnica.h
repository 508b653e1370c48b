#pragma once

// One running copy of the game: a lock outside the data tree, in the user's
// runtime folder, or without one in a folder of the user's own
// (~/.cache/coppie-vivaci; the temporary folder on Windows). True when this process is the only copy; it then holds
// the lock until it ends.
bool PrendiIstanzaUnica();
void RilasciaIstanzaUnica();
