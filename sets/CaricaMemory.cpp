#include "sets/CaricaMemory.h"

#include "lang/modLanguageSupport.h"
#include "platform/Errori.h"
#include "platform/LettoreCampi.h"
#include "platform/MsgBox.h"
#include "platform/Percorsi.h"
#include "platform/TestoFile.h"
#include "profiles/CartelleDati.h"

QString ApplicaMaiuscolo(const QString &testo, const QString &selettore)
{
    return selettore == QLatin1String("maiuscolo") ? testo.toUpper() : testo.toLower();
}

namespace {
[[noreturn]] void setGuasto(const QString &file, int riga, const QString &perche)
{
    ErroreFatale(TestoErrore(QStringLiteral("0104"), QStringLiteral("Non riesco a leggere il file del memory:"))
                 + QLatin1Char(' ') + MappaPercorso(file) + QStringLiteral(" (riga %1): ").arg(riga) + perche);
}
} // namespace

bool CaricaMemory(const QString &fileMemory, const QString &chiaveFileMancante, TabellaMemoria *t)
{
    t->NumeroCoppie = 0;
    if (!FileEsiste(fileMemory)) {
        MsgBox(TestoLingua(chiaveFileMancante), Msg::vbCritical, TitoloGioco);
        return false;
    }
    QString testo;
    if (!LeggiFileTesto(fileMemory, &testo))
        setGuasto(fileMemory, 0, QStringLiteral("il file non si apre."));

    // Nothing ever sets these two, so both sides always go to lower case.
    const QString selettore1, selettore2;
    LettoreCampi lettore(testo);
    int ultimaRiga = 0;
    auto leggi = [&](QString *campo) {
        if (!lettore.LeggiCampo(campo))
            setGuasto(fileMemory, ultimaRiga + 1, QStringLiteral("il file finisce a metà di una coppia."));
        ultimaRiga = lettore.Riga();
    };
    while (!lettore.Fine()) {
        const int riga = t->NumeroCoppie;
        if (riga >= TabellaMemoria::RigheMassime)
            setGuasto(fileMemory, ultimaRiga + 1,
                      QStringLiteral("ci sono più di %1 coppie.").arg(TabellaMemoria::RigheMassime));
        auto &r = t->Memoria[size_t(riga)];
        leggi(&r[1]);
        leggi(&r[2]);
        r[1] = ApplicaMaiuscolo(r[1], selettore1);
        r[2] = ApplicaMaiuscolo(r[2], selettore2);
        leggi(&r[3]);
        leggi(&r[4]);
        t->NumeroCoppie = qint16(riga + 1);
    }
    return true;
}
