#include "app/CommandRunner.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace Kovrel {

using testing::ElementsAre;

namespace {

struct CommandRunnerTest : testing::Test {
    CommandRunner commands;
    std::vector<std::string> log;
    bool isAvailable = true;

    void SetUp() override
    {
        commands.add({{.command = "capture",
                       .run =
                           [this](const Invocation& use, const Reply<CommandAnswer>& reply) {
                               log.push_back(use.command.operands.front() + (use.isFromMenu ? " from the menu" : ""));
                               reply({.output = "done"});
                           },
                       .cancel = [this](quint64 id) { log.push_back("cancel " + std::to_string(id)); },
                       .isAvailable = [this] { return isAvailable; }}});
    }

    CommandAnswer run(const QStringList& arguments)
    {
        CommandAnswer result{.exitCode = -1};
        commands.run(arguments, 7, [&result](const CommandAnswer& answer) { result = answer; });
        return result;
    }
};

} // namespace

TEST_F(CommandRunnerTest, EachCommandLineIsAnsweredOnce)
{
    EXPECT_EQ(run({"capture", "window"}).output, "done");
    EXPECT_EQ(run({"capture", "sideways"}).exitCode, CommandLine::usageError);
    EXPECT_EQ(run({"nonsense"}).exitCode, CommandLine::usageError);
    const CommandAnswer absent = run({"codes", "/a.png"});
    EXPECT_EQ(absent.exitCode, CommandLine::failed);
    EXPECT_EQ(absent.error, "this program has nothing that runs \"codes\"");
    EXPECT_THAT(log, ElementsAre("window"));
    commands.cancel(7);
    EXPECT_EQ(log.back(), "cancel 7");
}

TEST_F(CommandRunnerTest, EntriesOfMenusAndActionsOfTheBusRunTheirCommandLines)
{
    for (const MenuEntry& entry : CommandTable::menu()) {
        EXPECT_EQ(commands.isEnabled(entry), entry.arguments.front() == "capture") << entry.label;
        commands.perform(entry, true);
    }
    EXPECT_THAT(log, ElementsAre("area from the menu", "window from the menu", "fullScreen from the menu",
                                 "lastArea from the menu", "timed from the menu", "ocrRegion from the menu"));
    log.clear();
    for (const char* action : {"timed", "nonsense", "recent"})
        commands.performAction(action);
    EXPECT_THAT(log, ElementsAre("timed"));
    isAvailable = false;
    commands.perform(CommandTable::menu().front(), true);
    EXPECT_EQ(log.size(), 1u) << "it is grey";
    commands.performAction("area");
    EXPECT_EQ(log.size(), 2u) << "the capture that is refused shows what helps";
}

} // namespace Kovrel
