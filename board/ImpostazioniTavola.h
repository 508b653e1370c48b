#pragma once

#include <QRect>
#include <QString>

// The five boards are one game with a few deliberate differences; each board
// is this table plus the routines that read it.

enum class TipoFaccia { Film, Parola, Immagine };

// Where the keys of each input mode arrive.
enum class InstradamentoTasti {
    PictureScansione, // the focus holder gets modes 1, 2, 3; the form has no handler
    Diviso,           // the focus holder gets mode 3, the form modes 1 and 2
    Form,             // the form gets modes 1, 2, 3; there is no focus holder
};

// How Timer2 (the focus tick) is set at activation.
enum class RegolaTimer2 {
    AccesoSempre,        // on in every mode
    SpentoInModoMouse,   // off in mode 0, on in the others
    SoloTastiera,        // off at design, switched on in mode 3 only
    AccesoDalProgetto,   // on from design and never touched
    Assente,             // the board has no Timer2
};

// What the click of mnuEsci does to Timer2 around the question.
enum class Timer2AllUscita {
    SpegneERiaccende, // off before, on again afterwards unless in mouse mode
    Spegne,           // off before, stays off
    Lascia,           // left alone
    Assente,
};

enum class PassoTimer1 { InLinea, ConProssimoPiuUno, SoloRiquadro };

struct ImpostazioniTavola {
    QString Nome;
    QString Estensione;
    int LarghezzaProgetto = 0; // inner size in twips
    int AltezzaProgetto = 0;
    TipoFaccia Lato1 = TipoFaccia::Film;
    TipoFaccia Lato2 = TipoFaccia::Film;
    QString ChiaveFileMancante;
    QString ChiaveEtichettaUno;   // status bar label with one player
    QString ChiaveEtichettaMolti; // and with several
    bool AssegnaPausaAllAvvio = true; // PausaConfronto = 2 at activation
    bool AttesaAllAvvio = true;       // the wait of 1 second before the set is read
    InstradamentoTasti Tasti = InstradamentoTasti::PictureScansione;
    RegolaTimer2 Timer2 = RegolaTimer2::AccesoSempre;
    int IntervalloTimer2 = 20;
    Timer2AllUscita UscitaTimer2 = Timer2AllUscita::SpegneERiaccende;
    bool CommandNoRiaccendeTimer2 = true;
    QRect PictureScansione{0, 0, 255, 255}; // design rectangle, twips; empty when absent
    PassoTimer1 Timer1 = PassoTimer1::InLinea;
    bool TessereAperte = false; // the open-tile game: tiles lie face up, a found pair vanishes

    bool HaParole() const { return Lato1 == TipoFaccia::Parola; }
    bool HaImmagini() const { return Lato1 == TipoFaccia::Immagine || Lato2 == TipoFaccia::Immagine; }
    bool EvidenziaConColore() const { return !TessereAperte; }
};

const ImpostazioniTavola &TavolaSS();
const ImpostazioniTavola &TavolaPS();
const ImpostazioniTavola &TavolaGG();
const ImpostazioniTavola &TavolaPG();
const ImpostazioniTavola &TavolaGGCS();
const ImpostazioniTavola *TavolaDiNome(const QString &nome);
