#include "platform/Percorsi.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

namespace {
QString cartellaProgrammaDiProva;

bool separatore(QChar c) { return c == u'/' || c == u'\\'; }
} // namespace

QString RadiceDatiLocale()
{
#ifdef Q_OS_WIN
    return QStringLiteral("C:\\ImpostazioniProgrammiLorea\\");
#else
    QString home = QDir::homePath();
    if (!home.endsWith(u'/'))
        home += u'/';
    return home + QStringLiteral("ImpostazioniProgrammiLorea/");
#endif
}

QString CartellaProgramma()
{
    QString c = cartellaProgrammaDiProva;
    if (c.isEmpty())
        c = QCoreApplication::applicationDirPath();
    while (c.size() > 1 && separatore(c.back()))
        c.chop(1);
#ifdef Q_OS_WIN
    c.replace(u'/', u'\\');
#endif
    return c;
}

void ImpostaCartellaProgramma(const QString &cartella) { cartellaProgrammaDiProva = cartella; }

QString CartellaUtenteProgramma()
{
#ifdef Q_OS_WIN
    QString base = qEnvironmentVariable("APPDATA");
    if (base.isEmpty())
        base = QDir::homePath() + QStringLiteral("/AppData/Roaming");
#else
    const QString base = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
#endif
    return QDir::toNativeSeparators(QDir(base).filePath(QStringLiteral("coppie-vivaci")));
}

QString MappaPercorso(const QString &percorso)
{
    // File operations stop at the first NUL, as the old file calls did.
    QString p = percorso.left(percorso.indexOf(QChar(0)));
    const QString radice = QString::fromLatin1(RadiceDati);
    if (p.startsWith(radice, Qt::CaseInsensitive))
        p = RadiceDatiLocale() + p.mid(radice.size());
    else if (p.compare(radice.left(radice.size() - 1), Qt::CaseInsensitive) == 0)
        p = RadiceDatiLocale();
#ifdef Q_OS_WIN
    p.replace(u'/', u'\\');
    const QChar sep = u'\\';
#else
    p.replace(u'\\', u'/');
    const QChar sep = u'/';
#endif
    // Collapse doubled separators, but keep a UNC start on Windows.
    QString r;
    r.reserve(p.size());
    for (qsizetype i = 0; i < p.size(); ++i) {
        if (p[i] == sep && !r.isEmpty() && r.back() == sep && !(i == 1 && sep == u'\\'))
            continue;
        r += p[i];
    }
    return r;
}

QString PercorsoLocale(const QString &percorso)
{
    const QString p = MappaPercorso(percorso);
    if (p.isEmpty() || QFileInfo::exists(p))
        return p;
#ifdef Q_OS_WIN
    return p; // the file system already ignores case
#else
    const bool assoluto = p.startsWith(u'/');
    const QStringList parti = p.split(u'/', Qt::SkipEmptyParts);
    QString corrente = assoluto ? QStringLiteral("/") : QString();
    bool trovato = true;
    for (qsizetype i = 0; i < parti.size(); ++i) {
        const QString &parte = parti[i];
        QString scelta = parte;
        const QString base = corrente.isEmpty() ? QStringLiteral(".") : corrente;
        if (trovato && parte != u"." && parte != u"..") {
            if (!QFileInfo::exists(base + (base.endsWith(u'/') ? QString() : QStringLiteral("/")) + parte)) {
                const QStringList voci =
                    QDir(base).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
                auto it = std::find_if(voci.begin(), voci.end(), [&](const QString &v) {
                    return v.compare(parte, Qt::CaseInsensitive) == 0;
                });
                if (it != voci.end())
                    scelta = *it;
                else
                    trovato = false;
            }
        }
        if (!corrente.isEmpty() && !corrente.endsWith(u'/'))
            corrente += u'/';
        corrente += scelta;
    }
    if (p.endsWith(u'/') && !corrente.endsWith(u'/'))
        corrente += u'/';
    return corrente;
#endif
}
