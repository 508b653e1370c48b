#pragma once

#include "board/Disposizione.h"
#include "board/ImpostazioniTavola.h"
#include "board/ModelloTavola.h"
#include "sets/CaricaMemory.h"

#include <QSizeF>
#include <QString>

#include <functional>

// What the rules ask of the screen that shows them.
class VistaTavola
{
public:
    virtual ~VistaTavola() = default;
    // The model changed: show it.
    virtual void Aggiorna() {}
    // The game's wait; the screen shows the model first, and events go on.
    virtual void Attendi(double secondi) = 0;
    // FormPremio, modally; returns when it has closed.
    virtual void MostraPremio() = 0;
};

// The size in twips of a text in a font of the given points, as a label that
// sizes itself to its text would take.
using MisuraTesto = std::function<QSizeF(const QString &testo, const QString &font, double punti)>;

// Where a key arrived.
enum class OrigineTasto { PictureScansione, Form };

namespace CodiciTasto {
inline constexpr int Invio = 13, Spazio = 32, Sinistra = 37, Su = 38, Destra = 39, Giu = 40;
}

// The biggest font size the platform accepts; the word fit ends the program past it.
inline constexpr double DimensioneFontMassima = 2048;

// One board's game: its fields and routines, free of widgets. The shared
// state it reads and writes is the process's (Profilo, NumeroGiocatori,
// NomiGiocatori, FileMemory).
class Tavola
{
public:
    Tavola(const ImpostazioniTavola &impostazioni, VistaTavola *vista, MisuraTesto misura = {});

    const ImpostazioniTavola &Imp;

    // The form's Height and Width, which activation takes from the screen.
    double Height = 0, Width = 0;

    TabellaMemoria Tabella;
    QString SuoniCoppia[13][3];
    QString SuonoPosto[24];
    bool PrimaScoperta = false;
    QString EtichettaPrima, EtichettaSeconda;
    qint16 PausaConfronto = 0;
    qint16 PostoEvidenziato = 0;
    bool InputAbilitato = false;
    qint16 TessereTrovate = 0;
    qint16 Mosse[3] = {0, 0, 0};
    qint16 GiocatoreCorrente = 0;
    Disposizione Geometria; // LatoTessera, margins, SpazioTessere, NumeroColonne
    qint16 LarghezzaParola = 0, AltezzaParola = 0;

    Copertura FramePosto[24];
    Faccia Lato1[12], Lato2[12];
    Forma ShapeRiquadro, Shape1;
    Pannello StatusBar1[3];
    double ColoreSfondoForm = 0;
    bool Timer1Enabled = false;
    int Timer1Interval = 0;
    bool Timer2Enabled = false;
    bool mnuAvviaEnabled = true;
    QString CaptionDimensionaFont;
    double FontDimensionaFont = 12;

    qint16 NumeroCoppie() const { return Tabella.NumeroCoppie; }
    static qint16 NumeroTessere();

    // Entries from the screen.
    void Form_Activate();
    void mnuAvvia_Click() { Disponi(); }
    void FramePosto_Click(int Index);
    // A key-down; true when the key was acted on (its code becomes 0).
    bool TastoGiu(int &KeyCode, OrigineTasto origine);
    void Timer1_Timer();

    // Around the exit question.
    void mnuEsci_Prima();
    void mnuEsci_Dopo();
    void CommandNo_Timer2();

    // Routines.
    void CaricaMemory();
    void Disponi();
    void Nascondi();
    void Carica();
    void mescola();
    void AggiornaMosse();
    void ControllaFine();
    void ProssimoPiuUno();
    void SistemaRiquadro();
    void AdattaParole();

    bool GestisceTasto(OrigineTasto origine) const;

private:
    void applicaDisposizione();
    void caricaFaccia(Faccia &f, TipoFaccia tipo, const QString &valore);
    void mettiFaccia(Faccia &f, TipoFaccia tipo, const Copertura &posto);
    void avviaFaccia(Faccia &f, TipoFaccia tipo);
    void rivelaImmagine(int Index);
    void clickTessereAperte(int Index);
    // The second tile of a move against the first: the sound, the turn, the
    // score; the pair's number when they match, else NessunaCoppia.
    static constexpr int NessunaCoppia = -1000;
    int giudicaCoppia();
    void segnaTrovate();  // both tiles of the pair become "trovata"
    void riapriCoperte(); // covers back for every tile not found, input on
    void passaTurno();
    void evidenzia();
    void togliEvidenza();
    void passo(int spostamento);
    void primoVisibileSenzaGiro();
    Faccia &faccia(int lato, int i) { return lato == 1 ? Lato1[i] : Lato2[i]; }
    TipoFaccia tipo(int lato) const { return lato == 1 ? Imp.Lato1 : Imp.Lato2; }
    void aggiorna();
    QSizeF misura(const QString &testo, double punti) const;

    VistaTavola *vista;
    MisuraTesto misuraTesto;
};
