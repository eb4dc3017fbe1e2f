#include "overlay/OverlaySession.h"
#include "model/VirtualKeys.h"
#include "tests/support/FakeDesktop.h"
#include "tests/support/FakeMainLoop.h"
#include "tests/support/PictureDifference.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace Kovrel {

using testing::ElementsAre;
using Testing::FakeAnswers;
using testing::IsEmpty;
using Log = std::vector<std::string>;

namespace {

constexpr QRect displayPixels(0, 0, 40, 30);

struct OverlaySessionTest : testing::Test {
    Testing::FakeMainLoop loop;
    Testing::FakeDesktop desktop{loop};
    std::unique_ptr<OverlaySession> session;
    Log log;
    std::string endsAt;
    QString failure;

    OverlaySessionTest() { desktop.displays().displays = {{.id = 1, .pixelRect = displayPixels, .isPrimary = true}}; }

    // Ends the session in the middle of the callback, if that is how it is to end.
    void note(const std::string& what)
    {
        log.push_back(what);
        if (what == endsAt)
            session.reset();
    }

    void begin()
    {
        std::vector<OverlaySession::Key> keys{
            {VirtualKeys::space, [this](KeyGrabs::Press) { note("space"); }, [this] { note("space up"); }},
            {VirtualKeys::escape, [this](KeyGrabs::Press) { note("escape"); }},
        };
        OverlaySession::Handlers handlers{
            .onOpened = [this](const OverlaySurfaces::Opened&) { note("opened"); },
            .onPointer = [this](const OverlayPointer&) { note("pointer"); },
            .onInputsHandled = [this] { note("handled"); },
            .onDesktopSwitch = [this] { note("switched"); },
            .onCancelled =
                [this](const QString& given) {
                    failure = given;
                    note("cancelled");
                },
        };
        session = std::make_unique<OverlaySession>(
            OverlaySession::Services{loop, desktop.displays(), desktop.keys(), desktop.lock(), desktop.overlay()},
            "test", std::move(keys), std::move(handlers));
        session->open({.cursor = [](const Display&) { return OverlayCursor(); }});
        session->takeKeys();
    }

    void point(quint32 time) { desktop.overlay().handlers.onPointer({.time = time}); }

    Log takeLog()
    {
        loop.runPosted();
        return std::exchange(log, {});
    }
};

} // namespace

TEST_F(OverlaySessionTest, InputsComeInTheOrderOfTheirTimesAndThenOnceTheEndOfThem)
{
    begin();
    EXPECT_THAT(takeLog(), ElementsAre("opened"));
    EXPECT_TRUE(session->isOpen());
    point(3);
    desktop.keys().release("Space", 4);
    desktop.keys().press("Space", false, 2);
    EXPECT_THAT(takeLog(), ElementsAre("space", "pointer", "space up", "handled"));
}

TEST_F(OverlaySessionTest, ItsEndGivesAllBackAndSilencesWhatIsStillToCome)
{
    desktop.overlay().answers.manner = FakeAnswers::Manner::late;
    begin();
    desktop.keys().press("Space");
    const auto handlers = desktop.overlay().handlers;
    EXPECT_TRUE(handlers.onPointer);
    session.reset();
    EXPECT_FALSE(desktop.overlay().handlers.onPointer) << "the surfaces are closed";
    EXPECT_EQ(desktop.keys().count(), 0u);
    desktop.overlay().answers.catchUp();
    desktop.keys().takeOver();
    desktop.lock().lock();
    desktop.displays().change({});
    EXPECT_THAT(takeLog(), IsEmpty());
}

TEST_F(OverlaySessionTest, MayEndInEachOfItsCallbacks)
{
    struct Case {
        const char* endsAt;
        Log told;
    };

    const Case cases[] = {
        {"opened", {"opened"}},
        {"space", {"opened", "space"}},
        {"pointer", {"opened", "space", "pointer"}},
        {"handled", {"opened", "space", "pointer", "escape", "handled"}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.endsAt);
        endsAt = c.endsAt;
        begin();
        loop.runPosted();
        if (session) {
            desktop.keys().press("Space", false, 1);
            point(2);
            desktop.keys().press("Escape", false, 3);
        }
        EXPECT_EQ(takeLog(), c.told);
        EXPECT_EQ(session, nullptr);
        EXPECT_EQ(desktop.keys().count(), 0u);
    }
}

TEST_F(OverlaySessionTest, WhatTakesItsGroundAwayCancelsItOnce)
{
    for (const bool endsAtOnce : {true, false}) {
        endsAt = endsAtOnce ? "cancelled" : "";
        begin();
        takeLog();
        desktop.lock().lock();
        desktop.keys().takeOver();
        desktop.displays().change(desktop.displays().displays);
        EXPECT_THAT(takeLog(), ElementsAre("cancelled"));
        EXPECT_EQ(failure, QString());
    }
    desktop.overlay().isRefused = true;
    endsAt = "cancelled";
    begin();
    EXPECT_THAT(takeLog(), ElementsAre("cancelled"));
    EXPECT_EQ(failure, "the desktop does not give its pixels");
}

TEST_F(OverlaySessionTest, ADesktopThatNeverAnswersCanStillBeLeft)
{
    desktop.overlay().answers.manner = FakeAnswers::Manner::never;
    begin();
    EXPECT_FALSE(session->isOpen());
    desktop.keys().press("Escape");
    EXPECT_THAT(takeLog(), ElementsAre("escape", "handled"));
}

TEST_F(OverlaySessionTest, FrozenScreensAreHandedOverOnce)
{
    QImage root(displayPixels.size(), QImage::Format_RGB32);
    root.fill(Qt::red);
    desktop.pixels().root = root;
    begin();
    takeLog();
    const FrozenScreens frozen = session->takeFrozenScreens();
    ASSERT_EQ(frozen.size(), 1u);
    EXPECT_TRUE(Testing::identicalPicture(frozen[0].image, root));
    EXPECT_THAT(session->takeFrozenScreens(), IsEmpty());
}

} // namespace Kovrel
