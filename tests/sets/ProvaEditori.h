#pragma once

// What the editors' tests share: a data tree, media files made at run time,
// answers for dialogs and prompts, and a look at the files written.

#include "AmbienteProva.h"

#include "lang/modLanguageSupport.h"
#include "platform/CommDlgs.h"
#include "platform/InputBox.h"
#include "platform/Twips.h"
#include "profiles/CartelleDati.h"
#include "profiles/Profilo.h"
#include "sets/Editore.h"
#include "sets/Sfogliatore.h"

#include <QImage>

#include <memory>

class AmbienteEditori
{
public:
    AmbienteEditori() : ambiente(std::make_unique<AmbienteProva>())
    {
        ImpostaSchermoPerProve(QRect(0, 0, 1024, 768));
        LinguaCorrente.clear();
        for (const char *c : {"tesselo/utenti", "tesselo/dati/ii", "tesselo/dati/pi", "tesselo/dati/suoni",
                              "tesselo/dati/gif", "tesselo/dati/swf"})
            QDir().mkpath(ambiente->Radice() + u'/' + QLatin1String(c));
        ImpostaRispostaInputBox([this](const RichiestaInputBox &r) {
            domande << r.domanda;
            return risposteInput.isEmpty() ? QString() : risposteInput.takeFirst();
        });
        QDir().mkpath(Media());
    }
    ~AmbienteEditori()
    {
        ImpostaRispostaInputBox({});
        ImpostaSchermoPerProve(QRect());
        LinguaCorrente.clear();
    }

    QString Dati(const QString &relativo = QString()) const
    {
        return ambiente->Radice() + QStringLiteral("/tesselo/dati/") + relativo;
    }
    // A folder of the user's own media, outside the data tree.
    QString Media(const QString &nome = QString()) const { return ambiente->Casa() + QStringLiteral("/media/") + nome; }

    // A small picture of one colour, in the format the name asks.
    QString Immagine(const QString &nome, QColor colore = Qt::blue, QSize dimensione = QSize(24, 16)) const
    {
        QImage img(dimensione, QImage::Format_RGB32);
        img.fill(colore);
        const QString p = Media(nome);
        const QByteArray formato = nome.endsWith(QLatin1String(".png")) ? "PNG"
                                   : nome.endsWith(QLatin1String(".jpg")) ? "JPEG"
                                                                          : "GIF";
        img.save(p, formato.constData());
        return p;
    }
    // A film of the game's own, copied under a new name.
    QString Film(const QString &nome) const
    {
        const QString p = Media(nome);
        QFile::copy(QStringLiteral(COPPIE_SORGENTI "/app/programma/swf/premio_sole.swf"), p);
        return p;
    }
    QString Suono(const QString &nome) const
    {
        const QString p = Media(nome);
        QFile::copy(QStringLiteral(COPPIE_SORGENTI "/app/programma/suoni/si.wav"), p);
        return p;
    }

    // The next file dialog answers with this path; an empty one cancels.
    void Rispondi(const QString &percorso)
    {
        ambiente->risposteDialoghi << (percorso.isEmpty() ? RispostaDialogo::Annulla() : RispostaDialogo::File(percorso));
    }

    static QString NulTitolo(const QString &titolo)
    {
        return titolo + QString(LunghezzaTitoloFile - titolo.size(), QChar(0));
    }

    std::unique_ptr<AmbienteProva> ambiente;
    QStringList domande;
    QStringList risposteInput;
};

// The game's path of a file of the data tree, as the editors write it.
inline QString PercorsoGioco(const QString &relativo)
{
    return QStringLiteral("C:\\ImpostazioniProgrammiLorea\\tesselo\\dati\\") + QString(relativo).replace(u'/', u'\\');
}
