#include "board/ElencoPremi.h"

#include "platform/Casuale.h"
#include "platform/Percorsi.h"

#include <QDir>

ElencoPremi CompilaElencoPremi(const QStringList &elenco)
{
    ElencoPremi e;
    bool errore = false;
    for (const QString &nome : elenco) {
        if (nome.isEmpty())
            break;
        if (nome == QLatin1String(".") || nome == QLatin1String(".."))
            continue;
        if (!errore) {
            if (e.Conteggio < ElencoPremi::Posti)
                e.Nomi[e.Conteggio] = nome;
            else
                errore = true;
            // The count goes up even for the store that failed.
            ++e.Conteggio;
        }
    }
    return e;
}

QStringList ElencaFilmPremio()
{
    const QDir cartella(PercorsoLocale(CartellaProgramma() + QStringLiteral("\\swf\\")));
    return cartella.entryList({QStringLiteral("*.swf")}, QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden,
                              QDir::Unsorted);
}

QString FilmPremioEstratto(const ElencoPremi &e)
{
    const int indice = IndiceCasuale(e.Conteggio);
    if (indice >= ElencoPremi::Posti)
        return QString();
    return CartellaProgramma() + QStringLiteral("\\swf\\") + e.Nomi[indice];
}
