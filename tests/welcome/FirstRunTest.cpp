#include "welcome/FirstRun.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace Kovrel {

using enum FirstRunStep;
using Action = FirstRun::Action;
using testing::ElementsAre;

TEST(FirstRun, GoesThroughItsPagesAndBack)
{
    FirstRun run(true);
    EXPECT_THAT(run.steps(), ElementsAre(greeting, hotkeys, tryOut, done)) << "who is signed in needs no account";
    EXPECT_FALSE(run.canGoBack());
    for (const auto& [step, action] : {std::pair{greeting, Action::goOn},
                                       {hotkeys, Action::goOn},
                                       {tryOut, Action::capture},
                                       {done, Action::finish}}) {
        EXPECT_EQ(run.step(), step);
        EXPECT_EQ(run.action(), action);
        EXPECT_EQ(run.canSkip(), step == tryOut);
        run.goOn();
    }
    EXPECT_EQ(run.step(), done) << "there is nothing behind it";
    for (const FirstRunStep step : {tryOut, hotkeys, greeting, greeting}) {
        run.goBack();
        EXPECT_EQ(run.step(), step);
    }
}

TEST(FirstRun, NobodyPassesThePageAboutTheAccountWithoutOne)
{
    FirstRun run(false);
    EXPECT_FALSE(run.isSettled());
    run.goOn();
    EXPECT_EQ(run.action(), Action::signIn);
    run.goOn();
    EXPECT_EQ(run.step(), account);
    EXPECT_FALSE(run.canSkip());
    run.setSignedIn(true);
    EXPECT_EQ(run.step(), hotkeys) << "goes on by itself";
    EXPECT_TRUE(run.isSettled());

    run.goBack();
    EXPECT_EQ(run.action(), Action::goOn) << "it is done once";
    run.setSignedIn(true);
    EXPECT_EQ(run.step(), account) << "nothing has changed";
}

TEST(FirstRun, WhoeverSignsInElsewhereStaysOnThePage)
{
    FirstRun run(false);
    run.setSignedIn(true);
    EXPECT_EQ(run.step(), greeting);
}

TEST(FirstRun, SigningOutLeadsBackToTheAccount)
{
    for (const bool wasSignedIn : {true, false}) {
        FirstRun run(wasSignedIn);
        run.setSignedIn(true);
        for (int step = 0; step < 5; ++step)
            run.goOn();
        ASSERT_EQ(run.step(), done);
        run.setSignedIn(false);
        EXPECT_EQ(run.step(), account);
        EXPECT_THAT(run.steps(), ElementsAre(greeting, account, hotkeys, tryOut, done));
        EXPECT_FALSE(run.isSettled());
    }
}

TEST(FirstRun, ACaptureIsAskedForOnce)
{
    FirstRun run(true);
    run.goOn();
    run.noteCapture();
    run.goOn();
    EXPECT_EQ(run.action(), Action::goOn);
    EXPECT_FALSE(run.canSkip());
}

} // namespace Kovrel
