#include "board/ImpostazioniTavola.h"

const ImpostazioniTavola &TavolaSS()
{
    static const ImpostazioniTavola t = [] {
        ImpostazioniTavola i;
        i.Nome = QStringLiteral("FormmemSS");
        i.Estensione = QStringLiteral("ass");
        i.LarghezzaProgetto = 9615;
        i.AltezzaProgetto = 7965;
        i.Lato1 = TipoFaccia::Film;
        i.Lato2 = TipoFaccia::Film;
        i.ChiaveFileMancante = QStringLiteral("0024");
        i.ChiaveEtichettaUno = QStringLiteral("0025");
        i.ChiaveEtichettaMolti = QStringLiteral("0026");
        return i;
    }();
    return t;
}

const ImpostazioniTavola &TavolaPS()
{
    static const ImpostazioniTavola t = [] {
        ImpostazioniTavola i;
        i.Nome = QStringLiteral("FormmemPS");
        i.Estensione = QStringLiteral("aps");
        i.LarghezzaProgetto = 10395;
        i.AltezzaProgetto = 7965;
        i.Lato1 = TipoFaccia::Parola;
        i.Lato2 = TipoFaccia::Film;
        i.ChiaveFileMancante = QStringLiteral("0030");
        i.ChiaveEtichettaUno = QStringLiteral("0031");
        i.ChiaveEtichettaMolti = QStringLiteral("0031");
        i.AssegnaPausaAllAvvio = false;
        i.AttesaAllAvvio = false;
        i.Timer2 = RegolaTimer2::SpentoInModoMouse;
        i.UscitaTimer2 = Timer2AllUscita::Spegne;
        return i;
    }();
    return t;
}

const ImpostazioniTavola &TavolaGG()
{
    static const ImpostazioniTavola t = [] {
        ImpostazioniTavola i;
        i.Nome = QStringLiteral("FormmemGG");
        i.Estensione = QStringLiteral("agg");
        i.LarghezzaProgetto = 8910;
        i.AltezzaProgetto = 6465;
        i.Lato1 = TipoFaccia::Immagine;
        i.Lato2 = TipoFaccia::Immagine;
        i.ChiaveFileMancante = QStringLiteral("0078");
        i.ChiaveEtichettaUno = QStringLiteral("0079");
        i.ChiaveEtichettaMolti = QStringLiteral("0080");
        i.Tasti = InstradamentoTasti::Diviso;
        i.Timer2 = RegolaTimer2::SoloTastiera;
        i.IntervalloTimer2 = 10;
        i.UscitaTimer2 = Timer2AllUscita::Lascia;
        i.CommandNoRiaccendeTimer2 = false;
        i.PictureScansione = QRect(10080, 1080, 375, 615);
        i.Timer1 = PassoTimer1::ConProssimoPiuUno;
        return i;
    }();
    return t;
}

const ImpostazioniTavola &TavolaPG()
{
    static const ImpostazioniTavola t = [] {
        ImpostazioniTavola i;
        i.Nome = QStringLiteral("FormmemPG");
        i.Estensione = QStringLiteral("apg");
        i.LarghezzaProgetto = 8715;
        i.AltezzaProgetto = 7965;
        i.Lato1 = TipoFaccia::Parola;
        i.Lato2 = TipoFaccia::Immagine;
        i.ChiaveFileMancante = QStringLiteral("0081");
        i.ChiaveEtichettaUno = QStringLiteral("0082");
        i.ChiaveEtichettaMolti = QStringLiteral("0082");
        i.AssegnaPausaAllAvvio = false;
        i.Tasti = InstradamentoTasti::Diviso;
        i.Timer2 = RegolaTimer2::AccesoDalProgetto;
        i.IntervalloTimer2 = 10;
        i.UscitaTimer2 = Timer2AllUscita::Lascia;
        i.CommandNoRiaccendeTimer2 = false;
        i.PictureScansione = QRect(9720, 3840, 375, 615);
        return i;
    }();
    return t;
}

const ImpostazioniTavola &TavolaGGCS()
{
    static const ImpostazioniTavola t = [] {
        ImpostazioniTavola i;
        i.Nome = QStringLiteral("FormmemGGCS");
        i.Estensione = QStringLiteral("agg");
        i.LarghezzaProgetto = 11490;
        i.AltezzaProgetto = 7965;
        i.Lato1 = TipoFaccia::Immagine;
        i.Lato2 = TipoFaccia::Immagine;
        i.ChiaveFileMancante = QStringLiteral("0061");
        i.ChiaveEtichettaUno = QStringLiteral("0062");
        i.ChiaveEtichettaMolti = QStringLiteral("0063");
        i.AttesaAllAvvio = false;
        i.Tasti = InstradamentoTasti::Form;
        i.Timer2 = RegolaTimer2::Assente;
        i.IntervalloTimer2 = 0;
        i.UscitaTimer2 = Timer2AllUscita::Assente;
        i.CommandNoRiaccendeTimer2 = false;
        i.PictureScansione = QRect();
        i.Timer1 = PassoTimer1::SoloRiquadro;
        i.TessereAperte = true;
        return i;
    }();
    return t;
}

const ImpostazioniTavola *TavolaDiNome(const QString &nome)
{
    for (const ImpostazioniTavola *t : {&TavolaSS(), &TavolaPS(), &TavolaGG(), &TavolaPG(), &TavolaGGCS()})
        if (t->Nome == nome)
            return t;
    return nullptr;
}
