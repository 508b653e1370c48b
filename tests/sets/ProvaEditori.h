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

    // A small picture of one colour, in the format the name asks (GIF when
    // the name says nothing else).
    QString Immagine(const QString &nome, QColor colore = Qt::blue, QSize dimensione = QSize(24, 16)) const
    {
        const QString p = Media(nome);
        ScriviImmagine(p, colore, dimensione);
        return p;
    }
    static void ScriviImmagine(const QString &p, QColor colore, QSize dimensione)
    {
        if (p.endsWith(QLatin1String(".png"), Qt::CaseInsensitive) || p.endsWith(QLatin1String(".jpg"), Qt::CaseInsensitive)) {
            QImage img(dimensione, QImage::Format_RGB32);
            img.fill(colore);
            img.save(p, p.endsWith(QLatin1String(".png"), Qt::CaseInsensitive) ? "PNG" : "JPEG");
            return;
        }
        AmbienteProva::Scrivi(p, Gif(colore, dimensione));
    }
    // Qt reads GIF but does not write it: a picture of one colour, each pixel
    // behind a clear code, so every code keeps three bits.
    static QByteArray Gif(QColor colore, QSize d)
    {
        QByteArray b("GIF89a");
        auto parola = [&b](int v) { b += char(v & 0xFF); b += char((v >> 8) & 0xFF); };
        parola(d.width());
        parola(d.height());
        b += char(0x80); // a global table of two colours
        b += char(0);
        b += char(0);
        b += char(colore.red()); b += char(colore.green()); b += char(colore.blue());
        b += char(0); b += char(0); b += char(0);
        b += ',';
        parola(0); parola(0); parola(d.width()); parola(d.height());
        b += char(0);
        b += char(2); // minimum code size
        QByteArray dati;
        quint32 accumulo = 0;
        int bit = 0;
        auto codice = [&](int c) {
            accumulo |= quint32(c) << bit;
            bit += 3;
            while (bit >= 8) {
                dati += char(accumulo & 0xFF);
                accumulo >>= 8;
                bit -= 8;
            }
        };
        for (int i = 0; i < d.width() * d.height(); ++i) {
            codice(4);
            codice(0);
        }
        codice(5);
        if (bit > 0)
            dati += char(accumulo & 0xFF);
        for (qsizetype i = 0; i < dati.size(); i += 255) {
            const QByteArray pezzo = dati.mid(i, 255);
            b += char(pezzo.size());
            b += pezzo;
        }
        b += char(0);
        b += ';';
        return b;
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
