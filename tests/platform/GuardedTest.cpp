#include "platform/Guarded.h"

#include "platform/ReplyFromWorker.h"
#include "tests/support/FakeMainLoop.h"
#include "tests/support/FakeWorkers.h"
#include "tests/support/LogLines.h"

#include <gtest/gtest.h>

namespace Kovrel {

namespace {

using Outcome = std::expected<int, QString>;

struct Thrown {
    std::function<void()> work;
    QString reason;
};

const Thrown everythingThrown[] = {
    {[] { throw std::bad_alloc(); }, "there is not enough memory"},
    {[] { throw std::runtime_error("the disk is made of cheese"); }, "the disk is made of cheese"},
    {[] { throw 7; }, "an unknown error"},
};

} // namespace

TEST(Guarded, WhatAJobThrowsIsItsAnswer)
{
    for (const Thrown& thrown : everythingThrown) {
        const auto job = [work = thrown.work] {
            work();
            return Outcome(1);
        };
        EXPECT_EQ(Guarded::orReason(job)(), Outcome(std::unexpected(thrown.reason)));
        const Testing::LogLines log;
        EXPECT_EQ(Guarded::orElse(job, Outcome(2))(), Outcome(2));
        EXPECT_EQ(log.lines(), QStringList("com.kovrel.tasks: A job failed: " + thrown.reason));
    }
    EXPECT_EQ(Guarded::orReason([] { return Outcome(3); })(), Outcome(3));
    EXPECT_EQ(Guarded::orElse([] { return 4; }, 5)(), 4);
}

TEST(Guarded, AJobThatThrowsStillGivesItsReply)
{
    Testing::FakeMainLoop loop;
    Testing::FakeWorkers workers;
    for (const Thrown& thrown : everythingThrown) {
        std::optional<Outcome> answer;
        const auto job = [work = thrown.work] {
            work();
            return Outcome(1);
        };
        replyFromWorker<Outcome>(loop, workers, Lane::utility, Guarded::orReason(job),
                                 [&answer](const Outcome& given) { answer = given; });
        workers.runAll();
        EXPECT_FALSE(answer) << "not on the worker";
        loop.runPosted();
        EXPECT_EQ(answer, Outcome(std::unexpected(thrown.reason)));
    }
}

} // namespace Kovrel
