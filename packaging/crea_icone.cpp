// Draws the game's icon, an SVG file, as PNG files at the sizes desktops ask
// for: crea_icone ICON.svg OUTPUT_FOLDER SIZE...
// Each goes to OUTPUT_FOLDER/<size>x<size>/apps/<name>.png, the layout of the
// hicolor icon theme.

#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

#include <cstdio>

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    if (argc < 4) {
        std::fprintf(stderr, "usage: crea_icone ICON.svg OUTPUT_FOLDER SIZE...\n");
        return 2;
    }
    const QString svg = QString::fromLocal8Bit(argv[1]);
    QSvgRenderer disegno(svg);
    if (!disegno.isValid()) {
        std::fprintf(stderr, "cannot read %s\n", argv[1]);
        return 1;
    }
    const QString nome = QFileInfo(svg).completeBaseName();
    for (int i = 3; i < argc; ++i) {
        const int lato = QByteArray(argv[i]).toInt();
        if (lato <= 0) {
            std::fprintf(stderr, "not a size: %s\n", argv[i]);
            return 2;
        }
        QImage img(lato, lato, QImage::Format_ARGB32_Premultiplied);
        img.fill(Qt::transparent);
        {
            QPainter p(&img);
            p.setRenderHint(QPainter::Antialiasing);
            p.setRenderHint(QPainter::SmoothPixmapTransform);
            disegno.render(&p, QRectF(0, 0, lato, lato));
        }
        const QString cartella = QStringLiteral("%1/%2x%2/apps").arg(QString::fromLocal8Bit(argv[2])).arg(lato);
        if (!QDir().mkpath(cartella) || !img.save(cartella + u'/' + nome + QStringLiteral(".png"), "PNG")) {
            std::fprintf(stderr, "cannot write the icon of %d pixels in %s\n", lato, qPrintable(cartella));
            return 1;
        }
    }
    return 0;
}
