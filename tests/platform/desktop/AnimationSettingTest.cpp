#include "platform/desktop/AnimationSetting.h"
#include "tests/support/TempFolder.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

namespace Kovrel {

namespace {

void write(const QString& path, const char* content)
{
    QDir().mkpath(path.section('/', 0, -2));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(content);
}

} // namespace

TEST(AnimationSettingTest, IsWhatTheRunningDesktopSays)
{
    struct Case {
        const char* desktop;
        const char* kde;
        const char* gtk;
        bool isOn;
    };

    const Case cases[] = {
        {"KDE", "", "", true},
        {"KDE", "[KDE]\nAnimationDurationFactor=0.5\n", "[Settings]\ngtk-enable-animations=false\n", true},
        {"KDE", "[KDE]\nAnimationDurationFactor=0\n", "", false},
        {"XFCE", "[KDE]\nAnimationDurationFactor=0\n", "", true},
        {"XFCE", "", "[Settings]\ngtk-enable-animations=0\n", false},
        {"X-Cinnamon", "", "[Settings]\ngtk-enable-animations=true\n", true},
    };
    const QByteArray configBefore = qgetenv("XDG_CONFIG_HOME");
    const QByteArray desktopBefore = qgetenv("XDG_CURRENT_DESKTOP");
    for (const Case& c : cases) {
        // Settings are read once for each file, so that each case has files of its own.
        const Testing::TempFolder folder;
        write(folder / "kdeglobals", c.kde);
        write(folder / "gtk-3.0/settings.ini", c.gtk);
        qputenv("XDG_CONFIG_HOME", QFile::encodeName(folder / ""));
        qputenv("XDG_CURRENT_DESKTOP", c.desktop);
        EXPECT_EQ(AnimationSetting::isOn(), c.isOn) << c.desktop << c.kde << c.gtk;
    }
    qputenv("XDG_CONFIG_HOME", configBefore);
    qputenv("XDG_CURRENT_DESKTOP", desktopBefore);
}

} // namespace Kovrel
