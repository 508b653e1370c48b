// The thumbnail browser on a folder of large photographs, with and without
// the small copy a camera puts in their Exif block, and an editor
// opening a set of 100 pairs. The pictures are made here, at run time, in a
// temporary folder. Prints figures; asserts nothing about time.
//
//   bench_editori [photographs=1000]

#include "AmbienteProva.h"
#include "sets/ScriviExif.h"

#include "lang/modLanguageSupport.h"
#include "platform/CommDlgs.h"
#include "platform/Schermi.h"
#include "platform/Twips.h"
#include "sets/FormEditore.h"
#include "sets/RegistraSets.h"
#include "sets/Sfogliatore.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QListWidget>
#include <QRandomGenerator>
#include <QThread>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <sys/resource.h>
#include <unistd.h>
#include <vector>

namespace {
qint64 memoria(const char *voce)
{
    QFile f(QStringLiteral("/proc/self/status"));
    if (!f.open(QIODevice::ReadOnly))
        return -1;
    for (const QByteArray &riga : f.readAll().split('\n'))
        if (riga.startsWith(voce))
            return riga.mid(int(qstrlen(voce))).trimmed().split(' ').value(0).toLongLong();
    return -1;
}

// A photograph-like picture: gradients and noise, so the JPEG is as heavy as a camera's.
QImage foto(int n)
{
    QImage img(3000, 2000, QImage::Format_RGB32);
    QRandomGenerator g(quint32(n + 1));
    for (int y = 0; y < img.height(); ++y) {
        auto *riga = reinterpret_cast<QRgb *>(img.scanLine(y));
        for (int x = 0; x < img.width(); ++x) {
            const int r = (x * 255 / 3000 + n * 40) & 0xFF, v = (y * 255 / 2000) & 0xFF;
            const int rumore = int(g.bounded(48));
            riga[x] = qRgb(qMin(255, r + rumore), qMin(255, v + rumore), qMin(255, (r + v) / 2 + rumore));
        }
    }
    return img;
}

// The machine's load, printed beside the figures: on a busy machine the window waits for a core.
QString carico()
{
    QFile f(QStringLiteral("/proc/loadavg"));
    return f.open(QIODevice::ReadOnly) ? QString::fromLatin1(f.readAll()).section(u' ', 0, 2) : QStringLiteral("?");
}

FormEditore *apri(const QString &nome)
{
    Schermi::Mostra(nome);
    return qobject_cast<FormEditore *>(Schermi::Riferimento(nome));
}

void misuraSfogliatore(AmbienteProva &ambiente, int quante, bool conExif)
{
    const char *tipo = conExif ? "camera photographs, Exif thumbnail inside" : "photographs without an Exif thumbnail";
    const QString cartella = ambiente.Casa() + (conExif ? QStringLiteral("/foto_exif") : QStringLiteral("/foto"));
    QDir().mkpath(cartella);
    QElapsedTimer t;
    t.start();
    const int distinte = 8;
    QStringList sorgenti;
    for (int i = 0; i < distinte; ++i) {
        const QString p = cartella + QStringLiteral("/.sorgente%1.jpg").arg(i);
        const QImage img = foto(i);
        QByteArray jpeg = ScriviExif::Jpeg(img, 90);
        if (conExif)
            jpeg = ScriviExif::ConExif(jpeg, ScriviExif::Tiff(ScriviExif::MiniaturaDaCamera(img)));
        AmbienteProva::Scrivi(p, jpeg);
        sorgenti << p;
    }
    // Every name is a file of its own on disk (a hard link), under the browser's pattern.
    for (int i = 0; i < quante; ++i) {
        const QString nome = cartella + QStringLiteral("/foto%1.gif").arg(i, 4, 10, QChar(u'0'));
        if (::link(QFile::encodeName(sorgenti[i % distinte]).constData(), QFile::encodeName(nome).constData()) != 0)
            QFile::copy(sorgenti[i % distinte], nome);
    }
    std::printf("browser, %s: %d JPEG photographs of 3000x2000 (%lld KB each on average) made in %.1f s\n", tipo,
                quante, QFileInfo(sorgenti[0]).size() / 1024, t.elapsed() / 1000.0);
    std::fflush(stdout);

    FormEditore *f = apri(QStringLiteral("Formgg"));
    Editore &e = f->Modello();
    Sfogliatore &s = *e.Miniature();
    s.Dir1Path = QDir::toNativeSeparators(cartella);
    e.CheckAnteprima_Click(true);
    auto *lista = f->Controllo<QListWidget>(QStringLiteral("ListView1"));
    const qint64 rssPrima = memoria("VmRSS:");

    // A tick every 5 ms: the longest gap between two ticks is the longest the window did not answer.
    QElapsedTimer orologio;
    qint64 ultimo = -1, peggiore = 0;
    QTimer sonda;
    sonda.setInterval(5);
    QObject::connect(&sonda, &QTimer::timeout, [&] {
        const qint64 ora = orologio.nsecsElapsed();
        if (ultimo >= 0)
            peggiore = std::max(peggiore, ora - ultimo);
        ultimo = ora;
    });
    qint64 primaMiniatura = -1, fine = -1;
    // The window's own event loop, which sleeps between events as the program's does.
    QEventLoop ciclo;
    QObject::connect(&s, &Sfogliatore::Cambiato, &ciclo, [&] {
        if (primaMiniatura < 0 && lista->count() > 0)
            primaMiniatura = orologio.nsecsElapsed();
    });
    QObject::connect(&s, &Sfogliatore::RiempimentoFinito, &ciclo, [&] {
        fine = orologio.nsecsElapsed();
        ciclo.quit();
    });
    QTimer::singleShot(600000, &ciclo, &QEventLoop::quit);
    const QString caricoPrima = carico();
    rusage usoPrima{};
    getrusage(RUSAGE_SELF, &usoPrima);
    orologio.start();
    sonda.start();
    e.Image_Click(1); // the panel opens and the filling starts
    const qint64 pannello = orologio.nsecsElapsed();
    if (fine < 0)
        ciclo.exec();
    sonda.stop();
    rusage usoDopo{};
    getrusage(RUSAGE_SELF, &usoDopo);
    auto secondi = [](const timeval &a, const timeval &b) { return (b.tv_sec - a.tv_sec) + (b.tv_usec - a.tv_usec) / 1e6; };
    std::printf("browser, %s:\n", tipo);
    std::printf("  load average of the machine before and after: %s / %s, on %d cores\n", qPrintable(caricoPrima),
                qPrintable(carico()), QThread::idealThreadCount());
    std::printf("  panel open and filling started in %.1f ms (listing %d files)\n", pannello / 1e6, int(s.File1.size()));
    std::printf("  first thumbnail in the list %.1f ms after the click\n", primaMiniatura / 1e6);
    std::printf("  all %d thumbnails in %.2f s (%d from an Exif thumbnail; %.1f KB read per file)\n",
                int(lista->count()), fine / 1e9, s.Lavoro.DaMiniatureExif,
                s.Lavoro.ByteLetti / 1024.0 / qMax(1, int(s.File1.size())));
    std::printf("  processor time of the program meanwhile: %.2f s user, %.2f s system\n",
                secondi(usoPrima.ru_utime, usoDopo.ru_utime), secondi(usoPrima.ru_stime, usoDopo.ru_stime));
    std::printf("  longest gap between two 5 ms ticks of the window: %.1f ms\n", peggiore / 1e6);
    std::printf("  resident memory %lld MB before, %lld MB after, peak %lld MB; largest decoding %lld KB\n",
                rssPrima / 1024, memoria("VmRSS:") / 1024, memoria("VmHWM:") / 1024, s.Lavoro.ByteDecodificaMassimi / 1024);
    std::fflush(stdout);
    Schermi::ScaricaTuttiPerProve();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QDir(cartella).removeRecursively();
}
} // namespace

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    const int quante = argc > 1 ? QByteArray(argv[1]).toInt() : 1000;
    AmbienteProva ambiente;
    ImpostaSchermoPerProve(QRect(0, 0, 1024, 768));
    for (const char *c : {"tesselo/dati/ii", "tesselo/dati/pi", "tesselo/dati/gif", "tesselo/dati/swf", "tesselo/dati/suoni"})
        QDir().mkpath(ambiente.Radice() + u'/' + QLatin1String(c));
    Schermi::Registra(QStringLiteral("FormMenu"), [] { return new Form(QStringLiteral("FormMenu"), 9000, 7000); });
    RegistraSchermiSets();

    // -- The browser ------------------------------------------------------------
    // Photographs as a camera writes them, with the small copy in their Exif
    // block, then the same photographs without it (edited, or from a scanner).
    misuraSfogliatore(ambiente, quante, true);
    misuraSfogliatore(ambiente, quante, false);

    // -- An editor opening 100 pairs ---------------------------------------------
    const QString film = ambiente.Casa() + QStringLiteral("/film.swf");
    QFile::copy(QStringLiteral(COPPIE_SORGENTI "/app/programma/swf/premio_sole.swf"), film);
    QImage piccola(200, 150, QImage::Format_RGB32);
    piccola.fill(Qt::darkCyan);
    const QString immagine = ambiente.Casa() + QStringLiteral("/immagine.png");
    piccola.save(immagine, "PNG");
    struct Caso {
        const char *editore;
        int coppie;
        QString lato;
    } casi[] = {{"FormSS", 100, film}, {"FormPS", 100, film}, {"Formgg", 99, immagine}, {"Formpg", 99, immagine}};
    for (const Caso &c : casi) {
        const ImpostazioniEditore &imp = *EditoreDiNome(QLatin1String(c.editore));
        QByteArray b;
        for (int i = 0; i < c.coppie; ++i) {
            const QByteArray l1 = imp.HaParola() ? "parola" + QByteArray::number(i) : c.lato.toUtf8();
            b += l1 + "\r\n" + c.lato.toUtf8() + "\r\n" + ambiente.Casa().toUtf8() + "/s.wav\r\n\r\n";
        }
        const QString set = ambiente.Casa() + QStringLiteral("/cento.") + imp.Estensione;
        AmbienteProva::Scrivi(set, b);
        std::vector<double> tempi;
        for (int giro = 0; giro < 7; ++giro) {
            FormEditore *ed = apri(QLatin1String(c.editore));
            ambiente.risposteDialoghi << RispostaDialogo::File(set);
            QElapsedTimer m;
            m.start();
            ed->Modello().CommandModificaLista_Click();
            QCoreApplication::processEvents();
            tempi.push_back(m.nsecsElapsed() / 1e6);
            Schermi::ScaricaTuttiPerProve();
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        }
        std::sort(tempi.begin(), tempi.end());
        std::printf("editor %s opening %d pairs: median %.1f ms, best %.1f ms, worst %.1f ms (7 runs)\n", c.editore,
                    c.coppie, tempi[tempi.size() / 2], tempi.front(), tempi.back());
    }
    ImpostaSchermoPerProve(QRect());
    return 0;
}
