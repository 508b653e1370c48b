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

void TavolaInterno::FuoriLimiti(const QString &dove)
{
    ErroreFatale(QStringLiteral("Indice fuori dai limiti in ") + dove + QLatin1Char('.'));
}

using TavolaInterno::Trovata;
using TavolaInterno::FuoriLimiti;

Tavola::Tavola(const ImpostazioniTavola &impostazioni, VistaTavola *v, MisuraTesto m)
    : Imp(impostazioni), vista(v), misuraTesto(std::move(m))
{
    // LabelParola1(11) is laid out at design at the full word width; the others size themselves.
    Lato1[11].AutoSize = false;
    Lato1[11].EtichettaWidth = 1575;
    Lato1[11].EtichettaHeight = 195;
    Timer2Enabled = Imp.Timer2 == RegolaTimer2::AccesoSempre || Imp.Timer2 == RegolaTimer2::SpentoInModoMouse
                    || Imp.Timer2 == RegolaTimer2::AccesoDalProgetto;
    ShapeRiquadro.BorderWidth = 1;
}

qint16 Tavola::NumeroTessere() { return Profilo.NumeroTessere; }

void Tavola::aggiorna()
{
    if (vista)
        vista->Aggiorna();
}

QSizeF Tavola::misura(const QString &testo, double punti) const
{
    if (misuraTesto)
        return misuraTesto(testo, Profilo.FontParola1, punti);
    // Without a screen: an average letter of six tenths of its size.
    return QSizeF(testo.size() * punti * 0.6 * 20, punti * 1.2 * 20);
}

void Tavola::Form_Activate()
{
    ComboUtenteAttiva = true;
    Nascondi();
    if (Imp.HaParole()) {
        for (Faccia &f : Lato1)
            f.Caption.clear();
    }
    GiocatoreCorrente = 0;
    for (Pannello &p : StatusBar1)
        p.Visible = false;
    for (int k = 0; k < NumeroGiocatori && k < 3; ++k) {
        StatusBar1[k].Visible = true;
        StatusBar1[k].Text = NomiGiocatori[k];
    }
    AggiornaMosse();

    if (Imp.TessereAperte) {
        Shape1.BorderWidth = Profilo.SpessoreRiquadro;
        Shape1.BorderColor = Profilo.ColoreTessere;
        Shape1.Visible = false;
        ShapeRiquadro.BorderWidth = Profilo.SpessoreRiquadro;
        ShapeRiquadro.BorderColor = Profilo.ColoreScansione;
    }
    switch (Imp.Timer2) {
    case RegolaTimer2::AccesoSempre: Timer2Enabled = true; break;
    case RegolaTimer2::SpentoInModoMouse: Timer2Enabled = Profilo.ModoInput != ModoInputValori::Mouse; break;
    case RegolaTimer2::SoloTastiera:
        if (Profilo.ModoInput == ModoInputValori::Tastiera)
            Timer2Enabled = true;
        break;
    case RegolaTimer2::AccesoDalProgetto:
    case RegolaTimer2::Assente: break;
    }
    for (Copertura &c : FramePosto)
        c.BackColor = Profilo.ColoreTessere;
    const bool personalizzato =
        Profilo.ModoInput == ModoInputValori::Mouse && !Profilo.DisabilitaMousePersonalizzato;
    if (Profilo.ModoInput != ModoInputValori::ScansioneAutomatica)
        Timer1Enabled = false;
    for (Copertura &c : FramePosto)
        c.PuntatorePersonalizzato = personalizzato;

    if (Profilo.Riquadro && !Imp.TessereAperte) {
        ShapeRiquadro.BorderWidth = Profilo.SpessoreRiquadro;
        ShapeRiquadro.BorderColor = Profilo.ColoreScansione;
        PostoEvidenziato = 0;
    }
    if (Profilo.ModoInput == ModoInputValori::Tastiera) {
        if (Profilo.Riquadro || !Imp.EvidenziaConColore())
            SistemaRiquadro();
        else
            FramePosto[PostoEvidenziato].BackColor = Profilo.ColoreScansione;
    }
    ColoreSfondoForm = Profilo.ColoreSfondo;
    if (Imp.HaParole()) {
        // The yardstick is whatever size LabelParola1(11) has now.
        LarghezzaParola = Lato1[11].EtichettaWidth;
        AltezzaParola = Lato1[11].EtichettaHeight;
    }
    if (Imp.AssegnaPausaAllAvvio)
        PausaConfronto = 2;
    if (Imp.AttesaAllAvvio && vista) {
        aggiorna();
        vista->Attendi(1);
    }
    CaricaMemory();
    aggiorna();
}

void Tavola::CaricaMemory()
{
    if (!::CaricaMemory(FileMemory, Imp.ChiaveFileMancante, &Tabella))
        return;
    mnuAvviaEnabled = true;
    Disponi();
    if (Profilo.ModoInput == ModoInputValori::Tastiera) {
        if (Imp.TessereAperte) {
            PostoEvidenziato = 0;
            SistemaRiquadro();
        } else {
            primoVisibileSenzaGiro();
            evidenzia();
        }
    }
    aggiorna();
}

void Tavola::primoVisibileSenzaGiro()
{
    PostoEvidenziato = 0;
    while (true) {
        if (PostoEvidenziato > 23)
            FuoriLimiti(QStringLiteral("FramePosto"));
        if (FramePosto[PostoEvidenziato].Visible)
            break;
        ++PostoEvidenziato;
    }
}

void Tavola::Nascondi()
{
    for (Copertura &c : FramePosto)
        c.Visible = false;
    for (int i = 0; i < 12; ++i) {
        for (Faccia *f : {&Lato1[i], &Lato2[i]}) {
            f->Visible = false;
            f->AnimataVisible = false;
        }
    }
}

void Tavola::Disponi()
{
    if (Imp.TessereAperte) {
        for (Copertura &c : FramePosto) {
            c.BackColor = Profilo.ColoreTessere;
            c.PuntatorePersonalizzato = false;
        }
    }
    if (NumeroCoppie() < 2) {
        aggiorna();
        return;
    }
    EtichettaPrima = QStringLiteral("999");
    EtichettaSeconda = QStringLiteral("999");
    Nascondi();
    for (Copertura &c : FramePosto)
        c.Enabled = true;
    Profilo.NumeroTessere = ScendiScala(Profilo.NumeroTessere, NumeroCoppie());
    const qint16 colonne = ColonnePer(NumeroTessere());
    if (colonne != 0) {
        Geometria.NumeroColonne = colonne;
        CalcolaDisposizione(NumeroTessere(), Width, Height, &Geometria);
        applicaDisposizione();
    }
    Carica();
    mescola();
    aggiorna();
}

void Tavola::applicaDisposizione()
{
    const int n = NumeroTessere();
    const qint16 L = Geometria.LatoTessera;
    for (int i = 0; i < n && i < 24; ++i) {
        FramePosto[i].Visible = true;
        FramePosto[i].Height = L;
        FramePosto[i].Width = L;
    }
    for (int i = 0; i < n / 2 && i < 12; ++i) {
        for (Faccia *f : {&Lato1[i], &Lato2[i]}) {
            f->Width = L;
            f->Height = L;
        }
    }
    for (int k = 0; k < n && k < 24; ++k) {
        FramePosto[k].Top = Geometria.Top(k);
        // Later rows copy Left from the place above in the first row.
        FramePosto[k].Left = k < Geometria.NumeroColonne ? Geometria.Left(k)
                                                         : FramePosto[k % Geometria.NumeroColonne].Left;
    }
}

void Tavola::mnuEsci_Prima()
{
    if (Imp.UscitaTimer2 == Timer2AllUscita::SpegneERiaccende || Imp.UscitaTimer2 == Timer2AllUscita::Spegne)
        Timer2Enabled = false;
}

void Tavola::mnuEsci_Dopo()
{
    if (Imp.UscitaTimer2 == Timer2AllUscita::SpegneERiaccende && Profilo.ModoInput != ModoInputValori::Mouse)
        Timer2Enabled = true;
}

void Tavola::CommandNo_Timer2()
{
    if (Imp.CommandNoRiaccendeTimer2 && Profilo.ModoInput != ModoInputValori::Mouse)
        Timer2Enabled = true;
}
