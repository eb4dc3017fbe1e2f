#include "recognition/text/PatientRecogniser.h"
#include "recognition/text/VisionOCREngine.h"
#include "tests/support/FakeMainLoop.h"
#include "tests/support/FakeTextRecogniser.h"
#include "tests/support/FakeWorkers.h"
#include "tests/support/LogLines.h"

#include <gtest/gtest.h>

#include <atomic>
#include <latch>
#include <thread>

#include <sys/resource.h>
#include <unistd.h>

namespace Kovrel {

using namespace std::chrono_literals;
using Testing::FakeTextRecogniser;

namespace {

constexpr PatientRecogniser::Patience none{0ms, 0ms};
constexpr PatientRecogniser::Patience forever{24h, 0ms};

const QImage picture(10, 10, QImage::Format_RGB32);

// Tells of each line, and after the first one waits until the test is over; it outlives the test if need be.
class StuckRecogniser : public TextRecogniser {
public:
    struct State {
        std::atomic_flag hasBegun;
        std::latch over{1};
    };

    explicit StuckRecogniser(std::shared_ptr<State> state) : m_state(std::move(state)) {}

    Outcome recognise(const QImage&, const Request& request) override
    {
        request.progress(0.5);
        m_state->hasBegun.test_and_set();
        m_state->hasBegun.notify_all();
        m_state->over.wait();
        return {};
    }

private:
    std::shared_ptr<State> m_state;
};

struct PatientRecogniserTest : testing::Test {
    const Testing::LogLines log;
    std::shared_ptr<StuckRecogniser::State> state = std::make_shared<StuckRecogniser::State>();
    FakeTextRecogniser::Page page{{{FakeTextRecogniser::line("Hello", {0.1, 0.5, 0.2, 0.1})}}};
    int made = 0;

    ~PatientRecogniserTest() override { state->over.count_down(); }

    // The first one gets stuck.
    PatientRecogniser::Make stuckThenGood()
    {
        return [this]() -> std::unique_ptr<TextRecogniser> {
            if (++made == 1)
                return std::make_unique<StuckRecogniser>(state);
            return std::make_unique<FakeTextRecogniser>(page);
        };
    }
};

} // namespace

TEST_F(PatientRecogniserTest, WhatTheRecogniserSaysIsHandedOn)
{
    PatientRecogniser patient([this] { return std::make_unique<FakeTextRecogniser>(page); }, forever);
    const auto seen = patient.recognise(picture, {.customWords = {"Kovrel"}});
    ASSERT_TRUE(seen);
    EXPECT_EQ(seen->front().candidates.front().text, "Hello");
    EXPECT_EQ(page.asked.back().customWords, QStringList{"Kovrel"});
    page.outcome = std::unexpected(TextRecogniser::Failure{"no data"});
    EXPECT_EQ(patient.recognise(picture, {}).error().message, "no data");
    page.whileReading = [] { throw std::bad_alloc(); };
    EXPECT_THROW((void)patient.recognise(picture, {}), std::bad_alloc);
}

TEST_F(PatientRecogniserTest, AStoppedRecognitionEndsAsCancelled)
{
    std::stop_source stop;
    page.whileReading = [&] { stop.request_stop(); };
    PatientRecogniser patient([this] { return std::make_unique<FakeTextRecogniser>(page); }, {24h, 24h});
    EXPECT_EQ(patient.recognise(picture, {.stop = stop.get_token()}).error().reason,
              RecognitionFailure::Reason::cancelled);
}

TEST_F(PatientRecogniserTest, WhoMakesNoProgressIsGivenUpAndReplaced)
{
    PatientRecogniser patient(
        [this] {
            ++made;
            return std::make_unique<StuckRecogniser>(state);
        },
        none);
    const auto outcome = patient.recognise(picture, {});
    ASSERT_FALSE(outcome);
    EXPECT_EQ(outcome.error().reason, RecognitionFailure::Reason::failed);
    EXPECT_TRUE(outcome.error().message.contains("given up"));
    EXPECT_EQ(log.lines().filter("left to itself").size(), 1);
    (void)patient.recognise(picture, {});
    EXPECT_EQ(made, 2);
}

TEST_F(PatientRecogniserTest, WhoDoesNotStopDoesNotBlockTheNextAsker)
{
    PatientRecogniser patient(stuckThenGood(), forever);
    std::stop_source stop;
    const std::jthread leaving([&] {
        state->hasBegun.wait(false);
        stop.request_stop();
    });
    const auto left = patient.recognise(picture, {.stop = stop.get_token()});
    ASSERT_FALSE(left);
    EXPECT_EQ(left.error().reason, RecognitionFailure::Reason::cancelled);
    EXPECT_TRUE(patient.recognise(picture, {}));
}

TEST(VisionOCREngine, MemoryIsGivenBackSomeMinutesAfterTheLastPicture)
{
    struct Counting : TextRecogniser {
        explicit Counting(int& count) : released(count) {}

        Outcome recognise(const QImage&, const Request&) override { return {}; }

        void releaseMemory() override { ++released; }

        int& released;
    };

    Testing::FakeMainLoop loop;
    Testing::FakeWorkers workers;
    int released = 0;
    VisionOCREngine engine(loop, workers, std::make_unique<Counting>(released), [] { return QStringList(); });
    const auto settle = [&](std::chrono::milliseconds duration) {
        loop.advance(duration);
        workers.runAll();
        loop.runPosted();
    };
    engine.prewarm();
    settle(2min);
    engine.prewarm();
    settle(2min);
    EXPECT_EQ(released, 0);
    settle(1min);
    EXPECT_EQ(released, 1);
    settle(10min);
    EXPECT_EQ(released, 1);
}

TEST_F(PatientRecogniserTest, WhatNobodyWaitsForStandsBehindOthers)
{
    const auto priority = [] { return ::getpriority(PRIO_PROCESS, id_t(::gettid())); };
    std::vector<int> priorities;
    page.whileReading = [&] { priorities.push_back(priority()); };
    PatientRecogniser patient([this] { return std::make_unique<FakeTextRecogniser>(page); });
    for (const bool mayHurry : {false, true})
        EXPECT_TRUE(patient.recognise(picture, {.mayHurry = mayHurry}));
    ASSERT_EQ(priorities.size(), 2u);
    EXPECT_GT(priorities[0], priorities[1]);
    EXPECT_EQ(priorities[1], priority());
}

} // namespace Kovrel
