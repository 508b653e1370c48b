#pragma once

#include <QString>

#include <cstdint>
#include <functional>

// The program's sounds and its cheerful random backgrounds.

// Plays a wave file on the game's one channel: a new sound cuts off the one
// that plays; an empty, missing or unreadable file is silence, not a failure.
// The tiles' sounds use it, whatever the Suoni setting says.
void SuonaFile(const QString &percorso);

// The three fixed sounds beside the program; silent when Suoni is off.
void SuonaSi();
void SuonaNo();
void SuonaApplauso();

// A colour from the table of eighteen, drawn from the game's generator.
std::int32_t ColoreCasuale();

// The channel sounds go through. Tests put their own in place to see requests.
class CanaleSuoni
{
public:
    virtual ~CanaleSuoni() = default;
    virtual void suona(const QString &percorsoLocale) = 0;
};
void ImpostaCanaleSuoni(CanaleSuoni *canale); // nullptr goes back to the real player

// The file the real player holds now, empty when silent; for tests.
QString SorgenteSuonoInCorso();

// Whether the fixed sounds play: the profile's Suoni field, read through this
// so that the platform does not depend on the profile.
void ImpostaLetturaSuoni(std::function<bool()> suoniAttivi);
