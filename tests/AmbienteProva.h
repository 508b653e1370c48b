#pragma once

// What the game's tests share: a home of their own for the data tree, a
// program folder with the language files, and the seams that stand in for
// message boxes, file/colour/font dialogs, sounds, the end of the process and
// the clock.

#include "platform/Attendi.h"
#include "platform/CommDlgs.h"
#include "platform/Errori.h"
#include "platform/ModuloColoriSuoni.h"
#include "platform/MsgBox.h"
#include "platform/Percorsi.h"

#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QStringList>
#include <QTimer>
#include <QWidget>
#include <QtTest>

#include <memory>
#include <vector>

struct ProcessoTerminato {
    FineProcesso fine;
};

class CanaleRegistrato final : public CanaleSuoni
{
public:
    void suona(const QString &percorsoLocale) override { richieste << percorsoLocale; }
    QStringList richieste;
};

// A check that fails inside a modal screen or a wait returns from its own
// handler only: the screen would stay open until ctest's limit. Once the
// running test has failed, this closes every modal screen and ends every
// wait, again and again, so the test runs to its end at once.
class GuardiaModali
{
public:
    GuardiaModali()
    {
        if (!QCoreApplication::instance())
            return;
        controllo = std::make_unique<QTimer>();
        controllo->setInterval(20);
        QObject::connect(controllo.get(), &QTimer::timeout, [] {
            if (QTest::currentTestFailed())
                ChiudiTutto();
        });
        controllo->start();
    }

    static void ChiudiTutto()
    {
        InterrompiAttesePerProve();
        if (!qobject_cast<QApplication *>(QCoreApplication::instance()))
            return;
        // Screens ignore close() and reject(): only done() leaves their loop.
        for (int giri = 0; giri < 32; ++giri) {
            auto *modale = qobject_cast<QDialog *>(QApplication::activeModalWidget());
            if (!modale)
                break;
            modale->done(QDialog::Rejected);
        }
    }

private:
    std::unique_ptr<QTimer> controllo;
};

class AmbienteProva
{
public:
    explicit AmbienteProva(bool conFileLingua = true)
    {
        casa = std::make_unique<QTemporaryDir>();
        programma = std::make_unique<QTemporaryDir>();
        qputenv("HOME", casa->path().toUtf8());
        qputenv("XDG_DATA_HOME", (casa->path() + QStringLiteral("/.local/share")).toUtf8());
        qputenv("XDG_CONFIG_HOME", (casa->path() + QStringLiteral("/.config")).toUtf8());
        qputenv("XDG_CACHE_HOME", (casa->path() + QStringLiteral("/.cache")).toUtf8());
        ImpostaCartellaProgramma(programma->path());
        if (conFileLingua) {
            for (const char *f : {"Italiano.lng", "English.lng", "LangSetting.ini"})
                QFile::copy(QStringLiteral(COPPIE_SORGENTI "/lang/lng/") + QLatin1String(f),
                            programma->filePath(QLatin1String(f)));
        }
        ImpostaRispostaMsgBox([this](const RichiestaMsgBox &r) {
            scatole.push_back(r);
            if (risposte.isEmpty())
                return int((r.stile & 7) == Msg::vbYesNo ? Msg::vbYes : Msg::vbOK);
            return risposte.takeFirst();
        });
        ImpostaRispostaDialoghi([this](const RichiestaDialogo &r) {
            dialoghi.push_back(r);
            return risposteDialoghi.isEmpty() ? RispostaDialogo::Annulla() : risposteDialoghi.takeFirst();
        });
        ImpostaFineProcessoPerProve([](const FineProcesso &f) { throw ProcessoTerminato{f}; });
        ImpostaCanaleSuoni(&suoni);
        ImpostaScalaAttesa(0.01);
    }

    ~AmbienteProva()
    {
        ImpostaRispostaMsgBox({});
        ImpostaRispostaDialoghi({});
        ImpostaFineProcessoPerProve({});
        ImpostaCanaleSuoni(nullptr);
        ImpostaCartellaProgramma(QString());
        ImpostaScalaAttesa(1.0);
    }

    QString Casa() const { return casa->path(); }
    QString Programma() const { return programma->path(); }
    QString Radice() const { return casa->path() + QStringLiteral("/ImpostazioniProgrammiLorea"); }

    // A listing of a tree with sizes and modification times, to tell that nothing changed.
    static QStringList Elenco(const QString &cartella)
    {
        QStringList r;
        QDirIterator it(cartella, QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                        QDirIterator::Subdirectories);
        while (it.hasNext()) {
            it.next();
            const QFileInfo fi = it.fileInfo();
            r << QStringLiteral("%1 %2 %3")
                     .arg(QDir(cartella).relativeFilePath(fi.filePath()))
                     .arg(fi.isDir() ? -1 : fi.size())
                     .arg(fi.lastModified().toMSecsSinceEpoch());
        }
        r.sort();
        return r;
    }

    static void Scrivi(const QString &percorso, const QByteArray &byte)
    {
        QDir().mkpath(QFileInfo(percorso).absolutePath());
        QFile f(percorso);
        QVERIFY(f.open(QIODevice::WriteOnly | QIODevice::Truncate));
        f.write(byte);
    }

    static QByteArray Leggi(const QString &percorso)
    {
        QFile f(percorso);
        if (!f.open(QIODevice::ReadOnly))
            return QByteArray();
        return f.readAll();
    }

    std::vector<RichiestaMsgBox> scatole;
    QList<int> risposte;
    // File, colour and font dialogs: what each asked, and the answers to give
    // in order (a cancel when none is left).
    std::vector<RichiestaDialogo> dialoghi;
    QList<RispostaDialogo> risposteDialoghi;
    CanaleRegistrato suoni;

private:
    GuardiaModali guardia;
    std::unique_ptr<QTemporaryDir> casa;
    std::unique_ptr<QTemporaryDir> programma;
};
