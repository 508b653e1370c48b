#include "ambiente_fuzz.h"

#include "platform/Errori.h"
#include "platform/MsgBox.h"
#include "platform/Percorsi.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <memory>

namespace {
std::unique_ptr<QTemporaryDir> cartella;
}

void PreparaAmbienteFuzz()
{
    if (cartella)
        return;
    cartella = std::make_unique<QTemporaryDir>();
    const QString casa = cartella->filePath(QStringLiteral("casa"));
    const QString programma = cartella->filePath(QStringLiteral("programma"));
    QDir().mkpath(casa + QStringLiteral("/ImpostazioniProgrammiLorea/tesselo/utenti"));
    QDir().mkpath(casa + QStringLiteral("/ImpostazioniProgrammiLorea/tesselo/dati/ii"));
    QDir().mkpath(programma);
    qputenv("HOME", QFile::encodeName(casa));
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(casa + QStringLiteral("/.config")));
    ImpostaCartellaProgramma(programma);
    ImpostaRispostaMsgBox([](const RichiestaMsgBox &) { return int(Msg::vbOK); });
    ImpostaFineProcessoPerProve([](const FineProcesso &) { throw FineDelGioco{}; });
}

QString ScriviFileFuzz(const QString &percorsoGioco, const QByteArray &byte)
{
    const QString locale = MappaPercorso(percorsoGioco);
    QFile f(locale);
    if (!f.open(QIODevice::WriteOnly | QIODevice::Truncate) || f.write(byte) != byte.size())
        qFatal("the fuzz environment cannot write %s", qPrintable(locale));
    return locale;
}
