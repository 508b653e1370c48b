#include "board/InterruttoriTavola.h"

#include "board/Tavola.h"
#include "platform/ModuloColoriSuoni.h"
#include "platform/Percorsi.h"
#include "profiles/Profilo.h"
#include "profiles/ProfiloAccesso.h"

InterruttoriTavola::InterruttoriTavola(Tavola &t, Consegna c) : tavola(t), consegna(std::move(c)) {}

bool InterruttoriTavola::ModoAScansione()
{
    return Profilo.ModoInput == ModoInputValori::ScansioneManuale
           || Profilo.ModoInput == ModoInputValori::ScansioneAutomatica;
}

bool InterruttoriTavola::FiltroAttivo()
{
    return Accesso.AccettazioneMs > 0 || Accesso.IgnoraMs > 0 || Accesso.PausaDopoGiri > 0
           || Accesso.Interruttori != SceltaInterruttori::Tasti;
}

QString InterruttoriTavola::FileSuonoPasso() { return CartellaProgramma() + QStringLiteral("\\suoni\\passo.wav"); }

void InterruttoriTavola::Azzera()
{
    filtro.Imposta(Accesso.AccettazioneMs, Accesso.IgnoraMs);
    filtro.Azzera();
    pausa = false;
    passiSenzaPressione = 0;
    contate = filtrate = 0;
}

void InterruttoriTavola::annota(FiltroPressioni::Esito e)
{
    switch (e) {
    case FiltroPressioni::Esito::TroppoBreve:
    case FiltroPressioni::Esito::Ignorata:
    case FiltroPressioni::Esito::Ripetizione: ++filtrate; break;
    default: break;
    }
}

FiltroPressioni::Esito InterruttoriTavola::Premuto(int i, qint64 ms, bool ripetizione)
{
    Tempo(ms);
    ultimaAgita = false;
    const auto e = filtro.Premuto(i, ms, ripetizione);
    annota(e);
    if (e == FiltroPressioni::Esito::Contata)
        contata(i);
    return e;
}

FiltroPressioni::Esito InterruttoriTavola::Rilasciato(int i, qint64 ms, bool ripetizione)
{
    // What fell due before this moment is settled first; a release at the
    // very moment is the release's to tell.
    Tempo(ms - 1);
    const auto e = filtro.Rilasciato(i, ms, ripetizione);
    annota(e);
    if (e == FiltroPressioni::Esito::Contata)
        contata(i);
    return e;
}

void InterruttoriTavola::Tempo(qint64 ms)
{
    for (;;) {
        int i = -1;
        const auto e = filtro.Tempo(ms, &i);
        if (e == FiltroPressioni::Esito::Nessuno)
            return;
        annota(e);
        if (e == FiltroPressioni::Esito::Contata)
            contata(i);
    }
}

void InterruttoriTavola::contata(int i)
{
    ++contate;
    passiSenzaPressione = 0;
    // The press that wakes a resting scan only wakes it.
    if (pausa) {
        pausa = false;
        return;
    }
    const int codice = i == 0 ? CodiciTasto::Spazio : CodiciTasto::Invio;
    const bool passo = Profilo.ModoInput == ModoInputValori::ScansioneManuale && codice == CodiciTasto::Spazio;
    ultimaAgita = consegna(codice);
    if (ultimaAgita && passo)
        passoFatto();
}

int InterruttoriTavola::coperteVisibili() const
{
    int n = 0;
    for (int k = 0; k < Tavola::NumeroTessere() && k < 24; ++k)
        if (tavola.FramePosto[k].Visible)
            ++n;
    return n;
}

void InterruttoriTavola::Timer1()
{
    if (pausa)
        return;
    const bool passa = tavola.TessereTrovate != Tavola::NumeroTessere()
                       && Profilo.ModoInput == ModoInputValori::ScansioneAutomatica;
    tavola.Timer1_Timer();
    if (!passa)
        return;
    passoFatto();
    ++passiSenzaPressione;
    const int coperte = coperteVisibili();
    if (Accesso.PausaDopoGiri > 0 && coperte > 0 && passiSenzaPressione >= Accesso.PausaDopoGiri * coperte)
        pausa = true;
}

void InterruttoriTavola::passoFatto()
{
    const int p = tavola.PostoEvidenziato;
    if (p < 0 || p >= 24 || !tavola.FramePosto[p].Visible)
        return;
    // On the open-tile board the tile is heard as the highlight reaches it;
    // a sound cuts the one before, so the cue gives way to it.
    if (Accesso.SuonoTessera && tavola.Imp.TessereAperte && !tavola.SuonoPosto[p].isEmpty())
        SuonaFile(tavola.SuonoPosto[p]);
    else if (Accesso.SuonoPasso)
        SuonaFile(FileSuonoPasso());
}
