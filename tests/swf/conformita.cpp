// Runs every case of the SWF reference corpus as its test.toml says and
// compares the frames with the reference images, strictly (the case's own
// tolerance and outlier rules) and closely (at most 1% of the pixels differ
// by more than 32 in some channel).
//
// usage: swf_conformita CORPUS [--min-strict N] [--min-close M] [--dump DIR] [--only NAME]

#include "swf/filmato.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QImage>
#include <QRegularExpression>

#include <cstdio>
#include <map>
#include <vector>

namespace {

struct Controllo {
    int tolleranza = 0;
    long maxFuori = 0;
};

struct Confronto {
    QString nome;
    int innesco = -1;  // -1: after the last step
    std::vector<Controllo> controlli;
};

struct Caso {
    int passi = 1;
    bool bassa = false;
    QSize viewport;
    std::vector<Confronto> confronti;
};

QString senzaVirgolette(QString s)
{
    s = s.trimmed();
    if (s.size() >= 2 && s.startsWith('"') && s.endsWith('"'))
        s = s.mid(1, s.size() - 2);
    return s;
}

// Just the TOML the corpus uses: tables, arrays of tables, integers, strings, inline tables.
Caso leggiToml(const QString &percorso)
{
    Caso c;
    QFile f(percorso);
    if (!f.open(QIODevice::ReadOnly))
        return c;
    std::map<QString, Confronto> confronti;
    std::vector<QString> ordine;
    QString sezione;
    bool inControllo = false;
    auto confronto = [&](const QString &nome) -> Confronto & {
        if (!confronti.count(nome)) {
            confronti[nome].nome = nome;
            ordine.push_back(nome);
        }
        return confronti[nome];
    };
    const QStringList righe = QString::fromUtf8(f.readAll()).split('\n');
    for (QString riga : righe) {
        int cancelletto = riga.indexOf('#');
        if (cancelletto >= 0 && riga.left(cancelletto).count('"') % 2 == 0)
            riga = riga.left(cancelletto);
        riga = riga.trimmed();
        if (riga.isEmpty())
            continue;
        if (riga.startsWith("[[")) {
            QString nome = riga.mid(2, riga.indexOf("]]") - 2).trimmed();
            // [[image_comparisons."x".checks]]
            nome = nome.mid(QString("image_comparisons.").size());
            nome = senzaVirgolette(nome.left(nome.lastIndexOf(".checks")));
            sezione = nome;
            inControllo = true;
            confronto(nome).controlli.push_back(Controllo{});
            continue;
        }
        if (riga.startsWith('[')) {
            QString nome = riga.mid(1, riga.indexOf(']') - 1).trimmed();
            inControllo = false;
            if (nome.startsWith("image_comparisons.")) {
                sezione = senzaVirgolette(nome.mid(QString("image_comparisons.").size()));
                confronto(sezione);
            } else {
                sezione = "#" + nome;
            }
            continue;
        }
        int uguale = riga.indexOf('=');
        if (uguale < 0)
            continue;
        QString chiave = riga.left(uguale).trimmed();
        QString valore = riga.mid(uguale + 1).trimmed();
        if (chiave.startsWith("image_comparisons.")) {
            // dotted form: image_comparisons."name".trigger = 1
            QString resto = chiave.mid(QString("image_comparisons.").size());
            int punto = resto.lastIndexOf('.');
            QString nome = senzaVirgolette(resto.left(punto));
            QString sotto = resto.mid(punto + 1);
            Confronto &cf = confronto(nome);
            if (sotto == "trigger")
                cf.innesco = valore.toInt();
            continue;
        }
        if (sezione.isEmpty() || sezione == "#player_options" ) {
            if (chiave == "num_frames" || chiave == "num_ticks")
                c.passi = valore.toInt();
            if (chiave == "with_renderer")
                c.bassa = valore.contains(QRegularExpression("quality\\s*=\\s*\"low\""));
            if (chiave == "viewport_dimensions") {
                auto w = QRegularExpression("width\\s*=\\s*(\\d+)").match(valore);
                auto h = QRegularExpression("height\\s*=\\s*(\\d+)").match(valore);
                if (w.hasMatch() && h.hasMatch())
                    c.viewport = QSize(w.captured(1).toInt(), h.captured(1).toInt());
            }
            continue;
        }
        if (sezione.startsWith('#'))
            continue;
        Confronto &cf = confronto(sezione);
        if (chiave == "trigger") {
            cf.innesco = valore.toInt();
            continue;
        }
        if (inControllo || chiave == "tolerance" || chiave == "max_outliers") {
            if (cf.controlli.empty() || (!inControllo && cf.controlli.size() > 1))
                cf.controlli.push_back(Controllo{});
            Controllo &k = cf.controlli.back();
            if (chiave == "tolerance")
                k.tolleranza = valore.toInt();
            if (chiave == "max_outliers")
                k.maxFuori = valore.toLong();
        }
    }
    for (const QString &n : ordine) {
        Confronto cf = confronti[n];
        if (cf.controlli.empty())
            cf.controlli.push_back(Controllo{});
        c.confronti.push_back(cf);
    }
    if (c.confronti.empty()) {
        Confronto cf;
        cf.nome = "output";
        cf.controlli.push_back(Controllo{});
        c.confronti.push_back(cf);
    }
    return c;
}

struct Esito {
    bool stretto = true;
    bool vicino = true;
    QString dettagli;
};

void confronta(const QImage &nostra, const QImage &attesa, const Confronto &cf, Esito &e)
{
    if (attesa.isNull() || nostra.size() != attesa.size()) {
        e.stretto = e.vicino = false;
        e.dettagli += QString(" %1:size").arg(cf.nome);
        return;
    }
    const QImage a = nostra.convertToFormat(QImage::Format_ARGB32);
    const QImage b = attesa.convertToFormat(QImage::Format_ARGB32);
    std::vector<long> fuori(cf.controlli.size(), 0);
    long lontani = 0;
    for (int y = 0; y < a.height(); ++y) {
        auto *pa = reinterpret_cast<const QRgb *>(a.constScanLine(y));
        auto *pb = reinterpret_cast<const QRgb *>(b.constScanLine(y));
        for (int x = 0; x < a.width(); ++x) {
            int d[4] = {std::abs(qRed(pa[x]) - qRed(pb[x])), std::abs(qGreen(pa[x]) - qGreen(pb[x])),
                        std::abs(qBlue(pa[x]) - qBlue(pb[x])), std::abs(qAlpha(pa[x]) - qAlpha(pb[x]))};
            int massimo = std::max(std::max(d[0], d[1]), std::max(d[2], d[3]));
            if (massimo > 32)
                ++lontani;
            for (size_t k = 0; k < cf.controlli.size(); ++k)
                for (int ch = 0; ch < 4; ++ch)
                    if (d[ch] > cf.controlli[k].tolleranza)
                        ++fuori[k];
        }
    }
    const long totale = static_cast<long>(a.width()) * a.height();
    for (size_t k = 0; k < cf.controlli.size(); ++k)
        if (fuori[k] > cf.controlli[k].maxFuori) {
            e.stretto = false;
            e.dettagli += QString(" %1:t%2 %3>%4").arg(cf.nome).arg(cf.controlli[k].tolleranza).arg(fuori[k]).arg(cf.controlli[k].maxFuori);
        }
    if (lontani * 100 > totale) {
        e.vicino = false;
        e.dettagli += QString(" %1:far %2/%3").arg(cf.nome).arg(lontani).arg(totale);
    }
}

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    const QStringList args = app.arguments();
    if (args.size() < 2) {
        std::fprintf(stderr, "usage: %s CORPUS [--min-strict N] [--min-close M] [--dump DIR] [--only NAME]\n", argv[0]);
        return 2;
    }
    QDir corpus(args[1]);
    int minStretti = 0, minVicini = 0;
    QString dump, solo;
    for (int i = 2; i + 1 < args.size(); ++i) {
        if (args[i] == "--min-strict") minStretti = args[++i].toInt();
        else if (args[i] == "--min-close") minVicini = args[++i].toInt();
        else if (args[i] == "--dump") dump = args[++i];
        else if (args[i] == "--only") solo = args[++i];
    }
    if (!corpus.exists()) {
        std::fprintf(stderr, "corpus not found: %s\n", qPrintable(corpus.path()));
        return 2;
    }
    int casi = 0, stretti = 0, vicini = 0;
    const QStringList cartelle = corpus.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name);
    for (const QString &nome : cartelle) {
        QDir dir(corpus.filePath(nome));
        if (!dir.exists("test.swf") || !dir.exists("test.toml"))
            continue;
        if (!solo.isEmpty() && !nome.contains(solo))
            continue;
        ++casi;
        const Caso caso = leggiToml(dir.filePath("test.toml"));
        swf::Filmato film;
        Esito e;
        if (!film.caricaFile(dir.filePath("test.swf"))) {
            e.stretto = e.vicino = false;
            e.dettagli = " unreadable";
        } else {
            const QSize vista = caso.viewport.isValid() ? caso.viewport : film.dimensioneScena();
            std::map<int, std::vector<const Confronto *>> perPasso;
            for (const Confronto &cf : caso.confronti)
                perPasso[cf.innesco > 0 ? cf.innesco : caso.passi].push_back(&cf);
            const int passi = std::max(caso.passi, perPasso.empty() ? 1 : perPasso.rbegin()->first);
            for (int passo = 1; passo <= passi; ++passo) {
                if (passo > 1)
                    film.avanza();
                auto it = perPasso.find(passo);
                if (it == perPasso.end())
                    continue;
                QImage nostra = film.immagine(vista, !caso.bassa).convertToFormat(QImage::Format_ARGB32);
                for (const Confronto *cf : it->second) {
                    QImage attesa(dir.filePath(cf->nome + ".expected.png"));
                    confronta(nostra, attesa, *cf, e);
                    if (!dump.isEmpty()) {
                        QDir().mkpath(dump);
                        nostra.save(QDir(dump).filePath(nome + "." + cf->nome + ".png"));
                    }
                }
            }
        }
        stretti += e.stretto;
        vicini += e.vicino;
        std::printf("%-55s strict:%s close:%s%s\n", qPrintable(nome), e.stretto ? "pass" : "FAIL",
                    e.vicino ? "pass" : "FAIL", qPrintable(e.dettagli));
    }
    std::printf("strict: %d/%d close: %d/%d\n", stretti, casi, vicini, casi);
    if (stretti < minStretti || vicini < minVicini) {
        std::printf("below the required minimum (strict %d, close %d)\n", minStretti, minVicini);
        return 1;
    }
    return 0;
}
