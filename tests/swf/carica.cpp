// Loads a film, checks its frame count, plays it once round and draws it.
// usage: swf_carica FILE.swf EXPECTED_FRAMES

#include "swf/filmato.h"

#include <QImage>

#include <cstdio>
#include <cstdlib>

int main(int argc, char **argv)
{
    if (argc < 3)
        return 2;
    swf::Filmato f;
    if (!f.caricaFile(QString::fromLocal8Bit(argv[1]))) {
        std::printf("not loaded\n");
        return 1;
    }
    const int attesi = std::atoi(argv[2]);
    if (f.numeroFotogrammi() != attesi) {
        std::printf("frames %d, expected %d\n", f.numeroFotogrammi(), attesi);
        return 1;
    }
    QImage prima = f.immagine(QSize(64, 64), true);
    f.avanza();
    QImage dopo = f.immagine(QSize(64, 64), true);
    for (int i = 1; i < attesi; ++i)
        f.avanza();
    if (f.fotogrammaCorrente() != 1 || prima == dopo) {
        std::printf("did not animate or loop (frame %d)\n", f.fotogrammaCorrente());
        return 1;
    }
    return 0;
}
