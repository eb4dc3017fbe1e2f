#include "platform/Scope.h"
#include "tests/support/FakeMainLoop.h"
#include "tests/support/FakeWorkers.h"

#include <gtest/gtest.h>

namespace Kovrel {

using namespace std::chrono_literals;

namespace {

struct Log {
    std::vector<std::string> lines;
};

// Says in its log what it lived through; unwinding reads a member, which must be alive then.
class Walker {
public:
    Walker(MainLoop& loop, Workers& workers, Log& log) : m_log(log), m_scope(loop, workers) {}

    QCoro::Task<> walk()
    {
        const auto atEnd = qScopeGuard([this] { say("unwound by " + m_name); });
        co_await m_scope.sleep(100ms);
        say("slept");
        const int answer = co_await m_scope.onWorker(Lane::utility, [] { return 42; });
        say("worked " + std::to_string(answer));
        const int asked = co_await m_scope.reply<int>([this](Reply<int> done) { pending = done; });
        say("asked " + std::to_string(asked));
    }

    QCoro::Task<> fail()
    {
        try {
            co_await m_scope.onWorker(Lane::utility, [] { throw std::runtime_error("broken"); });
        } catch (const std::runtime_error& error) {
            say(std::string("caught ") + error.what());
        }
    }

    QCoro::Task<> joinTo(Walker& other)
    {
        const auto atEnd = qScopeGuard([this] { say("join left"); });
        const int value = co_await m_scope.join(other.value());
        say("joined " + std::to_string(value));
    }

    QCoro::Task<int> value()
    {
        co_await m_scope.sleep(50ms);
        co_return 7;
    }

    Reply<int> pending;

private:
    void say(std::string line) { m_log.lines.push_back(std::move(line)); }

    Log& m_log;
    std::string m_name = "walker";
    Scope m_scope;
};

struct ScopeTest : testing::Test {
    Testing::FakeMainLoop loop;
    Testing::FakeWorkers workers;
    Log log;
    std::optional<Walker> walker{std::in_place, loop, workers, log};
};

} // namespace

TEST_F(ScopeTest, WaitsResumeInOrder)
{
    Scope::start(walker->walk(), "walk");
    loop.advance(99ms);
    EXPECT_TRUE(log.lines.empty());
    loop.advance(1ms);
    workers.runAll();
    EXPECT_EQ(log.lines.size(), 1u) << "a worker's result comes through the main loop";
    loop.runPosted();
    walker->pending(3);
    EXPECT_EQ(log.lines, (std::vector<std::string>{"slept", "worked 42", "asked 3", "unwound by walker"}));
}

TEST_F(ScopeTest, GoingAwayUnwindsEveryWaitAndLaterAnswersAreDropped)
{
    const std::vector<std::vector<std::string>> expected{
        {"unwound by walker"},
        {"slept", "unwound by walker"},
        {"slept", "worked 42", "unwound by walker"},
    };
    for (size_t stage = 0; stage < expected.size(); ++stage) {
        log.lines.clear();
        walker.emplace(loop, workers, log);
        Scope::start(walker->walk(), "walk");
        if (stage > 0)
            loop.advance(100ms);
        if (stage > 1) {
            workers.runAll();
            loop.runPosted();
        }
        const auto late = walker->pending;
        walker.reset();
        EXPECT_EQ(log.lines, expected[stage]);
        workers.runAll();
        loop.advance(1s);
        if (late)
            late(1);
        EXPECT_EQ(log.lines, expected[stage]) << "an answer after the end reached a dead object";
    }
}

TEST_F(ScopeTest, FailuresOfAJobReachItsWaiter)
{
    Scope::start(walker->fail(), "fail");
    workers.runAll();
    loop.runPosted();
    EXPECT_EQ(log.lines, (std::vector<std::string>{"caught broken"}));
}

TEST_F(ScopeTest, JoinerMayGoBeforeTheJoined)
{
    Log otherLog;
    Walker other(loop, workers, otherLog);
    Scope::start(walker->joinTo(other), "join");
    walker.reset();
    EXPECT_EQ(log.lines, (std::vector<std::string>{"join left"}));
    loop.advance(1s);
    EXPECT_EQ(log.lines.size(), 1u);

    walker.emplace(loop, workers, log);
    Scope::start(walker->joinTo(other), "join");
    loop.advance(1s);
    EXPECT_EQ(log.lines[1], "joined 7");
}

} // namespace Kovrel
