#include "ui/tokens/Theme.h"

#include "model/Contrast.h"
#include "ui/tokens/OverlayTokens.h"

#include <QApplication>
#include <QPainter>
#include <QPalette>

#include <gtest/gtest.h>

namespace Kovrel {

namespace {

using Color = QColor Theme::*;

struct Pair {
    const char* what;
    Color text;
    Color ground;
};

constexpr Pair texts[] = {
    {"text on a window", &Theme::text, &Theme::window},
    {"text on a card", &Theme::text, &Theme::card},
    {"text under the pointer", &Theme::text, &Theme::hoverGround},
    {"text that is pressed", &Theme::text, &Theme::pressedGround},
    {"text of a warning", &Theme::text, &Theme::warningGround},
    {"text of a notice", &Theme::text, &Theme::accentGround},
    {"secondary text on a window", &Theme::secondaryText, &Theme::window},
    {"secondary text on a card", &Theme::secondaryText, &Theme::card},
    {"secondary text under the pointer", &Theme::secondaryText, &Theme::hoverGround},
    {"secondary text that is pressed", &Theme::secondaryText, &Theme::pressedGround},
    {"a link on a window", &Theme::accentText, &Theme::window},
    {"a link on a card", &Theme::accentText, &Theme::card},
    {"a symbol on its ground", &Theme::accentText, &Theme::accentGround},
    {"a primary button", &Theme::onAccent, &Theme::accent},
    {"a primary button under the pointer", &Theme::onAccent, &Theme::accentHovered},
    {"a primary button that is pressed", &Theme::onAccent, &Theme::accentPressed},
    {"a warning on a card", &Theme::warning, &Theme::card},
    {"a warning on its ground", &Theme::warning, &Theme::warningGround},
};

// Seen, not read.
constexpr Pair marks[] = {
    {"the focus on a window", &Theme::focusRing, &Theme::window},
    {"the focus on a card", &Theme::focusRing, &Theme::card},
    {"what can't be used now, on a window", &Theme::disabledText, &Theme::window},
    {"what can't be used now, on a card", &Theme::disabledText, &Theme::card},
    {"a primary button on a window", &Theme::accent, &Theme::window},
};

constexpr ColorScheme schemes[] = {{}, {.isDark = true}, {.isHighContrast = true}, {true, true}};

} // namespace

TEST(ThemeTest, EveryTextIsReadOnEachOfItsGrounds)
{
    for (const ColorScheme scheme : schemes) {
        const Theme& theme = Theme::of(scheme);
        for (const auto& [what, text, ground] : texts)
            EXPECT_GE(contrast(theme.*text, theme.*ground), scheme.isHighContrast ? 7 : 4.5)
                << what << ", dark " << scheme.isDark << ", high contrast " << scheme.isHighContrast;
        for (const auto& [what, mark, ground] : marks)
            EXPECT_GE(contrast(theme.*mark, theme.*ground), scheme.isHighContrast ? 4.5 : 3)
                << what << ", dark " << scheme.isDark << ", high contrast " << scheme.isHighContrast;
        EXPECT_EQ(theme.window.lightnessF() < 0.5, scheme.isDark);
    }
}

TEST(ThemeTest, TextsOverTheScreenAreReadWhateverIsShownThere)
{
    for (const QColor& below : {QColor(Qt::white), QColor(Qt::black), QColor(Qt::gray)}) {
        QImage pixel(1, 1, QImage::Format_RGB32);
        pixel.fill(below);
        QPainter(&pixel).fillRect(pixel.rect(), OverlayTokens::pill);
        EXPECT_GE(contrast(OverlayTokens::pillText, pixel.pixelColor(0, 0)), 4.5) << qPrintable(below.name());
    }
}

TEST(ThemeTest, FollowsThePaletteOfTheApplication)
{
    const QPalette before = QApplication::palette();
    const auto paletteOf = [](QColor text, QColor ground) {
        return QPalette(text, ground, ground, ground, ground, text, text, ground, ground);
    };
    const std::pair<QPalette, ColorScheme> cases[] = {
        {paletteOf(Qt::black, {0xEF, 0xEF, 0xEF}), {}},
        {paletteOf({0xFC, 0xFC, 0xFC}, {0x2A, 0x2E, 0x32}), {.isDark = true}},
        {paletteOf(Qt::black, Qt::white), {.isHighContrast = true}},
        {paletteOf(Qt::white, Qt::black), {.isDark = true, .isHighContrast = true}},
    };
    for (const auto& [palette, scheme] : cases) {
        EXPECT_EQ(ColorScheme::of(palette), scheme);
        QApplication::setPalette(palette);
        EXPECT_EQ(&Theme::current(), &Theme::of(scheme));
        EXPECT_EQ(ColorScheme::of(Theme::of(scheme).palette()), scheme) << "a palette of ours says the same";
    }
    qputenv("KOVREL_HIGH_CONTRAST", "1");
    EXPECT_TRUE(ColorScheme::of(cases[0].first).isHighContrast);
    qputenv("KOVREL_HIGH_CONTRAST", "0");
    EXPECT_FALSE(ColorScheme::of(cases[2].first).isHighContrast);
    qunsetenv("KOVREL_HIGH_CONTRAST");
    QApplication::setPalette(before);
}

} // namespace Kovrel
