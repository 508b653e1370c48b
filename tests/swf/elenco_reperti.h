#pragma once
// The inputs named on a command line, files or folders of files, read whole:
// shared by the replay of fuzzing's findings and by its benchmark.

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStringList>

#include <vector>

struct Reperto {
    QString nome;
    QByteArray dati;
    bool letto = false;
};

inline std::vector<Reperto> LeggiReperti(const QStringList &argomenti)
{
    QStringList file;
    for (const QString &a : argomenti) {
        const QFileInfo info(a);
        if (info.isDir()) {
            for (const QFileInfo &f : QDir(info.filePath()).entryInfoList(QDir::Files, QDir::Name))
                file << f.filePath();
        } else {
            file << info.filePath();
        }
    }
    std::vector<Reperto> r;
    for (const QString &percorso : file) {
        QFile f(percorso);
        Reperto rep{QFileInfo(percorso).fileName(), {}, f.open(QIODevice::ReadOnly)};
        if (rep.letto)
            rep.dati = f.readAll();
        r.push_back(std::move(rep));
    }
    return r;
}
