#include "settings/RegistraSettings.h"

#include "platform/Schermi.h"
#include "settings/FormConfigura.h"

void RegistraSchermiSettings()
{
    Schermi::Registra(QStringLiteral("FormConfigura"), [] { return new FormConfigura; });
}
