#pragma once

#include <cstdint>

// The game's one random generator, seeded once at start.
void SeminaCasuale(std::uint64_t seme);
void SeminaCasualeDallOrologio();
double Casuale();                  // uniform in [0, 1)
int IndiceCasuale(int limite);     // floor(Casuale() * limite)
