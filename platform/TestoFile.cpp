#include "platform/TestoFile.h"

#include "platform/Percorsi.h"
#include "platform/ScritturaIntera.h"

#include <QFile>
#include <QStringDecoder>

namespace {
// Windows-1252 differs from Latin-1 only in 0x80..0x9F; 0 marks the five unused bytes.
constexpr char16_t alti1252[32] = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178,
};

int byteWindows1252(QChar c)
{
    const char16_t u = c.unicode();
    if (u < 0x80 || (u >= 0xA0 && u <= 0xFF))
        return u;
    for (int i = 0; i < 32; ++i)
        if (alti1252[i] != 0 && alti1252[i] == u)
            return 0x80 + i;
    return -1;
}
} // namespace

QString DecodificaTesto(const QByteArray &byte)
{
    bool soloAscii = true;
    for (char b : byte)
        if (static_cast<unsigned char>(b) >= 0x80) {
            soloAscii = false;
            break;
        }
    if (soloAscii)
        return QString::fromLatin1(byte);

    QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    QString t = utf8.decode(byte);
    if (!utf8.hasError()) {
        if (t.startsWith(QChar(0xFEFF)))
            t.remove(0, 1);
        return t;
    }

    QString r;
    r.reserve(byte.size());
    for (char b : byte) {
        const unsigned char u = static_cast<unsigned char>(b);
        if (u >= 0x80 && u < 0xA0)
            r += alti1252[u - 0x80] ? QChar(alti1252[u - 0x80]) : QChar(u);
        else
            r += QChar(u);
    }
    return r;
}

bool CabeInWindows1252(const QString &testo)
{
    for (QChar c : testo)
        if (byteWindows1252(c) < 0)
            return false;
    return true;
}

QByteArray CodificaTesto(const QString &testo)
{
    if (!CabeInWindows1252(testo))
        return testo.toUtf8();
    QByteArray r;
    r.reserve(testo.size());
    for (QChar c : testo)
        r += char(byteWindows1252(c));
    return r;
}

QStringList DividiRighe(const QString &testo)
{
    QStringList righe;
    qsizetype inizio = 0;
    const qsizetype n = testo.size();
    for (qsizetype i = 0; i < n; ++i) {
        const QChar c = testo[i];
        if (c == u'\r' || c == u'\n') {
            righe << testo.mid(inizio, i - inizio);
            if (c == u'\r' && i + 1 < n && testo[i + 1] == u'\n')
                ++i;
            inizio = i + 1;
        }
    }
    if (inizio < n)
        righe << testo.mid(inizio);
    return righe;
}

bool LeggiFileTesto(const QString &percorso, QString *testo)
{
    QFile f(PercorsoLocale(percorso));
    if (!f.open(QIODevice::ReadOnly))
        return false;
    *testo = DecodificaTesto(f.readAll());
    return true;
}

bool ScriviFileTesto(const QString &percorso, const QStringList &righe)
{
    QString tutto;
    for (const QString &r : righe) {
        tutto += r;
        tutto += QStringLiteral("\r\n");
    }
    return SostituisciFile(percorso, CodificaTesto(tutto));
}
