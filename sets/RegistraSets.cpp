#include "sets/RegistraSets.h"

#include "sets/FormEditore.h"

void RegistraSchermiSets()
{
    for (const ImpostazioniEditore *e : {&EditoreSS(), &EditorePS(), &Editoregg(), &Editorepg()})
        Schermi::Registra(e->Nome, [e] { return new FormEditore(*e); });
}
