#pragma once

// One running copy of the game: a lock outside the data tree, in the runtime
// or temporary folder. True when this process is the only copy; it then holds
// the lock until it ends.
bool PrendiIstanzaUnica();
void RilasciaIstanzaUnica();
