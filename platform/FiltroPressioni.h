#pragma once

#include <QtGlobal>

#include <optional>

// The presses of one or two switches, cleaned of what a tremor, a spasm or a
// held key adds. A press counts only once it has been held for the
// acceptance time; after a counted press, presses that begin within the
// ignore time do not count; a key's auto-repeat never counts. Times are
// milliseconds on any steady scale, given by the caller: the rules read no
// clock, so the same sequence of times always gives the same presses.
class FiltroPressioni
{
public:
    static constexpr int AccettazioneMassima = 2000;
    static constexpr int IgnoraMassimo = 3000;
    static constexpr int Interruttori = 2;

    // What became of a press, or of the event that settled it.
    enum class Esito {
        Nessuno,     // nothing to say: a release of a press already settled
        Contata,     // the press counts, now
        InAttesa,    // held: it counts if still held at Scadenza()
        TroppoBreve, // released before the acceptance time
        Ignorata,    // began within the ignore time after a counted press
        Ripetizione, // the key's auto-repeat, or a press of a switch already down
    };

    // Times outside their ranges are brought into them.
    void Imposta(int accettazioneMs, int ignoraMs);
    int Accettazione() const { return accettazione; }
    int Ignora() const { return ignora; }

    Esito Premuto(int interruttore, qint64 ms, bool ripetizione = false);
    Esito Rilasciato(int interruttore, qint64 ms, bool ripetizione = false);

    // The earliest moment at which a held press will count, if one waits.
    std::optional<qint64> Scadenza() const;
    // Time has come to ms: the first held press whose moment has come counts
    // (Contata, its switch in *interruttore) or falls in the ignore time of
    // one that counted before it (Ignorata); Nessuno when none is due. Call
    // again until Nessuno to settle all.
    Esito Tempo(qint64 ms, int *interruttore);

    // Forgets the switches that are down and the ignore time.
    void Azzera();

private:
    enum class Stato { Su, Attesa, Giu };
    Stato stato[Interruttori] = {Stato::Su, Stato::Su};
    qint64 inizio[Interruttori] = {0, 0};
    std::optional<qint64> fineIgnora;
    int accettazione = 0;
    int ignora = 0;

    bool dentroIgnora(qint64 ms) const { return fineIgnora && ms < *fineIgnora; }
    void conta(qint64 ms);
};
