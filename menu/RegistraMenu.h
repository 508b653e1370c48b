#pragma once

// Makes the menu, the names box and the information screen known to the screen
// manager, and the menu's interfaces for screen readers.
void RegistraSchermiMenu();
