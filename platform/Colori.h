#pragma once

#include <QColor>
#include <QGuiApplication>
#include <QPalette>

#include <cstdint>

// Colours are kept as the game always kept them: plain numbers with red in the
// low byte, then green, then blue; the high bit marks a system colour.
namespace Colori {
inline constexpr double TestoFinestra = -2147483640.0; // &H80000008, the system's window text
inline constexpr std::int32_t Bianco = 0xFFFFFF;
inline constexpr std::int32_t Giallo = 0x00FFFF;
inline constexpr std::int32_t Rosso = 0x0000FF;
inline constexpr std::int32_t AzzurroPallido = 0xFFFFC0;
inline constexpr std::int32_t Nero = 0x000000;
} // namespace Colori

inline QColor ColoreDaNumero(double valore)
{
    const auto v = static_cast<std::uint32_t>(static_cast<std::int64_t>(valore));
    if (v & 0x80000000u) {
        // System colours: only the ones the game stores are worth telling apart.
        const QPalette p = QGuiApplication::palette();
        switch (v & 0xFF) {
        case 5: return p.color(QPalette::Window);
        case 8: return p.color(QPalette::WindowText);
        case 15: return p.color(QPalette::Button);
        case 18: return p.color(QPalette::ButtonText);
        default: return p.color(QPalette::WindowText);
        }
    }
    return QColor(int(v & 0xFF), int((v >> 8) & 0xFF), int((v >> 16) & 0xFF));
}

inline std::int32_t NumeroDaColore(const QColor &c)
{
    return std::int32_t(c.red() | (c.green() << 8) | (c.blue() << 16));
}
