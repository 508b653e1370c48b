#include "board/RegistraBoard.h"

#include "board/AccessibilitaTavola.h"
#include "board/FormPremio.h"
#include "board/FormTavola.h"

void RegistraSchermiBoard()
{
    for (const ImpostazioniTavola *t : {&TavolaSS(), &TavolaPS(), &TavolaGG(), &TavolaPG(), &TavolaGGCS()})
        Schermi::Registra(t->Nome, [t] { return new FormTavola(*t); });
    Schermi::Registra(QStringLiteral("FormPremio"), [] { return new FormPremio; });
    InstallaAccessibilitaTavola();
}
