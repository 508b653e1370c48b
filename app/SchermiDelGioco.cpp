#include "app/SchermiDelGioco.h"

#include "board/RegistraBoard.h"
#include "menu/RegistraMenu.h"
#include "sets/RegistraSets.h"
#include "settings/RegistraSettings.h"

void RegistraSchermiDelGioco()
{
    // Each screen library adds its registration here as it lands.
    RegistraSchermiMenu();
    RegistraSchermiBoard();
    RegistraSchermiSets();
    RegistraSchermiSettings();
}
