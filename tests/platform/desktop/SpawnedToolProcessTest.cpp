#include "platform/desktop/SpawnedToolProcess.h"
#include "tests/support/EventLoop.h"
#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>

#include <csignal>

namespace Kovrel {

namespace {

struct SpawnedToolProcessTest : testing::Test {
    std::optional<qint64> shell(const QString& script)
    {
        return processes->start("/bin/sh", {"-c", script}, {{"KOVREL_TEST", "a b"}},
                                [this](ToolExit end) { exit = end; });
    }

    bool hasEnded()
    {
        return Testing::waitFor([this] { return exit.has_value(); });
    }

    std::optional<SpawnedToolProcess> processes{std::in_place};
    std::optional<ToolExit> exit;
};

} // namespace

TEST_F(SpawnedToolProcessTest, TellsHowAProcessEnded)
{
    struct Case {
        const char* script;
        ToolExit exit;
    };

    const Case cases[] = {
        {"exit 0", {false, 0}},
        {"exit 7", {false, 7}},
        {"kill -SEGV $$", {true, 0}},
        {"kill -PIPE $$; exit 3", {true, 0}}, // signals that we ignore are not ignored there
        {"test \"$KOVREL_TEST\" = 'a b' -a -n \"$PATH\"", {false, 0}},
        {"read line && exit 0; exit 5", {false, 5}}, // no input
        {"echo one >&2; echo two >&2; exit 3", {false, 3, "one two"}},
        {"echo bang >&2; kill -SEGV $$", {true, 0, "bang"}},
        {"echo heard by us all; exit 3", {false, 3}},
        {"yes | head -c 1000000 >&2; echo the end >&2; exit 3", {false, 3, QString("y ").repeated(246) + "the end"}},
    };
    std::signal(SIGPIPE, SIG_IGN);
    for (const Case& c : cases) {
        exit.reset();
        const auto pid = shell(c.script);
        ASSERT_TRUE(pid);
        EXPECT_TRUE(hasEnded()) << c.script;
        EXPECT_EQ(exit, c.exit) << c.script;
        EXPECT_FALSE(processes->isRunning(*pid));
    }
}

TEST_F(SpawnedToolProcessTest, AProgramThatIsNotThereIsNoProcess)
{
    EXPECT_FALSE(processes->start("/nowhere/at-all", {}, {}, [this](ToolExit end) { exit = end; }));
    EXPECT_FALSE(exit);
}

TEST_F(SpawnedToolProcessTest, KillingEndsAProcessAndItsReplyComesLater)
{
    const auto pid = shell("exec sleep 1000");
    EXPECT_TRUE(processes->isRunning(*pid));
    processes->kill(*pid);
    EXPECT_FALSE(exit);
    EXPECT_TRUE(hasEnded());
    EXPECT_TRUE(exit->isCrash);
    processes->kill(*pid); // nobody
}

TEST_F(SpawnedToolProcessTest, GoingAwayLeavesNoProcess)
{
    const auto pid = shell("exec sleep 1000");
    processes.reset();
    EXPECT_NE(::kill(pid_t(*pid), 0), 0);
    EXPECT_FALSE(exit);
}

} // namespace Kovrel
