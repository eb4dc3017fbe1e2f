#include "picking/measure/MeasureController.h"
#include "preferences/Preferences.h"
#include "tests/support/FakeDesktop.h"
#include "tests/support/FakeMainLoop.h"
#include "tests/support/FakeWorkers.h"
#include "tests/support/TempFolder.h"

#include <QPainter>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace Kovrel {

using testing::ElementsAre;
using testing::IsEmpty;
using PointerKind = OverlayPointer::Kind;

namespace {

constexpr QRect button(40, 30, 128, 24);

struct MeasureControllerTest : testing::Test {
    Testing::FakeMainLoop loop;
    Testing::FakeWorkers workers;
    Testing::FakeDesktop desktop{loop};
    Testing::TempFolder folder;
    UserDefaults defaults{folder / "kovrel.conf"};
    Preferences preferences{defaults};
    Ports ports;
    std::unique_ptr<MeasureController> measuring;
    std::vector<std::string> answers;

    MeasureControllerTest()
    {
        Preferences::registerDefaults(defaults);
        desktop.displays().displays = {
            {.id = 1, .frame = {0, 0, 200, 150}, .pixelRect = {0, 0, 400, 300}, .scale = 2, .isPrimary = true}};
        QImage root(400, 300, QImage::Format_RGB32);
        root.fill(Qt::white);
        QPainter(&root).fillRect(button, Qt::darkGreen);
        desktop.pixels().root = root;
        measuring = std::make_unique<MeasureController>(MeasureController::Services{
            {{{loop, desktop.displays(), desktop.keys(), desktop.lock(), desktop.overlay()}, desktop.pointer()},
             workers,
             preferences},
            desktop.pixels(),
            ports});
    }

    void settle()
    {
        do
            loop.runPosted();
        while (workers.runAll() > 0);
    }

    void begin()
    {
        measuring->measure([this](const MeasureController::Outcome& reading) {
            answers.push_back(reading ? reading->toStdString() : "none " + reading.error().toStdString());
        });
        settle();
    }

    bool isShowing() { return desktop.overlay().handlers.onPointer != nullptr; }

    void point(PointerKind kind, QPoint at, Qt::MouseButton mouseButton = Qt::LeftButton)
    {
        if (isShowing())
            desktop.overlay().handlers.onPointer({.kind = kind, .rootPixel = at, .button = mouseButton});
        settle();
    }

    void press(const QString& key)
    {
        desktop.keys().press(key);
        settle();
    }
};

} // namespace

TEST_F(MeasureControllerTest, AClickOrReturnTakesTheReadingInTheUnitOfTheUser)
{
    begin();
    point(PointerKind::press, {100, 40});
    point(PointerKind::release, {100, 40});
    begin();
    point(PointerKind::move, {100, 40});
    press("U");
    EXPECT_EQ(preferences.get(Settings::measureUnit), MeasureUnit::points) << "it is kept";
    press("Return");
    begin();
    point(PointerKind::press, {36, 27});
    point(PointerKind::move, {100, 40});
    point(PointerKind::release, {172, 58});
    EXPECT_TRUE(isShowing()) << "a rectangle stays until it is taken";
    press("Enter");
    EXPECT_THAT(answers, ElementsAre("128 \u00d7 24", "64 \u00d7 12", "64 \u00d7 12"));
    EXPECT_FALSE(isShowing());
    EXPECT_EQ(desktop.keys().count(), 0u);
}

TEST_F(MeasureControllerTest, WhateverEndsItAnswersOnceAndNothing)
{
    const std::pair<const char*, std::function<void()>> ends[] = {
        {"Escape", [this] { press("Escape"); }},
        {"the right button", [this] { point(PointerKind::press, {5, 5}, Qt::RightButton); }},
        {"a capture", [this] { EXPECT_TRUE(measuring->abandon()); }},
        {"a change of displays", [this] { desktop.displays().change(desktop.displays().displays); }},
    };
    for (const auto& [what, end] : ends) {
        SCOPED_TRACE(what);
        answers.clear();
        begin();
        ASSERT_TRUE(isShowing());
        end();
        settle();
        EXPECT_THAT(answers, ElementsAre("none "));
        EXPECT_FALSE(isShowing());
        EXPECT_FALSE(measuring->abandon());
    }
    answers.clear();
    desktop.overlay().isRefused = true;
    begin();
    EXPECT_THAT(answers, ElementsAre("none the desktop does not give its pixels"));
}

TEST_F(MeasureControllerTest, NothingIsReadBeforeThePixelsAreThere)
{
    measuring->measure([this](const auto&) { answers.push_back("done"); });
    loop.runPosted();
    ASSERT_TRUE(isShowing());
    desktop.keys().press("Return");
    loop.runPosted();
    EXPECT_THAT(answers, IsEmpty());
    measuring.reset();
    settle(); // the pixels come late, and find nobody
    EXPECT_THAT(answers, IsEmpty());
}

TEST_F(MeasureControllerTest, TheHintIsSeenOnce)
{
    EXPECT_FALSE(preferences.get(Settings::measureHintSeen));
    begin();
    EXPECT_TRUE(preferences.get(Settings::measureHintSeen));
}

} // namespace Kovrel
