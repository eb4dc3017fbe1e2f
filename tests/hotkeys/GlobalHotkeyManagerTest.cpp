#include "hotkeys/GlobalHotkeyManager.h"
#include "model/VirtualKeys.h"
#include "ports/CaptureTrace.h"
#include "tests/support/FakeMainLoop.h"
#include "tests/support/LogLines.h"
#include "tests/support/TempFolder.h"
#include "tests/support/desktop/FakeKeyGrabs.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace Kovrel {

using testing::ElementsAre;

namespace {

struct GlobalHotkeyManagerTest : testing::Test {
    Testing::LogLines log;
    Testing::TempFolder folder;
    Testing::FakeMainLoop loop;
    UserDefaults defaults{folder / "kovrel.conf"};
    Preferences preferences{defaults};
    CaptureTrace trace{loop, [] { return false; }};
    Testing::FakeKeyGrabs keys;
    bool signedIn = true;
    std::string notOffered;
    int syncs = 0;
    std::vector<HotkeyAction> performed;
    std::optional<GlobalHotkeyManager> hotkeys;

    void SetUp() override
    {
        Preferences::registerDefaults(defaults);
        hotkeys.emplace(keys, preferences, trace,
                        GlobalHotkeyManager::Handlers{
                            .isSignedIn = [this] { return signedIn; },
                            .isOffered = [this](const MenuEntry& entry) { return entry.action != notOffered; },
                            .syncOwnership = [this] { ++syncs; },
                            .perform = [this](const auto& entry) { performed.push_back(*entry.hotkey); }});
    }
};

const char* const refusal = "com.kovrel.hotkeys: Kovrel: failed to register hotkey (status 10)";

} // namespace

TEST_F(GlobalHotkeyManagerTest, EachCombinationPerformsItsCommandOnceUntilReleased)
{
    hotkeys->registerAll();
    const char* const inOrder[] = {"Super+Shift+4", "Super+Shift+3", "Super+Shift+5", "Super+Shift+6", "Super+Shift+8",
                                   "Super+Shift+2", "Ctrl+Alt+C",    "Ctrl+Alt+Z",    "Super+Shift+S"};
    for (const char* combo : inOrder) {
        EXPECT_TRUE(keys.press(combo)) << combo;
        keys.press(combo, true);
    }
    using enum HotkeyAction;
    EXPECT_THAT(performed, ElementsAre(area, fullScreen, window, lastArea, selfTimer, extractText, pickColor,
                                       reopenClosedCapture, history));
    EXPECT_EQ(syncs, 1);
    const int revision = hotkeys->revision();
    hotkeys->unregisterAll();
    EXPECT_EQ(keys.count(), 0u);
    hotkeys->handle(1);
    EXPECT_EQ(performed.size(), 9u) << "an old hotkey does nothing";
    hotkeys->registerAll();
    EXPECT_NE(hotkeys->revision(), revision);
}

TEST_F(GlobalHotkeyManagerTest, StoredNonsenseIsNoHotkeyAndNoError)
{
    for (const qint64 stored : {qint64(0), qint64(-5), qint64(1) << 48 | 21, qint64(1) << 62}) {
        defaults.set(Settings::hotkeyArea.name, stored);
        hotkeys->registerAll();
        EXPECT_EQ(keys.count(), 8u) << stored;
    }
    EXPECT_TRUE(Testing::LogLines::lines().isEmpty());
}

TEST_F(GlobalHotkeyManagerTest, OnlyWhatChangedIsRegisteredAgain)
{
    hotkeys->registerAll();
    keys.requests = 0;
    preferences.set(Settings::hotkeyArea, KeyCombo::fromText("Print"));
    EXPECT_EQ(keys.requests, 1);
    EXPECT_TRUE(keys.press("Print"));
    EXPECT_FALSE(keys.press("Super+Shift+4"));
    preferences.set(Settings::imageFormat, ImageFormat::tiff);
    keys.layoutChanged();
    EXPECT_EQ(keys.requests, 1);

    preferences.set(Settings::hotkeyHistory, KeyCombo::fromText("Print")); // is the area's
    performed.clear();
    keys.press("Print");
    preferences.set(Settings::hotkeyArea, {});
    keys.press("Print");
    EXPECT_THAT(performed, ElementsAre(HotkeyAction::area, HotkeyAction::history));

    hotkeys->unregisterAll();
    preferences.set(Settings::hotkeyArea, KeyCombo{VirtualKeys::digit4});
    EXPECT_EQ(keys.count(), 0u) << "nothing is to be registered";
}

TEST_F(GlobalHotkeyManagerTest, WhatIsRefusedIsLoggedAndTriedAgain)
{
    keys.ownedByOthers = {0x3000000 + 21};
    hotkeys->registerAll();
    EXPECT_EQ(Testing::LogLines::lines(), QStringList{refusal});
    EXPECT_TRUE(hotkeys->isRefused(HotkeyAction::area));
    EXPECT_FALSE(hotkeys->isRefused(HotkeyAction::window));
    EXPECT_EQ(keys.count(), 8u);
    keys.ownedByOthers.clear();
    keys.layoutChanged();
    EXPECT_TRUE(keys.press("Super+Shift+4"));
    EXPECT_FALSE(hotkeys->isRefused(HotkeyAction::area));
}

TEST_F(GlobalHotkeyManagerTest, KeysOfCommandsThatNothingRunsAreLeftToOthers)
{
    notOffered = "pick-color";
    hotkeys->registerAll();
    EXPECT_FALSE(keys.press("Ctrl+Alt+C"));
    EXPECT_EQ(keys.count(), 8u);
    EXPECT_FALSE(hotkeys->isRefused(HotkeyAction::pickColor)) << "it was not asked for";
}

TEST_F(GlobalHotkeyManagerTest, SignedOutTheKeysAreLeftToOthers)
{
    hotkeys->registerAll();
    signedIn = false;
    hotkeys->unregisterAll();
    hotkeys->registerAll();
    EXPECT_EQ(keys.count(), 0u);
    EXPECT_EQ(syncs, 2) << "the desktop gets its shortcuts back";
}

TEST_F(GlobalHotkeyManagerTest, ARefusalNamesTheCommandThatHasTheKeys)
{
    int passes = 0;
    const Subscription passing = hotkeys->onPass([&] { ++passes; });
    keys.ownedByOthers = {preferences.get(Settings::hotkeyHistory)->stored()};
    hotkeys->registerAll();
    preferences.set(Settings::hotkeyLastArea, preferences.get(Settings::hotkeyArea));
    EXPECT_EQ(passes, 2);
    EXPECT_EQ(hotkeys->rival(HotkeyAction::lastArea), HotkeyAction::area);
    EXPECT_TRUE(hotkeys->isRefused(HotkeyAction::history));
    EXPECT_EQ(hotkeys->rival(HotkeyAction::history), std::nullopt) << "another program's";
    preferences.set(Settings::hotkeyArea, std::nullopt);
    EXPECT_FALSE(hotkeys->isRefused(HotkeyAction::lastArea));
}

} // namespace Kovrel
