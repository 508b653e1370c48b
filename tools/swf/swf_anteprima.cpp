// A contact sheet of films, to look at them: for each file, a few frames of
// its loop side by side, one row per film.
//
// usage: swf_anteprima OUT.png SIZE FRAMES FILE.swf...

#include "swf/filmato.h"

#include <QFileInfo>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>

#include <cstdio>

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", qgetenv("QT_QPA_PLATFORM").isEmpty() ? QByteArray("offscreen") : qgetenv("QT_QPA_PLATFORM"));
    QGuiApplication app(argc, argv);
    if (argc < 5) {
        std::fprintf(stderr, "usage: %s OUT.png SIZE FRAMES FILE.swf...\n", argv[0]);
        return 2;
    }
    const int lato = std::clamp(std::atoi(argv[2]), 16, 1000), colonne = std::clamp(std::atoi(argv[3]), 1, 16);
    const int righe = argc - 4;
    QImage foglio(lato * colonne, (lato + 14) * righe, QImage::Format_RGB32);
    foglio.fill(Qt::white);
    QPainter p(&foglio);
    for (int r = 0; r < righe; ++r) {
        swf::Filmato f;
        const QString nome = QString::fromLocal8Bit(argv[4 + r]);
        p.setPen(Qt::black);
        p.drawText(QRect(0, r * (lato + 14), lato * colonne, 14), Qt::AlignLeft | Qt::AlignVCenter, QFileInfo(nome).fileName());
        if (!f.caricaFile(nome)) {
            std::fprintf(stderr, "%s: not loaded\n", argv[4 + r]);
            continue;
        }
        const int passo = std::max(1, f.numeroFotogrammi() / colonne);
        for (int c = 0; c < colonne; ++c) {
            p.drawImage(c * lato, r * (lato + 14) + 14, f.immagine(QSize(lato, lato), true));
            for (int k = 0; k < passo; ++k)
                f.avanza();
        }
    }
    p.end();
    return foglio.save(QString::fromLocal8Bit(argv[1])) ? 0 : 1;
}
