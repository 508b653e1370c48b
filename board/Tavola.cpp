#include "board/Tavola.h"

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

namespace {
const QString Trovata = QStringLiteral("trovata");

[[noreturn]] void fuoriLimiti(const QString &dove)
{
    ErroreFatale(QStringLiteral("Indice fuori dai limiti in ") + dove + QLatin1Char('.'));
}
} // namespace

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
            fuoriLimiti(QStringLiteral("FramePosto"));
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
            ErroreFatale(QStringLiteral("Non riesco a caricare l'immagine: ") + valore);
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
        fuoriLimiti(QStringLiteral("FramePosto"));
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
        if (EtichettaSeconda != EtichettaPrima) {
            SuonaNo();
            if (NumeroGiocatori > 1) {
                passaTurno();
                AggiornaMosse();
            }
        } else {
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
            for (int k = 0; k < N; ++k)
                if (FramePosto[k].Tag == EtichettaPrima)
                    FramePosto[k].Tag = Trovata;
        }
        InputAbilitato = true;
        for (int k = 0; k < N; ++k) {
            if (FramePosto[k].Tag != Trovata)
                FramePosto[k].Visible = true;
            FramePosto[k].Enabled = true;
        }
    }
    PrimaScoperta = !PrimaScoperta;
    if (Profilo.ModoInput == ModoInputValori::ScansioneAutomatica)
        Timer1Enabled = true;
    aggiorna();
    ControllaFine();
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
        if (EtichettaSeconda != EtichettaPrima) {
            SuonaNo();
            if (NumeroGiocatori > 1) {
                passaTurno();
                AggiornaMosse();
            }
        } else {
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
            aggiorna();
            if (vista)
                vista->Attendi(Durate::AnimazioneTrovata);
            if (n >= 0 && n < 12) {
                Lato1[n].AnimataVisible = false;
                Lato2[n].AnimataVisible = false;
            }
            for (int k = 0; k < N; ++k)
                if (FramePosto[k].Tag == EtichettaPrima)
                    FramePosto[k].Tag = Trovata;
        }
        InputAbilitato = true;
        for (int k = 0; k < N; ++k) {
            if (FramePosto[k].Tag != Trovata)
                FramePosto[k].Visible = true;
            FramePosto[k].Enabled = true;
        }
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

void Tavola::SistemaRiquadro()
{
    if (PostoEvidenziato < 0 || PostoEvidenziato > 23)
        fuoriLimiti(QStringLiteral("SistemaRiquadro"));
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
