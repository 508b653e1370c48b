// Scanning and keyboard input: the highlight, its steps, the keys.
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

void Tavola::SistemaRiquadro()
{
    if (PostoEvidenziato < 0 || PostoEvidenziato > 23)
        FuoriLimiti(QStringLiteral("SistemaRiquadro"));
    const Copertura &c = FramePosto[PostoEvidenziato];
    ShapeRiquadro.Visible = c.Visible;
    // The border width counts pixels and is taken here as twips, as it always was.
    const qint16 B = ShapeRiquadro.BorderWidth;
    ShapeRiquadro.Top = qint16(c.Top - B);
    ShapeRiquadro.Left = qint16(c.Left - B);
    ShapeRiquadro.Width = qint16(c.Width + B);
    ShapeRiquadro.Height = qint16(c.Height + B);
}

void Tavola::evidenzia()
{
    if (Profilo.Riquadro || !Imp.EvidenziaConColore())
        SistemaRiquadro();
    else
        FramePosto[PostoEvidenziato].BackColor = Profilo.ColoreScansione;
}

void Tavola::togliEvidenza()
{
    if (PostoEvidenziato >= 0 && PostoEvidenziato < 24)
        FramePosto[PostoEvidenziato].BackColor = Profilo.ColoreTessere;
}

void Tavola::passo(int spostamento)
{
    const int N = NumeroTessere();
    togliEvidenza();
    auto muovi = [&] {
        int p = PostoEvidenziato + spostamento;
        if (spostamento == 1 && p >= N)
            p = 0;
        else if (spostamento == -1 && p < 0)
            p = N - 1;
        else if (spostamento < -1 && p < 0)
            p += N;
        else if (spostamento > 1 && p >= N)
            p -= N;
        PostoEvidenziato = qint16(p);
    };
    muovi();
    for (int giri = 0; !FramePosto[PostoEvidenziato].Visible && giri <= 24; ++giri)
        muovi();
    evidenzia();
}

bool Tavola::GestisceTasto(OrigineTasto origine) const
{
    const int modo = Profilo.ModoInput;
    switch (Imp.Tasti) {
    case InstradamentoTasti::PictureScansione: return origine == OrigineTasto::PictureScansione;
    case InstradamentoTasti::Form: return origine == OrigineTasto::Form;
    case InstradamentoTasti::Diviso:
        return origine == OrigineTasto::PictureScansione ? modo == ModoInputValori::Tastiera
                                                         : modo != ModoInputValori::Tastiera;
    }
    return false;
}

bool Tavola::TastoGiu(int &KeyCode, OrigineTasto origine)
{
    if (!GestisceTasto(origine))
        return false;
    if (TessereTrovate == NumeroTessere() || !InputAbilitato || Profilo.ModoInput == ModoInputValori::Mouse)
        return false;
    const int modo = Profilo.ModoInput;
    auto selezioneConRiparti = [&] {
        FramePosto_Click(PostoEvidenziato);
        if (Profilo.Riparti) {
            PostoEvidenziato = qint16(NumeroTessere() - 1);
            for (Copertura &c : FramePosto) {
                c.BackColor = Profilo.ColoreTessere;
                c.PuntatorePersonalizzato = false;
            }
        }
        KeyCode = 0;
    };
    bool agito = true;
    if (modo == ModoInputValori::ScansioneManuale) {
        if (KeyCode == CodiciTasto::Spazio) {
            passo(1);
            KeyCode = 0;
        } else if (KeyCode == CodiciTasto::Invio) {
            selezioneConRiparti();
        } else {
            agito = false;
        }
    } else if (modo == ModoInputValori::ScansioneAutomatica) {
        if (KeyCode == CodiciTasto::Spazio)
            selezioneConRiparti();
        else
            agito = false;
    } else if (modo == ModoInputValori::Tastiera) {
        switch (KeyCode) {
        case CodiciTasto::Sinistra: passo(-1); break;
        case CodiciTasto::Destra: passo(1); break;
        case CodiciTasto::Su: passo(-Geometria.NumeroColonne); break;
        case CodiciTasto::Giu: passo(Geometria.NumeroColonne); break;
        case CodiciTasto::Invio: FramePosto_Click(PostoEvidenziato); break;
        default: agito = false;
        }
        if (agito)
            KeyCode = 0;
    } else {
        agito = false;
    }
    aggiorna();
    return agito;
}

void Tavola::Timer1_Timer()
{
    if (TessereTrovate == NumeroTessere() || Profilo.ModoInput != ModoInputValori::ScansioneAutomatica)
        return;
    switch (Imp.Timer1) {
    case PassoTimer1::InLinea: passo(1); break;
    case PassoTimer1::ConProssimoPiuUno:
        togliEvidenza();
        ProssimoPiuUno();
        evidenzia();
        break;
    case PassoTimer1::SoloRiquadro:
        togliEvidenza();
        ProssimoPiuUno();
        SistemaRiquadro();
        break;
    }
    aggiorna();
}

