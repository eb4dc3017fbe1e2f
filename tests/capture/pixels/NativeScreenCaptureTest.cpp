#include "capture/pixels/NativeScreenCapture.h"

#include "capture/pixels/CaptureEngine.h"
#include "platform/ImageCodec.h"
#include "tests/support/FakeDesktop.h"
#include "tests/support/FakeMainLoop.h"
#include "tests/support/FakeWorkers.h"
#include "tests/support/MessageLog.h"
#include "tests/support/Patterns.h"
#include "tests/support/PictureDifference.h"
#include "tests/support/TempFolder.h"

#include <QRegularExpression>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace Kovrel {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::HasSubstr;
using Testing::pattern;
using Lines = std::vector<std::string>;

namespace {

// The primary display and a scaled one left of and above it.
const DisplayList twoDisplays{
    {.id = 1,
     .name = "MAIN",
     .frame = {0, 0, 600, 400},
     .visibleFrame = {},
     .pixelRect = {400, 300, 600, 400},
     .scale = 1,
     .isPrimary = true},
    {.id = 2,
     .name = "LEFT",
     .frame = {-400, 300, 266, 400},
     .visibleFrame = {},
     .pixelRect = {0, 0, 399, 600},
     .scale = 1.5,
     .isPrimary = false},
};

struct NativeScreenCaptureTest : testing::Test {
    NativeScreenCaptureTest() { displays.displays = twoDisplays; }

    using Grab = NativeScreenCapture::Grab;

    // Keeps what a task gives in the end.
    template <class T>
    static QCoro::Task<> keep(QCoro::Task<T> task, std::shared_ptr<std::optional<T>> into)
    {
        auto value = co_await task;
        *into = std::move(value);
    }

    template <class T>
    auto start(QCoro::Task<T> task)
    {
        auto result = std::make_shared<std::optional<T>>();
        Scope::start(keep(std::move(task), result), "test");
        loop.runPosted();
        return result;
    }

    // What the tool that was started last leaves behind.
    void write(const QByteArray& bytes)
    {
        QFile file(tool.starts.back().arguments.last());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }

    void writeImage(QSize size) { write(ImageCodec::encode(pattern(size), ImageFormat::tiff, 1).value()); }

    void end(ToolExit exit = {})
    {
        tool.end(tool.lastPid(), exit);
        workers.runAll();
        loop.runPosted();
    }

    Testing::FakeMainLoop loop;
    Testing::FakeWorkers workers;
    Testing::FakeDesktop desktop{loop};
    Testing::FakeDisplays& displays = desktop.displays();
    Testing::FakeScreenPixels& screen = desktop.pixels();
    Testing::FakeWindows& windows = desktop.windows();
    Testing::FakeToolProcess& tool = desktop.tools();
    Testing::TempFolder folder;
    CaptureTrace trace{loop, [] { return true; }};
    Testing::MessageLog log{"com.kovrel.capture"};
    std::optional<NativeScreenCapture> capture{
        std::in_place, NativeScreenCapture::Services{loop, workers, trace, screen, windows, displays, tool},
        NativeScreenCapture::Tool{"/tools/shot", folder.path()}};
};

} // namespace

TEST_F(NativeScreenCaptureTest, RectanglesAreTurnedOverAtThePrimarysUpperEdge)
{
    EXPECT_EQ(capture->topLeftGlobalRect({10, 20, 30, 40}), (Rect{10, 340, 30, 40}));
    EXPECT_EQ(capture->topLeftGlobalRect({-400, 500, 100, 200}), (Rect{-400, -300, 100, 200})) << "above the primary";
    displays.displays.clear();
    EXPECT_EQ(capture->topLeftGlobalRect({10, 20, 30, 40}), (Rect{10, -20, 30, 40}));
}

TEST_F(NativeScreenCaptureTest, PixelsComeFromThisProcessWhereItCan)
{
    screen.root = pattern({1000, 700});
    windows.images[7] = pattern({20, 10});
    const auto rect = start(capture->displayRect({-400, -300, 100, 50}, true));
    ASSERT_TRUE(*rect && **rect);
    EXPECT_TRUE((**rect)->isInProcess);
    EXPECT_TRUE(Testing::identicalPicture((**rect)->image, pattern({150, 75})));
    EXPECT_THAT(screen.grabs, ElementsAre(std::pair(QRect(0, 0, 150, 75), ScreenPixels::PointerOption::drawn)));
    const auto window = start(capture->window(7));
    EXPECT_TRUE(Testing::identicalPicture((**window)->image, windows.images[7]));
    EXPECT_TRUE(tool.starts.empty());
    EXPECT_TRUE(log.lines().empty());
}

TEST_F(NativeScreenCaptureTest, TheToolIsGivenTheModesOptions)
{
    start(capture->displayRect({-10.4, 20.5, 300.6, 40}, false));
    end();
    loop.advance(12ms);
    start(capture->displayRect({0, 0, 600, 400}, true));
    loop.advance(12ms);
    end();
    start(capture->window(4294967295));
    loop.advance(12ms);
    end();
    const QStringList expected[] = {
        {"-x", "-R", "-10,20,301,40"}, {"-x", "-C", "-R", "0,0,600,400"}, {"-l", "4294967295", "-o", "-x"}};
    ASSERT_EQ(tool.starts.size(), 3u);
    for (size_t index = 0; index < 3; ++index) {
        const QStringList& arguments = tool.starts[index].arguments;
        const qsizetype count = expected[index].size();
        EXPECT_EQ(arguments.mid(0, count), expected[index]);
        EXPECT_EQ(arguments.mid(count, 2), (QStringList{"-t", "tiff"}));
        EXPECT_TRUE(arguments.last().contains(
            QRegularExpression("^" + folder.path() + "/kovrel-shot-[0-9a-f]{8}-[0-9a-f-]{27}\\.tiff$")));
    }
    EXPECT_EQ(tool.starts[0].program, "/tools/shot");
    EXPECT_EQ(tool.starts[0].variables.value("KOVREL_DISPLAY_SCALES"), "MAIN=1;LEFT=1.5");
}

TEST_F(NativeScreenCaptureTest, AToolRunIsTracedAndItsFileRemoved)
{
    const auto grab = start(capture->displayRect({0, 0, 30, 20}, false));
    writeImage({30, 20});
    end();
    ASSERT_TRUE(*grab && **grab);
    EXPECT_FALSE((**grab)->isInProcess);
    EXPECT_EQ((**grab)->image.size(), QSize(30, 20));
    EXPECT_EQ(log.traces(),
              (Lines{"idle-wait: clear", "t2 spawned pid 101", "t3 tool exited (ok true)", "t4 decoded 30x20"}));
    EXPECT_TRUE(log.warnings().empty());
    EXPECT_TRUE(folder.files().isEmpty());
    EXPECT_EQ(loop.pendingTimers(), 0u);
}

TEST_F(NativeScreenCaptureTest, PixelsAtAFractionalScaleAreCutOutOfWholePoints)
{
    const QRect wanted(3, 4, 101, 52);
    const auto grab = start(capture->pixels(wanted, false));
    EXPECT_EQ(tool.starts.back().arguments.mid(0, 3), (QStringList{"-x", "-R", "-398,-298,68,36"}));
    writeImage({102, 54}); // from pixel 3,3
    end();
    ASSERT_TRUE(*grab && **grab);
    EXPECT_TRUE(Testing::identicalPicture((**grab)->image, pattern({102, 54}).copy(0, 1, 101, 52)));
}

TEST_F(NativeScreenCaptureTest, EveryFailureGivesNoImageOneLineAndNoFile)
{
    struct Case {
        const char* line;
        std::function<void(NativeScreenCaptureTest&)> happening;
    };

    const Case cases[] = {
        {"can't be started", [](auto& t) { t.loop.advance(1s); }},
        {"wrote no image", [](auto& t) { t.end(); }},
        {"wrote no image",
         [](auto& t) {
             t.write("II*\0rubbish");
             t.end();
         }},
        {"crashed",
         [](auto& t) {
             t.write("half");
             t.end({.isCrash = true});
         }},
        {"exited with status 4", [](auto& t) { t.end({.status = 4}); }},
        {"was killed", [](auto& t) { t.loop.advance(10s); }},
    };
    size_t lines = 0;
    for (const Case& c : cases) {
        tool.failingStarts = lines == 0 ? 3 : 0;
        loop.advance(12ms);
        const auto grab = start(capture->displayRect({0, 0, 30, 20}, false));
        c.happening(*this);
        EXPECT_TRUE(*grab && !**grab) << c.line;
        ASSERT_EQ(log.warnings().size(), ++lines) << c.line;
        EXPECT_THAT(log.warnings().back(), HasSubstr(c.line));
        EXPECT_TRUE(folder.files().isEmpty());
        EXPECT_EQ(loop.pendingTimers(), 0u);
    }
    EXPECT_EQ(tool.kills.size(), 1u);
}

TEST_F(NativeScreenCaptureTest, AFailureSaysWhatThisProcessAndTheToolCouldNotDo)
{
    struct Case {
        GrabFailure cause;
        ToolExit exit;
        const char* reason;
    };

    const Case cases[] = {
        {GrabFailure::refused,
         {.status = 4, .message = "shot: the door is locked"},
         "the desktop does not give its pixels; the screenshot tool exited with status 4: shot: the door is locked"},
        {GrabFailure::noMemory, {.isCrash = true}, "there is not enough memory; the screenshot tool crashed"},
        {GrabFailure::windowGone,
         {.status = 4},
         "there is no such window on the screen; the screenshot tool exited with status 4"},
    };
    const auto isCase = [](const auto& grab, const Case& c) {
        ASSERT_TRUE(*grab && !**grab) << c.reason;
        EXPECT_EQ((**grab).error().cause, c.cause);
        EXPECT_EQ((**grab).error().reason, c.reason);
    };
    for (const Case& c : cases) {
        screen.root = windows.refusal = std::unexpected(c.cause);
        for (const auto& task : {std::function([&] { return capture->displayRect({0, 0, 30, 20}, false); }),
                                 std::function([&] { return capture->pixels({400, 300, 30, 20}, false); }),
                                 std::function([&] { return capture->window(7); })}) {
            loop.advance(12ms);
            const auto grab = start(task());
            end(c.exit);
            isCase(grab, c);
        }
    }
    loop.advance(12ms);
    const auto odd = start(capture->pixels({400, 300, 30, 20}, false));
    writeImage({3, 2});
    end();
    ASSERT_TRUE(*odd && !**odd);
    EXPECT_THAT((**odd).error().reason.toStdString(), HasSubstr("the screenshot tool took a picture of another size"));
}

TEST_F(NativeScreenCaptureTest, LaunchesThatFailAreTriedAgain)
{
    tool.failingStarts = 2;
    const auto grab = start(capture->displayRect({0, 0, 30, 20}, false));
    loop.advance(100ms);
    writeImage({30, 20});
    end();
    EXPECT_TRUE(*grab && **grab);
    EXPECT_EQ(log.traces(),
              (Lines{"idle-wait: clear", "!! spawn attempt 1 FAILED, retrying", "!! spawn attempt 2 FAILED, retrying",
                     "t2 spawned pid 101", "t3 tool exited (ok true)", "t4 decoded 30x20"}));
}

TEST_F(NativeScreenCaptureTest, ThePickerIsCancelledOnlyOnceItHasBeenUpForLongEnough)
{
    EXPECT_FALSE(capture->cancelInteractivePick(0ms)) << "none is up";
    const auto pick = start(capture->interactivePick());
    EXPECT_EQ(tool.starts.back().arguments.mid(0, 3), (QStringList{"-w", "-o", "-x"}));
    loop.advance(500ms);
    EXPECT_FALSE(capture->cancelInteractivePick(700ms));
    EXPECT_TRUE(tool.isRunning(101));
    loop.advance(200ms);
    EXPECT_TRUE(capture->cancelInteractivePick(700ms));
    EXPECT_FALSE(*pick);
    loop.runPosted();
    EXPECT_TRUE(*pick && !**pick);
    EXPECT_EQ(log.traces(), (Lines{"idle-wait: clear", "t2 spawned pid 101", "cancelling live picker pid 101",
                                   "t3 tool exited (ok false)", "picker cancelled \u2014 not retrying"}));
    EXPECT_TRUE(log.warnings().empty());
    EXPECT_FALSE(capture->cancelInteractivePick(0ms));
}

TEST_F(NativeScreenCaptureTest, AUserMayTakeTimeToPickAndMayCancel)
{
    const auto pick = start(capture->interactivePick());
    loop.advance(1h);
    EXPECT_TRUE(tool.isRunning(101));
    end({.status = 1});
    EXPECT_TRUE(*pick && !**pick);
    EXPECT_TRUE(log.warnings().empty());
}

TEST_F(NativeScreenCaptureTest, AKilledGrabIsNoCancelledPicker)
{
    start(capture->displayRect({0, 0, 30, 20}, false));
    loop.advance(1s);
    EXPECT_FALSE(capture->cancelInteractivePick(700ms)) << "only pickers are cancelled";
}

TEST_F(NativeScreenCaptureTest, ARunWaitsOutTheRestOfTwelveMillisecondsAfterTheLastExit)
{
    start(capture->displayRect({0, 0, 30, 20}, false));
    end();
    loop.advance(5ms);
    start(capture->displayRect({0, 0, 30, 20}, false));
    loop.advance(6ms);
    EXPECT_EQ(tool.starts.size(), 1u);
    loop.advance(1ms);
    EXPECT_EQ(tool.starts.size(), 2u);
    end();
    loop.advance(12ms);
    start(capture->displayRect({0, 0, 30, 20}, false));
    EXPECT_EQ(tool.starts.size(), 3u) << "twelve milliseconds have passed";
}

TEST_F(NativeScreenCaptureTest, ARunWaitsForAPickerThatIsUpUntilItGoesOrTheDeadlineBlows)
{
    start(capture->interactivePick());
    loop.advance(700ms);
    tool.ignoresKill = true;
    EXPECT_TRUE(capture->cancelInteractivePick(700ms));
    start(capture->displayRect({0, 0, 30, 20}, false));
    loop.advance(30ms);
    EXPECT_EQ(tool.starts.size(), 1u);
    tool.end(101, {.isCrash = true});
    loop.advance(32ms); // the rest of a polling interval, and twelve milliseconds
    EXPECT_EQ(tool.starts.size(), 2u);
    end();

    loop.advance(12ms);
    start(capture->interactivePick());
    start(capture->displayRect({0, 0, 30, 20}, false));
    loop.advance(980ms);
    EXPECT_EQ(tool.starts.size(), 3u);
    loop.advance(20ms);
    EXPECT_EQ(tool.starts.size(), 4u);
    const auto traces = log.traces();
    EXPECT_THAT(traces, testing::Contains("idle-wait: pid 101 still owns the picker \u2014 holding"));
    EXPECT_EQ(traces.end()[-2], "idle-wait: DEADLINE BLEW (pid 103 never exited)");
    end();
    EXPECT_TRUE(capture->cancelInteractivePick(700ms)) << "another run's end is not the picker's";
}

TEST_F(NativeScreenCaptureTest, GoingAwayKillsTheToolAndRemovesItsFile)
{
    const auto grab = start(capture->displayRect({0, 0, 30, 20}, false));
    writeImage({30, 20});
    capture.reset();
    EXPECT_EQ(tool.kills, std::vector<qint64>{101});
    EXPECT_TRUE(folder.files().isEmpty());
    EXPECT_EQ(loop.pendingTimers(), 0u);
    loop.runPosted();
    workers.runAll();
    EXPECT_FALSE(*grab);
}

TEST_F(NativeScreenCaptureTest, WithoutDisplaysThereIsNoContent)
{
    CaptureEngine engine(loop, workers, displays, windows);
    windows.windows = {{WindowInfo{.id = 5, .app = {}, .title = {}, .frame = {}, .pixelRect = {}}}};
    const auto isEmpty = [](QCoro::Task<std::expected<CaptureEngine::Content, CaptureError>> task,
                            std::shared_ptr<std::optional<size_t>> count) -> QCoro::Task<> {
        const auto content = co_await task;
        *count = content ? content->displays.size() * 10 + content->windows.size() : 0;
    };
    for (const size_t expected : {21u, 0u}) {
        auto count = std::make_shared<std::optional<size_t>>();
        Scope::start(isEmpty(engine.shareableContent(), count), "test");
        loop.runPosted();
        EXPECT_EQ(*count, expected);
        displays.displays.clear();
    }
}

} // namespace Kovrel
