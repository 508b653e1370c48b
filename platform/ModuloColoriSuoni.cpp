#include "platform/ModuloColoriSuoni.h"

#include "platform/Casuale.h"
#include "platform/Percorsi.h"
#include "platform/audio/MotoreAudio.h"

namespace {

// The real channel: one voice of the game's mixer, so each new sound replaces
// the one in progress. With no sound card the engine simply stays silent.
class CanaleMotore final : public CanaleSuoni
{
public:
    void suona(const QString &percorsoLocale) override { audio::MotoreAudio::istanza().canale().suona(percorsoLocale); }
};

CanaleSuoni *canaleDiProva = nullptr;
// A function-local object, so that the profile can set it while statics start up.
std::function<bool()> &suoniAttivi()
{
    static std::function<bool()> f = [] { return true; };
    return f;
}

CanaleMotore &canaleReale()
{
    static CanaleMotore reale;
    return reale;
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

QString SorgenteSuonoInCorso() { return audio::MotoreAudio::istanza().canale().inCorso(); }

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
