#include "menu/RegistraMenu.h"

#include "menu/AccessibilitaMenu.h"
#include "menu/FormInfo.h"
#include "menu/FormMenu.h"
#include "menu/FormNomi.h"

void RegistraSchermiMenu()
{
    Schermi::Registra(QStringLiteral("FormMenu"), [] { return new FormMenu; });
    Schermi::Registra(QStringLiteral("FormNomi"), [] { return new FormNomi; });
    Schermi::Registra(QStringLiteral("FormInfo"), [] { return new FormInfo; });
    InstallaAccessibilitaMenu();
}
