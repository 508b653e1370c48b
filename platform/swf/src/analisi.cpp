// Reading the tag stream into characters and timelines.

#include "modello.h"

#include <algorithm>

namespace swf {

namespace {

enum Codice : uint16_t {
    End = 0, ShowFrame = 1, DefineShape = 2, PlaceObject = 4, RemoveObject = 5, DefineBits = 6,
    JPEGTables = 8, SetBackgroundColor = 9, DefineFont = 10, DefineText = 11, DoAction = 12,
    DefineBitsLossless = 20, DefineBitsJPEG2 = 21, DefineShape2 = 22, PlaceObject2 = 26,
    RemoveObject2 = 28, DefineShape3 = 32, DefineText2 = 33, DefineBitsJPEG3 = 35,
    DefineBitsLossless2 = 36, DefineSprite = 39, FrameLabel = 43, DefineMorphShape = 46,
    DefineFont2 = 48, PlaceObject3 = 70, DefineFont3 = 75, DefineShape4 = 83,
    DefineMorphShape2 = 84, DefineBitsJPEG4 = 90, DefineEditText = 37,
    DefineSound = 14, StartSound = 15, SoundStreamHead = 18, SoundStreamBlock = 19,
    SoundStreamHead2 = 45, ExportAssets = 56, SymbolClass = 76, StartSound2 = 89,
    DefineButton = 7, DefineButtonSound = 17, DefineButtonCxform = 23, DefineButton2 = 34,
    DoInitAction = 59, DefineFontInfo = 13, DefineFontInfo2 = 62,
};

struct Contesto {
    Film &film;
    int versione;
    int definizioni = 0;
    int avviiSuono = 0;
};

} // namespace

ColorTransform leggiCx(Lettore &r, bool alfa)
{
    ColorTransform c;
    r.allinea();
    bool add = r.flag();
    bool mult = r.flag();
    int n = static_cast<int>(r.ub(4));
    if (mult) {
        c.mr = r.sb(n) / 256.0; c.mg = r.sb(n) / 256.0; c.mb = r.sb(n) / 256.0;
        if (alfa) c.ma = r.sb(n) / 256.0;
    }
    if (add) {
        c.ar = r.sb(n); c.ag = r.sb(n); c.ab = r.sb(n);
        if (alfa) c.aa = r.sb(n);
    }
    r.allinea();
    return c;
}

Rgba leggiRgba(Lettore &r)
{
    Rgba c;
    c.r = r.u8(); c.g = r.u8(); c.b = r.u8(); c.a = r.u8();
    return c;
}

bool leggiFiltri(Lettore &r, std::vector<Filtro> &filtri)
{
    int n = r.u8();
    for (int i = 0; i < n && r.ok(); ++i) {
        Filtro f;
        int id = r.u8();
        f.tipo = static_cast<Filtro::Tipo>(id);
        switch (id) {
        case 0:  // drop shadow
            f.colore = leggiRgba(r);
            f.bx = r.fixed16(); f.by = r.fixed16();
            f.angolo = r.fixed16(); f.distanza = r.fixed16();
            f.forza = r.fixed8();
            f.interno = r.flag(); f.knockout = r.flag(); f.soloOggetto = !r.flag();
            f.passaggi = static_cast<int>(r.ub(5));
            break;
        case 1:
            f.bx = r.fixed16(); f.by = r.fixed16();
            f.passaggi = static_cast<int>(r.ub(5));
            r.ub(3);
            break;
        case 2:
            f.colore = leggiRgba(r);
            f.bx = r.fixed16(); f.by = r.fixed16();
            f.forza = r.fixed8();
            f.interno = r.flag(); f.knockout = r.flag(); f.soloOggetto = !r.flag();
            f.passaggi = static_cast<int>(r.ub(5));
            break;
        case 3:
            f.colore = leggiRgba(r);
            f.colore2 = leggiRgba(r);
            f.bx = r.fixed16(); f.by = r.fixed16();
            f.angolo = r.fixed16(); f.distanza = r.fixed16();
            f.forza = r.fixed8();
            f.interno = r.flag(); f.knockout = r.flag(); f.soloOggetto = !r.flag(); f.sopra = r.flag();
            f.passaggi = static_cast<int>(r.ub(4));
            break;
        case 4:
        case 7: {
            const int nc = r.u8();
            std::vector<Rgba> colori;
            for (int k = 0; k < nc; ++k)
                colori.push_back(leggiRgba(r));
            for (int k = 0; k < nc; ++k)
                f.gradiente.emplace_back(r.u8(), colori[static_cast<size_t>(k)]);
            if (!colori.empty())
                f.colore = colori.back();
            f.bx = r.fixed16(); f.by = r.fixed16();
            f.angolo = r.fixed16(); f.distanza = r.fixed16();
            f.forza = r.fixed8();
            f.interno = r.flag(); f.knockout = r.flag(); f.soloOggetto = !r.flag(); f.sopra = r.flag();
            f.passaggi = static_cast<int>(r.ub(4));
            break;
        }
        case 5: {
            int mx = r.u8(), my = r.u8();
            r.salta(8 + 4u * static_cast<size_t>(mx * my) + 4 + 1);
            break;
        }
        case 6:
            for (auto &v : f.matrice)
                v = r.f32();
            break;
        default:
            return false;
        }
        r.allinea();
        filtri.push_back(f);
    }
    return r.ok();
}

namespace {

constexpr size_t kMaxAzioniClip = 32;

// The onClipEvent handlers of a placed clip; event flags take 32 bits from SWF 6 on.
void leggiAzioniClip(Lettore &r, int versioneSwf, std::vector<AzioneClip> &azioni)
{
    const bool larghi = versioneSwf >= 6;
    r.u16();
    larghi ? r.u32() : r.u16();
    while (r.ok() && !r.fine()) {
        const uint32_t eventi = larghi ? r.u32() : r.u16();
        if (eventi == 0 || !r.ok())
            return;
        const uint32_t lunghezza = r.u32();
        if (!r.ok() || lunghezza > r.restanti())
            return;
        Lettore corpo = r.sotto(lunghezza);
        if (eventi & 0x20000)
            corpo.u8();  // the key of a keyPress handler
        if (azioni.size() < kMaxAzioniClip)
            azioni.push_back(AzioneClip{eventi, QByteArray(reinterpret_cast<const char *>(corpo.qui()),
                                                           static_cast<qsizetype>(corpo.restanti()))});
    }
}

Piazza leggiPiazza(Lettore &r, int tag, int versioneSwf)
{
    Piazza p;
    if (tag == PlaceObject) {
        p.versione = 1;
        p.haCarattere = true;
        p.carattere = r.u16();
        p.profondita = r.u16();
        p.haMatrice = true;
        p.matrice = leggiMatrice(r);
        if (r.restanti() > 0) {
            p.haColore = true;
            p.colore = leggiCx(r, false);
        }
        return p;
    }
    p.versione = tag == PlaceObject3 ? 3 : 2;
    uint8_t f1 = r.u8();
    uint8_t f2 = tag == PlaceObject3 ? r.u8() : 0;
    p.sposta = f1 & 0x01;
    p.haCarattere = f1 & 0x02;
    p.haMatrice = f1 & 0x04;
    p.haColore = f1 & 0x08;
    p.haRapporto = f1 & 0x10;
    p.haNome = f1 & 0x20;
    p.haClip = f1 & 0x40;
    p.haFiltri = f2 & 0x01;
    p.haFusione = f2 & 0x02;
    p.haCache = f2 & 0x04;
    bool haClasse = f2 & 0x08;
    bool haImmagine = f2 & 0x10;
    p.haVisibile = f2 & 0x20;
    bool sfondoOpaco = f2 & 0x40;
    p.profondita = r.u16();
    if (haClasse || (haImmagine && p.haCarattere))
        r.stringa();
    if (p.haCarattere)
        p.carattere = r.u16();
    if (p.haMatrice)
        p.matrice = leggiMatrice(r);
    if (p.haColore)
        p.colore = leggiCx(r, true);
    if (p.haRapporto)
        p.rapporto = r.u16();
    if (p.haNome)
        p.nome = r.stringa();
    if (p.haClip)
        p.clip = r.u16();
    if (p.haFiltri && !leggiFiltri(r, p.filtri)) {
        p.filtri.clear();
        p.haFiltri = false;
        p.haFusione = p.haCache = p.haVisibile = false;
        return p;
    }
    if (p.haFusione)
        p.fusione = r.u8();
    if (p.haCache)
        p.cache = r.u8() != 0;
    if (p.haVisibile) {
        p.visibile = r.u8() != 0;
        if (sfondoOpaco)
            leggiRgba(r);
    }
    if ((f1 & 0x80) && r.ok())
        leggiAzioniClip(r, versioneSwf, p.azioniClip);
    return p;
}

bool leggiSequenza(Lettore &r, Contesto &ctx, Sequenza &seq, int annidamento);

void leggiDefinizione(Lettore &t, int codice, Contesto &ctx, int annidamento)
{
    Film &film = ctx.film;
    if (++ctx.definizioni > 200000)
        return;
    uint16_t id = t.u16();
    Definizione def;
    switch (codice) {
    case DefineShape: case DefineShape2: case DefineShape3: case DefineShape4: {
        int v = codice == DefineShape ? 1 : codice == DefineShape2 ? 2 : codice == DefineShape3 ? 3 : 4;
        auto f = std::make_shared<Forma>();
        if (!leggiForma(t, v, *f))
            return;
        def.tipo = Definizione::FormaT;
        def.forma = f;
        break;
    }
    case DefineMorphShape: case DefineMorphShape2: {
        auto m = std::make_shared<Morph>();
        if (!leggiMorph(t, codice == DefineMorphShape ? 1 : 2, *m))
            return;
        def.tipo = Definizione::MorphT;
        def.morph = m;
        break;
    }
    case DefineBits: case DefineBitsJPEG2: case DefineBitsJPEG3: case DefineBitsJPEG4: {
        auto b = std::make_shared<ImmagineBitmap>();
        b->tipo = codice == DefineBits ? ImmagineBitmap::JpegTabelle : ImmagineBitmap::Jpeg;
        if (codice == DefineBitsJPEG3 || codice == DefineBitsJPEG4) {
            uint32_t n = t.u32();
            if (codice == DefineBitsJPEG4)
                t.u16();  // deblocking
            if (n > t.restanti())
                return;
            b->dati = QByteArray(reinterpret_cast<const char *>(t.qui()), static_cast<qsizetype>(n));
            t.salta(n);
            b->alfa = QByteArray(reinterpret_cast<const char *>(t.qui()), static_cast<qsizetype>(t.restanti()));
        } else {
            b->dati = QByteArray(reinterpret_cast<const char *>(t.qui()), static_cast<qsizetype>(t.restanti()));
        }
        def.tipo = Definizione::BitmapT;
        def.bitmap = b;
        break;
    }
    case DefineBitsLossless: case DefineBitsLossless2: {
        auto b = std::make_shared<ImmagineBitmap>();
        b->tipo = ImmagineBitmap::Lossless;
        b->versioneLossless = codice == DefineBitsLossless ? 1 : 2;
        b->formato = t.u8();
        b->larghezza = t.u16();
        b->altezza = t.u16();
        if (!t.ok())
            return;
        b->dati = QByteArray(reinterpret_cast<const char *>(t.qui()), static_cast<qsizetype>(t.restanti()));
        def.tipo = Definizione::BitmapT;
        def.bitmap = b;
        break;
    }
    case DefineFont: case DefineFont2: case DefineFont3: {
        auto c = std::make_shared<Carattere>();
        if (!leggiCarattere(t, codice == DefineFont ? 1 : codice == DefineFont2 ? 2 : 3, *c))
            return;
        def.tipo = Definizione::CarattereT;
        def.carattere = c;
        break;
    }
    case DefineText: case DefineText2: {
        auto tx = std::make_shared<Testo>();
        if (!leggiTesto(t, codice == DefineText ? 1 : 2, *tx))
            return;
        def.tipo = Definizione::TestoT;
        def.testo = tx;
        break;
    }
    case DefineEditText: {
        auto c = std::make_shared<CampoTesto>();
        if (!leggiCampoTesto(t, ctx.versione, *c))
            return;
        def.tipo = Definizione::CampoT;
        def.campo = c;
        break;
    }
    case DefineButton: case DefineButton2: {
        auto b = std::make_shared<Bottone>();
        if (!leggiBottone(t, codice == DefineButton ? 1 : 2, *b))
            return;
        def.tipo = Definizione::BottoneT;
        def.bottone = b;
        break;
    }
    case DefineButtonCxform:
        t.vaiA(0);
        leggiColoreBottone(t, film);
        return;
    case DefineButtonSound:
        t.vaiA(0);
        leggiSuoniBottone(t, film);
        return;
    case DefineFontInfo: case DefineFontInfo2:
        t.vaiA(0);
        leggiInfoCarattere(t, codice == DefineFontInfo ? 1 : 2, film);
        return;
    case DefineSprite: {
        if (annidamento >= kMaxNesting)
            return;
        auto s = std::make_shared<Sequenza>();
        s->numeroFotogrammi = t.u16();
        if (!leggiSequenza(t, ctx, *s, annidamento + 1))
            return;
        def.tipo = Definizione::SpriteT;
        def.sprite = s;
        break;
    }
    default:
        return;
    }
    film.definizioni[id] = std::move(def);
}

bool leggiSequenza(Lettore &r, Contesto &ctx, Sequenza &seq, int annidamento)
{
    Fotogramma corrente;
    const int dichiarati = seq.numeroFotogrammi;
    seq.fotogrammi.clear();
    while (r.restanti() >= 2) {
        uint16_t testa = r.u16();
        uint16_t codice = testa >> 6;
        uint32_t lun = testa & 0x3f;
        if (lun == 0x3f)
            lun = r.u32();
        if (!r.ok())
            break;
        // A tag longer than what is left is cut short; its parser sees the end.
        Lettore t = r.sotto(std::min<size_t>(lun, r.restanti()));
        if (codice == End)
            break;
        switch (codice) {
        case ShowFrame:
            if (static_cast<int>(seq.fotogrammi.size()) < kMaxFrames)
                seq.fotogrammi.push_back(std::move(corrente));
            corrente = Fotogramma{};
            break;
        case PlaceObject: case PlaceObject2: case PlaceObject3: {
            Comando c;
            c.tipo = Comando::Metti;
            c.piazza = leggiPiazza(t, codice, ctx.versione);
            if (t.ok() || c.piazza.profondita != 0 || c.piazza.haCarattere)
                corrente.comandi.push_back(std::move(c));
            break;
        }
        case RemoveObject: case RemoveObject2: {
            Comando c;
            c.tipo = Comando::Togli;
            if (codice == RemoveObject)
                t.u16();
            c.profondita = t.u16();
            if (t.ok())
                corrente.comandi.push_back(c);
            break;
        }
        case DoAction:
            corrente.azioni.emplace_back(reinterpret_cast<const char *>(t.dati()), static_cast<qsizetype>(t.size()));
            break;
        case DoInitAction:
            if (annidamento == 0 && t.restanti() > 2) {
                t.u16();  // the clip it prepares: its code runs on the main timeline
                corrente.azioniIniziali.emplace_back(reinterpret_cast<const char *>(t.qui()), static_cast<qsizetype>(t.restanti()));
            }
            break;
        case FrameLabel: {
            QByteArray nome = t.stringa().toLower();
            if (!nome.isEmpty() && !seq.etichette.count(nome))
                seq.etichette[nome] = static_cast<int>(seq.fotogrammi.size());
            break;
        }
        case DefineSound:
            if (annidamento == 0)
                leggiDefineSound(t, ctx.film);
            break;
        case StartSound: case StartSound2: {
            AvvioSuono a;
            if (codice == StartSound)
                a.id = t.u16();
            else
                a.classe = t.stringa();
            a.info = leggiInfoSuono(t);
            if (t.ok() && corrente.suoni.size() < 64 && ++ctx.avviiSuono <= 100000)
                corrente.suoni.push_back(std::move(a));
            break;
        }
        case SoundStreamHead: case SoundStreamHead2:
            if (!seq.flusso)
                seq.flusso = leggiTestaFlusso(t);
            break;
        case SoundStreamBlock:
            if (seq.flusso && static_cast<int>(seq.fotogrammi.size()) < kMaxFrames)
                seq.flusso->blocchi.push_back(
                    Flusso::Blocco{static_cast<int>(seq.fotogrammi.size()),
                                   QByteArray(reinterpret_cast<const char *>(t.dati()), static_cast<qsizetype>(t.size()))});
            break;
        case ExportAssets: case SymbolClass:
            if (annidamento == 0)
                leggiNomiEsportati(t, ctx.film.nomiEsportati);
            break;
        case SetBackgroundColor:
            if (annidamento == 0 && t.restanti() >= 3) {
                ctx.film.sfondo.r = t.u8();
                ctx.film.sfondo.g = t.u8();
                ctx.film.sfondo.b = t.u8();
                ctx.film.sfondo.a = 255;
                ctx.film.haSfondo = true;
            }
            break;
        case JPEGTables:
            if (annidamento == 0 && ctx.film.tabelleJpeg.isEmpty())
                ctx.film.tabelleJpeg = QByteArray(reinterpret_cast<const char *>(t.dati()), static_cast<qsizetype>(t.size()));
            break;
        default:
            if (annidamento == 0 || codice == DefineSprite)
                leggiDefinizione(t, codice, ctx, annidamento);
            break;
        }
    }
    if (!corrente.comandi.empty() || !corrente.azioni.empty() || !corrente.azioniIniziali.empty())
        seq.fotogrammi.push_back(std::move(corrente));
    // The header's count wins: missing frames are empty (not stored, so a
    // sprite that claims thousands of frames costs nothing), extra ones are
    // never reached.
    int n = std::clamp(dichiarati, 1, kMaxFrames);
    seq.numeroFotogrammi = std::max<int>(n, 1);
    if (static_cast<int>(seq.fotogrammi.size()) > seq.numeroFotogrammi)
        seq.fotogrammi.resize(static_cast<size_t>(seq.numeroFotogrammi));
    for (auto &[k, v] : seq.etichette)
        v = std::min(v, seq.numeroFotogrammi - 1);
    return true;
}

} // namespace

QTransform leggiMatrice(Lettore &r)
{
    r.allinea();
    double sx = 1, sy = 1, r0 = 0, r1 = 0;
    if (r.flag()) {
        int n = static_cast<int>(r.ub(5));
        sx = r.fb(n);
        sy = r.fb(n);
    }
    if (r.flag()) {
        int n = static_cast<int>(r.ub(5));
        r0 = r.fb(n);
        r1 = r.fb(n);
    }
    int n = static_cast<int>(r.ub(5));
    double tx = r.sb(n);
    double ty = r.sb(n);
    r.allinea();
    return QTransform(sx, r0, r1, sy, tx, ty);
}

std::unique_ptr<Film> leggiFilm(const QByteArray &file)
{
    auto film = std::make_unique<Film>();
    QByteArray corpo;
    if (!decomprimi(file, film->intestazione, corpo))
        return nullptr;
    Lettore r(reinterpret_cast<const uint8_t *>(corpo.constData()), static_cast<size_t>(corpo.size()));
    r.allinea();
    int nb = static_cast<int>(r.ub(5));
    double xmin = r.sb(nb), xmax = r.sb(nb), ymin = r.sb(nb), ymax = r.sb(nb);
    r.allinea();
    film->scena = QRectF(QPointF(xmin, ymin), QPointF(xmax, ymax));
    uint16_t rate = r.u16();
    film->fps = rate / 256.0;
    int fotogrammi = r.u16();
    if (!r.ok() || film->scena.width() <= 0 || film->scena.height() <= 0)
        return nullptr;
    if (film->scena.width() > 20 * 8192 || film->scena.height() > 20 * 8192)
        return nullptr;
    if (film->fps <= 0.01 || film->fps > 1000)
        film->fps = film->fps <= 0.01 ? 12 : 1000;
    Contesto ctx{*film, film->intestazione.versione};
    film->principale.numeroFotogrammi = std::max(fotogrammi, 1);
    leggiSequenza(r, ctx, film->principale, 0);
    film->numeroFotogrammi = film->principale.numeroFotogrammi;
    preparaSuoni(*film);
    return film;
}

} // namespace swf
