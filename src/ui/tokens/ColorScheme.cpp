#include "ui/tokens/ColorScheme.h"

#include "model/Contrast.h"

#include <QPalette>

namespace Kovrel {

namespace {

// Black on the light grey of an ordinary theme stays below it.
constexpr double highContrast = 20;

bool hasHighContrast(const QPalette& palette)
{
    const auto isHigh = [&](QPalette::ColorRole ground, QPalette::ColorRole text) {
        return contrast(palette.color(ground), palette.color(text)) >= highContrast;
    };
    return isHigh(QPalette::Window, QPalette::WindowText) && isHigh(QPalette::Button, QPalette::ButtonText);
}

} // namespace

ColorScheme ColorScheme::of(const QPalette& palette)
{
    const QByteArray wish = qgetenv("KOVREL_HIGH_CONTRAST");
    return {.isDark = palette.color(QPalette::Window).lightnessF() < 0.5,
            .isHighContrast = wish == "1" || (wish != "0" && hasHighContrast(palette))};
}

} // namespace Kovrel
