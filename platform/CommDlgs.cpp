#include "platform/CommDlgs.h"

#include "platform/Caratteri.h"
#include "platform/Colori.h"
#include "platform/Controlli.h"
#include "platform/Percorsi.h"
#include "platform/TestoFile.h"

#include <QColorDialog>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QFontDialog>
#include <QWidget>

#include <cmath>
#include <optional>

namespace {
RispondiDialogo rispostaDiProva;
std::function<void(QWidget *)> osservatore;

constexpr int RifiutiMassimi = 20;

QString tuttiNul(int quanti) { return QString(quanti, QChar(0)); }

// The items of a NUL-ended filter string; the empty item after the last NUL is
// the end of the list, not an item.
QStringList vociFiltro(const QString &filtro)
{
    QStringList voci = filtro.split(QChar(0));
    if (!voci.isEmpty() && voci.last().isEmpty())
        voci.removeLast();
    return voci;
}

// The same pairs as Qt's name filters: "label (pattern pattern)". A pair with
// an empty label shows its pattern, so the list never holds a blank line.
QStringList filtriQt(const QStringList &voci)
{
    QStringList r;
    for (qsizetype i = 0; i + 1 < voci.size(); i += 2) {
        const QString modelli = voci[i + 1].split(u';', Qt::SkipEmptyParts).join(u' ').trimmed();
        const QString etichetta = voci[i].isEmpty() ? modelli : voci[i];
        r << etichetta + QStringLiteral(" (") + modelli + u')';
    }
    return r;
}

QString cartellaBase(const RichiestaDialogo &r)
{
    return r.cartellaLocale.isEmpty() ? QDir::currentPath() : r.cartellaLocale;
}

// What the dialog makes of a name typed in its box: a full path, with the
// default extension when the name has no dot of its own.
QString percorsoDigitato(const RichiestaDialogo &r, const QString &nome)
{
    QString p = QDir::fromNativeSeparators(MappaPercorso(nome));
    if (QDir::isRelativePath(p))
        p = QDir(cartellaBase(r)).filePath(p);
    if (!r.estensione.isEmpty() && !QFileInfo(p).fileName().contains(u'.'))
        p += u'.' + r.estensione;
    return PercorsoLocale(QDir::cleanPath(p));
}

// The double's answers pass the same checks as a person's in the real dialog.
std::optional<QString> fileDaProva(RichiestaDialogo r)
{
    for (int giro = 0; giro < RifiutiMassimi; ++giro) {
        const RispostaDialogo a = rispostaDiProva(r);
        if (!a.confermato)
            return std::nullopt;
        const QString p = percorsoDigitato(r, a.nome);
        const QFileInfo fi(p);
        bool accettato;
        if (r.modo == ModoApri)
            accettato = fi.isFile();
        else
            accettato = QFileInfo(fi.absolutePath()).isDir() && !fi.isDir() && (!fi.exists() || a.sostituisci);
        if (accettato)
            return p;
        r.rifiutati << a.nome;
    }
    return std::nullopt;
}

std::optional<QString> fileReale(QWidget *proprietario, const RichiestaDialogo &r)
{
    QFileDialog d(proprietario, r.titolo, r.cartellaLocale);
    d.setOption(QFileDialog::DontUseNativeDialog, true);
    d.setAcceptMode(r.modo == ModoApri ? QFileDialog::AcceptOpen : QFileDialog::AcceptSave);
    d.setFileMode(r.modo == ModoApri ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
    const QStringList filtri = filtriQt(r.filtro);
    if (!filtri.isEmpty()) {
        d.setNameFilters(filtri);
        d.selectNameFilter(filtri.value(r.indiceFiltro - 1));
    }
    d.setDefaultSuffix(r.estensione);
    if (!r.nomeIniziale.isEmpty())
        d.selectFile(r.nomeIniziale);
    if (osservatore)
        osservatore(&d);
    if (d.exec() != QDialog::Accepted || d.selectedFiles().isEmpty())
        return std::nullopt;
    return d.selectedFiles().constFirst();
}

QColor nero() { return QColor(0, 0, 0); }

void dimenticaColoriPersonalizzati()
{
    for (int i = 0; i < QColorDialog::customCount(); ++i)
        QColorDialog::setCustomColor(i, nero());
}
} // namespace

void ImpostaRispostaDialoghi(RispondiDialogo risposta) { rispostaDiProva = std::move(risposta); }
void ImpostaOsservatoreDialoghi(std::function<void(QWidget *)> o) { osservatore = std::move(o); }

QString FiltroFile(const QStringList &voci)
{
    QString r;
    for (const QString &v : voci)
        r += v + QChar(0);
    return r;
}

QString ScegliFile(QWidget *proprietario, qint16 modo, const QString &titolo, const QString &nomeIniziale,
                   const QString &filtro, const QString &cartella, const QString &estensione)
{
    RichiestaDialogo r;
    r.tipo = TipoDialogo::File;
    r.modo = modo;
    r.titolo = titolo;
    // The name buffer holds 250 characters; a longer initial name is cut there.
    r.nomeIniziale = nomeIniziale.left(LunghezzaNomeFile);
    r.filtro = vociFiltro(filtro);
    r.indiceFiltro = 1;
    r.cartella = cartella;
    r.cartellaLocale = cartella.isEmpty() ? QString() : QDir::toNativeSeparators(PercorsoLocale(cartella));
    r.estensione = estensione;

    const std::optional<QString> scelto = rispostaDiProva ? fileDaProva(r) : fileReale(proprietario, r);
    QString percorso = scelto ? QDir::toNativeSeparators(*scelto) : QString();
    // The dialog is told its buffer holds 255 characters with the closing NUL:
    // a longer path makes it fail, which looks like a cancel. The buffer
    // itself holds 250, so a path just under the limit comes back cut.
    if (percorso.size() >= LunghezzaMassimaFile)
        percorso.clear();
    if (percorso.isEmpty()) {
        NomeFileScelto = tuttiNul(LunghezzaTitoloFile);
        return QString();
    }
    const QString titoloFile = QFileInfo(QDir::fromNativeSeparators(percorso)).fileName().left(LunghezzaTitoloFile);
    NomeFileScelto = titoloFile + tuttiNul(LunghezzaTitoloFile - int(titoloFile.size()));
    return percorso.left(LunghezzaNomeFile);
}

bool ScegliColore(QWidget *proprietario, QWidget *controllo)
{
    RichiestaDialogo r;
    r.tipo = TipoDialogo::Colore;
    r.coloreIniziale = 0;
    r.coloriPersonalizzati.fill(0);

    std::optional<double> scelto;
    if (rispostaDiProva) {
        // The custom colours the person made die with this opening.
        const RispostaDialogo a = rispostaDiProva(r);
        if (a.confermato)
            scelto = a.colore;
    } else {
        dimenticaColoriPersonalizzati();
        QColorDialog d(nero(), proprietario);
        d.setOption(QColorDialog::DontUseNativeDialog, true);
        if (osservatore)
            osservatore(&d);
        if (d.exec() == QDialog::Accepted)
            scelto = NumeroDaColore(d.selectedColor());
        dimenticaColoriPersonalizzati();
    }
    if (!scelto || !controllo)
        return false;
    ImpostaForeColor(controllo, *scelto);
    return true;
}

QString TestoDaByte(const QByteArray &byte)
{
    const qsizetype zero = byte.indexOf('\0');
    return DecodificaTesto(zero < 0 ? byte : byte.left(zero));
}

bool ScegliFont(QWidget *, QWidget *controllo)
{
    if (!controllo)
        return false;
    const QFont attuale = controllo->font();
    RichiestaDialogo r;
    r.tipo = TipoDialogo::Font;
    r.grassetto = attuale.bold();
    r.corsivo = attuale.italic();
    r.sottolineato = attuale.underline();
    r.decimiPunto = int(std::lround(attuale.pointSizeF() * 10));

    RispostaDialogo a;
    if (rispostaDiProva) {
        a = rispostaDiProva(r);
    } else {
        // No face: the dialog opens on none of the control's.
        QFont iniziale;
        iniziale.setFamilies({});
        iniziale.setBold(r.grassetto);
        iniziale.setItalic(r.corsivo);
        iniziale.setUnderline(r.sottolineato);
        // No owner: the dialog stands on its own, as it always did.
        QFontDialog d(iniziale, nullptr);
        d.setOption(QFontDialog::DontUseNativeDialog, true);
        d.setWindowModality(Qt::ApplicationModal);
        if (osservatore)
            osservatore(&d);
        if (d.exec() == QDialog::Accepted) {
            const QFont s = d.selectedFont();
            a.confermato = true;
            a.volto = s.family();
            a.decimiPunto = int(std::lround(s.pointSizeF() * 10));
            a.grassetto = s.weight() >= QFont::Bold;
            a.corsivo = s.italic();
            a.sottolineato = s.underline();
            a.barrato = s.strikeOut();
        }
    }
    if (!a.confermato)
        return false;

    // The face name comes back as the old font record held it: bytes up to a NUL.
    const QString volto = TestoDaByte(CodificaTesto(a.volto) + '\0');
    QFont nuovo = controllo->font();
    ImpostaFamiglia(nuovo, volto);
    nuovo.setPointSize(qMax(1, int(std::nearbyint(a.decimiPunto / 10.0))));
    nuovo.setBold(a.grassetto);
    nuovo.setItalic(a.corsivo);
    nuovo.setUnderline(a.sottolineato);
    controllo->setFont(nuovo);
    return true;
}
