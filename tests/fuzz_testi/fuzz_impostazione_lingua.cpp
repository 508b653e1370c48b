// libFuzzer entry: any bytes as LangSetting.ini beside the program, read as
// the game reads it at start to know its language; then the same bytes as the
// user's own copy, which is read first once it exists.

#include "ambiente_fuzz.h"

#include "lang/modLanguageSupport.h"
#include "platform/Percorsi.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    PreparaAmbienteFuzz();
    const QByteArray byte(reinterpret_cast<const char *>(data), qsizetype(size));
    const QString utente = PercorsoImpostazioneLinguaUtente();
    QFile::remove(utente);
    ScriviFileFuzz(PercorsoImpostazioneLingua(), byte);
    LinguaCorrente.clear();
    const QString daProgramma = LinguaImpostata();
    if (daProgramma.size() > byte.size())
        __builtin_trap();
    (void)TestoLingua(QStringLiteral("0031"));

    QDir().mkpath(QFileInfo(utente).absolutePath());
    QFile f(utente);
    if (!f.open(QIODevice::WriteOnly | QIODevice::Truncate) || f.write(byte) != byte.size())
        qFatal("the fuzz environment cannot write %s", qPrintable(utente));
    f.close();
    if (LinguaImpostata() != daProgramma)
        __builtin_trap(); // the same bytes say the same language wherever they are
    return 0;
}
