#include "picking/ColorLoupeController.h"
#include "model/VirtualKeys.h"
#include "picking/ScreenColorPicker.h"
#include "tests/support/FakeDesktop.h"
#include "tests/support/FakeMainLoop.h"
#include "tests/support/MessageLog.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace Kovrel {

using testing::ElementsAre;
using testing::IsEmpty;
using Answers = std::vector<std::string>;
using PointerKind = OverlayPointer::Kind;

namespace {

constexpr QRect leftPixels(0, 0, 40, 30);
constexpr QRect rightPixels(40, 0, 40, 30);
constexpr QRgb red = 0xffff0000;
constexpr QRgb blue = 0xff0a0bab;

// A red display beside a blue one of twice the density.
struct ColorLoupeControllerTest : testing::Test {
    Testing::FakeMainLoop loop;
    Testing::FakeDesktop desktop{loop};
    Ports ports;
    std::unique_ptr<ColorLoupeController> loupe;
    Answers answers;

    ColorLoupeControllerTest()
    {
        desktop.displays().displays = {{.id = 1, .frame = {0, 0, 40, 30}, .pixelRect = leftPixels, .isPrimary = true},
                                       {.id = 2, .frame = {40, 15, 20, 15}, .pixelRect = rightPixels, .scale = 2}};
        QImage root(80, 30, QImage::Format_RGB32);
        root.fill(red);
        for (int y = 0; y < 30; ++y)
            std::fill_n(reinterpret_cast<QRgb*>(root.scanLine(y)) + 40, 40, blue);
        desktop.pixels().root = root;
        loupe = std::make_unique<ColorLoupeController>(ColorLoupeController::Services{
            {{loop, desktop.displays(), desktop.keys(), desktop.lock(), desktop.overlay()}, desktop.pointer()},
            desktop.pixels(),
            desktop.colorSampler(),
            ports});
    }

    void pick()
    {
        loupe->pick(
            [this](const PickedColor& hex) { answers.push_back((hex ? *hex : "none: " + hex.error()).toStdString()); });
    }

    void show()
    {
        pick();
        loop.runPosted();
        ASSERT_TRUE(isShowing());
    }

    bool isShowing() { return desktop.overlay().handlers.onPointer != nullptr; }

    void point(PointerKind kind, QPoint at, Qt::MouseButton button = Qt::LeftButton)
    {
        if (isShowing())
            desktop.overlay().handlers.onPointer({.kind = kind, .rootPixel = at, .button = button});
        loop.runPosted();
    }

    void click(QPoint at)
    {
        point(PointerKind::press, at);
        point(PointerKind::release, at);
    }

    void press(const QString& key)
    {
        desktop.keys().press(key);
        loop.runPosted();
    }
};

} // namespace

TEST_F(ColorLoupeControllerTest, AClickPicksThePixelUnderItOnEachDisplay)
{
    show();
    EXPECT_EQ(desktop.overlay().opening.ground, OverlaySurfaces::Ground::frozen);
    EXPECT_EQ(desktop.overlay().opening.shade.alpha(), 0) << "colours are seen as they are";
    click({39, 29});
    EXPECT_THAT(answers, ElementsAre("#FF0000"));
    EXPECT_FALSE(isShowing());
    EXPECT_EQ(desktop.keys().count(), 0u);
    show();
    click({40, 0});
    EXPECT_THAT(answers, ElementsAre("#FF0000", "#0A0BAB"));
    click({1, 1});
    EXPECT_EQ(answers.size(), 2u) << "nobody asked";
}

TEST_F(ColorLoupeControllerTest, TheKeyboardPointsAndPicks)
{
    desktop.pointer().place = PointerPosition{.rootPixel = {39, 10}, .displayID = 1};
    show();
    press("Right");
    EXPECT_EQ(desktop.overlay().pointer, QPoint(40, 10));
    point(PointerKind::move, desktop.overlay().pointer);
    press("C");
    press("Tab");
    press("Return");
    EXPECT_THAT(answers, ElementsAre("#0A0BAB"));
    EXPECT_EQ(loupe->notation(), ColorNotation::hsl);
    show();
    press("Enter");
    EXPECT_EQ(answers.back(), "#FF0000") << "where the pointer is, though it has not moved";
    EXPECT_EQ(loupe->notation(), ColorNotation::hex) << "each session begins anew";
}

TEST_F(ColorLoupeControllerTest, WhatIsNoClickOnAPixelPicksNothing)
{
    show();
    point(PointerKind::release, {5, 5});
    EXPECT_TRUE(isShowing()) << "the button was pressed elsewhere";
    loupe->pickAt({40, 30});
    loupe->pickAt({-1, 5});
    click({200, 200});
    EXPECT_TRUE(isShowing());
    EXPECT_THAT(answers, IsEmpty());
}

TEST_F(ColorLoupeControllerTest, WhateverEndsItAnswersOnceWithNoColour)
{
    const std::pair<const char*, std::function<void()>> ends[] = {
        {"Escape", [this] { desktop.keys().press("Escape"); }},
        {"the right button", [this] { point(PointerKind::press, {5, 5}, Qt::RightButton); }},
        {"a capture", [this] { EXPECT_TRUE(loupe->abandon()); }},
        {"a change of displays", [this] { desktop.displays().change(desktop.displays().displays); }},
        {"a screen lock", [this] { desktop.lock().lock(); }},
    };
    for (const auto& [what, end] : ends) {
        SCOPED_TRACE(what);
        answers.clear();
        show();
        end();
        loop.runPosted();
        EXPECT_THAT(answers, ElementsAre("none: "));
        EXPECT_FALSE(isShowing());
        click({5, 5});
        press("Escape");
        EXPECT_FALSE(loupe->abandon());
        EXPECT_THAT(answers, ElementsAre("none: "));
    }
}

TEST_F(ColorLoupeControllerTest, OfTwoPickingsTheLaterOneGetsTheColour)
{
    pick();
    pick();
    EXPECT_THAT(answers, ElementsAre("none: "));
    loop.runPosted();
    pick();
    loop.runPosted();
    click({5, 5});
    EXPECT_THAT(answers, ElementsAre("none: ", "none: ", "#FF0000"));
}

TEST_F(ColorLoupeControllerTest, EndsWhileTheScreenIsStillToBeFrozen)
{
    desktop.pixels().answers.manner = Testing::FakeAnswers::Manner::late;
    pick();
    EXPECT_FALSE(loupe->abandon()) << "nothing shows yet";
    desktop.pixels().answers.catchUp();
    loop.runPosted();
    EXPECT_THAT(answers, ElementsAre("none: "));
    EXPECT_FALSE(isShowing());
    pick();
    loupe.reset();
    desktop.pixels().answers.catchUp();
    loop.runPosted();
    EXPECT_FALSE(isShowing());
}

TEST_F(ColorLoupeControllerTest, TheDesktopsOwnSamplerAnswersWhereNothingCanBeFrozen)
{
    desktop.overlay().isRefused = true;
    for (const ColorSampler::Outcome& outcome :
         {ColorSampler::Outcome(QColor(1, 2, 3)), ColorSampler::Outcome(std::unexpected(QString())),
          ColorSampler::Outcome(std::unexpected(QString("there is no sampler")))}) {
        pick();
        loop.runPosted();
        ASSERT_TRUE(desktop.colorSampler().isAsked());
        EXPECT_EQ(desktop.keys().count(), 0u) << "the loupe is gone";
        desktop.colorSampler().answer(outcome);
    }
    EXPECT_THAT(answers, ElementsAre("#010203", "none: ", "none: there is no sampler"));
    pick();
    loop.runPosted();
    loupe->abandon();
    EXPECT_FALSE(desktop.colorSampler().isAsked());
    EXPECT_EQ(answers.back(), "none: ");
    loupe->fallBackToSystemSampler();
    EXPECT_FALSE(desktop.colorSampler().isAsked()) << "nobody waits for a colour";
}

TEST_F(ColorLoupeControllerTest, AnEscapeThatCannotBeHadIsLoggedAndTheRestWorks)
{
    const Testing::MessageLog log("com.kovrel.capture");
    desktop.keys().ownedByOthers = {KeyCombo{VirtualKeys::escape}.stored()};
    show();
    EXPECT_THAT(log.warnings(), ElementsAre("Kovrel: loupe failed to register Esc+any modifiers (status 10)"));
    click({5, 5});
    EXPECT_THAT(answers, ElementsAre("#FF0000"));
}

TEST(ScreenColorPicker, CopiesWhatTheLoupeShowedAndConfirmsItOrSaysWhyItCannot)
{
    ColorCompletion completion;
    Answers done;
    ScreenColorPicker picker({
        .pick = [&](ColorCompletion given) { completion = std::move(given); },
        .text = [](const QString& hex) { return "shown " + hex; },
        .copy = [&](const QString& text) { done.push_back("copy " + text.toStdString()); },
        .confirm =
            [&](const QString& text, const QString& hex) {
                done.push_back("confirm " + text.toStdString() + ", " + hex.toStdString());
            },
        .fail = [&](const QString& reason) { done.push_back("fail " + reason.toStdString()); },
    });
    picker.run();
    completion("#102030");
    EXPECT_THAT(done, ElementsAre("copy shown #102030", "confirm shown #102030, #102030"));
    picker.run();
    completion(std::unexpected(QString()));
    EXPECT_EQ(done.size(), 2u) << "the user wanted none";
    picker.run();
    completion(std::unexpected(QString("there is no sampler")));
    EXPECT_EQ(done.back(), "fail there is no sampler");
}

} // namespace Kovrel
