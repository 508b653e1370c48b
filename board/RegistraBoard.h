#pragma once

// Registers the five boards and FormPremio with the screen manager, and the
// interfaces through which a screen reader reads the boards.
void RegistraSchermiBoard();
