#include "board/DescrizioneTessere.h"

#include "board/Tavola.h"
#include "lang/TestiAccessibili.h"
#include "profiles/Profilo.h"

int PostoEvidenziatoMostrato(const Tavola &t)
{
    if (Profilo.ModoInput == ModoInputValori::Mouse)
        return -1;
    const int p = t.PostoEvidenziato;
    if (p < 0 || p >= Tavola::NumeroTessere() || p > 23)
        return -1;
    const Copertura &c = t.FramePosto[p];
    if (!c.Visible)
        return -1;
    if (t.Imp.EvidenziaConColore() && !Profilo.Riquadro && c.BackColor == Profilo.ColoreScansione)
        return p;
    // The frame: it is on this place when it stands where SistemaRiquadro puts it.
    const Forma &r = t.ShapeRiquadro;
    const qint16 B = r.BorderWidth;
    if (r.Visible && r.Left == qint16(c.Left - B) && r.Top == qint16(c.Top - B))
        return p;
    return -1;
}

QString NomeDaFile(const QString &percorso)
{
    QString nome = percorso.section(u'\\', -1).section(u'/', -1);
    const qsizetype punto = nome.lastIndexOf(u'.');
    if (punto > 0)
        nome.truncate(punto);
    nome.replace(u'_', u' ').replace(u'-', u' ');
    return nome.simplified();
}

QString FacciaDelPosto(const Tavola &t, int posto)
{
    if (posto < 0 || posto > 23)
        return QString();
    const Copertura &c = t.FramePosto[posto];
    const int coppie = Tavola::NumeroTessere() / 2;
    for (int lato : {1, 2}) {
        const TipoFaccia tipo = lato == 1 ? t.Imp.Lato1 : t.Imp.Lato2;
        const Faccia *facce = lato == 1 ? t.Lato1 : t.Lato2;
        for (int i = 0; i < coppie && i < 12; ++i) {
            const Faccia &f = facce[i];
            if (f.Left != c.Left || f.Top != c.Top)
                continue;
            return tipo == TipoFaccia::Parola ? f.Caption : NomeDaFile(f.File);
        }
    }
    return QString();
}

QString StatoTessera(const Tavola &t, int posto)
{
    if (posto < 0 || posto >= Tavola::NumeroTessere() || posto > 23)
        return QString();
    const Copertura &c = t.FramePosto[posto];
    const QString faccia = FacciaDelPosto(t, posto);
    if (c.Tag == QLatin1String("trovata"))
        return TestoAccessibile(QStringLiteral("Trovata")).arg(faccia);
    // On the open-tile game the faces lie in view from the deal on.
    if (c.Visible && !t.Imp.TessereAperte)
        return TestoAccessibile(QStringLiteral("Coperta"));
    return faccia.isEmpty() ? TestoAccessibile(QStringLiteral("Aperta")) : faccia;
}

QString NomeTessera(const Tavola &t, int posto)
{
    const int colonne = qMax<int>(1, t.Geometria.NumeroColonne);
    return TestoAccessibile(QStringLiteral("Tessera"))
        .arg(posto + 1)
        .arg(posto / colonne + 1)
        .arg(posto % colonne + 1)
        .arg(StatoTessera(t, posto));
}
