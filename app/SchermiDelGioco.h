#pragma once

// The screens of the menu, the boards, the editors and the settings, each
// registered by the library that builds it.
void RegistraSchermiDelGioco();
