#include "capture/pixels/NativeScreenCapture.h"
#include "platform/desktop/SpawnedToolProcess.h"
#include "tests/support/EventLoop.h"
#include "tests/support/FakeDesktop.h"
#include "tests/support/FakeMainLoop.h"
#include "tests/support/FakeWorkers.h"
#include "tests/support/MessageLog.h"
#include "tests/support/PaintedScreen.h"
#include "tests/support/Patterns.h"
#include "tests/support/TempFolder.h"
#include "tests/support/VirtualDisplay.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace Kovrel {

using Testing::patternAt;

namespace {

// The engine with the real tool on a real X server. In this process there are no pixels to be had.
struct ScreenshotToolRunTest : testing::Test {
    using Grab = NativeScreenCapture::Outcome;

    ScreenshotToolRunTest()
    {
        qputenv("DISPLAY", server.name());
        server.setMonitors({{"MAIN", {100, 0, 500, 400}}, {"LEFT", {0, 0, 100, 400}}});
        screen.setRootPicture(Testing::pattern({600, 400}));
        displays.displays = {{.id = 1,
                              .name = "MAIN",
                              .frame = {0, 0, 250, 200},
                              .visibleFrame = {},
                              .pixelRect = {100, 0, 500, 400},
                              .scale = 2,
                              .isPrimary = true}};
    }

    ~ScreenshotToolRunTest() override { qunsetenv("DISPLAY"); }

    static QCoro::Task<> keep(QCoro::Task<Grab> task, std::optional<Grab>* into)
    {
        auto grab = co_await task;
        *into = std::move(grab);
    }

    Grab wait(QCoro::Task<Grab> task)
    {
        std::optional<Grab> result;
        Scope::start(keep(std::move(task), &result), "test");
        EXPECT_TRUE(Testing::waitFor([&] {
            workers.runAll();
            loop.runPosted();
            return result.has_value();
        }));
        return result.value_or(std::unexpected(NativeScreenCapture::Failure{}));
    }

    NativeScreenCapture::Services services()
    {
        return {loop, workers, trace, desktop.pixels(), desktop.windows(), displays, toolProcess};
    }

    Testing::VirtualDisplay server{{600, 400}};
    Testing::PaintedScreen screen{server.name()};
    Testing::FakeMainLoop loop;
    Testing::FakeWorkers workers;
    Testing::FakeDesktop desktop{loop};
    Testing::FakeDisplays& displays = desktop.displays();
    SpawnedToolProcess toolProcess;
    Testing::TempFolder folder;
    CaptureTrace trace{loop, [] { return false; }};
    Testing::MessageLog log{"com.kovrel.capture"};
};

} // namespace

TEST_F(ScreenshotToolRunTest, TheToolTakesOverWithTheSamePixels)
{
    NativeScreenCapture capture(services(), {SCREENSHOT_TOOL, folder.path()});
    const Grab rect = wait(capture.displayRect({10, 20, 100, 50}, false));
    ASSERT_TRUE(rect);
    EXPECT_FALSE(rect->isInProcess);
    ASSERT_EQ(rect->image.size(), QSize(200, 100));
    EXPECT_EQ(rect->image.pixel(0, 0), patternAt(120, 40) | 0xff000000);
    EXPECT_EQ(rect->image.pixel(199, 99), patternAt(319, 139) | 0xff000000);

    loop.advance(std::chrono::milliseconds(12));
    const Grab odd = wait(capture.pixels({121, 33, 7, 5}, false));
    ASSERT_TRUE(odd);
    ASSERT_EQ(odd->image.size(), QSize(7, 5));
    EXPECT_EQ(odd->image.pixel(0, 0), patternAt(121, 33) | 0xff000000);
    EXPECT_EQ(odd->image.pixel(6, 4), patternAt(127, 37) | 0xff000000);
    EXPECT_TRUE(folder.files().isEmpty());
    EXPECT_TRUE(log.warnings().empty());
}

TEST_F(ScreenshotToolRunTest, ProgramsThatAreNoSuchToolGiveNoImage)
{
    for (const char* program : {"/nowhere/at-all", "/bin/true", "/bin/false", "/etc/passwd"}) {
        NativeScreenCapture capture(services(), {program, folder.path()});
        const size_t before = log.warnings().size();
        std::optional<Grab> result;
        Scope::start(keep(capture.displayRect({0, 0, 10, 10}, false), &result), "test");
        EXPECT_TRUE(Testing::waitFor([&] {
            loop.advance(std::chrono::milliseconds(1));
            workers.runAll();
            return result.has_value();
        }));
        EXPECT_FALSE(*result) << program;
        EXPECT_EQ(log.warnings().size(), before + 1) << program;
    }
}

TEST_F(ScreenshotToolRunTest, WithoutAServerTheToolFailsInOrder)
{
    NativeScreenCapture capture(services(), {SCREENSHOT_TOOL, folder.path()});
    qputenv("DISPLAY", ":32767"); // ours, once ended, could be another test's
    const Grab grab = wait(capture.displayRect({0, 0, 10, 10}, false));
    ASSERT_FALSE(grab);
    EXPECT_EQ(grab.error().reason, "nothing of it is on a display; the screenshot tool exited with status 4: "
                                   "kovrel-screencapture: there is no display server");
    EXPECT_THAT(log.warnings(), testing::ElementsAre(testing::HasSubstr("exited with status 4")));
}

} // namespace Kovrel
