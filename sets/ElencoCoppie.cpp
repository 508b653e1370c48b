#include "sets/ElencoCoppie.h"

#include "lang/modLanguageSupport.h"
#include "platform/Errori.h"
#include "platform/LettoreCampi.h"
#include "platform/Percorsi.h"
#include "platform/TestoFile.h"

#include <QFile>
#include <QFileInfo>

bool ElencoCoppie::RigaVuota(int riga) const
{
    const Riga &r = Righe[size_t(riga)];
    return r[1].isEmpty() && r[2].isEmpty() && r[3].isEmpty() && r[4].isEmpty();
}

void ElencoCoppie::SvuotaRighe(int prima, int ultima)
{
    for (int r = qMax(prima, 0); r <= ultima && r <= UltimaRiga; ++r)
        for (int c = 1; c <= 4; ++c)
            Righe[size_t(r)][size_t(c)].clear();
}

namespace {
[[noreturn]] void guasto(const QString &file, int riga, const QString &perche)
{
    ErroreFatale(TestoErrore(QStringLiteral("0104"), QStringLiteral("Non riesco a leggere il file del memory:"))
                 + QLatin1Char(' ') + MappaPercorso(file) + QStringLiteral(" (riga %1): ").arg(riga) + perche);
}
} // namespace

int LeggiElencoCoppie(const QString &file, ElencoCoppie *elenco)
{
    QString testo;
    if (!LeggiFileTesto(file, &testo))
        guasto(file, 0, QStringLiteral("il file non si apre."));
    LettoreCampi lettore(testo);
    int ultimaRiga = 0;
    int coppie = 0;
    while (!lettore.Fine()) {
        ++coppie;
        if (!ElencoCoppie::RigaEsiste(coppie))
            guasto(file, ultimaRiga + 1,
                   QStringLiteral("ci sono più di %1 coppie, quante un memory ne può avere.").arg(ElencoCoppie::UltimaRiga));
        for (int c = 1; c <= 4; ++c) {
            if (!lettore.LeggiCampo(&elenco->Campo(coppie, c)))
                guasto(file, ultimaRiga + 1, QStringLiteral("il file finisce a metà di una coppia."));
            ultimaRiga = lettore.Riga();
        }
    }
    return coppie;
}

QStringList RigheDaScrivere(const ElencoCoppie &elenco, int coppiaMassima)
{
    QStringList righe;
    for (int r = 1; r <= coppiaMassima; ++r) {
        if (!ElencoCoppie::RigaEsiste(r) || elenco.RigaVuota(r))
            break;
        for (int c = 1; c <= 4; ++c)
            righe << elenco.Campo(r, c);
    }
    return righe;
}

bool ScriviElencoCoppie(const QString &file, const ElencoCoppie &elenco, int coppiaMassima)
{
    return ScriviFileTesto(file, RigheDaScrivere(elenco, coppiaMassima));
}

bool CopiaFile(const QString &sorgente, const QString &destinazione)
{
    const QString da = PercorsoLocale(sorgente);
    const QString a = PercorsoLocale(destinazione);
    if (sorgente.isEmpty() || !QFileInfo(da).isFile())
        return false;
    if (QFileInfo(da).canonicalFilePath() == QFileInfo(a).canonicalFilePath())
        return true;
    if (QFileInfo::exists(a) && !QFile::remove(a))
        return false;
    return QFile::copy(da, a);
}
