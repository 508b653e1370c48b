#include "profiles/ProfiloAccesso.h"

#include "platform/FiltroPressioni.h"
#include "platform/ScritturaIntera.h"
#include "platform/TestoFile.h"

#include <QStringList>

#include <algorithm>

namespace {

const QString Sezione = QStringLiteral("[Accesso]");

QString nomeScelta(SceltaInterruttori s)
{
    switch (s) {
    case SceltaInterruttori::Tasti: return QStringLiteral("Tasti");
    case SceltaInterruttori::Mouse: return QStringLiteral("Mouse");
    case SceltaInterruttori::Joystick: return QStringLiteral("Joystick");
    case SceltaInterruttori::TastiScelti: return QStringLiteral("TastiScelti");
    }
    return QStringLiteral("Tasti");
}

QString booleano(bool b) { return b ? QStringLiteral("True") : QStringLiteral("False"); }

bool intero(const QString &v, int minimo, int massimo, int *r)
{
    bool ok = false;
    const int n = v.trimmed().toInt(&ok);
    if (!ok || n < minimo || n > massimo)
        return false;
    *r = n;
    return true;
}

} // namespace

QString FileAccesso(const QString &fileProfilo)
{
    QString base = fileProfilo;
    if (base.endsWith(QLatin1String(".ini"), Qt::CaseInsensitive))
        base.chop(4);
    return base + QStringLiteral(".accesso");
}

QString TestoAccesso(const ImpostazioniAccesso &a)
{
    const QStringList righe = {
        Sezione,
        QStringLiteral("Accettazione=%1").arg(a.AccettazioneMs),
        QStringLiteral("Ignora=%1").arg(a.IgnoraMs),
        QStringLiteral("Interruttori=") + nomeScelta(a.Interruttori),
        QStringLiteral("Tasto1=%1").arg(a.Tasto1),
        QStringLiteral("Tasto2=%1").arg(a.Tasto2),
        QStringLiteral("PausaDopoGiri=%1").arg(a.PausaDopoGiri),
        QStringLiteral("SuonoPasso=") + booleano(a.SuonoPasso),
        QStringLiteral("SuonoTessera=") + booleano(a.SuonoTessera),
    };
    QString t;
    for (const QString &r : righe)
        t += r + QStringLiteral("\r\n");
    return t;
}

ImpostazioniAccesso AccessoDaTesto(const QString &testo)
{
    ImpostazioniAccesso a;
    for (const QString &riga : DividiRighe(testo)) {
        const int uguale = riga.indexOf(u'=');
        if (uguale <= 0)
            continue;
        const QString chiave = riga.left(uguale).trimmed();
        const QString valore = riga.mid(uguale + 1).trimmed();
        if (chiave.compare(QLatin1String("Accettazione"), Qt::CaseInsensitive) == 0) {
            intero(valore, 0, FiltroPressioni::AccettazioneMassima, &a.AccettazioneMs);
        } else if (chiave.compare(QLatin1String("Ignora"), Qt::CaseInsensitive) == 0) {
            intero(valore, 0, FiltroPressioni::IgnoraMassimo, &a.IgnoraMs);
        } else if (chiave.compare(QLatin1String("Interruttori"), Qt::CaseInsensitive) == 0) {
            for (auto s : {SceltaInterruttori::Tasti, SceltaInterruttori::Mouse, SceltaInterruttori::Joystick,
                           SceltaInterruttori::TastiScelti})
                if (valore.compare(nomeScelta(s), Qt::CaseInsensitive) == 0)
                    a.Interruttori = s;
        } else if (chiave.compare(QLatin1String("Tasto1"), Qt::CaseInsensitive) == 0) {
            intero(valore, 0, 0x7FFFFFFF, &a.Tasto1);
        } else if (chiave.compare(QLatin1String("Tasto2"), Qt::CaseInsensitive) == 0) {
            intero(valore, 0, 0x7FFFFFFF, &a.Tasto2);
        } else if (chiave.compare(QLatin1String("PausaDopoGiri"), Qt::CaseInsensitive) == 0) {
            intero(valore, 0, ImpostazioniAccesso::PausaMassima, &a.PausaDopoGiri);
        } else if (chiave.compare(QLatin1String("SuonoPasso"), Qt::CaseInsensitive) == 0) {
            a.SuonoPasso = valore.compare(QLatin1String("True"), Qt::CaseInsensitive) == 0;
        } else if (chiave.compare(QLatin1String("SuonoTessera"), Qt::CaseInsensitive) == 0) {
            a.SuonoTessera = valore.compare(QLatin1String("True"), Qt::CaseInsensitive) == 0;
        }
    }
    // Chosen keys are a pair: one alone, or the same key twice, is no choice.
    if (a.Tasto1 == 0 || a.Tasto2 == 0 || a.Tasto1 == a.Tasto2) {
        a.Tasto1 = a.Tasto2 = 0;
        if (a.Interruttori == SceltaInterruttori::TastiScelti)
            a.Interruttori = SceltaInterruttori::Tasti;
    }
    return a;
}

ImpostazioniAccesso LeggiAccesso(const QString &fileProfilo)
{
    QString testo;
    if (!LeggiFileTesto(FileAccesso(fileProfilo), &testo))
        return ImpostazioniAccesso{};
    return AccessoDaTesto(testo);
}

bool SalvaAccesso(const QString &fileProfilo, const ImpostazioniAccesso &a, QString *errore)
{
    return SostituisciFile(FileAccesso(fileProfilo), CodificaTesto(TestoAccesso(a)), errore);
}
