// The turn engine: a selected tile, the compare, the score, the end.
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

using TavolaInterno::Trovata;
using TavolaInterno::FuoriLimiti;

void Tavola::AggiornaMosse()
{
    const QString etichetta = TestoLingua(NumeroGiocatori == 1 ? Imp.ChiaveEtichettaUno : Imp.ChiaveEtichettaMolti);
    for (int k = 0; k < 3; ++k) {
        StatusBar1[k].Immagine = false;
        StatusBar1[k].Text = NomiGiocatori[k] + QStringLiteral("   ") + etichetta + QLatin1Char(' ')
                             + QString::number(Mosse[k]);
    }
    if (GiocatoreCorrente >= 0 && GiocatoreCorrente < 3)
        StatusBar1[GiocatoreCorrente].Immagine = true;
}

void Tavola::passaTurno()
{
    ++GiocatoreCorrente;
    if (GiocatoreCorrente == NumeroGiocatori)
        GiocatoreCorrente = 0;
}

void Tavola::avviaFaccia(Faccia &f, TipoFaccia t)
{
    switch (t) {
    case TipoFaccia::Film: f.InRiproduzione = true; break;
    case TipoFaccia::Immagine:
        f.Visible = false;
        f.AnimataVisible = true;
        f.FileAnimata = f.TagAnimata;
        f.AnimataAvviata = true;
        break;
    case TipoFaccia::Parola: break; // the word stays as it is
    }
}

void Tavola::rivelaImmagine(int Index)
{
    bool ok = false;
    const int t = FramePosto[Index].Tag.toInt(&ok);
    if (!ok || t < 0 || t > 11)
        return;
    for (int lato : {1, 2}) {
        Faccia &f = faccia(lato, t);
        if (tipo(lato) == TipoFaccia::Immagine && f.Left == FramePosto[Index].Left
            && f.Top == FramePosto[Index].Top && !f.Visible)
            f.Visible = true;
    }
}

void Tavola::FramePosto_Click(int Index)
{
    if (Index < 0 || Index > 23)
        FuoriLimiti(QStringLiteral("FramePosto"));
    if (Imp.TessereAperte) {
        clickTessereAperte(Index);
        return;
    }
    const int N = NumeroTessere();
    if (Profilo.ModoInput == ModoInputValori::ScansioneAutomatica)
        Timer1Enabled = false;
    if (Imp.HaImmagini())
        rivelaImmagine(Index);
    FramePosto[Index].Visible = false;
    SuonaFile(SuonoPosto[Index]);
    if (!PrimaScoperta) {
        EtichettaPrima = FramePosto[Index].Tag;
    } else {
        EtichettaSeconda = FramePosto[Index].Tag;
        for (int k = 0; k < N; ++k)
            FramePosto[k].Enabled = false;
    }
    if (PrimaScoperta) {
        InputAbilitato = false;
        if (NumeroGiocatori == 1) {
            ++Mosse[GiocatoreCorrente];
            AggiornaMosse();
        }
        mnuAvviaEnabled = false;
        aggiorna();
        if (vista)
            vista->Attendi(PausaConfronto);
        mnuAvviaEnabled = true;
        if (NumeroGiocatori == 1) {
            passaTurno();
            AggiornaMosse();
        }
        if (giudicaCoppia() != NessunaCoppia)
            segnaTrovate();
        riapriCoperte();
    }
    PrimaScoperta = !PrimaScoperta;
    if (Profilo.ModoInput == ModoInputValori::ScansioneAutomatica)
        Timer1Enabled = true;
    aggiorna();
    ControllaFine();
}

int Tavola::giudicaCoppia()
{
    if (EtichettaSeconda != EtichettaPrima) {
        SuonaNo();
        if (NumeroGiocatori > 1) {
            passaTurno();
            AggiornaMosse();
        }
        return NessunaCoppia;
    }
    SuonaSi();
    const int n = EtichettaPrima.toInt();
    if (n >= 0 && n < 12) {
        avviaFaccia(Lato1[n], Imp.Lato1);
        avviaFaccia(Lato2[n], Imp.Lato2);
    }
    if (NumeroGiocatori > 1) {
        ++Mosse[GiocatoreCorrente];
        AggiornaMosse();
    }
    TessereTrovate = qint16(TessereTrovate + 2);
    return n;
}

void Tavola::segnaTrovate()
{
    for (int k = 0; k < NumeroTessere(); ++k)
        if (FramePosto[k].Tag == EtichettaPrima)
            FramePosto[k].Tag = Trovata;
}

void Tavola::riapriCoperte()
{
    InputAbilitato = true;
    for (int k = 0; k < NumeroTessere(); ++k) {
        if (FramePosto[k].Tag != Trovata)
            FramePosto[k].Visible = true;
        FramePosto[k].Enabled = true;
    }
}

void Tavola::clickTessereAperte(int Index)
{
    const int N = NumeroTessere();
    if (Profilo.ModoInput == ModoInputValori::ScansioneAutomatica)
        Timer1Enabled = false;
    FramePosto[Index].Visible = false;
    SuonaFile(SuonoPosto[Index]);
    if (!PrimaScoperta) {
        EtichettaPrima = FramePosto[Index].Tag;
        Shape1.Height = FramePosto[Index].Height;
        Shape1.Width = FramePosto[Index].Width;
        Shape1.Top = FramePosto[Index].Top;
        Shape1.Left = FramePosto[Index].Left;
        Shape1.Visible = true;
    } else {
        EtichettaSeconda = FramePosto[Index].Tag;
        for (int k = 0; k < N; ++k)
            FramePosto[k].Enabled = false;
        InputAbilitato = false;
        Shape1.Visible = false;
        if (NumeroGiocatori == 1) {
            ++Mosse[GiocatoreCorrente];
            AggiornaMosse();
            passaTurno();
            AggiornaMosse();
        }
        const int n = giudicaCoppia();
        if (n != NessunaCoppia) {
            aggiorna();
            if (vista)
                vista->Attendi(Durate::AnimazioneTrovata);
            if (n >= 0 && n < 12) {
                Lato1[n].AnimataVisible = false;
                Lato2[n].AnimataVisible = false;
            }
            segnaTrovate();
        }
        riapriCoperte();
    }
    PrimaScoperta = !PrimaScoperta;
    if (Profilo.ModoInput == ModoInputValori::ScansioneAutomatica)
        Timer1Enabled = true;
    aggiorna();
    ControllaFine();
}

void Tavola::ControllaFine()
{
    const int N = NumeroTessere();
    bool finita = N > 0;
    for (int k = 0; k < N && k < 24; ++k)
        if (FramePosto[k].Tag != Trovata)
            finita = false;
    if (finita) {
        // On the open-tile board the found tiles leave empty places: the
        // scanning frame goes with the last one, as it does during play.
        if (Imp.TessereAperte)
            ShapeRiquadro.Visible = false;
        SuonaApplauso();
        aggiorna();
        if (vista) {
            vista->Attendi(3);
            vista->MostraPremio();
        }
        return;
    }
    if (Profilo.ModoInput != ModoInputValori::Tastiera)
        return;
    if (Imp.TessereAperte) {
        ProssimoPiuUno();
        SistemaRiquadro();
        aggiorna();
        return;
    }
    for (int k = 0; k < N; ++k) {
        FramePosto[k].BackColor = Profilo.ColoreTessere;
        FramePosto[k].PuntatorePersonalizzato = false;
    }
    if (!PrimaScoperta)
        PostoEvidenziato = -1;
    ProssimoPiuUno();
    evidenzia();
    aggiorna();
}

void Tavola::ProssimoPiuUno()
{
    const int N = NumeroTessere();
    if (N <= 0)
        return;
    ++PostoEvidenziato;
    if (PostoEvidenziato >= N)
        PostoEvidenziato = 0;
    // A board with no cover left would turn here for ever; the game ends before that.
    for (int giri = 0; !FramePosto[PostoEvidenziato].Visible && giri <= N; ++giri) {
        ++PostoEvidenziato;
        if (PostoEvidenziato >= N)
            PostoEvidenziato = 0;
    }
}

