#include "sets/Sfogliatore.h"

#include "platform/Percorsi.h"
#include "profiles/CartelleDati.h"
#include "sets/DecodificaImmagine.h"

#include <QDir>
#include <QFileInfo>
#include <QStorageInfo>

bool StatoAvanzamento::ImpostaMax(int max)
{
    if (max <= Min)
        return false;
    Max = max;
    if (Value > Max)
        Value = Max;
    return true;
}

bool StatoAvanzamento::ImpostaValore(int valore)
{
    if (valore < Min || valore > Max)
        return false;
    Value = valore;
    return true;
}

Sfogliatore::Sfogliatore(QObject *parent) : QObject(parent), generazioneCorrente(std::make_shared<std::atomic<int>>(0))
{
    // A worker per core; each may hold a decoding up to the budget, so no more than four.
    pool.setMaxThreadCount(qBound(1, QThread::idealThreadCount(), 4));
    // The thumbnails are taken in on a timer, a few at a time, so that the
    // window's own timers and paints (the list's layout among them) always get
    // their turn, however fast the pictures come.
    presa.setInterval(10);
    connect(&presa, &QTimer::timeout, this, &Sfogliatore::prendiInOrdine);
    Unita = UnitaDelSistema();
    Drive1 = Unita.value(0);
    Dir1Path = CartellaIniziale();
}

Sfogliatore::~Sfogliatore()
{
    generazioneCorrente->store(-1);
    pool.clear();
    pool.waitForDone();
}

QStringList Sfogliatore::UnitaDelSistema()
{
    QStringList r;
#ifdef Q_OS_WIN
    for (const QFileInfo &d : QDir::drives())
        r << QDir::toNativeSeparators(d.absoluteFilePath());
#else
    r << QDir::homePath();
    for (const QStorageInfo &v : QStorageInfo::mountedVolumes()) {
        if (!v.isValid() || !v.isReady())
            continue;
        // Real file systems only: a device behind them, or the root.
        const QString radice = v.rootPath();
        if (radice != QLatin1String("/") && !v.device().startsWith("/dev/"))
            continue;
        if (radice.startsWith(QLatin1String("/boot")) || radice.startsWith(QLatin1String("/snap")))
            continue;
        if (!r.contains(radice))
            r << radice;
    }
#endif
    return r;
}

QString Sfogliatore::CartellaIniziale()
{
    const QString gif = MappaPercorso(Cartelle::Dati + QStringLiteral("gif\\"));
    if (QFileInfo(gif).isDir())
        return QDir::toNativeSeparators(QDir::cleanPath(gif));
    return QDir::toNativeSeparators(QDir::homePath());
}

void Sfogliatore::Drive1_Change(const QString &unita)
{
    Drive1 = unita;
    ImpostaDir1(unita);
}

void Sfogliatore::ImpostaDir1(const QString &percorso)
{
    const QString nuovo = QDir::toNativeSeparators(QDir::cleanPath(percorso));
    if (nuovo == Dir1Path)
        return;
    Dir1Path = nuovo;
    Dir1_Change();
}

std::vector<VoceCartella> Sfogliatore::CartelleDir1() const
{
    std::vector<VoceCartella> r;
    QStringList catena;
    QDir d(Dir1Path);
    catena.prepend(d.absolutePath());
    while (d.cdUp())
        catena.prepend(d.absolutePath());
    int livello = 0;
    for (const QString &c : catena) {
        const QString nome = QDir(c).isRoot() ? QDir::toNativeSeparators(c) : QFileInfo(c).fileName();
        r.push_back({QDir::toNativeSeparators(c), nome, livello++, true});
    }
    const QDir aperta(Dir1Path);
    for (const QString &sotto : aperta.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name | QDir::IgnoreCase))
        r.push_back({QDir::toNativeSeparators(aperta.filePath(sotto)), sotto, livello, false});
    return r;
}

void Sfogliatore::AggiornaFile1()
{
    const QDir d(File1Path);
    File1 = File1Path.isEmpty() ? QStringList()
                                : d.entryList({File1Pattern}, QDir::Files, QDir::Name | QDir::IgnoreCase);
}

QString Sfogliatore::PercorsoVoce(const QString &voce) const
{
    QString c = Dir1Path;
    if (!c.endsWith(QDir::separator()))
        c += QDir::separator();
    return c + voce;
}

void Sfogliatore::Dir1_Change()
{
    // Any earlier filling gives way: what it took in so far stays.
    generazione = generazioneCorrente->fetch_add(1) + 1;
    pool.clear();
    if (inCorso)
        fine();

    if (AllInizioRiempimento)
        AllInizioRiempimento();
    File1Path = Dir1Path;
    AggiornaFile1();
    const int quanti = int(File1.size());
    if (quanti == 0) {
        emit Cambiato();
        return;
    }
    barr1.Visible = true;
    PuntatoreAttesa = true;
    ListView1.clear();
    barr1.Min = 0;
    barr1.ImpostaMax(quanti - 1);

    inCorso = true;
    percorsi.clear();
    esiti.assign(size_t(quanti), std::nullopt);
    prossimo = 0;
    for (int i = 0; i < quanti; ++i)
        percorsi << PercorsoVoce(File1[i]);

    const auto token = generazioneCorrente;
    const int mia = generazione;
    for (int i = 0; i < quanti; ++i) {
        // A key the image list holds already makes AddImg fail: no need to decode.
        if (ImageList1.contains(percorsi[i])) {
            esiti[size_t(i)] = Esito{};
            continue;
        }
        ++Lavoro.Decodifiche;
        const QString file = percorsi[i];
        pool.start([this, token, mia, i, file] {
            if (token->load() != mia)
                return;
            const Decodifica d = DecodificaRidotta(file, QSize(LatoMiniatura, LatoMiniatura));
            Esito e{d.Immagine, d.Riuscita};
            const qint64 letti = d.ByteLetti, memoria = d.ByteDecodifica;
            const bool exif = d.DaMiniaturaExif;
            QMetaObject::invokeMethod(
                this,
                [this, mia, i, e, letti, memoria, exif] {
                    Lavoro.ByteLetti += letti;
                    Lavoro.DaMiniatureExif += exif ? 1 : 0;
                    Lavoro.ByteDecodificaMassimi = qMax(Lavoro.ByteDecodificaMassimi, memoria);
                    consegna(mia, i, e);
                },
                Qt::QueuedConnection);
        });
    }
    emit Cambiato();
    presa.start();
    prendiInOrdine();
}

void Sfogliatore::consegna(int gen, int indice, Esito esito)
{
    if (gen != generazione || !inCorso)
        return;
    esiti[size_t(indice)] = std::move(esito);
}

void Sfogliatore::prendiInOrdine()
{
    if (!inCorso)
        return;
    int presi = 0;
    while (prossimo < int(esiti.size()) && esiti[size_t(prossimo)] && presi < VociPerGiro) {
        Esito &e = *esiti[size_t(prossimo)];
        const QString &chiave = percorsi[prossimo];
        // AddImg: a picture that did not load, or a key already in the image list, ends it for this file.
        if (e.riuscita && !ImageList1.contains(chiave)) {
            ImageList1.insert(chiave, e.immagine);
            ListView1 << chiave;
        }
        e.immagine = QImage();
        barr1.ImpostaValore(prossimo);
        ++prossimo;
        ++presi;
    }
    if (presi > 0) {
        ++Lavoro.Giri;
        Lavoro.VociPerGiroMassime = qMax(Lavoro.VociPerGiroMassime, presi);
    }
    if (presi > 0)
        emit Cambiato();
    if (prossimo >= int(esiti.size())) {
        fine();
        emit Cambiato();
        emit RiempimentoFinito();
    }
}

void Sfogliatore::fine()
{
    presa.stop();
    inCorso = false;
    PuntatoreAttesa = false;
    barr1.Visible = false;
    barr1.Value = 0;
    esiti.clear();
}
