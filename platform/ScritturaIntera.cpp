#include "platform/ScritturaIntera.h"

#include "platform/Percorsi.h"

#include <QSaveFile>

namespace {
std::function<bool(FaseScrittura, const QString &)> guastoDiProva;

bool guasto(FaseScrittura fase, const QString &percorso) { return guastoDiProva && guastoDiProva(fase, percorso); }
} // namespace

void ImpostaGuastoScritturaPerProve(std::function<bool(FaseScrittura, const QString &)> g)
{
    guastoDiProva = std::move(g);
}

bool SostituisciFile(const QString &percorso, const QByteArray &byte, QString *errore)
{
    const QString locale = PercorsoLocale(percorso);
    auto fallito = [&](const QString &perche) {
        if (errore)
            *errore = perche;
        return false;
    };
    QSaveFile f(locale);
    // Never write in place: a folder that refuses the file beside the target
    // refuses the write.
    f.setDirectWriteFallback(false);
    if (guasto(FaseScrittura::Apertura, locale) || !f.open(QIODevice::WriteOnly))
        return fallito(f.errorString());
    if (guasto(FaseScrittura::Scrittura, locale) || f.write(byte) != byte.size()) {
        const QString perche = f.errorString();
        f.cancelWriting();
        f.commit();
        return fallito(perche);
    }
    // The buffered bytes go out here: this is where a full disk is usually
    // found. QSaveFile's commit() would rename a file cut short by a failed
    // flush as if it were whole, so the flush is made and checked first.
    if (guasto(FaseScrittura::Chiusura, locale) || !f.flush() || f.error() != QFileDevice::NoError
        || f.size() != byte.size()) {
        const QString perche = f.error() != QFileDevice::NoError ? f.errorString() : QStringLiteral("No space left on device");
        f.cancelWriting();
        f.commit();
        return fallito(perche);
    }
    // Synced to the disk and renamed over the target.
    if (!f.commit())
        return fallito(f.errorString());
    return true;
}
