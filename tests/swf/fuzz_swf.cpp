// libFuzzer entry: any bytes through the reader, a few ticks with their
// sound mixed, a small draw, the pointer pressed and let go over the film.

#include "swf/filmato.h"
#include "swf/suono.h"

#include <QImage>
#include <QPainter>

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    swf::Filmato f;
    if (!f.caricaDati(QByteArray(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size))))
        return 0;
    // the sounds are decoded at load; here they start, loop and mix
    f.impostaSuono(true);
    f.riprendi();
    float mix[2 * 512] = {};
    for (int i = 0; i < 4; ++i) {
        f.avanza();
        f.uscitaSuono()->mescola(mix, 512, i % 2 ? 44100 : 48000);
    }
    QImage img = f.immagine(QSize(48, 48), size % 2 == 0);
    (void)img;
    // the faces' path: drawn twice into a painter, the second time from the picture cache
    QImage faccia(40, 30, QImage::Format_ARGB32_Premultiplied);
    for (int i = 0; i < 2; ++i) {
        QPainter p(&faccia);
        f.disegna(p, QRectF(0, 0, 40, 30), true);
    }
    // the pointer over the film: buttons go over, down and up, their actions and sounds run
    const QRectF area(0, 0, 48, 48);
    for (int i = 0; i < 3; ++i) {
        const QPointF punto(static_cast<double>((size * (i + 3)) % 48), static_cast<double>((size * (i + 7)) % 48));
        f.muoviPuntatore(area, punto);
        f.premiPuntatore(area, punto);
        f.avanza();
        f.rilasciaPuntatore(area, punto);
    }
    f.puntatoreUscito();
    f.vaiAlFotogramma(1);
    f.uscitaSuono()->mescola(mix, 512, 22050);
    f.congedaSuoni();
    f.impostaSuono(false);
    return 0;
}
