#include "platform/desktop/DesktopShortcuts.h"
#include "platform/desktop/GnomeShortcuts.h"
#include "platform/desktop/KdeShortcuts.h"

#include <gtest/gtest.h>

namespace Kovrel {

namespace {

std::string spoken(const ShortcutSwitches& desktop, const QString& accelerator)
{
    const auto combo = desktop.combo(accelerator);
    return combo ? combo->text().toStdString() : "none";
}

} // namespace

TEST(DesktopShortcuts, AcceleratorsOfGnomeAreReadInEverySpelling)
{
    const std::pair<const char*, const char*> cases[] = {
        {"<Super><Shift>4", "Super+Shift+4"},
        {"<Shift><Mod4>4", "Super+Shift+4"},
        {"<super><shft>4", "Super+Shift+4"},
        {"<Primary><Mod1>c", "Ctrl+Alt+C"},
        {"Print", "Print"},
        {"<Super><Shift>", "none"},
        {"<Hyper><Shift>4", "none"},
        {"<Super>XF86Tools", "none"},
        {"", "none"},
        {"disabled", "none"},
    };
    for (const auto& [accelerator, combo] : cases)
        EXPECT_EQ(spoken(GnomeShortcuts(), accelerator), combo) << accelerator;
}

TEST(DesktopShortcuts, AcceleratorsOfKdeAreNumbersOfQt)
{
    EXPECT_EQ(spoken(KdeShortcuts(), QString::number((Qt::META | Qt::SHIFT | Qt::Key_4).toCombined())),
              "Super+Shift+4");
    EXPECT_EQ(spoken(KdeShortcuts(), QString::number((Qt::CTRL | Qt::ALT | Qt::Key_C).toCombined())), "Ctrl+Alt+C");
    EXPECT_EQ(spoken(KdeShortcuts(), QString::number((Qt::META | Qt::Key_NumberSign).toCombined())), "Super+Shift+3");
    EXPECT_EQ(spoken(KdeShortcuts(), QString::number((Qt::META | Qt::Key_ParenRight).toCombined())), "Super+Shift+0");
    EXPECT_EQ(spoken(KdeShortcuts(), "0"), "none");
}

TEST(DesktopShortcuts, AreThoseOfTheDesktopThatRuns)
{
    for (const auto& [name, isKnown] : {std::pair("GNOME", true),
                                        {"ubuntu:GNOME", true},
                                        {"KDE", true},
                                        {"", false},
                                        {"XFCE", false},
                                        {"NotGNOME", false}}) {
        qputenv("XDG_CURRENT_DESKTOP", name);
        EXPECT_EQ(DesktopShortcuts::find() != nullptr, isKnown) << name;
    }
    qunsetenv("XDG_CURRENT_DESKTOP");
}

} // namespace Kovrel
