// The deal: the draw of the pairs, the fit of the words, the shuffle.
#include "board/Tavola.h"
#include "board/TavolaInterno.h"

#include "lang/modLanguageSupport.h"
#include "platform/Casuale.h"
#include "platform/Durate.h"
#include "platform/Errori.h"
#include "platform/ModuloColoriSuoni.h"
#include "platform/Percorsi.h"
#include "profiles/Profilo.h"
#include "profiles/StatoProcesso.h"

#include <QImageReader>

#include <cmath>

using TavolaInterno::Trovata;
using TavolaInterno::FuoriLimiti;

void Tavola::caricaFaccia(Faccia &f, TipoFaccia t, const QString &valore)
{
    switch (t) {
    case TipoFaccia::Film:
        f.File = valore;
        f.InRiproduzione = false; // StopPlay: rests on its first picture
        ++f.Caricamenti;
        break;
    case TipoFaccia::Immagine:
        if (!valore.isEmpty() && !QImageReader(PercorsoLocale(valore)).canRead())
            ErroreFatale(QStringLiteral("Non riesco a caricare l'immagine: ") + MappaPercorso(valore));
        f.File = valore;
        f.TagAnimata = valore;
        f.AnimataAvviata = false;
        ++f.Caricamenti;
        break;
    case TipoFaccia::Parola:
        f.Caption = Profilo.Maiuscolo1 ? valore.toUpper() : valore;
        break;
    }
}

void Tavola::Carica()
{
    static bool Usata[TabellaMemoria::RigheMassime];
    std::fill(std::begin(Usata), std::end(Usata), false);
    const int P = NumeroTessere() / 2;
    for (int i = 0; i < P; ++i) {
        int r = IndiceCasuale(NumeroCoppie());
        while (Usata[r])
            r = IndiceCasuale(NumeroCoppie());
        caricaFaccia(Lato1[i], Imp.Lato1, Tabella.Campo(r, 1));
        caricaFaccia(Lato2[i], Imp.Lato2, Tabella.Campo(r, 2));
        SuoniCoppia[i][1] = Tabella.Campo(r, 3);
        SuoniCoppia[i][2] = Tabella.Campo(r, 4);
        Usata[r] = true;
    }
    PausaConfronto = SuoniCoppia[1][1].isEmpty() ? Arrotonda16(1.5) : 3;
    if (Imp.HaParole())
        AdattaParole();
}

void Tavola::AdattaParole()
{
    Faccia &metro = Lato1[11];
    metro.AutoSize = false;
    metro.EtichettaWidth = LarghezzaParola;
    metro.EtichettaHeight = AltezzaParola;
    FontDimensionaFont = 12;
    CaptionDimensionaFont = Lato1[0].Caption;
    for (const Faccia &f : Lato1)
        if (f.Caption.size() > CaptionDimensionaFont.size())
            CaptionDimensionaFont = f.Caption;
    while (misura(CaptionDimensionaFont, FontDimensionaFont).width() <= metro.EtichettaWidth) {
        FontDimensionaFont += 1;
        if (FontDimensionaFont > DimensioneFontMassima)
            ErroreFatale(QStringLiteral("Dimensione del carattere non valida: %1").arg(FontDimensionaFont));
    }
    metro.AutoSize = true;
    for (Faccia &f : Lato1) {
        f.DimensioneFont = FontDimensionaFont;
        if (f.AutoSize) {
            const QSizeF s = misura(f.Caption, f.DimensioneFont);
            f.EtichettaWidth = Arrotonda16(s.width());
            f.EtichettaHeight = Arrotonda16(s.height());
        }
        f.EtichettaLeft = qint16(std::floor((f.Width - f.EtichettaWidth) / 2.0));
        f.EtichettaTop = qint16(std::floor((f.Height - f.EtichettaHeight) / 2.0));
    }
}

void Tavola::mettiFaccia(Faccia &f, TipoFaccia t, const Copertura &posto)
{
    f.Top = posto.Top;
    f.Left = posto.Left;
    // Still images stay hidden until their tile is turned, but on the open board.
    if (t != TipoFaccia::Immagine || Imp.TessereAperte)
        f.Visible = true;
}

void Tavola::mescola()
{
    for (int posto = 0; posto < 24; ++posto) {
        TessereTrovate = 0;
        Mosse[0] = Mosse[1] = Mosse[2] = 0;
        AggiornaMosse();
        FramePosto[posto].Tag.clear();
        SuonoPosto[posto].clear();
    }
    const int N = NumeroTessere();
    const int P = N / 2;
    for (int i = 0; i < N; ++i) {
        int p = IndiceCasuale(N);
        while (!FramePosto[p].Tag.isEmpty())
            p = IndiceCasuale(N);
        if (i < P) {
            FramePosto[p].Tag = QString::number(i);
            mettiFaccia(Lato1[i], Imp.Lato1, FramePosto[p]);
            SuonoPosto[p] = SuoniCoppia[i][1];
        } else {
            const int j = i - P;
            FramePosto[p].Tag = QString::number(j);
            mettiFaccia(Lato2[j], Imp.Lato2, FramePosto[p]);
            SuonoPosto[p] = SuoniCoppia[j][2];
        }
    }
    PrimaScoperta = false;
    PostoEvidenziato = 0;
    if (Profilo.ModoInput == ModoInputValori::ScansioneManuale) {
        if (!Profilo.Riquadro && Imp.EvidenziaConColore())
            FramePosto[PostoEvidenziato].BackColor = Profilo.ColoreScansione;
        else
            SistemaRiquadro();
    }
    InputAbilitato = true;
    if (Profilo.ModoInput == ModoInputValori::ScansioneAutomatica) {
        PostoEvidenziato = qint16(N - 1);
        Timer1Interval = Profilo.VelocitaScansione * Durate::QuartoDiSecondoMs;
        Timer1Enabled = true;
    }
}

