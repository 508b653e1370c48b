#include "app/SchermiDelGioco.h"

#include "menu/RegistraMenu.h"

void RegistraSchermiDelGioco()
{
    // Each screen library adds its registration here as it lands.
    RegistraSchermiMenu();
}
