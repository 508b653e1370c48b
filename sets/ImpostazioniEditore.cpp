#include "sets/ImpostazioniEditore.h"

#include "profiles/CartelleDati.h"

#include <QStringList>

namespace {
using T = TipoControllo;

ControlloEditore c(const char *nome, T tipo, const char *caption, int l, int t, int w, int h, bool frame = false)
{
    return {QString::fromLatin1(nome), tipo, QString::fromUtf8(caption), QRect(l, t, w, h), frame};
}

// What every editor has at the same place.
std::vector<ControlloEditore> comuni()
{
    return {
        c("HScroll1", T::Barra, "", 360, 600, 6615, 495),
        c("Label2", T::Etichetta, "Label2", 360, 1200, 8175, 375),
        c("CheckCopiaFile", T::Casella,
          "Copia file selezionati nella cartella c:\\impostazioniprogrammilorea\\memory\\dati\\", 240, 5640, 5415, 735),
        c("CommandModificaLista", T::Pulsante, "Modifica memory", 240, 6480, 1935, 735),
        c("Command2", T::Pulsante, "Svuota elenco", 2400, 6480, 1935, 735),
        c("Command1", T::Pulsante, "salva", 6480, 6480, 1935, 735),
    };
}

// The film picker inside Frame1.
void pannelloFilm(std::vector<ControlloEditore> &v)
{
    v.push_back(c("Command5", T::Pulsante, "Sfoglia", 360, 1080, 1095, 975, true));
    v.push_back(c("ShockwaveFlash3", T::Filmato, "", 3240, 600, 2295, 2175, true));
    v.push_back(c("Command6", T::Pulsante, "Conferma", 4080, 3840, 2415, 975, true));
    v.push_back(c("Command7", T::Pulsante, "Chiudi", 4080, 5040, 2415, 975, true));
}

// The thumbnail browser inside Frame1.
void pannelloMiniature(std::vector<ControlloEditore> &v)
{
    v.push_back(c("Drive1", T::ElencoUnita, "", 120, 480, 1935, 315, true));
    v.push_back(c("Dir1", T::ElencoCartelle, "", 120, 960, 1935, 5265, true));
    v.push_back(c("File1", T::ElencoFile, "", 3240, 5280, 1695, 1065, true));
    v.push_back(c("ListView1", T::Miniature, "", 2160, 480, 7695, 6495, true));
    v.push_back(c("ImageAnteprima", T::ImmagineNascosta, "", 4200, 5760, 1095, 735, true));
    v.push_back(c("barr1", T::Avanzamento, "", 240, 7080, 9495, 255, true));
    v.push_back(c("Command3", T::Pulsante, "chiudi", 240, 6480, 1695, 495, true));
}

ChiaviEditore chiavi(std::initializer_list<const char *> k)
{
    QStringList s;
    for (const char *x : k)
        s << QString::fromLatin1(x);
    return {s[0], s[1], s[2], s[3], s[4], s[5], s[6], s[7], s[8], s[9], s[10], s[11], s[12], s[13]};
}
} // namespace

QString ImpostazioniEditore::CartellaPredefinita() const { return Cartelle::Dati + Cartella; }

const ControlloEditore *ImpostazioniEditore::Controllo(const QString &nome) const
{
    for (const ControlloEditore &x : Controlli)
        if (x.Nome == nome)
            return &x;
    return nullptr;
}

const ImpostazioniEditore &EditoreSS()
{
    static const ImpostazioniEditore e = [] {
        ImpostazioniEditore i;
        i.Nome = QStringLiteral("FormSS");
        i.Estensione = QStringLiteral("ass");
        i.Cartella = QStringLiteral("ii\\");
        i.CartellaMedia = QStringLiteral("swf\\");
        i.SchemaMedia = QStringLiteral("*.swf");
        i.Lato1 = i.Lato2 = TipoLato::Film;
        i.HaCheck1 = true;
        //                  <12     empty   copy    film    set     prompt  suoni   media   prefix  label1  between img1 img2 exit
        i.Chiavi = chiavi({"0032", "0033", "0034", "0035", "0036", "0037", "0038", "0039", "0040", "0042", "0043", "", "", "0044"});
        i.Controlli = {
            c("Label1", T::Etichetta, "Nome file", 360, 120, 8415, 375),
            c("Command3", T::Pulsante, "Inserisci filmato", 240, 2400, 975, 855),
            c("ShockwaveFlash1", T::Filmato, "", 1560, 1920, 1815, 1695),
            c("Command4", T::Pulsante, "Inserisci filmato", 4320, 2400, 975, 855),
            c("ShockwaveFlash2", T::Filmato, "", 5400, 1920, 1815, 1695),
            c("Check1", T::Casella, "secondo filmato uguale al primo", 7680, 2280, 1815, 975),
            c("Label3", T::Etichetta, "Inserisci primo filmato", 240, 3720, 4335, 615),
            c("Label4", T::Etichetta, "Inserisci secondo filmato", 4920, 3720, 4575, 615),
            c("CommandSuono1", T::Pulsante, "Inserisci suono", 120, 4680, 975, 855),
            c("Label5", T::Etichetta, "primo suono", 1200, 4800, 2655, 615),
            c("CommandSuono2", T::Pulsante, "Inserisci suono", 4680, 4680, 975, 855),
            c("Label6", T::Etichetta, "secondo suono", 5880, 4800, 3495, 615),
            c("CommandSottocartella", T::Pulsante, "Crea sottocartella", 6000, 5640, 2415, 615),
            c("Frame1", T::Cornice, "", -240, -480, 10095, 7455),
        };
        for (auto &x : comuni())
            i.Controlli.push_back(x);
        pannelloFilm(i.Controlli);
        return i;
    }();
    return e;
}

const ImpostazioniEditore &EditorePS()
{
    static const ImpostazioniEditore e = [] {
        ImpostazioniEditore i;
        i.Nome = QStringLiteral("FormPS");
        i.Estensione = QStringLiteral("aps");
        i.Cartella = QStringLiteral("pi\\");
        i.CartellaMedia = QStringLiteral("swf\\");
        i.SchemaMedia = QStringLiteral("*.swf");
        i.Lato1 = TipoLato::Parola;
        i.Lato2 = TipoLato::Film;
        i.Chiavi = chiavi({"0006", "0007", "0008", "0009", "0010", "0011", "0012", "0013", "0014", "0016", "0017", "", "", "0019"});
        i.Controlli = {
            c("Label1", T::Etichetta, "Nome file", 240, 120, 8415, 375),
            c("Text1", T::Testo, "", 120, 2280, 3495, 615),
            c("Command3", T::Pulsante, "Inserisci filmato", 4800, 2640, 975, 855),
            c("ShockwaveFlash1", T::Filmato, "", 6000, 2160, 1815, 1695),
            c("Label4", T::Etichetta, "", 8040, 2400, 1695, 1455),
            c("CommandSuono1", T::Pulsante, "Inserisci suono", 120, 4200, 3735, 495),
            c("Label5", T::Etichetta, "primo suono", 120, 4800, 3615, 615),
            c("CommandSuono2", T::Pulsante, "Inserisci suono", 4680, 4200, 3855, 495),
            c("Label6", T::Etichetta, "secondo suono", 4080, 4800, 3735, 615),
            c("CommandSottocartella", T::Pulsante, "Crea sottocartella per i suoni", 6000, 5640, 2415, 615),
            c("Frame1", T::Cornice, "", -120, 3960, 10095, 7455),
        };
        for (auto &x : comuni())
            i.Controlli.push_back(x);
        pannelloFilm(i.Controlli);
        return i;
    }();
    return e;
}

const ImpostazioniEditore &Editoregg()
{
    static const ImpostazioniEditore e = [] {
        ImpostazioniEditore i;
        i.Nome = QStringLiteral("Formgg");
        i.Estensione = QStringLiteral("agg");
        i.Cartella = QStringLiteral("ii\\");
        i.CartellaMedia = QStringLiteral("gif\\");
        i.SchemaMedia = QStringLiteral("*.gif");
        i.Lato1 = i.Lato2 = TipoLato::Immagine;
        i.HaCheck1 = true;
        i.Chiavi = chiavi({"0047", "0048", "0049", "", "0050", "0051", "0052", "0053", "0054", "0056", "0057", "0058", "0059", "0060"});
        i.Controlli = {
            c("Label1", T::Etichetta, "Nome file", 360, 120, 8415, 375),
            c("Image1", T::Immagine, "", 2280, 2280, 1815, 1695),
            c("Image2", T::Immagine, "", 5040, 2280, 1815, 1695),
            c("Label3", T::Etichetta, "Inserisci prima immagine", 240, 1800, 4335, 375),
            c("Label4", T::Etichetta, "Inserisci seconda immagine", 5160, 1800, 4575, 375),
            c("Check1", T::Casella, "seconda immagine uguale alla prima", 7800, 2760, 1815, 975),
            c("CheckAnteprima", T::Casella, "Visualizza anteprime per la scelta immagine", 120, 2640, 1815, 975),
            c("CommandSuono1", T::Pulsante, "Inserisci suono", 120, 4200, 3735, 495),
            c("Label5", T::Etichetta, "primo suono", 120, 4800, 3615, 615),
            c("CommandSuono2", T::Pulsante, "Inserisci suono", 4080, 4200, 3855, 495),
            c("Label6", T::Etichetta, "secondo suono", 4080, 4800, 3735, 615),
            c("CommandSottocartella", T::Pulsante, "Crea sottocartella", 6000, 5640, 2415, 615),
            c("Frame1", T::Cornice, "Seleziona l'immagine da inserire", 240, 3480, 9975, 7455),
        };
        for (auto &x : comuni())
            i.Controlli.push_back(x);
        pannelloMiniature(i.Controlli);
        return i;
    }();
    return e;
}

const ImpostazioniEditore &Editorepg()
{
    static const ImpostazioniEditore e = [] {
        ImpostazioniEditore i;
        i.Nome = QStringLiteral("Formpg");
        i.Estensione = QStringLiteral("apg");
        i.Cartella = QStringLiteral("pi\\");
        i.CartellaMedia = QStringLiteral("gif\\");
        i.SchemaMedia = QStringLiteral("*.gif");
        i.Lato1 = TipoLato::Parola;
        i.Lato2 = TipoLato::Immagine;
        i.Chiavi = chiavi({"0064", "0065", "0066", "", "0067", "0068", "0069", "0070", "0071", "0073", "0074", "", "0076", "0077"});
        i.Controlli = {
            c("Label1", T::Etichetta, "Nome file", 240, 120, 8415, 375),
            c("Text1", T::Testo, "", 120, 2280, 3495, 615),
            c("Image2", T::Immagine, "", 4800, 2280, 1815, 1695),
            c("Label4", T::Etichetta, "Inserisci immagine", 4680, 1800, 4575, 375),
            c("CheckAnteprima", T::Casella, "Visualizza anteprime per la scelta immagine", 7440, 2640, 1815, 975),
            c("CommandSuono1", T::Pulsante, "Inserisci suono", 120, 4200, 3735, 495),
            c("Label5", T::Etichetta, "primo suono", 120, 4800, 3615, 615),
            c("CommandSuono2", T::Pulsante, "Inserisci suono", 4680, 4200, 3855, 495),
            c("Label6", T::Etichetta, "secondo suono", 4080, 4800, 3735, 615),
            c("CommandSottocartella", T::Pulsante, "Crea sottocartella per i suoni", 6000, 5640, 2415, 615),
            c("Frame1", T::Cornice, "Seleziona l'immagine da inserire", 4560, 1200, 9975, 7455),
        };
        for (auto &x : comuni())
            i.Controlli.push_back(x);
        pannelloMiniature(i.Controlli);
        return i;
    }();
    return e;
}

const ImpostazioniEditore *EditoreDiNome(const QString &nome)
{
    for (const ImpostazioniEditore *e : {&EditoreSS(), &EditorePS(), &Editoregg(), &Editorepg()})
        if (e->Nome == nome)
            return e;
    return nullptr;
}
