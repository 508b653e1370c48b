#include "platform/FiltroPressioni.h"

#include <algorithm>

void FiltroPressioni::Imposta(int accettazioneMs, int ignoraMs)
{
    accettazione = std::clamp(accettazioneMs, 0, AccettazioneMassima);
    ignora = std::clamp(ignoraMs, 0, IgnoraMassimo);
}

void FiltroPressioni::Azzera()
{
    for (int i = 0; i < Interruttori; ++i)
        stato[i] = Stato::Su;
    fineIgnora.reset();
}

void FiltroPressioni::conta(qint64 ms)
{
    if (ignora > 0)
        fineIgnora = ms + ignora;
}

FiltroPressioni::Esito FiltroPressioni::Premuto(int i, qint64 ms, bool ripetizione)
{
    if (i < 0 || i >= Interruttori)
        return Esito::Nessuno;
    // A switch already down gives no new press until it has come up.
    if (ripetizione || stato[i] != Stato::Su)
        return Esito::Ripetizione;
    if (dentroIgnora(ms)) {
        stato[i] = Stato::Giu;
        return Esito::Ignorata;
    }
    if (accettazione == 0) {
        stato[i] = Stato::Giu;
        conta(ms);
        return Esito::Contata;
    }
    stato[i] = Stato::Attesa;
    inizio[i] = ms;
    return Esito::InAttesa;
}

FiltroPressioni::Esito FiltroPressioni::Rilasciato(int i, qint64 ms, bool ripetizione)
{
    if (i < 0 || i >= Interruttori || ripetizione)
        return Esito::Nessuno;
    const Stato prima = stato[i];
    stato[i] = Stato::Su;
    if (prima != Stato::Attesa)
        return Esito::Nessuno;
    // Released at or after its moment, before anyone asked the time: it was
    // held long enough.
    const qint64 momento = inizio[i] + accettazione;
    if (ms < momento)
        return Esito::TroppoBreve;
    if (dentroIgnora(momento))
        return Esito::Ignorata;
    conta(momento);
    return Esito::Contata;
}

std::optional<qint64> FiltroPressioni::Scadenza() const
{
    std::optional<qint64> s;
    for (int i = 0; i < Interruttori; ++i)
        if (stato[i] == Stato::Attesa && (!s || inizio[i] + accettazione < *s))
            s = inizio[i] + accettazione;
    return s;
}

FiltroPressioni::Esito FiltroPressioni::Tempo(qint64 ms, int *interruttore)
{
    int primo = -1;
    for (int i = 0; i < Interruttori; ++i)
        if (stato[i] == Stato::Attesa && inizio[i] + accettazione <= ms
            && (primo < 0 || inizio[i] < inizio[primo]))
            primo = i;
    if (primo < 0)
        return Esito::Nessuno;
    if (interruttore)
        *interruttore = primo;
    stato[primo] = Stato::Giu;
    const qint64 momento = inizio[primo] + accettazione;
    if (dentroIgnora(momento))
        return Esito::Ignorata;
    conta(momento);
    return Esito::Contata;
}
