#pragma once

class QPalette;

namespace Kovrel {

// Which of the four sets of colours the desktop asks for.
struct ColorScheme {
    bool isDark = false;
    bool isHighContrast = false;

    // Dark where the ground of windows is; high contrast where ground and text are as far apart as themes for people
    // with weak eyes put them. KOVREL_HIGH_CONTRAST=1 asks for it on a desktop without such a theme, 0 refuses it.
    static ColorScheme of(const QPalette& palette);

    bool operator==(const ColorScheme&) const = default;
};

} // namespace Kovrel
