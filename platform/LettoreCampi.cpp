#include "platform/LettoreCampi.h"

LettoreCampi::LettoreCampi(QString t) : testo(std::move(t)) {}

bool LettoreCampi::Fine() const { return pos >= testo.size(); }

bool LettoreCampi::fineRiga(qsizetype i) const { return testo[i] == u'\r' || testo[i] == u'\n'; }

void LettoreCampi::saltaFineRiga()
{
    if (pos < testo.size() && testo[pos] == u'\r') {
        ++pos;
        if (pos < testo.size() && testo[pos] == u'\n')
            ++pos;
    } else if (pos < testo.size() && testo[pos] == u'\n') {
        ++pos;
    }
    ++riga;
}

bool LettoreCampi::LeggiCampo(QString *campo)
{
    if (Fine())
        return false;
    while (pos < testo.size() && (testo[pos] == u' ' || testo[pos] == u'\t'))
        ++pos;
    rigaCampo = riga;
    QString valore;
    if (pos < testo.size() && testo[pos] == u'"') {
        const qsizetype chiusa = testo.indexOf(u'"', pos + 1);
        const qsizetype fine = chiusa < 0 ? testo.size() : chiusa;
        valore = testo.mid(pos + 1, fine - pos - 1);
        for (QChar c : valore)
            if (c == u'\n' || (c == u'\r'))
                ++riga;
        pos = chiusa < 0 ? testo.size() : chiusa + 1;
        // Whatever stands between the closing quote and the next comma or line end is dropped.
        while (pos < testo.size() && testo[pos] != u',' && !fineRiga(pos))
            ++pos;
    } else {
        const qsizetype inizio = pos;
        while (pos < testo.size() && testo[pos] != u',' && !fineRiga(pos))
            ++pos;
        valore = testo.mid(inizio, pos - inizio);
    }
    if (pos < testo.size()) {
        if (testo[pos] == u',')
            ++pos;
        else
            saltaFineRiga();
    }
    const qsizetype nul = valore.indexOf(QChar(0));
    *campo = nul < 0 ? valore : valore.left(nul);
    return true;
}
