#include "platform/ModuloColoriSuoni.h"

#include "platform/Casuale.h"
#include "platform/Percorsi.h"

#include <QAudioOutput>
#include <QCoreApplication>
#include <QFileInfo>
#include <QMediaPlayer>
#include <QUrl>

#include <memory>

namespace {

// The real channel: one player for the whole program, so each new sound
// replaces the one in progress. With no sound card the player simply stays silent.
class CanaleMultimedia final : public CanaleSuoni
{
public:
    void suona(const QString &percorsoLocale) override
    {
        if (!QCoreApplication::instance())
            return;
        if (!player) {
            player = std::make_unique<QMediaPlayer>();
            uscita = std::make_unique<QAudioOutput>();
            player->setAudioOutput(uscita.get());
        }
        player->stop();
        const QFileInfo fi(percorsoLocale);
        if (percorsoLocale.isEmpty() || !fi.isFile() || fi.size() == 0) {
            player->setSource(QUrl());
            return;
        }
        player->setSource(QUrl::fromLocalFile(fi.absoluteFilePath()));
        player->play();
    }

    QString sorgente() const { return player ? player->source().toLocalFile() : QString(); }

private:
    std::unique_ptr<QMediaPlayer> player;
    std::unique_ptr<QAudioOutput> uscita;
};

CanaleSuoni *canaleDiProva = nullptr;
// A function-local object, so that the profile can set it while statics start up.
std::function<bool()> &suoniAttivi()
{
    static std::function<bool()> f = [] { return true; };
    return f;
}

CanaleMultimedia &canaleReale()
{
    // Never destroyed: the player must not outlive the application object.
    static auto *reale = new CanaleMultimedia;
    return *reale;
}

CanaleSuoni &canale()
{
    if (canaleDiProva)
        return *canaleDiProva;
    return canaleReale();
}

void suonaFisso(const char *nome)
{
    if (suoniAttivi() && !suoniAttivi()())
        return;
    SuonaFile(CartellaProgramma() + QString::fromLatin1(nome));
}
} // namespace

void ImpostaCanaleSuoni(CanaleSuoni *c) { canaleDiProva = c; }
void ImpostaLetturaSuoni(std::function<bool()> f) { suoniAttivi() = std::move(f); }

QString SorgenteSuonoInCorso() { return canaleReale().sorgente(); }

void SuonaFile(const QString &percorso) { canale().suona(PercorsoLocale(percorso)); }

void SuonaSi() { suonaFisso("\\suoni\\si.wav"); }
void SuonaNo() { suonaFisso("\\suoni\\no.wav"); }
void SuonaApplauso() { suonaFisso("\\suoni\\applauso.wav"); }

std::int32_t ColoreCasuale()
{
    // Blue, green, red; the repeats weigh the draw.
    const std::int32_t tabella[18] = {
        0xC0C0FF, 0x8080FF, 0x0080FF, 0x80C0FF, 0x0080FF, 0xC0FFFF, 0x8080FF, 0x0040C0, 0x80FF80,
        0x0040C0, 0xFFFFC0, 0xFFFF00, 0xFFC0C0, 0xFFC0FF, 0xFFC0FF, 0xE0E0E0, 0xFFC0FF, 0xFF00FF,
    };
    return tabella[int(Casuale() * 18)];
}
