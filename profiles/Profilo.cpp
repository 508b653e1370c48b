#include "profiles/Profilo.h"

#include "lang/modLanguageSupport.h"
#include "platform/Colori.h"
#include "platform/Errori.h"
#include "platform/LettoreCampi.h"
#include "platform/ModuloColoriSuoni.h"
#include "platform/Percorsi.h"
#include "platform/ScritturaIntera.h"
#include "platform/TestoFile.h"
#include "profiles/CartelleDati.h"
#include "profiles/ProfiloAccesso.h"

#include <QDir>
#include <QFileInfo>

#include <cmath>
#include <limits>
#include <optional>

namespace {

// The fixed sounds follow the profile's Suoni field.
const bool suoniCollegati = [] {
    ImpostaLetturaSuoni([] { return Profilo.Suoni; });
    return true;
}();

// Numbers are written as the old Print did: a blank for the sign when not
// negative, then the digits, then one blank.
QString numero(double v)
{
    const auto intero = static_cast<long long>(std::llround(v));
    return (intero >= 0 ? QStringLiteral(" ") : QString()) + QString::number(intero) + u' ';
}

QString booleano(bool b) { return b ? QStringLiteral("True") : QStringLiteral("False"); }

std::optional<double> leggiNumero(LettoreCampi &l)
{
    QString campo;
    if (!l.LeggiCampo(&campo))
        return std::nullopt;
    const QString t = campo.trimmed();
    if (t.isEmpty())
        return 0.0;
    bool ok = false;
    const double v = t.toDouble(&ok);
    if (!ok || !std::isfinite(v))
        return std::nullopt;
    return v;
}

std::optional<qint16> leggiIntero16(LettoreCampi &l)
{
    const auto v = leggiNumero(l);
    if (!v)
        return std::nullopt;
    const double r = std::nearbyint(*v);
    if (r < std::numeric_limits<qint16>::min() || r > std::numeric_limits<qint16>::max())
        return std::nullopt;
    return qint16(r);
}

std::optional<bool> leggiBooleano(LettoreCampi &l)
{
    QString campo;
    if (!l.LeggiCampo(&campo))
        return std::nullopt;
    return campo.startsWith(u'T');
}

} // namespace

QString FileDelProfilo(const QString &nome)
{
    QString n = nome;
    for (QChar &c : n)
        if (c == u'\\' || c == u'/' || c == u':')
            c = u'_';
    return CartellaUtenti + n + QStringLiteral(".ini");
}

namespace {
// Whatever put it in FileUtente, a profile is written only straight inside
// the players' folder.
bool nellaCartellaUtenti(const QString &file)
{
    const QString cartella = QDir::cleanPath(MappaPercorso(CartellaUtenti));
    const QFileInfo fi(QDir::cleanPath(MappaPercorso(file)));
    return QDir::cleanPath(fi.path()).compare(cartella, Qt::CaseInsensitive) == 0 && fi.fileName() != QLatin1String("..")
           && fi.fileName() != QLatin1String(".");
}
} // namespace

void ValoriPredefiniti()
{
    Profilo.FontParola1 = QStringLiteral("Arial");
    Profilo.FontParola2 = QStringLiteral("Arial");
    Profilo.TipoMemory = 2;
    Profilo.NumeroTessere = 12;
    Profilo.ColoreFont1 = Colori::TestoFinestra;
    Profilo.ColoreSfondoTesto1 = Colori::Bianco;
    Profilo.ColoreFont2 = Colori::TestoFinestra;
    Profilo.ColoreSfondoTesto2 = Colori::Bianco;
    Profilo.ColoreTessere = Colori::Giallo;
    Profilo.ColoreScansione = Colori::Rosso;
    Profilo.ColoreSfondo = Colori::AzzurroPallido;
    Profilo.Suoni = true;
    Profilo.DisabilitaMousePersonalizzato = false;
    Profilo.ModoInput = ModoInputValori::Mouse;
    Profilo.VelocitaScansione = 4;
    Profilo.Riparti = false;
    Profilo.Riquadro = false;
    Profilo.SpessoreRiquadro = 9;
    Profilo.Maiuscolo1 = false;
    Profilo.Maiuscolo2 = false;
    Profilo.ProntiImportati = false;
}

QString TestoProfilo(const ProfiloGiocatore &p)
{
    const QStringList righe = {
        p.FontParola1,
        p.FontParola2,
        numero(p.TipoMemory),
        numero(p.NumeroTessere),
        numero(p.ColoreFont1),
        numero(p.ColoreSfondoTesto1),
        numero(p.ColoreFont2),
        numero(p.ColoreSfondoTesto2),
        numero(p.ColoreTessere),
        numero(p.ColoreScansione),
        numero(p.ColoreSfondo),
        booleano(p.Suoni),
        booleano(p.DisabilitaMousePersonalizzato),
        numero(p.ModoInput),
        numero(p.VelocitaScansione),
        booleano(p.Riparti),
        booleano(p.Riquadro),
        numero(p.SpessoreRiquadro),
        booleano(p.Maiuscolo1),
        booleano(p.Maiuscolo2),
        booleano(p.ProntiImportati),
    };
    QString t;
    for (const QString &r : righe)
        t += r + QStringLiteral("\r\n");
    return t;
}

bool ProfiloDaTesto(const QString &testo, ProfiloGiocatore *p)
{
    LettoreCampi l(testo);
    ProfiloGiocatore n;
    auto stringa = [&](QString *s) { return l.LeggiCampo(s); };
    auto intero = [&](qint16 *v) {
        const auto r = leggiIntero16(l);
        if (r)
            *v = *r;
        return bool(r);
    };
    auto doppio = [&](double *v) {
        const auto r = leggiNumero(l);
        if (r)
            *v = *r;
        return bool(r);
    };
    auto vero = [&](bool *v) {
        const auto r = leggiBooleano(l);
        if (r)
            *v = *r;
        return bool(r);
    };
    const bool ok = stringa(&n.FontParola1) && stringa(&n.FontParola2) && intero(&n.TipoMemory)
                    && intero(&n.NumeroTessere) && doppio(&n.ColoreFont1) && doppio(&n.ColoreSfondoTesto1)
                    && doppio(&n.ColoreFont2) && doppio(&n.ColoreSfondoTesto2) && doppio(&n.ColoreTessere)
                    && doppio(&n.ColoreScansione) && doppio(&n.ColoreSfondo) && vero(&n.Suoni)
                    && vero(&n.DisabilitaMousePersonalizzato) && intero(&n.ModoInput)
                    && intero(&n.VelocitaScansione) && vero(&n.Riparti) && vero(&n.Riquadro)
                    && intero(&n.SpessoreRiquadro) && vero(&n.Maiuscolo1) && vero(&n.Maiuscolo2)
                    && vero(&n.ProntiImportati);
    if (ok)
        *p = n;
    return ok;
}

void LeggiProfilo()
{
    if (!FileEsiste(FileUtente))
        ValoriPredefiniti();
    QString testo;
    if (!LeggiFileTesto(FileUtente, &testo) || !ProfiloDaTesto(testo, &Profilo))
        ValoriPredefiniti();
    Accesso = LeggiAccesso(FileUtente);
}

void SalvaProfilo()
{
    // Replaced whole: a save that fails, however late, leaves the old profile.
    if (!nellaCartellaUtenti(FileUtente) || !SostituisciFile(FileUtente, CodificaTesto(TestoProfilo(Profilo))))
        ErroreFatale(TestoErrore(QStringLiteral("0102"), QStringLiteral("Non riesco a scrivere il profilo del giocatore:"))
                     + u'\n' + MappaPercorso(FileUtente));
    // The switch settings go beside it, in their own file.
    if (!SalvaAccesso(FileUtente, Accesso))
        ErroreFatale(TestoErrore(QStringLiteral("0102"), QStringLiteral("Non riesco a scrivere il profilo del giocatore:"))
                     + u'\n' + MappaPercorso(FileAccesso(FileUtente)));
}
