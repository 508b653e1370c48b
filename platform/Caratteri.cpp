#include "platform/Caratteri.h"

#include <QStringList>

void ImpostaFamiglia(QFont &font, const QString &nome)
{
    QStringList famiglie{nome};
    if (nome.compare(QLatin1String("Comic Sans MS"), Qt::CaseInsensitive) == 0)
        famiglie << QStringLiteral("Comic Neue");
    else if (nome.compare(QLatin1String("Arial"), Qt::CaseInsensitive) == 0)
        famiglie << QStringLiteral("Liberation Sans");
    else if (nome.compare(QLatin1String("Times New Roman"), Qt::CaseInsensitive) == 0)
        famiglie << QStringLiteral("Liberation Serif");
    else if (nome.compare(QLatin1String("Courier New"), Qt::CaseInsensitive) == 0)
        famiglie << QStringLiteral("Liberation Mono");
    font.setFamilies(famiglie);
}

QFont FontGioco(const QString &nome, double punti, bool grassetto)
{
    QFont f;
    ImpostaFamiglia(f, nome);
    f.setPointSizeF(punti);
    f.setBold(grassetto);
    return f;
}
