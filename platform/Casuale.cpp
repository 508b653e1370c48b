#include "platform/Casuale.h"

#include <chrono>
#include <cmath>
#include <random>

namespace {
std::mt19937_64 &generatore()
{
    static std::mt19937_64 g(20050319u);
    return g;
}
} // namespace

void SeminaCasuale(std::uint64_t seme) { generatore().seed(seme); }

void SeminaCasualeDallOrologio()
{
    SeminaCasuale(std::uint64_t(std::chrono::steady_clock::now().time_since_epoch().count())
                  ^ std::uint64_t(std::chrono::system_clock::now().time_since_epoch().count()));
}

double Casuale()
{
    // 53 random bits make every double in [0, 1) equally spaced and never 1.
    return double(generatore()() >> 11) * 0x1.0p-53;
}

int IndiceCasuale(int limite) { return int(std::floor(Casuale() * limite)); }
