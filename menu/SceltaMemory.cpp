#include "menu/SceltaMemory.h"

#include "platform/LettoreCampi.h"
#include "platform/Percorsi.h"
#include "platform/TestoFile.h"
#include "profiles/CartelleDati.h"
#include "profiles/Profilo.h"

#include <QDir>

#include <algorithm>

PassateElenco PassatePerTipo(int opzioneAccesa)
{
    const QString ii = Cartelle::Dati + QStringLiteral("ii\\");
    const QString pi = Cartelle::Dati + QStringLiteral("pi\\");
    PassateElenco p;
    switch (opzioneAccesa) {
    case 1:
        p.prima = PassataElenco{pi, QStringLiteral("*.aps")};
        p.seconda = {pi, QStringLiteral("*.apg")};
        break;
    case 2:
        p.prima = PassataElenco{ii, QStringLiteral("*.ass")};
        p.seconda = {ii, QStringLiteral("*.agg")};
        break;
    default:
        p.seconda = {ii, QStringLiteral("*.agg")};
        break;
    }
    return p;
}

QStringList FileDellaCartella(const QString &cartella, const QString &maschera)
{
    const QDir d(PercorsoLocale(cartella));
    QStringList nomi = d.entryList({maschera}, QDir::Files | QDir::Hidden | QDir::System, QDir::Unsorted);
    // In the order the game's first file system listed a folder: by the names
    // in capitals. The carried count of AggiornaFiles depends on this order.
    std::sort(nomi.begin(), nomi.end(), [](const QString &a, const QString &b) {
        const int c = a.toUpper().compare(b.toUpper());
        return c != 0 ? c < 0 : a < b;
    });
    return nomi;
}

std::optional<int> ContaTessereFile(const QString &percorso, bool *oltreFine)
{
    if (oltreFine)
        *oltreFine = false;
    QString testo;
    if (!LeggiFileTesto(percorso, &testo))
        return std::nullopt;
    LettoreCampi lettore(testo);
    int conteggio = 0;
    QString a, b;
    while (!lettore.Fine()) {
        lettore.LeggiCampo(&a);
        if (!lettore.LeggiCampo(&b) && oltreFine)
            *oltreFine = true;
        ++conteggio;
    }
    return conteggio;
}

EsitoElenco ElencaMemory(int opzioneAccesa, int numeroTessere, bool maiuscolo)
{
    EsitoElenco esito;
    int conteggio = 0;
    const PassateElenco passate = PassatePerTipo(opzioneAccesa);
    auto passata = [&](const PassataElenco &p) {
        esito.cartellaMemory = p.cartella;
        for (const QString &nome : FileDellaCartella(p.cartella, p.maschera)) {
            // A file that cannot be read adds nothing, and the test runs all the same.
            conteggio += ContaTessereFile(p.cartella + nome).value_or(0);
            if (conteggio >= numeroTessere)
                esito.nomi << (maiuscolo ? nome.toUpper() : nome);
        }
    };
    if (passate.prima)
        passata(*passate.prima);
    passata(passate.seconda);
    return esito;
}

EsitoScala ScalaTessere(int conteggio, qint16 numeroTessere)
{
    EsitoScala e;
    e.numeroTessere = numeroTessere;
    e.abilitato[0] = true; // four tiles are always offered
    for (int i = int(ValoriTessere.size()) - 1; i >= 1; --i) {
        const qint16 n = ValoriTessere[i];
        if (conteggio >= n) {
            e.abilitato[i] = true;
        } else {
            e.abilitato[i] = false;
            if (e.numeroTessere == n)
                e.numeroTessere = ValoriTessere[i - 1];
        }
    }
    return e;
}

QString SchermoPerGioco(int tipoMemory, const QString &nomeSet)
{
    const QString finale = nomeSet.right(3).toLower();
    QString schermo;
    if (tipoMemory == 0)
        schermo = QStringLiteral("FormmemGGCS");
    if (tipoMemory == 1) {
        if (finale == QLatin1String("apg"))
            schermo = QStringLiteral("FormmemPG");
        if (finale == QLatin1String("aps"))
            schermo = QStringLiteral("FormmemPS");
    }
    if (tipoMemory == 2) {
        if (finale == QLatin1String("agg"))
            schermo = QStringLiteral("FormmemGG");
        if (finale == QLatin1String("ass"))
            schermo = QStringLiteral("FormmemSS");
    }
    return schermo;
}

QStringList ElencoProfili(bool maiuscolo)
{
    QStringList r;
    for (const QString &f : FileDellaCartella(Cartelle::Utenti, QStringLiteral("*.ini"))) {
        const QString nome = f.left(f.size() - 4);
        r << (maiuscolo ? nome.toUpper() : nome);
    }
    return r;
}
