#pragma once

// Makes the settings dialog known to the screen manager.
void RegistraSchermiSettings();
