#include "sets/DecodificaImmagine.h"

#include "sets/MiniaturaExif.h"

#include <QBuffer>
#include <QFile>
#include <QImageReader>

#include <algorithm>
#include <utility>
#include <vector>

namespace {
// A file that counts what is read from it, each byte once: the head of a
// JPEG is read again by the decoder when no thumbnail was found in it.
class FileContato final : public QIODevice
{
public:
    explicit FileContato(const QString &percorso) : file(percorso) {}
    bool open(OpenMode modo) override
    {
        if (!file.open(modo))
            return false;
        // Unbuffered, so that what is counted is what the decoders asked for.
        return QIODevice::open(modo | QIODevice::Unbuffered);
    }
    bool isSequential() const override { return false; }
    qint64 size() const override { return file.size(); }
    bool seek(qint64 pos) override { return QIODevice::seek(pos) && file.seek(pos); }
    qint64 letti = 0;

protected:
    qint64 readData(char *dati, qint64 quanti) override
    {
        const qint64 da = file.pos();
        const qint64 n = file.read(dati, quanti);
        if (n > 0)
            conta(da, da + n);
        return n;
    }
    qint64 writeData(const char *, qint64) override { return -1; }

private:
    // The stretches read so far, apart and in order; a decoder reads on from
    // where it was, so there are seldom more than two.
    void conta(qint64 da, qint64 a)
    {
        auto i = std::lower_bound(tratti.begin(), tratti.end(), da,
                                  [](const std::pair<qint64, qint64> &t, qint64 v) { return t.second < v; });
        while (i != tratti.end() && i->first <= a) {
            da = qMin(da, i->first);
            a = qMax(a, i->second);
            letti -= i->second - i->first;
            i = tratti.erase(i);
        }
        tratti.insert(i, {da, a});
        letti += a - da;
    }
    QFile file;
    std::vector<std::pair<qint64, qint64>> tratti;
};


int ScalaJpeg(QSize intera, QSize voluta)
{
    // A JPEG decodes at a half, a quarter or an eighth of its size.
    int ridotta = 1;
    while (ridotta < 8 && intera.width() / (ridotta * 2) >= voluta.width()
           && intera.height() / (ridotta * 2) >= voluta.height())
        ridotta *= 2;
    return ridotta;
}

qint64 MemoriaDecodifica(QSize intera, int ridotta)
{
    return qint64((intera.width() + ridotta - 1) / ridotta) * ((intera.height() + ridotta - 1) / ridotta) * 4;
}

QSize DimensioneVoluta(QSize intera, QSize dimensione, bool proporzioni)
{
    if (!proporzioni)
        return dimensione;
    const QSize voluta = intera.width() <= dimensione.width() && intera.height() <= dimensione.height()
                             ? intera
                             : intera.scaled(dimensione, Qt::KeepAspectRatio);
    return voluta.expandedTo(QSize(1, 1));
}

QImage DaMiniaturaExif(const QByteArray &miniatura, QSize intera, QSize voluta, qint64 &memoria)
{
    QBuffer b;
    b.setData(miniatura);
    b.open(QIODevice::ReadOnly);
    QImageReader lettore(&b, "jpeg");
    const QSize m = lettore.size();
    if (!m.isValid() || m.isEmpty())
        return {};
    // A camera that shoots 3:2 often embeds 4:3 with dark bands; a thumbnail
    // turned the other way, or too small once the bands are off, is not used.
    const bool orizzontale = intera.width() > intera.height(), mOrizzontale = m.width() > m.height();
    if (intera.width() != intera.height() && m.width() != m.height() && orizzontale != mOrizzontale)
        return {};
    QRect parte(QPoint(0, 0), m);
    if (qint64(m.width()) * intera.height() > qint64(m.height()) * intera.width())
        parte.setWidth(int((qint64(m.height()) * intera.width() + intera.height() / 2) / intera.height()));
    else
        parte.setHeight(int((qint64(m.width()) * intera.height() + intera.width() / 2) / intera.width()));
    parte.moveCenter(QRect(QPoint(0, 0), m).center());
    if (parte.width() < voluta.width() || parte.height() < voluta.height())
        return {};
    // The band's edge bleeds into the picture's first rows in the small JPEG.
    const int bordo = 3;
    if (parte.height() < m.height() && parte.height() - 2 * bordo >= voluta.height())
        parte.adjust(0, bordo, 0, -bordo);
    if (parte.width() < m.width() && parte.width() - 2 * bordo >= voluta.width())
        parte.adjust(bordo, 0, -bordo, 0);
    QImage img = lettore.read();
    if (img.size() != m)
        return {};
    memoria = qint64(m.width()) * m.height() * 4;
    if (parte.size() != m)
        img = img.copy(parte);
    if (img.size() != voluta)
        img = img.scaled(voluta, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    return img.convertToFormat(QImage::Format_ARGB32_Premultiplied);
}
} // namespace

Decodifica DecodificaRidotta(const QString &fileLocale, const QSize &dimensione, bool proporzioni, qint64 budget)
{
    Decodifica d;
    FileContato dispositivo(fileLocale);
    if (!dispositivo.open(QIODevice::ReadOnly))
        return d;
    // A camera's photograph carries a small copy of itself: when it is big
    // enough, the photograph's own data is never read.
    const IntestazioneJpeg testa = LeggiIntestazioneJpeg(dispositivo);
    if (!testa.Miniatura.isEmpty() && testa.Intera.isValid() && !testa.Intera.isEmpty()) {
        const QSize voluta = DimensioneVoluta(testa.Intera, dimensione, proporzioni);
        if (MemoriaDecodifica(testa.Intera, ScalaJpeg(testa.Intera, voluta)) > budget) {
            d.ByteLetti = dispositivo.letti;
            return d; // refused as the photograph itself would be
        }
        qint64 memoria = 0;
        const QImage img = DaMiniaturaExif(testa.Miniatura, testa.Intera, voluta, memoria);
        if (!img.isNull()) {
            d.Immagine = img;
            d.Riuscita = true;
            d.DaMiniaturaExif = true;
            d.ByteLetti = dispositivo.letti;
            d.ByteDecodifica = memoria;
            return d;
        }
    }
    if (!dispositivo.seek(0)) {
        d.ByteLetti = dispositivo.letti;
        return d;
    }
    QImageReader lettore(&dispositivo);
    const QSize intera = lettore.size();
    if (!intera.isValid() || intera.isEmpty()) {
        d.ByteLetti = dispositivo.letti;
        return d;
    }
    const QSize voluta = DimensioneVoluta(intera, dimensione, proporzioni);
    // Every kind but JPEG decodes whole before it is made small.
    const int ridotta = lettore.format() == "jpeg" ? ScalaJpeg(intera, voluta) : 1;
    d.ByteDecodifica = MemoriaDecodifica(intera, ridotta);
    if (d.ByteDecodifica > budget) {
        d.ByteLetti = dispositivo.letti;
        return d;
    }
    if (voluta != intera)
        lettore.setScaledSize(voluta);
    // A thumbnail needs no careful rounding: the JPEG decoder may take its fast paths.
    if (voluta.width() <= 256 && voluta.height() <= 256)
        lettore.setQuality(40);
    QImage img = lettore.read();
    d.ByteLetti = dispositivo.letti;
    if (img.isNull())
        return d;
    if (img.size() != voluta)
        img = img.scaled(voluta, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    d.Immagine = img.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    d.Riuscita = true;
    return d;
}
