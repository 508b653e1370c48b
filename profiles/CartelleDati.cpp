#include "profiles/CartelleDati.h"

#include "lang/modLanguageSupport.h"
#include "platform/Errori.h"
#include "platform/MsgBox.h"
#include "platform/Percorsi.h"
#include "platform/TestoFile.h"
#include "profiles/Profilo.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QStandardPaths>

namespace {
QString cartellaSistemaDiProva;
std::function<void(const QString &)> diario;

void annota(const QString &evento)
{
    if (diario)
        diario(evento);
}

QString chiudiConBarra(QString p)
{
    if (!p.endsWith(u'\\') && !p.endsWith(u'/'))
        p += u'\\';
    return p;
}

void registraFont(const QString &percorso)
{
    if (qobject_cast<QGuiApplication *>(QCoreApplication::instance()))
        QFontDatabase::addApplicationFont(PercorsoLocale(percorso));
}
} // namespace

void ImpostaCartellaSistemaPerProve(const QString &cartella) { cartellaSistemaDiProva = cartella; }
void ImpostaDiarioPerProve(std::function<void(const QString &)> d) { diario = std::move(d); }

bool FileEsiste(const QString &percorso)
{
    if (percorso.isEmpty())
        return false;
    return QFileInfo(PercorsoLocale(percorso)).isFile();
}

bool CartellaEsiste(const QString &percorso)
{
    if (percorso.isEmpty())
        return false;
    const QString locale = PercorsoLocale(percorso);
    QFileInfo fi(locale);
    return fi.exists() || fi.isSymLink();
}

bool TentaCreaCartella(const QString &percorso)
{
    const QString locale = PercorsoLocale(percorso);
    annota(QStringLiteral("cartella ") + percorso);
    if (!QDir().mkdir(locale) && !QFileInfo(locale).isDir())
        return false;
    // The notice is written anew at each creation, in the language of the moment.
    ScriviFileTesto(Cartelle::Leggimi, {TestoLingua(QStringLiteral("0020")), QStringLiteral(" "),
                                        TestoLingua(QStringLiteral("0021")), QStringLiteral(" "),
                                        TestoLingua(QStringLiteral("0022"))});
    return true;
}

void CreaCartella(const QString &percorso)
{
    if (!TentaCreaCartella(percorso))
        ErroreFatale(TestoErrore(QStringLiteral("0101"), QStringLiteral("Non riesco a creare la cartella:")) + u'\n'
                     + PercorsoLocale(percorso));
}

QString CartellaSistema()
{
    if (!cartellaSistemaDiProva.isEmpty())
        return chiudiConBarra(cartellaSistemaDiProva);
#ifdef Q_OS_WIN
    QString win = qEnvironmentVariable("WINDIR", QStringLiteral("C:\\Windows"));
    return chiudiConBarra(win.toLower());
#else
    // The user's own fonts live in <data home>/fonts.
    QString casa = qEnvironmentVariable("XDG_DATA_HOME");
    if (casa.isEmpty())
        casa = QDir::homePath() + QStringLiteral("/.local/share");
    return chiudiConBarra(casa);
#endif
}

void InstallaFont()
{
    // The doubled separator of this test stands as it always did; the file system ignores it.
    if (FileEsiste(CartellaSistema() + QStringLiteral("\\fonts\\penna1.ttf")))
        return;
    const QString sorgente = CartellaProgramma() + QStringLiteral("\\penna1.ttf");
    const QString cartellaFont = CartellaSistema() + QStringLiteral("fonts");
    const QString destinazione = CartellaSistema() + QStringLiteral("fonts\\penna1.ttf");
    QDir().mkpath(PercorsoLocale(cartellaFont));
    QFile::remove(PercorsoLocale(destinazione));
    if (!QFile::copy(PercorsoLocale(sorgente), PercorsoLocale(destinazione)))
        ErroreFatale(TestoErrore(QStringLiteral("0103"), QStringLiteral("Non riesco a copiare il font del corsivo:"))
                     + u'\n' + MappaPercorso(sorgente) + u'\n' + MappaPercorso(destinazione));
    registraFont(destinazione);
    MsgBox(QStringLiteral("Ho installato il font per il corsivo 'penna1.ttf'\n ----------------------- \n")
               + CreditoFontCorsivo + u'\n',
           Msg::vbOKOnly);
}

void RegistraFontCorsivo()
{
    const QString percorso = CartellaSistema() + QStringLiteral("fonts\\penna1.ttf");
    if (FileEsiste(percorso))
        registraFont(percorso);
}

void CreaCartelleDati()
{
    if (!CartellaEsiste(Cartelle::Radice))
        CreaCartella(Cartelle::Radice);
    if (!CartellaEsiste(Cartelle::Tesselo)) {
        // A missing folder of the game is what marks a first run.
        InstallaFont();
        CreaCartella(Cartelle::Tesselo);
    }
    if (!CartellaEsiste(Cartelle::Utenti))
        CreaCartella(Cartelle::Utenti);
    if (!CartellaEsiste(Cartelle::Dati))
        CreaCartella(Cartelle::Dati);
    for (const char *sotto : {"ii\\", "pi\\", "suoni\\", "gif\\", "swf\\"}) {
        const QString c = Cartelle::Dati + QString::fromLatin1(sotto);
        if (!CartellaEsiste(c))
            CreaCartella(c);
    }
}

void ImportaMemoryPronti()
{
    Profilo.ProntiImportati = true;
    const bool cancella = MsgBox(QStringLiteral("Vuoi cancellare i files dei memory pronti dalla posizione di origine?"),
                                 Msg::vbYesNo | Msg::vbCritical, TitoloGioco)
                          == Msg::vbYes;
    const QString origine = CartellaProgramma() + QStringLiteral("\\memorypronti\\");
    if (!CartellaEsiste(origine))
        return;

    struct Passo {
        const char *sorgente;
        const char *maschera;
        const char *destinazione;
    };
    // Media first, sets last: a set that arrives finds its media in place.
    const Passo passi[] = {
        {"gif\\", "*.gif", "gif\\"}, {"swf\\", "*.swf", "swf\\"}, {"suoni\\", "*.wav", "suoni\\"},
        {"ii\\", "*.ass", "ii\\"},   {"pi\\", "*.aps", "pi\\"},   {"ii\\", "*.agg", "ii\\"},
        {"pi\\", "*.apg", "pi\\"},
    };
    for (const Passo &p : passi) {
        const QString cartella = origine + QString::fromLatin1(p.sorgente);
        const QDir d(PercorsoLocale(cartella));
        const QStringList nomi = d.entryList({QString::fromLatin1(p.maschera)},
                                             QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                                             QDir::Name | QDir::IgnoreCase);
        for (const QString &nome : nomi) {
            const QString da = PercorsoLocale(cartella + nome);
            const QString a = PercorsoLocale(Cartelle::Dati + QString::fromLatin1(p.destinazione) + nome);
            // Each step is passed over when it fails; the deletion follows all the same.
            if (QFileInfo(a).isFile())
                QFile::remove(a);
            annota(QStringLiteral("copia ") + QString::fromLatin1(p.sorgente) + nome);
            QFile::copy(da, a);
            if (cancella)
                QFile::remove(da);
        }
    }
}
