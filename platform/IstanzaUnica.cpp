#include "platform/IstanzaUnica.h"

#include <QDir>
#include <QLockFile>
#include <QStandardPaths>

#include <memory>

namespace {
std::unique_ptr<QLockFile> blocco;

QString percorsoBlocco()
{
#ifdef Q_OS_WIN
    // The temporary folder is the user's own on Windows.
    const QString cartella = QDir::tempPath();
#else
    // Never the shared temporary folder: another user's game, or anyone
    // else's file of that name, would keep this user's game from starting.
    QString cartella = qEnvironmentVariable("XDG_RUNTIME_DIR");
    if (cartella.isEmpty() || !QDir(cartella).exists()) {
        cartella = QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation)
                   + QStringLiteral("/coppie-vivaci");
        QDir().mkpath(cartella);
    }
#endif
    return QDir(cartella).filePath(QStringLiteral("coppie-vivaci.lock"));
}
} // namespace

bool PrendiIstanzaUnica()
{
    if (blocco)
        return true;
    auto nuovo = std::make_unique<QLockFile>(percorsoBlocco());
    // A lock is stale only when its process is gone, never because of its age.
    nuovo->setStaleLockTime(0);
    if (!nuovo->tryLock(0))
        return false;
    blocco = std::move(nuovo);
    return true;
}

void RilasciaIstanzaUnica() { blocco.reset(); }
