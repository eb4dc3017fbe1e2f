#include "ui/AppWindow.h"

#include "tests/support/TempFolder.h"

#include <QScreen>

#include <gtest/gtest.h>

namespace Kovrel {

namespace {

struct Window : AppWindow {
    explicit Window(Preferences& preferences) { rememberSize(preferences, Settings::editorWindowSize, {640, 480}); }
};

struct AppWindowTest : testing::Test {
    Testing::TempFolder folder;
    UserDefaults defaults{folder / "kovrel.conf"};
    Preferences preferences{defaults};
};

} // namespace

TEST_F(AppWindowTest, IsAsLargeAsItWas)
{
    {
        Window window(preferences);
        EXPECT_EQ(window.size(), QSize(640, 480));
        window.resize(500, 300);
        window.show();
        window.hide();
    }
    EXPECT_EQ(Window(preferences).size(), QSize(500, 300));
    {
        Window window(preferences);
        window.showMaximized();
        window.hide();
    }
    Window maximized(preferences);
    EXPECT_TRUE(maximized.isMaximized());
    EXPECT_EQ(preferences.get(Settings::editorWindowSize), "500x300 maximized") << "and so large when it is no more";
}

TEST_F(AppWindowTest, WhatMakesNoSenseIsAsIfItWereNotThere)
{
    const QSize all = Window(preferences).screen()->availableSize().shrunkBy({8, 40, 8, 8}); // its frame has room, too
    const std::pair<const char*, QSize> stored[] = {
        {"", {640, 480}}, {"0x10", {640, 480}}, {"-5x300", {640, 480}}, {"300x", {640, 480}}, {"99999x99999", all},
    };
    for (const auto& [text, expected] : stored) {
        preferences.set(Settings::editorWindowSize, text);
        EXPECT_EQ(Window(preferences).size(), expected) << text;
    }
}

} // namespace Kovrel
