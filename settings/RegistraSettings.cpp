#include "settings/RegistraSettings.h"

#include "platform/Schermi.h"
#include "settings/FormAccesso.h"
#include "settings/FormConfigura.h"

void RegistraSchermiSettings()
{
    Schermi::Registra(QStringLiteral("FormConfigura"), [] { return new FormConfigura; });
    Schermi::Registra(QStringLiteral("FormAccesso"), [] { return new FormAccesso; });
}
