#pragma once

// Durations the game uses in more than one place, in seconds or milliseconds.
namespace Durate {
inline constexpr int QuartoDiSecondoMs = 250;   // one step of automatic scanning per unit of speed
inline constexpr double BloccoPremio = 1.0;     // the reward's button stays disabled this long
inline constexpr double AnimazioneTrovata = 3.0; // a found pair of the open-tile game moves this long
} // namespace Durate
