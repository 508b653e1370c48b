#include "app/SchermiDelGioco.h"

void RegistraSchermiDelGioco()
{
    // Each screen library adds its registration here as it lands.
}
