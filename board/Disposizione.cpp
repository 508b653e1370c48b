#include "board/Disposizione.h"

#include "platform/Errori.h"

#include <cmath>

qint16 Intero16(long long x)
{
    if (x < -32768 || x > 32767)
        ErroreFatale(QStringLiteral("Overflow nel calcolo della disposizione delle tessere (%1).").arg(x));
    return qint16(x);
}

qint16 Arrotonda16(double x)
{
    // nearbyint with the default rounding mode rounds half to even.
    return Intero16(static_cast<long long>(std::nearbyint(x)));
}

qint16 Disposizione::Top(int posto) const
{
    return Intero16(MargineAlto + (posto / NumeroColonne) * Intero16(LatoTessera + SpazioTessere));
}

qint16 Disposizione::Left(int posto) const
{
    return Intero16(MargineSinistro + (posto % NumeroColonne) * Intero16(LatoTessera + SpazioTessere));
}

qint16 ColonnePer(int n)
{
    switch (n) {
    case 4: return 2;
    case 6: return 3;
    case 8:
    case 12:
    case 16: return 4;
    case 18:
    case 24: return 6;
    default: return 0;
    }
}

qint16 ScendiScala(qint16 n, int numeroCoppie)
{
    while (n / 2 > numeroCoppie) {
        switch (n) {
        case 24: n = 18; break;
        case 18: n = 16; break;
        case 16: n = 12; break;
        case 12: n = 8; break;
        case 8: n = 6; break;
        case 6: n = 4; break;
        default: return n; // 4, or a count off the ladder: nothing lower
        }
    }
    return n;
}

namespace {
struct Regola {
    int tessere;
    int a;
    int b; // 0: no width bound
    enum { UnQuarto, UnTerzo, UnSesto, UnDecimo } alto;
    enum { ComeAlto, MetaAlto, QuartoAlto } spazio;
};

constexpr Regola regole[] = {
    {4, 3, 0, Regola::UnQuarto, Regola::ComeAlto},
    {6, 3, 4, Regola::UnQuarto, Regola::ComeAlto},
    {8, 3, 5, Regola::UnTerzo, Regola::MetaAlto},
    {12, 4, 5, Regola::UnSesto, Regola::ComeAlto},
    {16, 5, 5, Regola::UnDecimo, Regola::ComeAlto},
    {18, 4, 7, Regola::UnQuarto, Regola::QuartoAlto},
    {24, 5, 7, Regola::UnQuarto, Regola::QuartoAlto},
};
} // namespace

bool CalcolaDisposizione(int n, double W, double H, Disposizione *d)
{
    const Regola *r = nullptr;
    for (const Regola &x : regole)
        if (x.tessere == n)
            r = &x;
    if (!r)
        return false;
    const int colonne = ColonnePer(n);
    d->NumeroColonne = qint16(colonne);
    d->LatoTessera = Arrotonda16(H / r->a);
    // The test takes the floor, the assignment the rounded value.
    if (r->b != 0 && std::floor(W / r->b) < d->LatoTessera)
        d->LatoTessera = Arrotonda16(W / r->b);
    const double L = d->LatoTessera;
    switch (r->alto) {
    case Regola::UnQuarto: d->MargineAlto = Arrotonda16(L / 4); break;
    case Regola::UnTerzo: d->MargineAlto = Arrotonda16(L / 3); break;
    case Regola::UnSesto: d->MargineAlto = Arrotonda16(L / 6); break;
    case Regola::UnDecimo: d->MargineAlto = Arrotonda16(L / 10); break;
    }
    switch (r->spazio) {
    case Regola::ComeAlto: d->SpazioTessere = d->MargineAlto; break;
    case Regola::MetaAlto: d->SpazioTessere = Arrotonda16(d->MargineAlto / 2.0); break;
    case Regola::QuartoAlto: d->SpazioTessere = Arrotonda16(d->MargineAlto / 4.0); break;
    }
    const int riga = Intero16(Intero16(d->LatoTessera * colonne) + Intero16(d->SpazioTessere * (colonne - 1)));
    d->MargineSinistro = Arrotonda16((W - riga) / 2);
    return true;
}
