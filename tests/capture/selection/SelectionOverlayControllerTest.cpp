#include "capture/selection/SelectionOverlayController.h"
#include "model/VirtualKeys.h"
#include "ports/CaptureTrace.h"
#include "preferences/Preferences.h"
#include "tests/support/FakeDesktop.h"
#include "tests/support/FakeMainLoop.h"
#include "tests/support/FakeWorkers.h"
#include "tests/support/MessageLog.h"
#include "tests/support/TempFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace Kovrel {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

using Mode = SelectionOverlay::Mode;
using Kind = OverlayPointer::Kind;
using Ground = OverlaySurfaces::Ground;

struct ControllerTest : testing::Test {
    Testing::FakeMainLoop loop;
    Testing::FakeWorkers workers;
    Testing::TempFolder folder;
    UserDefaults defaults{folder / "kovrel.conf"};
    Preferences preferences{defaults};
    CaptureTrace trace{loop, [] { return false; }};
    Testing::FakeDesktop desktop{loop};
    Testing::FakeDisplays& displays = desktop.displays();
    Testing::FakeWindows& windows = desktop.windows();
    Testing::FakeKeyGrabs& keys = desktop.keys();
    Testing::FakeScreenLock& lock = desktop.lock();
    Testing::FakeOverlaySurfaces& surfaces = desktop.overlay();
    std::unique_ptr<SelectionOverlayController> overlay;
    std::vector<std::string> results;
    QString failure;          // of the last one
    quint32 now = 0xfffffffe; // the clock wraps around soon

    ControllerTest()
    {
        Preferences::registerDefaults(defaults);
        displays.displays = {{.id = 1, .frame = {0, 0, 800, 600}, .pixelRect = {0, 0, 800, 600}, .isPrimary = true}};
        windows.windows =
            std::vector{WindowInfo{.id = 7, .ownerPid = 1, .pixelRect = {50, 50, 200, 200}, .isOnScreen = true}};
        desktop.pointer().place = PointerPosition{{100, 100}, {}, 1};
        surfaces.answers.manner = Testing::FakeAnswers::Manner::late;
        overlay = std::make_unique<SelectionOverlayController>(SelectionOverlayController::Platform{
            loop, preferences, trace, displays, desktop.pointer(), windows, keys, lock, surfaces});
    }

    void begin(Mode mode = Mode::areaDrag)
    {
        overlay->begin(mode, [this](const SelectionResult& result) {
            results.push_back(describe(result));
            const auto* const cancelled = std::get_if<SelectionCancelled>(&result);
            failure = cancelled ? cancelled->failure : QString();
        });
        overlay->applyFrozenImages();
    }

    static std::string describe(const SelectionResult& result)
    {
        if (const auto* area = std::get_if<SelectedArea>(&result))
            return QString("%1,%2 %3x%4")
                .arg(area->rootPixels.x())
                .arg(area->rootPixels.y())
                .arg(area->rootPixels.width())
                .arg(area->rootPixels.height())
                .toStdString();
        const auto* picked = std::get_if<SelectedWindows>(&result);
        return picked ? "window " + std::to_string(picked->windows.front().id) : "cancelled";
    }

    void opened(bool isPointerHeld = false)
    {
        surfaces.isPointerHeld = isPointerHeld;
        answer();
    }

    // What the surfaces were asked.
    void answer()
    {
        surfaces.answers.catchUp();
        loop.runPosted();
    }

    void open(Mode mode = Mode::areaDrag)
    {
        begin(mode);
        opened();
    }

    void act(Kind kind, QPoint at, Qt::MouseButton button = Qt::LeftButton)
    {
        surfaces.handlers.onPointer({kind, at, button, false, now++});
    }

    // As many at once as come before the loop runs.
    void type(const QString& key) { keys.press(key, false, now++); }
};

} // namespace

TEST_F(ControllerTest, TheGroundFollowsTheSettingAndFrozenImagesTheGround)
{
    open();
    EXPECT_EQ(surfaces.opening.ground, Ground::live);
    overlay->cancel();
    preferences.set(Settings::freezeScreenDuringSelection, true);
    begin();
    EXPECT_EQ(surfaces.opening.ground, Ground::frozen);
    opened();
    act(Kind::press, {10, 10});
    act(Kind::move, {60, 40});
    act(Kind::release, {60, 40});
    loop.runPosted();
    EXPECT_THAT(results, ElementsAre("cancelled", "10,10 50x30"));
    EXPECT_EQ(overlay->takeFrozenImages().size(), 1u);
    EXPECT_THAT(overlay->takeFrozenImages(), IsEmpty()) << "they are taken over";
    EXPECT_EQ(keys.count(), 0u);
}

TEST_F(ControllerTest, KeysAndPointerCountInTheOrderOfTheirTimes)
{
    preferences.set(Settings::freezeScreenDuringSelection, true);
    open();
    const quint32 start = now;
    surfaces.handlers.onPointer({Kind::press, {10, 10}, Qt::LeftButton, false, start});
    surfaces.handlers.onPointer({Kind::move, {60, 40}, Qt::NoButton, false, start + 1});
    surfaces.handlers.onPointer({Kind::move, {70, 60}, Qt::NoButton, false, start + 3});
    surfaces.handlers.onPointer({Kind::release, {70, 60}, Qt::LeftButton, false, start + 4});
    keys.press("Space", false, start + 2);
    loop.runPosted();
    EXPECT_THAT(results, ElementsAre("20,30 50x30")) << "moved, not resized";
}

TEST_F(ControllerTest, ReturnTakesWhatTheKeyboardSelectedOnceItIsBigEnough)
{
    open();
    type("Return");
    for (int i = 0; i < 4; ++i)
        type("Right");
    for (int i = 0; i < 3; ++i)
        type("Down");
    type("Return");
    loop.runPosted();
    EXPECT_THAT(results, IsEmpty());
    EXPECT_EQ(surfaces.pointer, QPoint(104, 103));
    type("Down");
    type("Enter");
    type("Return");
    loop.runPosted();
    EXPECT_THAT(results, ElementsAre("100,100 4x4"));
}

TEST_F(ControllerTest, HeldSpaceSwitchesTheModeOnce)
{
    std::vector<Mode> modes;
    begin();
    const Subscription modeChanges = overlay->onModeChange([&](Mode mode) { modes.push_back(mode); });
    opened();
    type("Space");
    for (int i = 0; i < 3; ++i)
        keys.press("Space", true, now++);
    loop.runPosted();
    EXPECT_THAT(modes, ElementsAre(Mode::windowPick));
    keys.release("Space", now++);
    type("Space");
    loop.runPosted();
    EXPECT_THAT(modes, ElementsAre(Mode::windowPick, Mode::areaDrag));
}

TEST_F(ControllerTest, AClickThatComesBeforeTheWindowsAreKnownWaitsForThem)
{
    windows.answers.manner = Testing::FakeAnswers::Manner::late;
    open(Mode::windowPick);
    act(Kind::press, {100, 100});
    act(Kind::release, {100, 100});
    act(Kind::move, {700, 500});
    loop.runPosted();
    EXPECT_THAT(results, IsEmpty());
    windows.answers.catchUp();
    loop.runPosted();
    EXPECT_THAT(results, ElementsAre("window 7"));
}

TEST_F(ControllerTest, APickFailsWhereTheDesktopDoesNotTellItsWindows)
{
    const auto pick = [this] {
        open(Mode::windowPick);
        act(Kind::press, {700, 500});
        act(Kind::release, {700, 500});
        loop.runPosted();
    };
    pick();
    EXPECT_EQ(failure, QString()) << "there is none";
    windows.windows.reset();
    pick();
    EXPECT_EQ(failure, "the desktop does not tell which windows there are");
    EXPECT_THAT(results, ElementsAre("cancelled", "cancelled"));
}

TEST_F(ControllerTest, WhatTakesItsGroundAwayCancelsItOnce)
{
    const std::pair<const char*, std::function<void()>> cases[] = {
        {"lock", [&] { lock.lock(); }},
        {"displays", [&] { displays.change(displays.displays); }},
        {"takeover", [&] { keys.takeOver(); }},
        {"covered", [&] { surfaces.handlers.onLost(); }},
        {"right button",
         [&] {
             act(Kind::press, {10, 10}, Qt::RightButton);
             loop.runPosted();
         }},
    };
    for (const auto& [what, act] : cases) {
        SCOPED_TRACE(what);
        results.clear();
        open();
        act();
        overlay->cancel();
        EXPECT_THAT(results, ElementsAre("cancelled"));
        EXPECT_EQ(failure, QString());
        EXPECT_EQ(keys.count(), 0u);
        EXPECT_THAT(overlay->takeFrozenImages(), IsEmpty());
    }
    results.clear();
    surfaces.isRefused = true;
    open();
    EXPECT_THAT(results, ElementsAre("cancelled")) << "refused surfaces";
    EXPECT_EQ(failure, "the desktop does not give its pixels");
}

TEST_F(ControllerTest, TheEscapeThatClosesAMenuIsNotTheSessions)
{
    begin();
    opened(true);
    EXPECT_EQ(keys.count(), 0u);
    answer();
    EXPECT_GT(keys.count(), 0u);
    EXPECT_THAT(results, IsEmpty());
    overlay->cancel();
    begin();
    opened(true);
    surfaces.letsPointerGo = false;
    answer();
    EXPECT_THAT(results, ElementsAre("cancelled", "cancelled")) << "somebody holds on to the pointer";
    EXPECT_EQ(failure, "another program holds the pointer");
}

TEST_F(ControllerTest, ARefusedKeyIsLoggedAndAnotherWorkspaceChangesNothing)
{
    Testing::MessageLog messages("com.kovrel.capture");
    keys.ownedByOthers.insert(KeyCombo{VirtualKeys::space}.stored());
    open();
    EXPECT_THAT(messages.warnings(), Contains(HasSubstr("Kovrel: selection failed to register key Space (status 10)")));
    surfaces.handlers.onDesktopSwitch();
    EXPECT_EQ(surfaces.raises, 1);
    EXPECT_EQ(surfaces.cursors, 1);
    type("Escape");
    loop.runPosted();
    EXPECT_THAT(results, ElementsAre("cancelled"));
}

TEST_F(ControllerTest, TheHintIsShownFiveTimes)
{
    for (int time = 1; time <= 7; ++time) {
        open();
        EXPECT_EQ(defaults.integer("selectionHintShownCount"), std::min(time, 5));
        overlay->expectSession();
        overlay->cancel();
    }
    EXPECT_EQ(surfaces.expected, 0) << "while one is open";
    overlay->expectSession();
    EXPECT_EQ(surfaces.expected, 1);
}

} // namespace Kovrel
