#include "capture/CaptureCoordinator.h"
#include "capture/SourceAppResolver.h"
#include "tests/support/FakeCaptureServices.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace Kovrel {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::ElementsAreArray;
using Log = Testing::FakeCaptureServices::Log;
using Kind = CaptureOutcome::Kind;

namespace {

const char* name(Kind kind)
{
    switch (kind) {
    case Kind::finished:
        return "finished";
    case Kind::cancelled:
        return "cancelled";
    case Kind::ignored:
        return "ignored";
    case Kind::overwritten:
        return "overwritten";
    case Kind::refused:
        return "refused";
    case Kind::misused:
        return "misused";
    case Kind::failed:
        return "failed";
    }
    return "";
}

struct CoordinatorTest : testing::Test {
    Testing::FakeCaptureServices fake;
    std::vector<std::string> outcomes;
    CaptureOutcome lastOutcome;
    std::optional<CaptureCoordinator> coordinator{std::in_place, fake.services()};

    void capture(CaptureMode mode, CaptureOptions options = {}, quint64 id = 0)
    {
        const std::string label = rawString(mode).toStdString();
        coordinator->capture({.mode = mode,
                              .options = options,
                              .reply = CaptureReply([this, label](CaptureOutcome outcome) {
                                  outcomes.push_back(label + " " + name(outcome.kind));
                                  lastOutcome = outcome;
                              }),
                              .id = id});
    }

    void captureAndSettle(CaptureMode mode, CaptureOptions options = {})
    {
        capture(mode, options);
        fake.loop.runPosted();
    }

    void selectArea(QRect rootPixels)
    {
        fake.endSelection(SelectedArea{rootPixels});
        fake.loop.runPosted();
    }

    // The countdown's seconds, one by one.
    void seconds(int count)
    {
        for (int i = 0; i < count; ++i)
            fake.loop.advance(1s);
    }
};

const Log request{"history: suspend", "effects: prewarm"};
const Log hide{"cards: hide", "history window: hide", "toasts: hide"};
const Log show{"cards: show", "history window: show", "toasts: show"};

Log operator+(Log left, const Log& right)
{
    left.insert(left.end(), right.begin(), right.end());
    return left;
}

TextReader::Reading readingOf(const QString& text, const QStringList& payloads, const QString& failure = {})
{
    TextReader::Reading reading{.text = {.fullText = text}, .failure = failure};
    for (const QString& payload : payloads)
        reading.codes.push_back({payload, {}});
    return reading;
}

} // namespace

TEST_F(CoordinatorTest, EachFlowDoesItsStepsInOrder)
{
    fake.desktop.windows().windows = std::vector{
        WindowInfo{.id = 7, .app = {"Editor", "org.editor"}, .pixelRect = {0, 0, 3000, 3000}, .isOnScreen = true}};
    captureAndSettle(CaptureMode::fullScreen);
    EXPECT_THAT(fake.takeLog(),
                ElementsAreArray(
                    request + hide +
                    Log{"wait for repaint", "cards: prepare on 1", "grab 800,200 1000x500 with pointer", "shutter"} +
                    show + Log{"record fullScreen", "card fullScreen", "history: idle index"}));

    captureAndSettle(CaptureMode::area);
    EXPECT_THAT(fake.takeLog(),
                ElementsAreArray(request + Log{"overlay: area"} + hide + Log{"wait for repaint", "overlay: freeze"}));
    selectArea({810, 210, 50, 40});
    EXPECT_THAT(fake.takeLog(), ElementsAreArray(Log{"cut 810,210 50x40", "shutter", "cards: prepare on 1"} + show +
                                                 Log{"record area", "card area", "history: idle index"}));
    EXPECT_EQ(fake.recorded.back().sourceApp, (SourceApp{"Editor", "org.editor"}));

    captureAndSettle(CaptureMode::lastArea);
    EXPECT_THAT(fake.takeLog(),
                ElementsAreArray(request + hide +
                                 Log{"wait for repaint", "grab 810,210 50x40", "shutter", "cards: prepare on 1"} +
                                 show + Log{"record lastArea", "card lastArea", "history: idle index"}));

    captureAndSettle(CaptureMode::window);
    EXPECT_THAT(fake.takeLog(), ElementsAreArray(request + Log{"overlay: window"} + hide +
                                                 Log{"wait for repaint", "overlay: freeze", "wallpaper of 1 at 1000"}));
    fake.endSelection(SelectedWindows{{WindowInfo{.id = 7}}});
    fake.loop.runPosted();
    EXPECT_THAT(fake.takeLog(), ElementsAreArray(Log{"grab window 7", "shutter", "cards: prepare on 1"} + show +
                                                 Log{"compose wallpaper with picture", "record window", "card window",
                                                     "history: idle index"}));
    EXPECT_EQ(fake.recorded.back().subject, (CaptureSubject{{48, 48, 30, 20}, 8}));
    EXPECT_EQ(fake.recorded.back().image.size(), QSize(126, 116));
    EXPECT_THAT(outcomes, ElementsAre("fullScreen finished", "area finished", "lastArea finished", "window finished"));
}

TEST_F(CoordinatorTest, ADesktopPictureThatNoWindowTookIsFetchedAnew)
{
    for (int attempt = 0; attempt < 2; ++attempt) {
        captureAndSettle(CaptureMode::window);
        EXPECT_TRUE(fake.logged("wallpaper of 1 at 1000"));
        fake.endSelection(SelectionCancelled{});
        fake.loop.runPosted();
        fake.takeLog();
    }
}

TEST_F(CoordinatorTest, TimedCountsDownThenTakesTheScreenItBeganOn)
{
    fake.preferences.set(Settings::selfTimerSeconds, 2);
    captureAndSettle(CaptureMode::timed);
    EXPECT_THAT(fake.takeLog(), ElementsAreArray(request + Log{"cards: hide", "history window: hide", "grab Escape",
                                                               "toast on 1: Capturing in 2\u2026"}));
    fake.desktop.pointer().place->displayID = 2;
    seconds(1);
    EXPECT_THAT(fake.takeLog(), ElementsAre("toast: Capturing in 1\u2026"));
    seconds(1);
    EXPECT_THAT(fake.takeLog(),
                ElementsAreArray(Log{"release Escape", "toast: fade", "toasts: hide", "wait for repaint",
                                     "cards: prepare on 2", "grab 800,200 1000x500 with pointer", "shutter"} +
                                 show + Log{"record timed", "card timed", "history: idle index"}));
    EXPECT_THAT(outcomes, ElementsAre("timed finished"));
}

TEST_F(CoordinatorTest, ACountWhoseToastWasClosedGoesOnWithoutIt)
{
    fake.preferences.set(Settings::selfTimerSeconds, 2);
    captureAndSettle(CaptureMode::timed);
    fake.lastToast.onClose();
    fake.takeLog();
    seconds(1);
    EXPECT_THAT(fake.takeLog(), ElementsAre());
    seconds(1);
    EXPECT_THAT(outcomes, ElementsAre("timed finished"));
}

TEST_F(CoordinatorTest, SelfTimerBelowOneCountsFromFive)
{
    fake.preferences.set(Settings::selfTimerSeconds, 0);
    captureAndSettle(CaptureMode::timed);
    EXPECT_TRUE(fake.logged("toast on 1: Capturing in 5\u2026"));
    seconds(4);
    EXPECT_TRUE(outcomes.empty());
    seconds(1);
    EXPECT_THAT(outcomes, ElementsAre("timed finished"));
}

TEST_F(CoordinatorTest, CountdownIsCancelledByEscapeAndByCommand)
{
    for (const bool byEscape : {true, false}) {
        outcomes.clear();
        captureAndSettle(CaptureMode::timed);
        seconds(1);
        EXPECT_TRUE(coordinator->isCountingDown());
        fake.takeLog();
        if (byEscape)
            fake.desktop.keys().press("Escape");
        else
            coordinator->cancelCountdown();
        fake.loop.runPosted();
        EXPECT_THAT(fake.takeLog(), ElementsAreArray(Log{"release Escape", "toast: fade"} + show +
                                                     Log{"cards: settle", "history: idle index"}));
        EXPECT_THAT(outcomes, ElementsAre("timed cancelled"));
        EXPECT_FALSE(coordinator->isCountingDown());
    }
    // The second that was cut short does not reach into the next countdown.
    captureAndSettle(CaptureMode::timed);
    fake.loop.advance(900ms);
    coordinator->cancelCountdown();
    fake.loop.runPosted();
    captureAndSettle(CaptureMode::timed);
    fake.takeLog();
    fake.loop.advance(200ms);
    EXPECT_TRUE(fake.takeLog().empty());
    EXPECT_TRUE(coordinator->isCountingDown());
}

TEST_F(CoordinatorTest, TextCaptureHasNeitherCardNorShutter)
{
    struct Case {
        TextReader::Reading reading;
        Log end;
    };

    const Case cases[] = {
        {readingOf("Hello\nworld", {}),
         {"history: text Hello\nworld", "copy text Hello\nworld", "toast: Hello world", "history: idle index"}},
        {readingOf("Hello", {"https://a.example"}),
         {"history: text Hello\nhttps://a.example", "copy text Hello\nhttps://a.example",
          "toast: Text and QR code copied", "history: idle index"}},
        {readingOf("", {"a", "b"}),
         {"history: text a\nb", "copy text a\nb", "toast: 2 QR codes copied / a  (+1 more)", "history: idle index"}},
        {readingOf("", {}), {"toast: No text found in the capture", "history: idle index"}},
        {readingOf("", {}, "no data"), {"toast: The text can't be read / no data", "history: idle index"}},
        {readingOf("", {"b"}, "no data"),
         {"history: text b", "copy text b", "toast: QR code copied / b", "history: idle index"}},
    };
    for (const Case& c : cases) {
        fake.reading = c.reading;
        captureAndSettle(CaptureMode::ocrRegion);
        fake.takeLog();
        selectArea({810, 210, 50, 40});
        EXPECT_THAT(fake.takeLog(),
                    ElementsAreArray(Log{"cut 810,210 50x40"} + show +
                                     Log{"toast on 1: Extracting text\u2026", "record ocrRegion", "read text"} +
                                     c.end));
    }
    EXPECT_TRUE(fake.cardsShown.empty());
    captureAndSettle(CaptureMode::ocrRegion);
    fake.takeLog();
    coordinator->cancelAim();
    EXPECT_THAT(fake.takeLog(), ElementsAreArray(Log{"overlay: cancel"} + show + Log{"history: idle index"}))
        << "cancelling a text capture settles no card";
}

TEST_F(CoordinatorTest, ATextThatNobodyWantsAnyMoreIsNotCopied)
{
    struct Case {
        const char* what;
        std::function<void()> leave;
        std::string outcome;
    };

    const Case cases[] = {
        {"its command ended", [this] { coordinator->cancel(21); }, "ocrRegion cancelled"},
        {"a newer one came",
         [this] {
             fake.holdsReading = false;
             capture(CaptureMode::ocrRegion, {.rect = Rect{0, 0, 50, 40}}, 22);
             fake.loop.runPosted();
         },
         "ocrRegion overwritten"},
    };
    for (const Case& c : cases) {
        fake.reading = readingOf("Hello", {});
        fake.holdsReading = true;
        capture(CaptureMode::ocrRegion, {.rect = Rect{0, 0, 50, 40}}, 21);
        fake.loop.runPosted();
        ASSERT_EQ(fake.heldReadings.size(), 1u) << c.what;
        const auto [stop, reply] = fake.heldReadings.front();
        fake.heldReadings.clear();
        coordinator->cancel(23);
        EXPECT_FALSE(stop.stop_requested()) << c.what;
        c.leave();
        EXPECT_TRUE(stop.stop_requested()) << c.what;
        fake.takeLog();
        outcomes.clear();
        reply(readingOf("Late", {}));
        fake.loop.runPosted();
        EXPECT_THAT(outcomes, ElementsAre(c.outcome)) << c.what;
        EXPECT_FALSE(fake.logged("copy text Late")) << c.what;
    }
}

TEST_F(CoordinatorTest, TheToastOfACodeOpensItsLink)
{
    struct Case {
        const char* payload;
        Log opened;
    };

    for (const Case& c : {Case{"HTTPS://a.example/x", {"open https://a.example/x"}},
                          Case{"http://b.example", {"open http://b.example"}}, Case{"ftp://c.example", {}},
                          Case{"just text", {}}, Case{"https://d.example and more", {}}}) {
        fake.reading = readingOf("", {c.payload});
        captureAndSettle(CaptureMode::ocrRegion);
        selectArea({810, 210, 50, 40});
        fake.takeLog();
        if (fake.lastToast.onTap)
            fake.lastToast.onTap();
        EXPECT_THAT(fake.takeLog(), ElementsAreArray(c.opened)) << c.payload;
    }
}

TEST_F(CoordinatorTest, RequestsWhileTheOverlayIsUp)
{
    struct Case {
        const char* what;
        CaptureMode first;
        std::optional<SelectionOverlay::Mode> switchedTo;
        CaptureMode second;
        bool isCommitting;
        Log log;
        std::vector<std::string> outcomes;
    };
    using enum CaptureMode;
    using Mode = SelectionOverlay::Mode;
    const Log reassert{"history: suspend", "overlay: reassert"};
    const Case cases[] = {
        {"same mode", area, {}, area, false, reassert, {"area ignored"}},
        {"text over text", ocrRegion, {}, ocrRegion, false, reassert, {"ocrRegion ignored"}},
        {"window over a switched overlay", area, Mode::windowPick, window, false, reassert, {"window ignored"}},
        {"area over a committing drag", area, {}, area, true, {"history: suspend"}, {}},
        {"window over area", area, {}, window, false, {}, {"area cancelled"}},
        {"area over a switched overlay", area, Mode::windowPick, area, false, {}, {"area cancelled"}},
        {"text over area", area, {}, ocrRegion, false, {}, {"area cancelled"}},
        {"area over text", ocrRegion, {}, area, false, {}, {"ocrRegion cancelled"}},
        {"full screen over area", area, {}, fullScreen, false, {}, {"area cancelled"}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        coordinator.emplace(fake.services());
        outcomes.clear();
        captureAndSettle(c.first);
        if (c.switchedTo)
            fake.modeObservers.notify(*c.switchedTo);
        fake.isCommitting = c.isCommitting;
        fake.takeLog();
        capture(c.second);
        if (!c.log.empty()) {
            EXPECT_THAT(fake.log, ElementsAreArray(c.log));
        } else {
            EXPECT_TRUE(fake.logged("overlay: cancel"));
            EXPECT_TRUE(fake.logged("effects: prewarm")) << "the second capture did not start";
        }
        EXPECT_EQ(outcomes, c.outcomes);
        fake.isCommitting = false;
    }
}

TEST_F(CoordinatorTest, RequestsBeforeTheOverlayIsUpOrAfterPixelsAreComing)
{
    // Counting down: nothing to switch, so the press is ignored.
    captureAndSettle(CaptureMode::timed);
    capture(CaptureMode::area);
    EXPECT_TRUE(fake.logged("cancel picker older than 700"));
    EXPECT_THAT(outcomes, ElementsAre("area ignored"));
    fake.pickerIsOld = true;
    capture(CaptureMode::window);
    EXPECT_EQ(outcomes.size(), 1u) << "a live picker that was ended makes room for the request";
    coordinator->cancelCountdown();
    fake.loop.runPosted();
    EXPECT_TRUE(fake.logged("overlay: window"));
}

TEST_F(CoordinatorTest, ThreePressesWhilePixelsAreTakenLeaveTheLast)
{
    fake.holdsPixels = true;
    captureAndSettle(CaptureMode::fullScreen);
    for (const CaptureMode mode : {CaptureMode::area, CaptureMode::window, CaptureMode::lastArea})
        capture(mode);
    EXPECT_THAT(outcomes, ElementsAre("area overwritten", "window overwritten"));
    fake.takeLog();
    fake.releasePixels();
    EXPECT_TRUE(fake.logged("overlay: area")) << "the last area without one is an area";
    EXPECT_THAT(outcomes, ElementsAre("area overwritten", "window overwritten", "fullScreen finished"));
}

TEST_F(CoordinatorTest, ScriptsThatSelectNothingWaitInLine)
{
    const auto script = [this](CaptureMode mode, CaptureOptions options = {}, quint64 id = 7) {
        coordinator->capture(
            {.mode = mode,
             .options = options,
             .reply = CaptureReply([this](const CaptureOutcome& outcome) { outcomes.push_back(name(outcome.kind)); }),
             .id = id,
             .isScripted = true});
    };
    fake.holdsPixels = true;
    captureAndSettle(CaptureMode::fullScreen);
    script(CaptureMode::area, {.rect = Rect{0, 0, 10, 10}});
    script(CaptureMode::lastArea);
    script(CaptureMode::fullScreen, {}, 8);
    coordinator->cancel(8);
    for (size_t waiting = 2; waiting < CaptureQueue::longestLine; ++waiting)
        script(CaptureMode::fullScreen);
    EXPECT_THAT(outcomes, ElementsAre("cancelled"));
    script(CaptureMode::fullScreen);
    EXPECT_THAT(outcomes, ElementsAre("cancelled", "failed")) << "the line is as long as it may be";
    outcomes.clear();
    fake.holdsPixels = false;
    fake.releasePixels();
    fake.loop.runPosted();
    EXPECT_EQ(size_t(std::ranges::count(outcomes, "finished")), CaptureQueue::longestLine);
}

TEST_F(CoordinatorTest, ANewRunMayStartWhileTheOneBeforeFinishes)
{
    fake.preferences.set(Settings::afterCaptureActions, AfterCaptureActions::fromInt(5));
    capture(CaptureMode::fullScreen, {.waitsForFiles = true});
    // The save is still in flight when the next capture begins and ends.
    const Subscription captures = coordinator->onCaptureFinished([this](const CaptureResult& result) {
        if (result.mode == CaptureMode::fullScreen)
            capture(CaptureMode::area);
    });
    fake.loop.runPosted();
    EXPECT_TRUE(fake.logged("overlay: area"));
    EXPECT_THAT(outcomes, ElementsAre("fullScreen finished"));
    EXPECT_FALSE(fake.logged("history: idle index")) << "the second run is still up";
    coordinator->cancelAim();
    EXPECT_TRUE(fake.logged("history: idle index"));
}

TEST_F(CoordinatorTest, FailedGrabsSettleAndFreeTheNextPress)
{
    const QString refused = fake.grabFailure.reason;

    struct Case {
        const char* what;
        CaptureMode mode;
        CaptureOptions options;
        std::optional<SelectionResult> selection;
        const char* outcome = "failed";
        QString message = {};
    };

    const Case cases[] = {
        {"full screen", CaptureMode::fullScreen, {}, {}, "failed", "The display could not be captured: " + refused},
        {"given area",
         CaptureMode::area,
         {.rect = Rect{1, 2, 30, 40}},
         {},
         "failed",
         "The area could not be captured: " + refused},
        {"area",
         CaptureMode::area,
         {},
         SelectedArea{{810, 210, 50, 40}},
         "failed",
         "The selected area could not be captured: " + refused},
        {"window that is refused",
         CaptureMode::window,
         {},
         SelectedWindows{{WindowInfo{.id = 7}}},
         "failed",
         "The window could not be captured: " + refused},
        {"window that was closed", CaptureMode::window, {}, SelectedWindows{{WindowInfo{.id = 7}}}, "cancelled"},
        {"no display", CaptureMode::fullScreen, {}, {}, "failed", "There is no display to capture"},
    };
    fake.grabSucceeds = fake.frozenGrabSucceeds = fake.windowGrabSucceeds = false;
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        if (c.what == std::string("window that was closed"))
            fake.grabFailure.cause = GrabFailure::windowGone;
        if (c.what == std::string("no display"))
            fake.desktop.displays().displays.clear();
        outcomes.clear();
        captureAndSettle(c.mode, c.options);
        if (c.selection) {
            fake.endSelection(*c.selection);
            fake.loop.runPosted();
        }
        const Log log = fake.takeLog();
        EXPECT_EQ(std::count(log.begin(), log.end(), "cards: settle"), 1);
        EXPECT_EQ(std::count(log.begin(), log.end(), "shutter"), 0);
        EXPECT_EQ(std::count(log.begin(), log.end(), "cards: show"), 1) << "hidden windows come back once";
        EXPECT_THAT(outcomes, ElementsAre(rawString(c.mode).toStdString() + " " + c.outcome));
        EXPECT_EQ(lastOutcome.message.isEmpty(), c.outcome == std::string("cancelled"));
        EXPECT_EQ(lastOutcome.message, c.message);
    }
}

TEST_F(CoordinatorTest, ALastAreaThatCannotBeTakenSaysWhy)
{
    captureAndSettle(CaptureMode::area, {.rect = Rect{1, 2, 30, 40}});
    fake.grabSucceeds = false;
    captureAndSettle(CaptureMode::lastArea);
    EXPECT_EQ(lastOutcome.message, "The last area could not be captured: " + fake.grabFailure.reason);
    fake.grabThrows = true;
    captureAndSettle(CaptureMode::lastArea);
    EXPECT_EQ(lastOutcome.message, "there is not enough memory");
    EXPECT_THAT(outcomes, ElementsAre("area finished", "lastArea failed", "lastArea failed"));
}

TEST_F(CoordinatorTest, ASelectionThatIsImpossibleFailsAndSaysWhy)
{
    for (const CaptureMode mode : {CaptureMode::area, CaptureMode::window, CaptureMode::ocrRegion}) {
        captureAndSettle(mode);
        fake.endSelection(SelectionCancelled{"the desktop does not give its pixels"});
        fake.loop.runPosted();
        EXPECT_EQ(lastOutcome.message, "Nothing could be selected: the desktop does not give its pixels");
    }
    EXPECT_THAT(outcomes, ElementsAre("area failed", "window failed", "ocrRegion failed"));
}

TEST_F(CoordinatorTest, WhatFollowsAnOverlayWaitsUntilTheScreenIsRepainted)
{
    fake.chromeIsVisible = false;
    captureAndSettle(CaptureMode::area);
    EXPECT_FALSE(fake.logged("wait for repaint")) << "nothing was taken off the screen";
    captureAndSettle(CaptureMode::window);
    EXPECT_TRUE(fake.logged("wait for repaint"));
}

TEST_F(CoordinatorTest, NothingIsTakenBeforeTheScreenIsRepainted)
{
    captureAndSettle(CaptureMode::area);
    selectArea({810, 210, 50, 40});
    fake.preferences.set(Settings::selfTimerSeconds, 1);
    auto& answers = fake.desktop.pixels().answers;
    const auto isTaken = [this] {
        const Log log = fake.takeLog();
        return std::ranges::any_of(log, [](const std::string& line) {
            return line == "overlay: freeze" || (line.starts_with("grab ") && line != "grab Escape");
        });
    };
    for (const CaptureMode mode :
         {CaptureMode::fullScreen, CaptureMode::lastArea, CaptureMode::timed, CaptureMode::area, CaptureMode::window}) {
        SCOPED_TRACE(rawString(mode).toStdString());
        fake.takeLog();
        answers.manner = Testing::FakeAnswers::Manner::late;
        captureAndSettle(mode);
        seconds(1);
        EXPECT_FALSE(isTaken()) << "cards may still be seen";
        answers.catchUp();
        answers.manner = Testing::FakeAnswers::Manner::soon;
        fake.loop.runPosted();
        EXPECT_TRUE(isTaken());
        if (mode == CaptureMode::area || mode == CaptureMode::window)
            fake.endSelection(SelectionCancelled{});
        fake.loop.runPosted();
    }
}

TEST_F(CoordinatorTest, LostFrozenPixelsAreGrabbedLive)
{
    fake.frozenGrabSucceeds = fake.windowGrabSucceeds = false;
    captureAndSettle(CaptureMode::area);
    selectArea({810, 210, 50, 40});
    EXPECT_TRUE(fake.logged("grab 810,210 50x40"));
    captureAndSettle(CaptureMode::window);
    fake.endSelection(SelectedWindows{{WindowInfo{.id = 7}}});
    fake.loop.runPosted();
    EXPECT_TRUE(fake.logged("engine window 7"));
    EXPECT_THAT(outcomes, ElementsAre("area finished", "window finished"));
}

TEST_F(CoordinatorTest, AccessIsCheckedBeforeAnythingStarts)
{
    struct Case {
        bool signedIn, permitted, onboarded;
        const char* shown;
    };

    for (const Case& c : {Case{false, true, false, "show sign-in"}, Case{false, true, true, "show home"},
                          Case{true, false, false, "show onboarding"}, Case{true, false, true, "show permission"}}) {
        fake.isSignedIn = c.signedIn;
        fake.mayRecord = c.permitted;
        fake.preferences.set(Settings::hasCompletedOnboarding, c.onboarded);
        captureAndSettle(CaptureMode::fullScreen);
        EXPECT_THAT(fake.takeLog(), ElementsAre("history: suspend", c.shown, "history: idle index"));
    }
    EXPECT_THAT(outcomes, testing::Each("fullScreen refused"));
    fake.isSignedIn = fake.mayRecord = true;
    captureAndSettle(CaptureMode::fullScreen);
    EXPECT_EQ(outcomes.back(), "fullScreen finished");
}

TEST_F(CoordinatorTest, GivenAreaIsMeasuredFromThePrimaryAndBecomesTheLast)
{
    struct Case {
        const char* what;
        Rect rect;
        std::string grab;
    };

    const Case cases[] = {
        {"on the primary display", {10, 20, 30, 40}, "grab 810,220 30x40"},
        {"on the 2x display left of and above it", {-790, -190, 100, 50}, "grab 20,20 200x100"},
    };
    for (const Case& c : cases) {
        captureAndSettle(CaptureMode::area, {.rect = c.rect});
        EXPECT_TRUE(fake.logged(c.grab)) << c.what;
        EXPECT_FALSE(fake.logged("overlay: area"));
        fake.takeLog();
        captureAndSettle(CaptureMode::lastArea);
        EXPECT_TRUE(fake.logged(c.grab)) << c.what << " again";
    }
    EXPECT_EQ(fake.recorded.back().pixelScale, 2.0);
    // The display moved: its area moves with it. It went: the same place on the display under the pointer.
    fake.desktop.displays().displays[1].pixelRect.translate(0, 100);
    captureAndSettle(CaptureMode::lastArea);
    EXPECT_TRUE(fake.logged("grab 20,120 200x100"));
    fake.desktop.displays().displays.pop_back();
    captureAndSettle(CaptureMode::lastArea);
    EXPECT_TRUE(fake.logged("grab 820,220 200x100"));
}

TEST_F(CoordinatorTest, WhatHappensAfterwardsFollowsTheSettings)
{
    struct Case {
        const char* what;
        int actions;
        CaptureOptions options;
        bool canPresent, records;
        Log log;
    };

    const Case cases[] = {
        {"card", 1, {}, true, false, {"card fullScreen"}},
        {"everything",
         31,
         {},
         true,
         true,
         {"save", "copy", "record fullScreen", "card fullScreen", "cards: attach save", "editor", "pin"}},
        {"asked for on the command line",
         1,
         {.save = true, .copy = true},
         true,
         true,
         {"save", "copy", "record fullScreen", "card fullScreen", "cards: attach save"}},
        {"to a file",
         0,
         {.outputPath = "/o.png"},
         true,
         true,
         {"save to /o.png", "record fullScreen", "cards: settle"}},
        {"nothing would hold it", 0, {}, true, false, {"save", "cards: settle"}},
        {"no cards on this desktop, no history", 1, {}, false, false, {"save", "cards: settle"}},
        {"only copied", 2, {}, false, false, {"copy", "cards: settle"}},
        {"only pinned", 16, {}, false, false, {"cards: settle", "pin"}},
        {"nothing was asked for, the history holds it", 0, {}, true, true, {"record fullScreen", "cards: settle"}},
        {"what was asked for can't be done", 1, {}, false, true, {"save", "record fullScreen", "cards: settle"}},
    };
    fake.chromeIsVisible = false;
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        fake.preferences.set(Settings::afterCaptureActions, AfterCaptureActions::fromInt(c.actions));
        fake.cardsCanPresent = c.canPresent;
        fake.historyRecords = c.records;
        capture(CaptureMode::fullScreen, c.options);
        fake.loop.runPosted();
        Log log = fake.takeLog();
        EXPECT_EQ(std::count(log.begin(), log.end(), "wait for repaint"), 0) << "nothing of ours was on the screen";
        log.erase(log.begin(), std::find(log.begin(), log.end(), "toasts: show") + 1);
        std::erase(log, "history: idle index");
        std::erase_if(log, [](const std::string& line) { return line.starts_with("ledger"); });
        EXPECT_EQ(log, c.log);
    }
}

TEST_F(CoordinatorTest, WaitingRepliesComeWhenTheFilesAreOnDisk)
{
    capture(CaptureMode::fullScreen, {.save = true, .waitsForFiles = true});
    fake.loop.runPosted();
    EXPECT_EQ(lastOutcome.path, "/saved.png");
    EXPECT_EQ(lastOutcome.historyPath, "/history.png");
    EXPECT_EQ(lastOutcome.pixelSize, QSize(1000, 500));
    EXPECT_TRUE(fake.logged("ledger: /saved.png"));

    fake.saveError = "disk full";
    capture(CaptureMode::fullScreen, {.save = true, .waitsForFiles = true});
    fake.loop.runPosted();
    EXPECT_EQ(lastOutcome.kind, Kind::failed);
    EXPECT_EQ(lastOutcome.message, "disk full");
    EXPECT_TRUE(fake.logged("toast on 1: The capture could not be saved"));
}

TEST_F(CoordinatorTest, GivenAreasAreCutToTheDisplays)
{
    captureAndSettle(CaptureMode::area, {.rect = Rect{950, 450, 100, 100}});
    EXPECT_TRUE(fake.logged("grab 1750,650 50x50"));
    captureAndSettle(CaptureMode::area, {.rect = Rect{5000, 5000, 100, 100}});
    EXPECT_EQ(lastOutcome.kind, Kind::misused);
    captureAndSettle(CaptureMode::fullScreen);
    EXPECT_EQ(lastOutcome.kind, Kind::finished) << "the next one is free to go";
}

TEST_F(CoordinatorTest, ChromeStaysWhenTheUserWantsItInCaptures)
{
    fake.preferences.set(Settings::hideChromeFromRecordings, false);
    captureAndSettle(CaptureMode::fullScreen);
    EXPECT_FALSE(fake.logged("cards: hide"));
    EXPECT_FALSE(fake.logged("toasts: hide"));
    EXPECT_FALSE(fake.logged("history window: hide"));
    EXPECT_FALSE(fake.logged("wait for repaint"));
    fake.historyWindow.makesWay = true;
    captureAndSettle(CaptureMode::fullScreen);
    EXPECT_TRUE(fake.logged("history window: hide")) << "what is there for the capture steps aside all the same";
    EXPECT_TRUE(fake.logged("history window: show"));
    EXPECT_FALSE(fake.logged("cards: hide"));
    captureAndSettle(CaptureMode::fullScreen, {.waitsForRepaint = true});
    EXPECT_TRUE(fake.logged("wait for repaint")) << "a menu that was open must be gone";
    fake.preferences.set(Settings::selfTimerSeconds, 1);
    captureAndSettle(CaptureMode::timed);
    fake.takeLog();
    seconds(1);
    EXPECT_TRUE(fake.logged("toasts: hide")) << "the countdown is never in its own picture";
    EXPECT_TRUE(fake.logged("toasts: show"));
}

TEST_F(CoordinatorTest, CancellingARequestTakesItOutWhereverItIs)
{
    capture(CaptureMode::area, {}, 11);
    fake.loop.runPosted();
    fake.isCommitting = true;
    capture(CaptureMode::area, {}, 12);
    coordinator->cancel(12);
    EXPECT_THAT(outcomes, ElementsAre("area cancelled"));
    EXPECT_FALSE(fake.logged("overlay: cancel"));
    coordinator->cancel(11);
    EXPECT_THAT(outcomes, ElementsAre("area cancelled", "area cancelled"));
    capture(CaptureMode::timed, {}, 13);
    fake.loop.runPosted();
    coordinator->cancel(99);
    EXPECT_TRUE(coordinator->isCountingDown());
    coordinator->cancel(13);
    EXPECT_FALSE(coordinator->isCountingDown());

    // Also before there is anything to see of it.
    for (const CaptureMode mode : {CaptureMode::timed, CaptureMode::window}) {
        outcomes.clear();
        fake.takeLog();
        capture(mode, {}, 14);
        coordinator->cancel(14);
        fake.loop.runPosted();
        EXPECT_FALSE(coordinator->isCountingDown());
        EXPECT_THAT(outcomes, ElementsAre(rawString(mode).toStdString() + " cancelled"));
    }
}

TEST_F(CoordinatorTest, ClosedCapturesComeBackOnce)
{
    fake.lastClosed = QUuid::createUuid();
    const QUuid id = *fake.lastClosed;
    std::vector<bool> replies;
    coordinator->reopenClosed([&](bool came) { replies.push_back(came); });
    coordinator->presentFromHistory(id, [&](bool came) { replies.push_back(came); });
    fake.loop.runPosted();
    coordinator->reopenClosed([&](bool came) { replies.push_back(came); });
    EXPECT_THAT(replies, ElementsAre(false, true, false));
    ASSERT_EQ(fake.cardsShown.size(), 1u);
    EXPECT_EQ(fake.cardsShown[0].result.id, id);
}

TEST_F(CoordinatorTest, WindowsWaitForTheSelectionToEndBeforeComingForward)
{
    captureAndSettle(CaptureMode::area);
    coordinator->whenForegroundIsFree([this] { fake.say("came forward"); });
    EXPECT_FALSE(fake.logged("came forward"));
    coordinator->cancelAim();
    EXPECT_TRUE(fake.logged("came forward"));
    fake.takeLog();
    coordinator->whenForegroundIsFree([this] { fake.say("came forward"); });
    EXPECT_TRUE(fake.logged("came forward"));
}

TEST_F(CoordinatorTest, GoingAwayAnswersEverybodyAndTouchesNothingDead)
{
    for (const CaptureMode mode : {CaptureMode::area, CaptureMode::timed, CaptureMode::fullScreen}) {
        outcomes.clear();
        coordinator.emplace(fake.services());
        fake.holdsPixels = true;
        captureAndSettle(mode);
        if (mode == CaptureMode::fullScreen)
            capture(CaptureMode::area);
        coordinator.reset();
        EXPECT_THAT(outcomes, testing::Each(testing::EndsWith("cancelled")));
        EXPECT_FALSE(outcomes.empty());
        fake.releasePixels();
        fake.loop.advance(10s);
    }
}

TEST(SourceAppResolver, IsTheFrontmostProgramOverTheMiddle)
{
    const auto window = [](quint32 id, const char* app, QRect rect, WindowType type = WindowType::normal) {
        return WindowInfo{
            .id = id, .ownerPid = id, .app = {app, app}, .pixelRect = rect, .type = type, .isOnScreen = true};
    };
    const std::vector<WindowInfo> windows{
        window(1, "Kovrel", {0, 0, 100, 100}),   window(2, "panel", {0, 0, 100, 10}, WindowType::dock),
        window(3, "corner", {0, 0, 20, 20}),     window(4, "front", {40, 40, 20, 20}),
        window(5, "behind", {0, 0, 100, 100}),   window(6, "desktop", {0, 0, 500, 500}, WindowType::desktop),
        window(7, "beside", {200, 200, 60, 60}), window(8, "besides", {180, 200, 20, 100}),
    };
    const auto name = [&](QRect rect) {
        const auto app = SourceAppResolver::resolve(windows, rect, 1);
        return app ? app->name.toStdString() : "";
    };
    EXPECT_EQ(name({0, 0, 100, 100}), "front");
    EXPECT_EQ(name({0, 60, 10, 10}), "behind");
    EXPECT_EQ(name({180, 180, 100, 200}), "beside") << "nothing in the middle: the largest share";
    EXPECT_EQ(name({400, 400, 10, 10}), "");
}

} // namespace Kovrel
