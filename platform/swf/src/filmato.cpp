#include "swf/filmato.h"

#include "riproduzione.h"

#include <QFile>
#include <QPainter>

#include <cmath>

namespace swf {

namespace {
constexpr qint64 kMaxFile = 64 * 1024 * 1024;
thread_local LavoroThread lavoro;
}

LavoroThread &lavoroQui() { return lavoro; }
LavoroThread lavoroDelThread() { return lavoro; }

Filmato::Filmato() : mixer(std::make_shared<MixerFilm>()) {}
Filmato::~Filmato() = default;
Filmato::Filmato(Filmato &&) noexcept = default;
Filmato &Filmato::operator=(Filmato &&) noexcept = default;

bool Filmato::caricaFile(const QString &percorso)
{
    d.reset();
    if (mixer)
        mixer->fermaTutto();
    QFile f(percorso);
    if (!f.open(QIODevice::ReadOnly) || f.size() > kMaxFile)
        return false;
    return caricaDati(f.readAll());
}

bool Filmato::caricaDati(const QByteArray &dati)
{
    d.reset();
    if (mixer)
        mixer->fermaTutto();
    auto film = leggiFilm(dati);
    if (!film)
        return false;
    d = std::make_unique<Riproduzione>();
    d->film = std::move(film);
    d->suoni.mixer = mixer;
    d->inizia();
    return true;
}

bool Filmato::valido() const { return d != nullptr; }

QSize Filmato::dimensioneScena() const
{
    if (!d)
        return {};
    return QSize(static_cast<int>(std::lround(d->film->scena.width() / 20.0)),
                 static_cast<int>(std::lround(d->film->scena.height() / 20.0)));
}

double Filmato::fotogrammiAlSecondo() const { return d ? d->film->fps : 0; }
int Filmato::numeroFotogrammi() const { return d ? d->film->numeroFotogrammi : 0; }
int Filmato::versione() const { return d ? d->film->intestazione.versione : 0; }

QColor Filmato::coloreSfondo() const
{
    if (!d || !d->film->haSfondo)
        return QColor(255, 255, 255);
    const Rgba &c = d->film->sfondo;
    return QColor(c.r, c.g, c.b);
}

int Filmato::fotogrammaCorrente() const { return d && d->radice ? d->radice->corrente + 1 : 0; }
bool Filmato::inRiproduzione() const { return d && d->radice && d->radice->inRiproduzione; }

void Filmato::riavvolgi()
{
    if (d)
        d->inizia();
}

void Filmato::vaiAlFotogramma(int fotogramma)
{
    if (!d || !d->radice)
        return;
    d->creazioniPasso = 0;
    d->vaiA(d->radice, fotogramma - 1, d->radice->inRiproduzione);
    d->eseguiCoda();
    d->suoni.sincronizza(*d);
}

void Filmato::avanza()
{
    if (d)
        d->passo();
}

void Filmato::ferma()
{
    if (d && d->radice) {
        d->radice->inRiproduzione = false;
        d->suoni.sincronizza(*d);
    }
}

void Filmato::riprendi()
{
    if (d && d->radice) {
        d->radice->inRiproduzione = true;
        d->suoni.sincronizza(*d);
    }
}

std::shared_ptr<UscitaSuono> Filmato::uscitaSuono() const { return mixer; }

void Filmato::impostaSuono(bool attivo)
{
    if (d)
        d->suoni.attiva(*d, attivo);
}

bool Filmato::suonoAttivo() const { return d && d->suoni.attivo; }

void Filmato::congedaSuoni()
{
    if (d)
        d->suoni.congeda();
}

namespace {
// From the rectangle the film is shown in ("show all") to twips of the stage.
QPointF versoScena(const Film &film, const QRectF &target, const QPointF &punto)
{
    const QSizeF scena = film.scena.size() / 20.0;
    const double scala = std::min(target.width() / scena.width(), target.height() / scena.height());
    if (!(scala > 0))
        return QPointF(-1e9, -1e9);
    const QPointF origine(target.x() + (target.width() - scena.width() * scala) / 2,
                          target.y() + (target.height() - scena.height() * scala) / 2);
    return (punto - origine) / scala * 20.0 + film.scena.topLeft();
}
}

void Filmato::muoviPuntatore(const QRectF &target, const QPointF &punto)
{
    if (d)
        d->eventoPuntatore(EventoPuntatore::Muove, versoScena(*d->film, target, punto));
}

void Filmato::premiPuntatore(const QRectF &target, const QPointF &punto)
{
    if (d)
        d->eventoPuntatore(EventoPuntatore::Premi, versoScena(*d->film, target, punto));
}

void Filmato::rilasciaPuntatore(const QRectF &target, const QPointF &punto)
{
    if (d)
        d->eventoPuntatore(EventoPuntatore::Rilascia, versoScena(*d->film, target, punto));
}

void Filmato::puntatoreUscito()
{
    if (d)
        d->eventoPuntatore(EventoPuntatore::Esce, QPointF(-1e9, -1e9));
}

bool Filmato::puntatoreSuPulsante() const { return d && !d->puntatore.sotto.expired(); }

void Filmato::disegna(QPainter &painter, const QRectF &target, bool antialias) const
{
    if (!d || target.width() < 1 || target.height() < 1)
        return;
    const QSizeF scena = d->film->scena.size() / 20.0;
    const double scala = std::min(target.width() / scena.width(), target.height() / scena.height());
    const QSizeF dim = scena * scala;
    const QPointF origine(target.x() + (target.width() - dim.width()) / 2, target.y() + (target.height() - dim.height()) / 2);
    // the film is drawn at device resolution, then blitted
    const qreal dpr = painter.device() ? painter.device()->devicePixelRatioF() : 1.0;
    const double sx = painter.transform().isScaling() ? std::sqrt(std::abs(painter.transform().determinant())) : 1.0;
    const double fattore = std::clamp(dpr * sx, 0.25, 4.0);
    QSize px(std::max(1, static_cast<int>(std::ceil(dim.width() * fattore))),
             std::max(1, static_cast<int>(std::ceil(dim.height() * fattore))));
    auto &cache = d->cacheQuadri;
    if (cache.dimensione != px || cache.antialias != antialias) {
        cache.svuota();
        cache.dimensione = px;
        cache.antialias = antialias;
    }
    const uint64_t firma = cache.attiva ? d->firmaStato() : 0;
    const QImage *pronta = nullptr;
    if (auto it = cache.quadri.find(firma); cache.attiva && it != cache.quadri.end()) {
        pronta = &it->second;
    } else {
        const qint64 byte = static_cast<qint64>(px.width()) * px.height() * 4;
        const bool tieni = cache.attiva && cache.byte + byte <= Riproduzione::kByteCacheQuadri;
        QImage nuova;
        if (!tieni && d->tampone.size() != px)
            d->tampone = QImage(px, QImage::Format_ARGB32_Premultiplied);
        QImage &img = tieni ? nuova : d->tampone;
        if (tieni)
            img = QImage(px, QImage::Format_ARGB32_Premultiplied);
        if (img.isNull())
            return;
        img.fill(coloreSfondo());
        OpzioniDisegno o;
        o.antialias = antialias;
        o.scalaScena = scala * fattore;
        const QTransform t = QTransform::fromTranslate(-d->film->scena.left() / 20.0, -d->film->scena.top() / 20.0) *
                             QTransform::fromScale(scala * fattore, scala * fattore);
        disegnaFilm(img, *d, t, o);
        if (tieni) {
            cache.byte += byte;
            pronta = &cache.quadri.emplace(firma, std::move(nuova)).first->second;
        } else {
            pronta = &d->tampone;
        }
    }
    const QImage &img = *pronta;
    painter.save();
    if (fattore == 1.0 && !painter.transform().isScaling()) {
        // one pixel of the picture to one of the device: a plain copy, no resampling
        painter.drawImage(QPoint(static_cast<int>(std::lround(origine.x())), static_cast<int>(std::lround(origine.y()))), img);
    } else {
        painter.setRenderHint(QPainter::SmoothPixmapTransform, antialias);
        painter.drawImage(QRectF(origine, dim), img);
    }
    painter.restore();
}

QImage Filmato::immagine(const QSize &dimensione, bool antialias) const
{
    QImage img(dimensione, QImage::Format_ARGB32_Premultiplied);
    if (img.isNull())
        return img;
    img.fill(coloreSfondo());
    if (!d)
        return img;
    const QSizeF scena = d->film->scena.size() / 20.0;
    const double scala = std::min(dimensione.width() / scena.width(), dimensione.height() / scena.height());
    const QPointF origine((dimensione.width() - scena.width() * scala) / 2, (dimensione.height() - scena.height() * scala) / 2);
    OpzioniDisegno o;
    o.antialias = antialias;
    o.scalaScena = scala;
    const QTransform t = QTransform::fromTranslate(-d->film->scena.left() / 20.0, -d->film->scena.top() / 20.0) *
                         QTransform::fromScale(scala, scala) * QTransform::fromTranslate(origine.x(), origine.y());
    disegnaFilm(img, *d, t, o);
    return img;
}

void Filmato::impostaCacheQuadri(bool attiva)
{
    if (!d)
        return;
    d->cacheQuadri.attiva = attiva;
    if (!attiva)
        d->cacheQuadri.svuota();
}

qint64 Filmato::memoriaUsata() const
{
    if (!d)
        return 0;
    qint64 tot = sizeof(Riproduzione) + sizeof(Film) + d->cacheQuadri.byte + d->tampone.sizeInBytes();
    for (auto &[id, def] : d->film->definizioni) {
        tot += 64;
        if (def.bitmap)
            tot += def.bitmap->dati.size() + def.bitmap->alfa.size() + def.bitmap->img.sizeInBytes();
        if (def.forma)
            for (auto &s : def.forma->strati) {
                for (auto &p : s.areePerStile)
                    tot += p.elementCount() * 24 + 64;
                for (auto &p : s.lineePerStile)
                    tot += p.elementCount() * 24 + 64;
                tot += static_cast<qint64>(s.riempimenti.size() * sizeof(Riempimento) + s.tratti.size() * sizeof(Tratto));
            }
        if (def.morph)
            tot += static_cast<qint64>((def.morph->inizio.size() + def.morph->fine.size()) * sizeof(Record));
        if (def.carattere)
            for (auto &g : def.carattere->glifi)
                tot += g.percorso.elementCount() * 24 + 32;
        if (def.sprite)
            for (auto &f : def.sprite->fotogrammi)
                tot += static_cast<qint64>(f.comandi.size() * sizeof(Comando)) + 32;
    }
    for (auto &[id, s] : d->film->suoni)
        tot += s->dati.size() + (s->pcm ? static_cast<qint64>(s->pcm->campioni.size() * 2) : 0);
    if (auto &fl = d->film->principale.flusso; fl && fl->pcm)
        tot += static_cast<qint64>(fl->pcm->campioni.size() * 2);
    for (auto &f : d->film->principale.fotogrammi) {
        tot += static_cast<qint64>(f.comandi.size() * sizeof(Comando)) + 32;
        for (auto &a : f.azioni)
            tot += a.size();
    }
    return tot;
}

} // namespace swf
