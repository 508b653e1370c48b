#pragma once

// What a film is made of once read: characters by id and timelines of
// display-list commands. Coordinates stay in twips; the renderer scales.

#include "lettore.h"
#include "suono.h"

#include <QColor>
#include <QImage>
#include <QPainterPath>
#include <QRectF>
#include <QTransform>

#include <array>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace swf {

constexpr int kMaxNesting = 32;        // sprites inside sprites, while parsing and drawing
constexpr int kMaxFrames = 16000;      // per timeline
constexpr int kMaxBitmapPixels = 4096 * 4096;

struct Rgba {
    uint8_t r = 0, g = 0, b = 0, a = 255;
    bool operator==(const Rgba &) const = default;
};

struct ColorTransform {
    double mr = 1, mg = 1, mb = 1, ma = 1;
    double ar = 0, ag = 0, ab = 0, aa = 0;  // in 0..255 units

    bool operator==(const ColorTransform &) const = default;
    bool identita() const { return mr == 1 && mg == 1 && mb == 1 && ma == 1 && ar == 0 && ag == 0 && ab == 0 && aa == 0; }
    // this applied after inner
    ColorTransform dopo(const ColorTransform &inner) const
    {
        ColorTransform c;
        c.mr = mr * inner.mr; c.mg = mg * inner.mg; c.mb = mb * inner.mb; c.ma = ma * inner.ma;
        c.ar = ar + mr * inner.ar; c.ag = ag + mg * inner.ag; c.ab = ab + mb * inner.ab; c.aa = aa + ma * inner.aa;
        return c;
    }
    QColor applica(const Rgba &c) const
    {
        auto f = [](double v) { return v < 0 ? 0 : v > 255 ? 255 : static_cast<int>(v); };
        return QColor(f(c.r * mr + ar), f(c.g * mg + ag), f(c.b * mb + ab), f(c.a * ma + aa));
    }
};

struct Gradiente {
    enum Tipo { Lineare, Radiale, Focale } tipo = Lineare;
    QTransform matrice;
    int spread = 0;   // 0 pad, 1 reflect, 2 repeat
    int interp = 0;   // 0 RGB, 1 linear RGB
    double fuoco = 0;
    std::vector<std::pair<uint8_t, Rgba>> stop;
};

struct Riempimento {
    enum Tipo { Nessuno, Solido, Grad, Bitmap } tipo = Nessuno;
    Rgba colore;
    Gradiente grad;
    uint16_t bitmapId = 0;
    QTransform matriceBitmap;
    bool ripeti = true;
    bool liscio = true;
};

struct Tratto {
    uint16_t larghezza = 20;  // twips
    Rgba colore;
    int capInizio = 0, capFine = 0;  // 0 round, 1 none, 2 square
    int giunzione = 0;               // 0 round, 1 bevel, 2 miter
    double miter = 3;
    bool noHScale = false, noVScale = false, pixelHinting = false, noClose = false;
    bool conRiempimento = false;
    Riempimento riempimento;
};

// One drawing record of a shape, in absolute twips.
struct Record {
    enum Tipo { Stile, Retta, Curva } tipo = Stile;
    // Stile
    bool sposta = false;
    int32_t mx = 0, my = 0;
    bool haF0 = false, haF1 = false, haL = false;
    uint32_t f0 = 0, f1 = 0, l = 0;
    int nuovoStrato = -1;  // index of the style group this record switches to
    // edges
    int32_t cx = 0, cy = 0, x = 0, y = 0;
};

struct StratoForma {
    std::vector<Riempimento> riempimenti;
    std::vector<Tratto> tratti;
    std::vector<QPainterPath> areePerStile;   // index = fill style - 1
    std::vector<QPainterPath> lineePerStile;  // index = line style - 1
    // stroke outlines of scaling lines, made once: they do not depend on the transform
    mutable std::vector<QPainterPath> contorniLinee;
    // the same paths with their curves flattened for one half octave of scale
    mutable int gradinoSpianato = INT32_MIN;
    mutable std::vector<QPainterPath> areeSpianate, lineeSpianate, contorniSpianati;
};

struct Forma {
    QRectF limiti;
    bool nonZero = false;
    std::vector<StratoForma> strati;
    QPainterPath contorno;  // union of all fills, for masks (built on demand)
    bool contornoPronto = false;
};

struct Morph {
    QRectF limitiInizio, limitiFine;
    std::vector<Record> inizio, fine;
    std::vector<Riempimento> riempInizio, riempFine;
    std::vector<Tratto> trattiInizio, trattiFine;
    // last built frame, reused while the ratio stays the same
    int ultimoRapporto = -1;
    std::shared_ptr<Forma> cache;
};

struct ImmagineBitmap {
    enum Tipo { Jpeg, JpegTabelle, Lossless } tipo = Jpeg;
    QByteArray dati;       // raw payload (copied: the file can be dropped)
    QByteArray alfa;       // zlib alpha for JPEG3/4
    int formato = 0, larghezza = 0, altezza = 0, versioneLossless = 1;
    bool decodificata = false;
    QImage img;            // premultiplied ARGB
};

struct Glifo {
    QPainterPath percorso;  // font units: 1024 em (DefineFont3: 20480)
};

struct Carattere {
    std::vector<Glifo> glifi;
    double unitaEm = 1024;
    QByteArray nome;
    bool grassetto = false, corsivo = false;
    std::vector<uint16_t> codici;  // the character of each glyph (DefineFont2/3, DefineFontInfo)
    // the font's own layout, in font units, when it has one
    bool haLayout = false;
    double ascesa = 0, discesa = 0, interlinea = 0;
    std::vector<double> avanzi;
};

// A run of text of one look, and a paragraph of runs: what a field shows,
// from its plain text or from the simple HTML authoring tools wrote.
struct PezzoTesto {
    QString testo;
    bool grassetto = false, corsivo = false;
    Rgba colore;
    double altezza = 240;  // twips
    QByteArray faccia;     // empty: the field's own font
};
struct Paragrafo {
    int allinea = 0;  // 0 left, 1 right, 2 centre, 3 justify
    std::vector<PezzoTesto> pezzi;
};

// A dynamic or input text field: drawn with its embedded font when it asks
// for it (UseOutlines), otherwise with a system font.
struct CampoTesto {
    QRectF limiti;
    uint16_t font = 0;
    double altezza = 240;
    bool haColore = false;
    Rgba colore{0, 0, 0, 255};
    bool bordo = false, html = false, multilinea = false, aCapo = false;
    int allinea = 0;
    double margineSx = 0, margineDx = 0;
    double interlinea = 0;  // twips between lines
    bool contorni = false;  // drawn with the glyphs of its embedded font
    QString testo;
    std::vector<Paragrafo> paragrafi;
};

struct VoceTesto {
    uint16_t font = 0;
    Rgba colore;
    double x = 0, y = 0, altezza = 0;
    std::vector<std::pair<uint32_t, int32_t>> glifi;  // index, advance
};

struct Testo {
    QRectF limiti;
    QTransform matrice;
    std::vector<VoceTesto> voci;
};

struct Filtro {
    enum Tipo { Ombra = 0, Sfocatura = 1, Alone = 2, Rilievo = 3, AloneGradiente = 4, Convoluzione = 5, MatriceColore = 6, RilievoGradiente = 7 } tipo = Sfocatura;
    Rgba colore;
    Rgba colore2;  // bevel: the colour of the second field
    double bx = 0, by = 0, angolo = 0, distanza = 0, forza = 1;
    bool interno = false, knockout = false, soloOggetto = false;
    bool sopra = false;  // bevels: on top of the object, inside and out
    int passaggi = 1;
    std::vector<std::pair<uint8_t, Rgba>> gradiente;  // gradient glow and bevel: ratio, colour
    std::array<float, 20> matrice{};
};

// An onClipEvent handler: the events it answers and its code.
enum EventoClip : uint32_t { CaricaClip = 0x01, EntraFotogramma = 0x02 };
struct AzioneClip {
    uint32_t eventi = 0;
    QByteArray codice;
};

struct Piazza {
    int versione = 2;
    uint16_t profondita = 0;
    bool sposta = false;
    bool haCarattere = false;
    uint16_t carattere = 0;
    bool haMatrice = false;
    QTransform matrice;
    bool haColore = false;
    ColorTransform colore;
    bool haRapporto = false;
    uint16_t rapporto = 0;
    bool haNome = false;
    QByteArray nome;
    bool haClip = false;
    uint16_t clip = 0;
    bool haFusione = false;
    uint8_t fusione = 0;
    bool haFiltri = false;
    std::vector<Filtro> filtri;
    bool haCache = false;
    bool cache = false;
    bool haVisibile = false;
    bool visibile = true;
    std::vector<AzioneClip> azioniClip;
};

struct Comando {
    enum Tipo { Metti, Togli } tipo = Metti;
    Piazza piazza;       // Metti
    uint16_t profondita = 0;  // Togli
};

struct Fotogramma {
    std::vector<Comando> comandi;
    std::vector<QByteArray> azioni;  // DoAction bytecode, in file order
    std::vector<QByteArray> azioniIniziali;  // DoInitAction: once, before the frame's own
    std::vector<AvvioSuono> suoni;   // StartSound, StartSound2
};

struct Sequenza {
    int numeroFotogrammi = 1;
    std::vector<Fotogramma> fotogrammi;
    std::map<QByteArray, int> etichette;  // lower-case label -> 0-based frame
    std::shared_ptr<Flusso> flusso;       // the soundtrack, if the timeline has one
};

// One character of a button, shown in the states its flags name.
struct ParteBottone {
    enum Stato : uint8_t { Su = 1, Sopra = 2, Giu = 4, Colpo = 8 };
    uint8_t stati = 0;
    uint16_t carattere = 0, profondita = 0;
    QTransform matrice;
    ColorTransform colore;
    std::vector<Filtro> filtri;
    uint8_t fusione = 0;
};

// The transitions a button's actions and sounds are tied to, as the bits of
// a DefineButton2 condition.
enum TransizioneBottone : uint16_t {
    InattivoASopra = 0x001, SopraAInattivo = 0x002, SopraAGiu = 0x004, GiuASopra = 0x008,
    GiuAFuori = 0x010, FuoriAGiu = 0x020, FuoriAInattivo = 0x040,
};

struct Bottone {
    std::vector<ParteBottone> parti;
    struct Azione {
        uint16_t condizioni = GiuASopra;
        QByteArray codice;
    };
    std::vector<Azione> azioni;
    bool menu = false;     // tracked as a menu: it goes down under a pointer pressed elsewhere
    bool haColore = false; // DefineButtonCxform, over every state
    ColorTransform colore;
    // DefineButtonSound: over to idle, idle to over, over to down, down to over
    std::array<AvvioSuono, 4> suoni;
};

struct Definizione {
    enum Tipo { FormaT, MorphT, BitmapT, TestoT, SpriteT, CarattereT, BottoneT, CampoT } tipo = FormaT;
    std::shared_ptr<Bottone> bottone;
    std::shared_ptr<Forma> forma;
    std::shared_ptr<Morph> morph;
    std::shared_ptr<ImmagineBitmap> bitmap;
    std::shared_ptr<Testo> testo;
    std::shared_ptr<Sequenza> sprite;
    std::shared_ptr<Carattere> carattere;
    std::shared_ptr<CampoTesto> campo;
};

struct Film {
    Intestazione intestazione;
    QRectF scena;  // twips
    double fps = 12;
    int numeroFotogrammi = 1;
    bool haSfondo = false;
    Rgba sfondo{255, 255, 255, 255};
    QByteArray tabelleJpeg;
    std::map<uint16_t, Definizione> definizioni;
    Sequenza principale;
    std::map<uint16_t, std::shared_ptr<Suono>> suoni;
    std::map<QByteArray, uint16_t> nomiEsportati;  // ExportAssets, SymbolClass
};

// analisi.cpp
std::unique_ptr<Film> leggiFilm(const QByteArray &file);
QTransform leggiMatrice(Lettore &r);
// forme.cpp
bool leggiForma(Lettore &r, int versione, Forma &forma);
bool leggiMorph(Lettore &r, int versione, Morph &m);
void costruisciForma(const std::vector<Record> &record, std::vector<StratoForma> &strati, Forma &forma);
std::shared_ptr<Forma> formaMorph(Morph &m, int rapporto);
bool leggiCarattere(Lettore &r, int versione, Carattere &c);
bool leggiTesto(Lettore &r, int versione, Testo &t);
bool leggiCampoTesto(Lettore &r, int versioneSwf, CampoTesto &c);
void leggiInfoCarattere(Lettore &r, int versione, Film &film);
// testo.cpp
std::vector<Paragrafo> paragrafiDaHtml(const QString &html, const PezzoTesto &base, int allinea);
std::vector<Paragrafo> paragrafiSemplici(const QString &testo, const PezzoTesto &base, int allinea);
const QPainterPath &contornoForma(Forma &f);
// immagini.cpp
const QImage &decodificaBitmap(ImmagineBitmap &b, const QByteArray &tabelle);
// bottoni.cpp
bool leggiBottone(Lettore &r, int versione, Bottone &b);
void leggiColoreBottone(Lettore &r, Film &film);
void leggiSuoniBottone(Lettore &r, Film &film);
ColorTransform leggiCx(Lettore &r, bool alfa);
bool leggiFiltri(Lettore &r, std::vector<Filtro> &filtri);

} // namespace swf
