#include "sounds/CaptureSounds.h"
#include "tests/support/FakeMainLoop.h"
#include "tests/support/FakeSoundPlayer.h"
#include "tests/support/FakeWorkers.h"
#include "tests/support/MessageLog.h"
#include "tests/support/TempFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace Kovrel {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::HasSubstr;
using Log = std::vector<std::string>;

namespace {

struct CaptureSoundsTest : testing::Test {
    CaptureSoundsTest() { Preferences::registerDefaults(defaults); }

    Testing::FakeMainLoop loop;
    Testing::FakeWorkers workers;
    Testing::TempFolder folder;
    UserDefaults defaults{folder / "kovrel.conf"};
    Preferences preferences{defaults};
    bool isTracing = false;
    CaptureTrace trace{loop, [this] { return isTracing; }};
    Testing::FakeSoundPlayer::Service service;
    CaptureSounds sounds{loop, workers, preferences, trace, std::make_unique<Testing::FakeSoundPlayer>(service)};

    void capture()
    {
        sounds.prewarm();
        sounds.playShutterIfEnabled();
        workers.run(Lane::shutter);
    }
};

} // namespace

TEST_F(CaptureSoundsTest, TheChosenSoundIsPlayedAtTheChosenVolume)
{
    struct Case {
        const char* choice;
        double volume;
        Log heard;
    };

    const Case cases[] = {
        {"pop", 1, {"open", "pop 1"}},
        {"apple", 0.25, {"apple 0.25"}},
        {"apple", 1.5, {"apple 1"}},
        {"pop", 0, {}},
        {"pop", -3, {}},
        {"none", 1, {}},
        {"unheard-of", 1, {"pop 1"}},
    };
    for (const Case& c : cases) {
        defaults.set(Settings::captureSound.name, c.choice);
        preferences.set(Settings::soundVolume, c.volume);
        capture();
        EXPECT_THAT(std::exchange(service.log, {}), ElementsAreArray(c.heard)) << c.choice << " " << c.volume;
    }
}

TEST_F(CaptureSoundsTest, SilenceOpensNothing)
{
    preferences.set(Settings::captureSound, CaptureSound::none);
    capture();
    preferences.set(Settings::captureSound, CaptureSound::pop);
    preferences.set(Settings::soundVolume, 0);
    capture();
    EXPECT_THAT(service.log, ElementsAre());
    EXPECT_EQ(loop.pendingTimers(), 0);
}

TEST_F(CaptureSoundsTest, ToastsAndPreviewsAreHeardToo)
{
    sounds.playToastIfEnabled();
    sounds.previewShutter();
    sounds.previewVolume();
    preferences.set(Settings::captureSound, CaptureSound::none);
    preferences.set(Settings::playToastSound, false);
    sounds.playToastIfEnabled();
    sounds.previewShutter();
    sounds.previewVolume();
    workers.run(Lane::shutter);
    EXPECT_THAT(service.log, ElementsAre("open", "glass 0.3", "pop 1", "pop 1", "glass 0.3"));
}

TEST_F(CaptureSoundsTest, ThePlayerIsReleasedAWhileAfterTheLastSound)
{
    capture();
    loop.advance(60s);
    capture();
    loop.advance(CaptureSounds::releaseAfter - 1ms);
    workers.run(Lane::shutter);
    EXPECT_THAT(service.log, ElementsAre("open", "pop 1", "pop 1"));
    loop.advance(1ms);
    workers.run(Lane::shutter);
    EXPECT_EQ(service.log.back(), "close");
    EXPECT_EQ(loop.pendingTimers(), 0);
    capture();
    EXPECT_THAT(service.log, ElementsAre("open", "pop 1", "pop 1", "close", "open", "pop 1"));
}

TEST_F(CaptureSoundsTest, ASoundThatComesTooLateIsLeftOut)
{
    sounds.playShutterIfEnabled();
    loop.advance(CaptureSounds::latestStart + 1ms);
    sounds.playShutterIfEnabled();
    workers.run(Lane::shutter);
    EXPECT_THAT(service.log, ElementsAre("open", "pop 1"));
}

TEST_F(CaptureSoundsTest, AMissingServiceIsLoggedOnceForEachLoss)
{
    const Testing::MessageLog log("com.kovrel.sound");
    for (const bool isThere : {false, true, false}) {
        service.isThere = isThere;
        capture();
        capture();
    }
    EXPECT_THAT(service.log, ElementsAre("open", "pop 1", "pop 1"));
    EXPECT_THAT(log.warnings(), ElementsAre(HasSubstr("no service"), HasSubstr("no service")));
}

TEST_F(CaptureSoundsTest, TheTraceNamesTheSound)
{
    const Testing::MessageLog log("com.kovrel.capture");
    isTracing = true;
    for (const char* choice : {"apple", "none"}) {
        defaults.set(Settings::captureSound.name, choice);
        capture();
    }
    EXPECT_THAT(log.traces(), ElementsAre("shutter (apple)", "shutter (none)"));
}

} // namespace Kovrel
