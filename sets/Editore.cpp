#include "sets/Editore.h"

#include "lang/modLanguageSupport.h"
#include "platform/CommDlgs.h"
#include "platform/Errori.h"
#include "platform/InputBox.h"
#include "platform/MsgBox.h"
#include "platform/Percorsi.h"
#include "profiles/CartelleDati.h"
#include "sets/DecodificaImmagine.h"
#include "sets/Sfogliatore.h"

QString PercorsoDaMostrare(const QString &percorso)
{
    if (percorso.isEmpty())
        return QString();
    return MappaPercorso(percorso);
}

namespace {
const QString SenzaNome = QStringLiteral("Senza nome");
const QString TuttiIFile = QStringLiteral("Tutti i files");
// The picture an image box keeps: enough for the box on any screen.
const QSize FiguraMassima(640, 640);
} // namespace

Editore::Editore(const ImpostazioniEditore &imp, VistaEditore *v) : Imp(imp), vista(v)
{
    for (const ControlloEditore &c : Imp.Controlli) {
        StatoControllo s;
        s.Caption = c.Caption;
        // Hidden at design: the panel, the hidden file list and image, the idle bar.
        s.Visible = c.Nome != QLatin1String("Frame1") && c.Tipo != TipoControllo::ElencoFile
                    && c.Tipo != TipoControllo::ImmagineNascosta && c.Tipo != TipoControllo::Avanzamento;
        Controlli[c.Nome] = s;
    }
    if (Imp.HaImmagini()) {
        sfogliatore = std::make_unique<Sfogliatore>();
        sfogliatore->AllInizioRiempimento = [this] { MiniatureCaricate = true; };
    }
}

Editore::~Editore() = default;

void Editore::aggiorna()
{
    if (vista)
        vista->Aggiorna();
}

QString Editore::Destinazione(const QString &cartellaMedia, const QString &nome) const
{
    return Cartelle::Dati + cartellaMedia + Sottocartella + nome;
}

void Editore::fuoriTabella(const QString &passo) const
{
    ErroreFatale(TestoErrore(QStringLiteral("0107"), QStringLiteral("L'editor dei memory si è fermato:")) + u' '
                 + Imp.Nome + QStringLiteral(", ") + passo
                 + QStringLiteral(": la coppia %1 non c'è, un memory ne ha al massimo %2.")
                       .arg(HScroll1.Value)
                       .arg(ElencoCoppie::UltimaRiga));
}

QString &Editore::campo(int riga, int colonna, const QString &passo)
{
    if (!ElencoCoppie::RigaEsiste(riga))
        fuoriTabella(passo);
    return Elenco.Campo(riga, colonna);
}

void Editore::filmMovie(int k, const QString &movie)
{
    ShockwaveFlash[k].Movie = movie;
    ShockwaveFlash[k].InRiproduzione = false;
    ++ShockwaveFlash[k].Caricamenti;
}

// An image box loads a file: "" empties it. Unguarded, a file that is no
// picture ends the program; guarded, the box keeps what it had.
void Editore::caricaFigura(int lato, const QString &file, bool protetto, const QString &passo)
{
    StatoFigura &f = Image[lato];
    if (file.isEmpty()) {
        f = StatoFigura{QString(), QImage(), f.Caricamenti + 1};
        return;
    }
    const Decodifica d = DecodificaRidotta(PercorsoLocale(file), FiguraMassima, true);
    if (!d.Riuscita) {
        if (protetto)
            return;
        QString dove = Imp.Nome + QStringLiteral(", ") + passo + QStringLiteral(", coppia %1").arg(HScroll1.Value);
        if (!FileAperto.isEmpty())
            dove += QStringLiteral(", riga %1 di %2").arg((HScroll1.Value - 1) * 4 + lato).arg(PercorsoDaMostrare(FileAperto));
        ErroreFatale(TestoErrore(QStringLiteral("0106"), QStringLiteral("Non riesco a caricare l'immagine:")) + u' '
                     + PercorsoDaMostrare(file) + QStringLiteral(" (") + dove + u')');
    }
    f = StatoFigura{file, d.Immagine, f.Caricamenti + 1};
}

// ---------------------------------------------------------------------------
// Load and activation

void Editore::Form_Load()
{
    CoppiaCorrente = 1;
    CoppiaMassima = 1;
    C(QStringLiteral("CommandSuono1")).Enabled = false;
    C(QStringLiteral("CommandSuono2")).Enabled = false;
    MiniatureCaricate = false;
    if (sfogliatore && Imp.Nome == QLatin1String("Formpg"))
        sfogliatore->File1Pattern = QStringLiteral("*.gif");
    aggiorna();
}

void Editore::Form_Activate()
{
    C(QStringLiteral("Label1")).Caption = TestoLingua(Imp.Chiavi.Label1Inizio);
    ImpostaMax(1);
    ImpostaMin(1);
    C(QStringLiteral("CheckCopiaFile")).Enabled = true;
    C(QStringLiteral("CommandSottocartella")).Visible = false;
    Sottocartella.clear();
    if (sfogliatore && Imp.Nome == QLatin1String("Formgg"))
        sfogliatore->File1Pattern = QStringLiteral("*.gif");
    aggiorna();
}

// ---------------------------------------------------------------------------
// The scroll bar

void Editore::ImpostaMax(int max)
{
    HScroll1.Max = max;
    const int basso = qMin(HScroll1.Min, HScroll1.Max), alto = qMax(HScroll1.Min, HScroll1.Max);
    if (HScroll1.Value > alto || HScroll1.Value < basso)
        ImpostaValore(qBound(basso, HScroll1.Value, alto));
}

void Editore::ImpostaMin(int min)
{
    HScroll1.Min = min;
    const int basso = qMin(HScroll1.Min, HScroll1.Max), alto = qMax(HScroll1.Min, HScroll1.Max);
    if (HScroll1.Value > alto || HScroll1.Value < basso)
        ImpostaValore(qBound(basso, HScroll1.Value, alto));
}

void Editore::ImpostaValore(int valore)
{
    if (valore == HScroll1.Value)
        return;
    HScroll1.Value = valore;
    HScroll1_Change();
}

void Editore::HScroll1_Scorri(int valore)
{
    const int basso = qMin(HScroll1.Min, HScroll1.Max), alto = qMax(HScroll1.Min, HScroll1.Max);
    ImpostaValore(qBound(basso, valore, alto));
    aggiorna();
}

QString Editore::testoEtichetta2() const
{
    return QString::number(CoppiaCorrente) + TestoLingua(Imp.Chiavi.TraINumeri) + QString::number(CoppiaMassima);
}

void Editore::HScroll1_Change()
{
    const int v = HScroll1.Value;
    CoppiaCorrente = qint16(v);
    if (CoppiaMassima < v)
        CoppiaMassima = qint16(v);
    const bool riga = rigaC();
    const QString passo = QStringLiteral("HScroll1");

    if (Imp.HaImmagini()) {
        // Nothing guards the image editors' walk.
        if (Imp.Lato1 == TipoLato::Immagine) {
            caricaFigura(1, campo(v, 1, passo), false, passo);
        } else {
            impostaText1(campo(v, 1, passo));
        }
        caricaFigura(2, campo(v, 2, passo), false, passo);
        C(QStringLiteral("Label5")).Caption = PercorsoDaMostrare(campo(v, 3, passo));
        C(QStringLiteral("Label6")).Caption = PercorsoDaMostrare(campo(v, 4, passo));
        C(QStringLiteral("Label2")).Caption = testoEtichetta2();
        return;
    }

    // The film editors pass over each statement that fails.
    if (Imp.HaParola()) {
        if (riga)
            impostaText1(Elenco.Campo(v, 1));
        if (riga) {
            if (Elenco.Campo(v, 2).isEmpty()) {
                ShockwaveFlash[1].Visible = false;
            } else {
                ShockwaveFlash[1].Visible = true;
                filmMovie(1, Elenco.Campo(v, 2));
            }
        }
        ShockwaveFlash[1].InRiproduzione = true;
    } else if (riga) {
        filmMovie(1, Elenco.Campo(v, 1));
        filmMovie(2, Elenco.Campo(v, 2));
        ShockwaveFlash[1].Visible = !Elenco.Campo(v, 1).isEmpty();
        ShockwaveFlash[2].Visible = !Elenco.Campo(v, 2).isEmpty();
    }
    if (riga) {
        C(QStringLiteral("Label5")).Caption = PercorsoDaMostrare(Elenco.Campo(v, 3));
        C(QStringLiteral("Label6")).Caption = PercorsoDaMostrare(Elenco.Campo(v, 4));
    }
    C(QStringLiteral("Label2")).Caption = testoEtichetta2();
}

// ---------------------------------------------------------------------------
// The word

void Editore::impostaText1(const QString &testo)
{
    if (testo == Text1)
        return;
    Text1 = testo;
    Text1_Change();
}

void Editore::Text1_Scrivi(const QString &testo)
{
    impostaText1(testo);
    aggiorna();
}

void Editore::Text1_Change()
{
    campo(HScroll1.Value, 1, QStringLiteral("Text1")) = Text1;
    C(QStringLiteral("CommandSuono1")).Enabled = true;
    ImpostaMax(CoppiaMassima + 1);
    C(QStringLiteral("CheckCopiaFile")).Enabled = false;
}

// ---------------------------------------------------------------------------
// Films: the picker panel

void Editore::Command3_Click()
{
    Frame1AllOrigine = true;
    C(QStringLiteral("Frame1")).Visible = true;
    if (Imp.HaParola())
        ShockwaveFlash[1].Visible = true;
    else
        LatoInserimento = 1;
    aggiorna();
}

void Editore::Command4_Click()
{
    Frame1AllOrigine = true;
    C(QStringLiteral("Frame1")).Visible = true;
    LatoInserimento = 2;
    aggiorna();
}

void Editore::Command5_Click()
{
    FileScelto = ScegliFile(Proprietario, ModoApri, QStringLiteral("Open"), QStringLiteral("*.swf"),
                            FiltroFile({QStringLiteral("*.swf"), QStringLiteral("*.swf"), TuttiIFile, QStringLiteral("*.*")}),
                            QString(), QStringLiteral("swf"));
    if (!FileScelto.isEmpty()) {
        filmMovie(3, FileScelto);
        ShockwaveFlash[3].InRiproduzione = true;
    } else {
        MsgBox(TestoLingua(Imp.Chiavi.NienteFilm), Msg::vbCritical, TitoloGioco);
    }
    aggiorna();
}

void Editore::Command6_Click()
{
    if (Imp.HaParola()) {
        const QString passo = QStringLiteral("Command6");
        campo(HScroll1.Value, 2, passo) = FileScelto;
        filmMovie(1, FileScelto);
        C(QStringLiteral("CommandSuono2")).Enabled = true;
        if (CheckCopiaFile) {
            const QString destinazione = Destinazione(Imp.CartellaMedia, NomeFileScelto);
            CopiaFile(FileScelto, destinazione);
            campo(HScroll1.Value, 2, passo) = destinazione;
        }
        C(QStringLiteral("Label4")).Caption = PercorsoDaMostrare(campo(HScroll1.Value, 2, passo));
        ImpostaMax(CoppiaMassima + 1);
        C(QStringLiteral("CheckCopiaFile")).Enabled = false;
        ShockwaveFlash[3].InRiproduzione = false;
        ++ShockwaveFlash[3].Riavvolgimenti;
        C(QStringLiteral("Frame1")).Visible = false;
        aggiorna();
        return;
    }
    ShockwaveFlash[3].InRiproduzione = false;
    ++ShockwaveFlash[3].Riavvolgimenti;
    C(QStringLiteral("Frame1")).Visible = false;
    if (LatoInserimento == 1)
        Riempi1();
    else if (LatoInserimento == 2)
        Riempi2();
    aggiorna();
}

void Editore::Command7_Click()
{
    ShockwaveFlash[3].InRiproduzione = false;
    C(QStringLiteral("Frame1")).Visible = false;
    aggiorna();
}

void Editore::Riempi1()
{
    const QString passo = QStringLiteral("Riempi1");
    const int r = HScroll1.Value;
    campo(r, 1, passo) = FileScelto;
    C(QStringLiteral("CommandSuono1")).Enabled = true;
    ShockwaveFlash[1].Visible = true;
    filmMovie(1, FileScelto);
    ShockwaveFlash[1].InRiproduzione = true;
    if (CheckCopiaFile) {
        const QString destinazione = Destinazione(Imp.CartellaMedia, NomeFileScelto);
        CopiaFile(FileScelto, destinazione);
        campo(r, 1, passo) = destinazione;
    }
    C(QStringLiteral("Label3")).Caption = PercorsoDaMostrare(campo(r, 1, passo));
    if (Check1) {
        ShockwaveFlash[2].Visible = true;
        filmMovie(2, FileScelto);
        ShockwaveFlash[2].InRiproduzione = true;
        campo(r, 2, passo) = campo(r, 1, passo);
        C(QStringLiteral("Label4")).Caption = PercorsoDaMostrare(campo(r, 2, passo));
    }
    ImpostaMax(CoppiaMassima + 1);
    C(QStringLiteral("CheckCopiaFile")).Enabled = false;
}

void Editore::Riempi2()
{
    const QString passo = QStringLiteral("Riempi2");
    const int r = HScroll1.Value;
    campo(r, 2, passo) = FileScelto;
    C(QStringLiteral("CommandSuono2")).Enabled = true;
    ShockwaveFlash[2].Visible = true;
    filmMovie(2, FileScelto);
    ShockwaveFlash[2].InRiproduzione = true;
    if (CheckCopiaFile) {
        const QString destinazione = Destinazione(Imp.CartellaMedia, NomeFileScelto);
        CopiaFile(FileScelto, destinazione);
        campo(r, 2, passo) = destinazione;
    }
    C(QStringLiteral("Label4")).Caption = PercorsoDaMostrare(campo(r, 2, passo));
    ImpostaMax(CoppiaMassima + 1);
    C(QStringLiteral("CheckCopiaFile")).Enabled = false;
}

// ---------------------------------------------------------------------------
// Sounds

void Editore::commandSuono(int lato)
{
    const QString passo = lato == 1 ? QStringLiteral("CommandSuono1") : QStringLiteral("CommandSuono2");
    const int colonna = lato == 1 ? 3 : 4;
    const int r = HScroll1.Value;
    const QString scelto =
        ScegliFile(Proprietario, ModoApri, QStringLiteral("Open"), QStringLiteral("*.wav"),
                   FiltroFile({QStringLiteral("*.wav"), QStringLiteral("*.wav"), TuttiIFile, QStringLiteral("*.*")}),
                   QString(), QStringLiteral("wav"));
    campo(r, colonna, passo) = scelto;
    C(QStringLiteral("CheckCopiaFile")).Enabled = false;
    if (CheckCopiaFile) {
        const QString destinazione = Destinazione(QStringLiteral("suoni\\"), NomeFileScelto);
        CopiaFile(scelto, destinazione);
        campo(r, colonna, passo) = destinazione;
    }
    const QString etichetta = lato == 1 ? QStringLiteral("Label5") : QStringLiteral("Label6");
    C(etichetta).Caption = PercorsoDaMostrare(campo(r, colonna, passo));
    if (lato == 1 && Imp.HaCheck1 && Check1) {
        campo(r, 4, passo) = campo(r, 3, passo);
        C(QStringLiteral("Label6")).Caption = PercorsoDaMostrare(campo(r, 4, passo));
    }
    aggiorna();
}

// ---------------------------------------------------------------------------
// Check boxes and the sub-folder

void Editore::Check1_Click(bool valore)
{
    Check1 = valore;
    const QString secondo = Imp.HaImmagini() ? QStringLiteral("Image2") : QStringLiteral("Command4");
    C(secondo).Enabled = !valore;
    C(QStringLiteral("CommandSuono2")).Enabled = !valore;
    aggiorna();
}

void Editore::CheckCopiaFile_Click(bool valore)
{
    CheckCopiaFile = valore;
    C(QStringLiteral("CommandSottocartella")).Visible = valore;
    aggiorna();
}

void Editore::CommandSottocartella_Click()
{
    // Any failure ends the handler in silence.
    Sottocartella = InputBox(TestoLingua(Imp.Chiavi.NomeSottocartella));
    const QString suoni = QStringLiteral("c:\\impostazioniprogrammilorea\\tesselo\\dati\\suoni\\") + Sottocartella + u'\\';
    if (CartellaEsiste(suoni)) {
        MsgBox(TestoLingua(Imp.Chiavi.EsisteInSuoni), Msg::vbCritical, TitoloGioco);
    } else if (!TentaCreaCartella(suoni)) {
        aggiorna();
        return;
    }
    const QString media = QStringLiteral("c:\\impostazioniprogrammilorea\\tesselo\\dati\\") + Imp.CartellaMedia
                          + Sottocartella + u'\\';
    if (CartellaEsiste(media)) {
        MsgBox(TestoLingua(Imp.Chiavi.EsisteInMedia), Msg::vbCritical, TitoloGioco);
    } else if (!TentaCreaCartella(media)) {
        aggiorna();
        return;
    }
    Sottocartella += u'\\';
    C(QStringLiteral("CheckCopiaFile")).Caption = TestoLingua(Imp.Chiavi.PrimaDelPercorso) + PercorsoDaMostrare(media);
    aggiorna();
}

// ---------------------------------------------------------------------------
// Emptying, opening, saving, leaving

void Editore::Command2_Click()
{
    if (MsgBox(TestoLingua(Imp.Chiavi.Svuota), int(Msg::vbYesNo) | Msg::vbCritical, TitoloGioco) == Msg::vbYes)
        Elenco.SvuotaRighe(1, CoppiaMassima);
    CoppiaMassima = 1;
    ImpostaMax(1);
    const int r = HScroll1.Value;
    const QString passo = QStringLiteral("Command2");

    if (Imp.HaParola()) {
        if (Imp.HaFilm())
            FileScelto = SenzaNome;
        C(QStringLiteral("Label1")).Caption = SenzaNome;
        FileAperto.clear();
        impostaText1(campo(r, 1, passo));
        if (Imp.HaFilm()) {
            // The handler goes on to load the film's field as a picture into a
            // picture holder this form does not have: the program ends here.
            ErroreFatale(TestoErrore(QStringLiteral("0107"), QStringLiteral("L'editor dei memory si è fermato:"))
                         + u' ' + Imp.Nome + QStringLiteral(", Command2 (") + C(QStringLiteral("Command2")).Caption.remove(u'&')
                         + QStringLiteral("): non c'è l'immagine in cui caricare ") + PercorsoDaMostrare(campo(r, 2, passo))
                         + u'.');
        }
        caricaFigura(2, campo(r, 2, passo), false, passo);
    } else {
        C(QStringLiteral("Label1")).Caption = SenzaNome;
        FileAperto.clear();
        if (Imp.HaImmagini()) {
            caricaFigura(1, campo(r, 1, passo), false, passo);
            caricaFigura(2, campo(r, 2, passo), false, passo);
        } else {
            for (int k : {1, 2}) {
                filmMovie(k, QString());
                ShockwaveFlash[k].Visible = false;
            }
        }
    }
    C(QStringLiteral("Label5")).Caption = PercorsoDaMostrare(campo(r, 3, passo));
    C(QStringLiteral("Label6")).Caption = PercorsoDaMostrare(campo(r, 4, passo));
    C(QStringLiteral("CheckCopiaFile")).Enabled = true;
    Sottocartella.clear();
    C(QStringLiteral("CheckCopiaFile")).Caption = TestoLingua(Imp.Chiavi.CaptionCopia);
    aggiorna();
}

void Editore::CommandModificaLista_Click()
{
    Elenco.SvuotaRighe(1, ElencoCoppie::UltimaRiga);
    const QString schema = QStringLiteral("*.") + Imp.Estensione;
    FileScelto = ScegliFile(Proprietario, ModoApri, QStringLiteral("Open"), QString(),
                            FiltroFile({QString(), schema, TuttiIFile, QStringLiteral("*.*")}),
                            Imp.CartellaPredefinita(), Imp.Estensione);
    if (FileScelto.isEmpty()) {
        MsgBox(TestoLingua(Imp.Chiavi.NienteSet), Msg::vbCritical, TitoloGioco);
        aggiorna();
        return;
    }
    C(QStringLiteral("Label1")).Caption = PercorsoDaMostrare(FileScelto);
    FileAperto = FileScelto;
    CoppiaMassima = 0;
    CoppiaMassima = qint16(LeggiElencoCoppie(FileScelto, &Elenco));
    ++CoppiaMassima;
    ImpostaMax(CoppiaMassima);
    ImpostaValore(CoppiaMassima);
    ImpostaValore(1);
    C(QStringLiteral("CommandSuono1")).Enabled = true;
    C(QStringLiteral("CommandSuono2")).Enabled = true;
    aggiorna();
}

void Editore::Command1_Click()
{
    // Every failure here is passed over: the user learns nothing.
    const QString cartella = Imp.CartellaPredefinita();
    if (!CartellaEsiste(cartella))
        TentaCreaCartella(cartella);
    if (CoppiaMassima < 12
        && MsgBox(TestoLingua(Imp.Chiavi.MenoDiDodici), int(Msg::vbYesNo) | Msg::vbInformation, TitoloGioco) != Msg::vbYes)
        return;
    const QString percorso = ScegliFile(Proprietario, ModoSalva, QStringLiteral("Salva"), QString(),
                                        FiltroFile({QString(), QStringLiteral("*.") + Imp.Estensione}), cartella,
                                        Imp.Estensione);
    if (percorso.isEmpty())
        return;
    ScriviElencoCoppie(percorso, Elenco, CoppiaMassima);
}

bool Editore::mnuEsci_Click()
{
    return MsgBox(TestoLingua(Imp.Chiavi.Esci), int(Msg::vbYesNo) | Msg::vbQuestion, TitoloGioco) == Msg::vbYes;
}

// ---------------------------------------------------------------------------
// Images: the boxes and the browser

void Editore::Image_Click(int lato)
{
    if (!C(lato == 1 ? QStringLiteral("Image1") : QStringLiteral("Image2")).Enabled)
        return;
    if (!CheckAnteprima) {
        const QString passo = lato == 1 ? QStringLiteral("Image1") : QStringLiteral("Image2");
        const QString scelto =
            ScegliFile(Proprietario, ModoApri, QStringLiteral("Open"), QStringLiteral("*.gif"),
                       FiltroFile({QStringLiteral("*.gif"), QStringLiteral("*.gif"), TuttiIFile, QStringLiteral("*.*")}),
                       QString(), QStringLiteral("gif"));
        if (scelto.isEmpty()) {
            MsgBox(TestoLingua(lato == 1 ? Imp.Chiavi.NienteImmagine1 : Imp.Chiavi.NienteImmagine2), Msg::vbCritical,
                   TitoloGioco);
            aggiorna();
            return;
        }
        const int r = HScroll1.Value;
        campo(r, lato, passo) = scelto;
        C(lato == 1 ? QStringLiteral("CommandSuono1") : QStringLiteral("CommandSuono2")).Enabled = true;
        caricaFigura(lato, scelto, false, passo);
        if (CheckCopiaFile) {
            const QString destinazione = Destinazione(Imp.CartellaMedia, NomeFileScelto);
            CopiaFile(scelto, destinazione);
            campo(r, lato, passo) = destinazione;
        }
        C(lato == 1 ? QStringLiteral("Label3") : QStringLiteral("Label4")).Caption = PercorsoDaMostrare(campo(r, lato, passo));
        if (lato == 1 && Imp.HaCheck1 && Check1) {
            Image[2] = StatoFigura{Image[1].File, Image[1].Picture, Image[2].Caricamenti + 1};
            campo(r, 2, passo) = campo(r, 1, passo);
            C(QStringLiteral("Label4")).Caption = PercorsoDaMostrare(campo(r, 2, passo));
        }
        ImpostaMax(CoppiaMassima + 1);
        C(QStringLiteral("CheckCopiaFile")).Enabled = false;
        aggiorna();
        return;
    }
    if (!MiniatureCaricate)
        RiempiMiniature();
    Frame1AllOrigine = true;
    C(QStringLiteral("Frame1")).Visible = true;
    if (Imp.HaCheck1)
        LatoInserimento = qint16(lato);
    aggiorna();
}

void Editore::RiempiMiniature()
{
    if (sfogliatore)
        sfogliatore->Dir1_Change();
}

void Editore::CommandChiudiMiniature_Click()
{
    C(QStringLiteral("Frame1")).Visible = false;
    aggiorna();
}

void Editore::ListView1_Click(const QString &percorso)
{
    // Every statement that fails is passed over.
    C(QStringLiteral("Frame1")).Visible = false;
    const int r = HScroll1.Value;
    const bool riga = rigaC();
    const int lato = Imp.HaCheck1 ? LatoInserimento : 2;
    if (lato != 1 && lato != 2) {
        aggiorna();
        return;
    }
    if (riga)
        Elenco.Campo(r, lato) = percorso;
    if (lato == 1) {
        C(QStringLiteral("CommandSuono1")).Enabled = true;
        caricaFigura(1, percorso, true, QStringLiteral("ListView1"));
        if (Imp.HaCheck1 && riga)
            C(QStringLiteral("Label3")).Caption = PercorsoDaMostrare(Elenco.Campo(r, 1));
    } else {
        C(QStringLiteral("CommandSuono2")).Enabled = true;
        caricaFigura(2, percorso, true, QStringLiteral("ListView1"));
        if (Imp.HaCheck1 && riga)
            C(QStringLiteral("Label4")).Caption = PercorsoDaMostrare(Elenco.Campo(r, 2));
    }
    if (CheckCopiaFile) {
        // The name is the part after the last separator, so no NUL of a dialog comes with it.
        const qsizetype barra = qMax(percorso.lastIndexOf(u'\\'), percorso.lastIndexOf(u'/'));
        const QString nome = percorso.mid(barra + 1);
        const QString destinazione = Destinazione(Imp.CartellaMedia, nome);
        CopiaFile(percorso, destinazione);
        if (riga)
            Elenco.Campo(r, 1) = destinazione;
    }
    if (Imp.HaCheck1) {
        if (riga)
            C(QStringLiteral("Label3")).Caption = PercorsoDaMostrare(Elenco.Campo(r, 1));
        if (Check1) {
            Image[2] = StatoFigura{Image[1].File, Image[1].Picture, Image[2].Caricamenti + 1};
            if (riga) {
                Elenco.Campo(r, 2) = Elenco.Campo(r, 1);
                C(QStringLiteral("Label4")).Caption = PercorsoDaMostrare(Elenco.Campo(r, 2));
            }
        }
    } else if (riga) {
        C(QStringLiteral("Label4")).Caption = PercorsoDaMostrare(Elenco.Campo(r, 2));
    }
    ImpostaMax(CoppiaMassima + 1);
    C(QStringLiteral("CheckCopiaFile")).Enabled = false;
    aggiorna();
}
