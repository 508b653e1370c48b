#include "app/Avvio.h"

#include "app/FormAvvio.h"
#include "lang/modLanguageSupport.h"
#include "platform/Casuale.h"
#include "platform/Errori.h"
#include "platform/IstanzaUnica.h"
#include "platform/MsgBox.h"
#include "platform/Puntatore.h"
#include "platform/Schermi.h"
#include "platform/clsResize.h"
#include "profiles/CartelleDati.h"
#include "profiles/Profilo.h"
#include "profiles/StatoProcesso.h"

#include "app/SchermiDelGioco.h"

#include <QString>

void RegistraSchermi()
{
    ImpostaParoleSiNo([] { return TestoLingua(QStringLiteral("0005")); },
                      [] { return TestoLingua(QStringLiteral("0004")); });
    Schermi::Registra(QStringLiteral("FormAvvio"), [] { return new FormAvvio; });
    RegistraSchermiDelGioco();
}

bool AvvioProgramma()
{
    if (!PrendiIstanzaUnica()) {
        MsgBox(TestoLingua(QStringLiteral("0001")), Msg::vbOKOnly | Msg::vbCritical,
               TestoLingua(QStringLiteral("0002")));
        return false;
    }
    NumeroGiocatori = 1;
    SeminaCasualeDallOrologio();
    CreaCartelleDati();
    RegistraFontCorsivo();
    FileUtente = CartellaUtenti + QStringLiteral("_predefinito.INI");
    NomeUtente = ProfiloPredefinito;
    TestoProfiloBase = TestoLingua(QStringLiteral("0003"));
    LeggiProfilo();
    if (!Profilo.ProntiImportati)
        ImportaMemoryPronti();
    Schermi::Mostra(QStringLiteral("FormAvvio"));
    return true;
}

void FineDelProgramma()
{
    LiberaPuntatore();
    SalvaProfilo();
    ResizeCondiviso.reset();
    RilasciaIstanzaUnica();
    TerminaProcesso(0);
}
