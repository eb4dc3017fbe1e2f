#include "recognition/text/VisionOCREngine.h"
#include "tests/support/FakeMainLoop.h"
#include "tests/support/FakeTextRecogniser.h"
#include "tests/support/FakeWorkers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace Kovrel {

using testing::ElementsAre;
using enum QualityOfService;

namespace {

struct VisionOCREngineTest : testing::Test {
    Testing::FakeMainLoop loop;
    Testing::FakeWorkers workers;
    Testing::FakeTextRecogniser::Page page{{{Testing::FakeTextRecogniser::line("Hello", {0.1, 0.5, 0.2, 0.1})}}};
    VisionOCREngine engine{loop, workers, std::make_unique<Testing::FakeTextRecogniser>(page),
                           [] { return QStringList(); }};
    std::vector<std::string> answers;

    QCoro::Task<> keepAnswer(std::string name, QualityOfService qos)
    {
        const OCROutcome text = co_await engine.recognize(QImage(8, 8, QImage::Format_RGB32), qos, true, {});
        answers.push_back(name + (text ? " read" : " failed"));
    }

    void ask(std::string name, QualityOfService qos) { Scope::start(keepAnswer(std::move(name), qos), "a question"); }

    void settle()
    {
        do
            loop.runPosted();
        while (workers.runAll() > 0);
    }

    std::vector<bool> hurries() const
    {
        std::vector<bool> all;
        for (const auto& request : page.asked)
            all.push_back(request.mayHurry);
        return all;
    }
};

} // namespace

TEST_F(VisionOCREngineTest, WhatNobodyWaitsForGivesWayAndIsReadAfterwards)
{
    page.whileReading = [this] {
        if (page.asked.size() == 1)
            ask("text capture", userInteractive);
    };
    ask("index", background);
    settle();
    EXPECT_THAT(answers, ElementsAre("text capture read", "index read"));
    EXPECT_THAT(hurries(), ElementsAre(false, true, false));
}

TEST_F(VisionOCREngineTest, WhatSomebodyWaitsForIsReadToItsEnd)
{
    page.whileReading = [this] {
        if (page.asked.size() == 1)
            ask("text capture", userInteractive);
    };
    ask("editor", userInitiated);
    settle();
    EXPECT_THAT(answers, ElementsAre("editor read", "text capture read"));
    EXPECT_EQ(page.asked.size(), 2u);
}

TEST_F(VisionOCREngineTest, WhatIsNotInstalledIsLookedForOnceInTheBackground)
{
    const auto good = std::exchange(
        page.outcome, std::unexpected(RecognitionFailure{"no data", RecognitionFailure::Reason::notInstalled}));
    for (int picture = 0; picture < 3; ++picture) {
        ask("index", background);
        settle();
    }
    EXPECT_EQ(page.asked.size(), 1u);
    ask("text capture", userInteractive);
    settle();
    EXPECT_EQ(page.asked.size(), 2u) << "somebody who waits wants to know";
    loop.advance(VisionOCREngine::missesFor);
    settle();
    page.outcome = good;
    answers.clear();
    ask("index", background);
    settle();
    EXPECT_THAT(answers, ElementsAre("index read"));
}

} // namespace Kovrel
