// Turns one of the game's HTML documents into the PDF that stands beside the
// program. Built and run by the build; it needs no printer and no display.

#include <QFile>
#include <QFileInfo>
#include <QDir>
#include <QGuiApplication>
#include <QImage>
#include <QImageReader>
#include <QPageLayout>
#include <QPageSize>
#include <QPdfWriter>
#include <QTextDocument>

#include <cstdio>

namespace {
// Pictures are named relative to the source; drawings are rasterised large,
// so that they stay sharp on paper.
class Documento final : public QTextDocument
{
public:
    explicit Documento(const QDir &sorgenti) : cartella(sorgenti) {}

protected:
    QVariant loadResource(int tipo, const QUrl &nome) override
    {
        if (tipo != QTextDocument::ImageResource)
            return QTextDocument::loadResource(tipo, nome);
        QImageReader lettore(cartella.filePath(nome.toString()));
        if (lettore.size().isValid())
            lettore.setScaledSize(lettore.size() * 4);
        const QImage immagine = lettore.read();
        if (immagine.isNull())
            std::fprintf(stderr, "immagine mancante: %s\n", qPrintable(nome.toString()));
        return immagine;
    }

private:
    QDir cartella;
};
} // namespace

int main(int argc, char *argv[])
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    if (argc != 3) {
        std::fprintf(stderr, "uso: stampa_documento sorgente.html documento.pdf\n");
        return 2;
    }
    QFile sorgente(QString::fromLocal8Bit(argv[1]));
    if (!sorgente.open(QIODevice::ReadOnly)) {
        std::fprintf(stderr, "non riesco a leggere %s\n", argv[1]);
        return 1;
    }
    Documento documento(QFileInfo(sorgente).absoluteDir());
    documento.setHtml(QString::fromUtf8(sorgente.readAll()));

    QPdfWriter pdf(QString::fromLocal8Bit(argv[2]));
    pdf.setTitle(documento.metaInformation(QTextDocument::DocumentTitle));
    pdf.setCreator(QStringLiteral("Coppie vivaci"));
    // The document adds its own margins of 2 cm when it prints.
    pdf.setPageLayout(QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait, QMarginsF(0, 0, 0, 0),
                                  QPageLayout::Millimeter));
    pdf.setResolution(300);
    documento.print(&pdf);
    return QFileInfo(QString::fromLocal8Bit(argv[2])).size() > 0 ? 0 : 1;
}
