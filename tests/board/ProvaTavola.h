#pragma once

// What the board's rule tests share: a view that records waits and rewards,
// set files written at run time, and a profile of known values.

#include "AmbienteProva.h"

#include "board/Tavola.h"
#include "lang/modLanguageSupport.h"
#include "profiles/Profilo.h"
#include "profiles/StatoProcesso.h"

#include <QImage>

class VistaProva final : public VistaTavola
{
public:
    void Attendi(double s) override
    {
        attese.push_back(s);
        if (durante)
            durante(s);
    }
    void MostraPremio() override
    {
        ++premi;
        if (alPremio)
            alPremio();
    }
    std::vector<double> attese;
    std::function<void(double)> durante;
    std::function<void()> alPremio;
    int premi = 0;
};

inline void ProfiloDiProva()
{
    Profilo = ProfiloGiocatore{};
    Profilo.FontParola1 = QStringLiteral("Arial");
    Profilo.NumeroTessere = 12;
    Profilo.ColoreTessere = 0xC00000;
    Profilo.ColoreScansione = 0x00C000;
    Profilo.ColoreSfondo = 0xFFFFC0;
    Profilo.Suoni = true;
    Profilo.ModoInput = ModoInputValori::Mouse;
    Profilo.VelocitaScansione = 4;
    Profilo.SpessoreRiquadro = 5;
    NumeroGiocatori = 1;
    NomiGiocatori[0] = QStringLiteral("Anna");
    NomiGiocatori[1] = QStringLiteral("Bruno");
    NomiGiocatori[2] = QStringLiteral("Carla");
    ImpostaLetturaSuoni([] { return Profilo.Suoni; });
}

// A set of `n` records "a<i>.swf", "b<i>.swf" with sounds where `suono` says.
inline QString ScriviSet(const QString &cartella, const QString &nome, int n,
                         std::function<QString(int, int)> suono = {},
                         std::function<QString(int, int)> lato = {})
{
    QByteArray b;
    for (int i = 0; i < n; ++i) {
        for (int c = 1; c <= 4; ++c) {
            QString v;
            if (c <= 2)
                v = lato ? lato(i, c) : QStringLiteral("%1%2.swf").arg(QChar(c == 1 ? u'a' : u'b')).arg(i);
            else if (suono)
                v = suono(i, c);
            b += v.toUtf8() + "\r\n";
        }
    }
    const QString percorso = cartella + QLatin1Char('/') + nome;
    AmbienteProva::Scrivi(percorso, b);
    return percorso;
}

// Small still pictures for the image boards.
inline QString ScriviImmagine(const QString &cartella, const QString &nome)
{
    QImage img(8, 8, QImage::Format_RGB32);
    img.fill(Qt::blue);
    const QString percorso = cartella + QLatin1Char('/') + nome;
    img.save(percorso, "PNG");
    return percorso;
}

// A board model on a screen of 1024 by 768 pixels, in twips.
inline std::unique_ptr<Tavola> TavolaSuSchermo(const ImpostazioniTavola &imp, VistaTavola *vista)
{
    auto t = std::make_unique<Tavola>(imp, vista);
    t->Width = 15360;
    t->Height = 11520;
    return t;
}
