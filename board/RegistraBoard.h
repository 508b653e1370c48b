#pragma once

// Registers the five boards and FormPremio with the screen manager.
void RegistraSchermiBoard();
