#include "sets/DecodificaImmagine.h"

#include <QFile>
#include <QImageReader>

namespace {
// A file that counts what is read from it.
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
        const qint64 n = file.read(dati, quanti);
        if (n > 0)
            letti += n;
        return n;
    }
    qint64 writeData(const char *, qint64) override { return -1; }

private:
    QFile file;
};
} // namespace

Decodifica DecodificaRidotta(const QString &fileLocale, const QSize &dimensione, bool proporzioni, qint64 budget)
{
    Decodifica d;
    FileContato dispositivo(fileLocale);
    if (!dispositivo.open(QIODevice::ReadOnly))
        return d;
    QImageReader lettore(&dispositivo);
    const QSize intera = lettore.size();
    if (!intera.isValid() || intera.isEmpty()) {
        d.ByteLetti = dispositivo.letti;
        return d;
    }
    QSize voluta = dimensione;
    if (proporzioni) {
        voluta = intera.width() <= dimensione.width() && intera.height() <= dimensione.height()
                     ? intera
                     : intera.scaled(dimensione, Qt::KeepAspectRatio);
        voluta = voluta.expandedTo(QSize(1, 1));
    }
    // A JPEG decodes at a half, a quarter or an eighth of its size; every
    // other kind decodes whole before it is made small.
    int ridotta = 1;
    if (lettore.format() == "jpeg")
        while (ridotta < 8 && intera.width() / (ridotta * 2) >= voluta.width()
               && intera.height() / (ridotta * 2) >= voluta.height())
            ridotta *= 2;
    d.ByteDecodifica = qint64((intera.width() + ridotta - 1) / ridotta) * ((intera.height() + ridotta - 1) / ridotta) * 4;
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
