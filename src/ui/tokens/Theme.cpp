#include "ui/tokens/Theme.h"

#include <QGuiApplication>
#include <QPalette>

namespace Kovrel {

namespace {

constexpr QColor rgb(uint value, int alpha = 255)
{
    return {int(value >> 16 & 255), int(value >> 8 & 255), int(value & 255), alpha};
}

constexpr Theme light{
    .window = rgb(0xF3F4F7),
    .card = rgb(0xFFFFFF),
    .cardEdge = rgb(0x000000, 28),
    .text = rgb(0x1C1C1E),
    .secondaryText = rgb(0x5C5D66),
    .disabledText = rgb(0x84858E),
    .accent = rgb(0x2A63F5),
    .accentHovered = rgb(0x1F55E0),
    .accentPressed = rgb(0x1A47BF),
    .onAccent = rgb(0xFFFFFF),
    .accentText = rgb(0x2459E0),
    .accentGround = rgb(0xE3EBFF),
    .warning = rgb(0x8F5200),
    .warningGround = rgb(0xFFEFD6),
    .separator = rgb(0xDADCE3),
    .hoverGround = rgb(0xE4EAF9),
    .pressedGround = rgb(0xD5DFF8),
    .canvas = rgb(0xE3E4E8),
    .focusRing = rgb(0x2A63F5),
    .shadow = rgb(0x000000, 3),
};

constexpr Theme dark{
    .window = rgb(0x212227),
    .card = rgb(0x2C2D33),
    .cardEdge = rgb(0xFFFFFF, 32),
    .text = rgb(0xF5F5F7),
    .secondaryText = rgb(0xB0B1B9),
    .disabledText = rgb(0x7C7D86),
    .accent = rgb(0x2F67F6),
    .accentHovered = rgb(0x2459E4),
    .accentPressed = rgb(0x1D4BC4),
    .onAccent = rgb(0xFFFFFF),
    .accentText = rgb(0x8FB2FF),
    .accentGround = rgb(0x2E3B5F),
    .warning = rgb(0xFFC266),
    .warningGround = rgb(0x443520),
    .separator = rgb(0x3C3D45),
    .hoverGround = rgb(0x2E3447),
    .pressedGround = rgb(0x38425F),
    .canvas = rgb(0x17181B),
    .focusRing = rgb(0x7FA6FF),
    .shadow = rgb(0x000000, 5),
};

constexpr Theme lightHighContrast{
    .window = rgb(0xFFFFFF),
    .card = rgb(0xFFFFFF),
    .cardEdge = rgb(0x000000),
    .text = rgb(0x000000),
    .secondaryText = rgb(0x000000),
    .disabledText = rgb(0x5A5A5A),
    .accent = rgb(0x0033CC),
    .accentHovered = rgb(0x0028A3),
    .accentPressed = rgb(0x001D7A),
    .onAccent = rgb(0xFFFFFF),
    .accentText = rgb(0x0033CC),
    .accentGround = rgb(0xFFFFFF),
    .warning = rgb(0x6B3A00),
    .warningGround = rgb(0xFFFFFF),
    .separator = rgb(0x000000),
    .hoverGround = rgb(0xE0E8FF),
    .pressedGround = rgb(0xC2D2FF),
    .canvas = rgb(0xE3E4E8),
    .focusRing = rgb(0x000000),
    .shadow = rgb(0x000000, 3),
};

constexpr Theme darkHighContrast{
    .window = rgb(0x000000),
    .card = rgb(0x000000),
    .cardEdge = rgb(0xFFFFFF),
    .text = rgb(0xFFFFFF),
    .secondaryText = rgb(0xFFFFFF),
    .disabledText = rgb(0xB0B0B0),
    .accent = rgb(0x9CBCFF),
    .accentHovered = rgb(0xBCD2FF),
    .accentPressed = rgb(0xD6E3FF),
    .onAccent = rgb(0x000000),
    .accentText = rgb(0x9CBCFF),
    .accentGround = rgb(0x000000),
    .warning = rgb(0xFFD266),
    .warningGround = rgb(0x000000),
    .separator = rgb(0xFFFFFF),
    .hoverGround = rgb(0x12234D),
    .pressedGround = rgb(0x1B3370),
    .canvas = rgb(0x101114),
    .focusRing = rgb(0xFFFFFF),
    .shadow = rgb(0x000000, 5),
};

} // namespace

const Theme& Theme::of(ColorScheme scheme)
{
    if (scheme.isHighContrast)
        return scheme.isDark ? darkHighContrast : lightHighContrast;
    return scheme.isDark ? dark : light;
}

const Theme& Theme::current()
{
    return of(ColorScheme::of(QGuiApplication::palette()));
}

QPalette Theme::palette() const
{
    QPalette palette(text, card, separator, separator, separator, text, text, card, window);
    palette.setColor(QPalette::Highlight, accent);
    palette.setColor(QPalette::HighlightedText, onAccent);
    palette.setColor(QPalette::Link, accentText);
    palette.setColor(QPalette::PlaceholderText, secondaryText);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::PlaceholderText})
        palette.setColor(QPalette::Disabled, role, disabledText);
    return palette;
}

} // namespace Kovrel
