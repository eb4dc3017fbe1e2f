#include "cards/CardCountdowns.h"
#include "tests/support/FakeMainLoop.h"
#include "tests/support/TempFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace Kovrel {

using namespace std::chrono_literals;

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

QUuid id(uint number)
{
    return QUuid(number, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1);
}

struct CardCountdownsTest : testing::Test {
    Testing::FakeMainLoop loop;
    Testing::TempFolder folder;
    UserDefaults defaults{folder / "kovrel.conf"};
    Preferences preferences{defaults};
    std::set<QUuid> lookedAt;
    std::vector<QUuid> closed;
    std::vector<AutoCloseAction> actions;
    CardCountdowns countdowns{loop,
                              preferences,
                              {.isLookedAt = [this](QUuid card) { return lookedAt.contains(card); },
                               .fired =
                                   [this](QUuid card, AutoCloseAction action) {
                                       closed.push_back(card);
                                       actions.push_back(action);
                                   }}};

    CardCountdownsTest() { Preferences::registerDefaults(defaults); }

    void choose(double seconds) { preferences.set(Settings::previewDurationSeconds, seconds); }

    std::vector<QUuid> closedAfter(MainLoop::Milliseconds time)
    {
        loop.advance(time);
        return std::exchange(closed, {});
    }

    double ring(QUuid card) const { return countdowns.countdown(card).remaining(loop.now()); }
};

} // namespace

TEST_F(CardCountdownsTest, ClosesOnceWhenItsTimeIsUp)
{
    choose(10);
    countdowns.armTimer(id(1));
    loop.advance(4s);
    countdowns.armTimer(id(1));
    EXPECT_THAT(closedAfter(9999ms), IsEmpty()) << "arming starts anew";
    EXPECT_THAT(closedAfter(1ms), ElementsAre(id(1)));
    EXPECT_THAT(closedAfter(1h), IsEmpty());
    EXPECT_EQ(loop.pendingTimers(), 0u);
}

TEST_F(CardCountdownsTest, TheRingGoesFromFullToEmptyAndStandsStillWhileSomebodyLooks)
{
    choose(10);
    countdowns.armTimer(id(1));
    EXPECT_EQ(ring(id(1)), 1);
    loop.advance(4s);
    EXPECT_DOUBLE_EQ(ring(id(1)), 0.6);
    countdowns.cancelAllTimers({id(1), id(2)});
    EXPECT_THAT(closedAfter(1h), IsEmpty());
    EXPECT_DOUBLE_EQ(ring(id(1)), 0.6);
    countdowns.armTimer(id(1));
    EXPECT_THAT(closedAfter(9999ms), IsEmpty()) << "full duration after a look";
    EXPECT_THAT(closedAfter(1ms), ElementsAre(id(1)));
}

TEST_F(CardCountdownsTest, NothingCountsForAnyOfTheseReasons)
{
    struct Case {
        const char* reason;
        std::function<void(bool)> set;
    };

    const Case cases[] = {
        {"kept until closed", [&](bool on) { choose(on ? -1 : 5); }},
        {"frozen", [&](bool) { countdowns.toggleFreeze(id(1)); }},
        {"hidden", [&](bool on) { countdowns.setColumnsHidden(on); }},
        {"looked at", [&](bool on) { on ? void(lookedAt.insert(id(1))) : lookedAt.clear(); }},
        {"held", [&](bool on) { countdowns.holdCountdowns(CountdownHold::peek, on); }},
    };
    for (const Case& c : cases) {
        choose(5);
        c.set(true);
        countdowns.armTimer(id(1));
        EXPECT_FALSE(countdowns.countdown(id(1)).isShown()) << c.reason;
        EXPECT_THAT(closedAfter(1h), IsEmpty()) << c.reason;
        c.set(false);
        countdowns.armTimer(id(1));
        EXPECT_THAT(closedAfter(5s), ElementsAre(id(1))) << c.reason;
    }
}

TEST_F(CardCountdownsTest, ResumingKeepsADeadlineThatStillLiesAhead)
{
    choose(10);
    countdowns.armTimer(id(1));
    loop.advance(2s);
    countdowns.resumeTimer(id(1));
    EXPECT_THAT(closedAfter(7999ms), IsEmpty());
    EXPECT_THAT(closedAfter(1ms), ElementsAre(id(1))) << "8 seconds later, not 10";

    countdowns.armTimer(id(1));
    loop.advance(2s);
    countdowns.setColumnsHidden(true);
    EXPECT_THAT(closedAfter(5s), IsEmpty());
    countdowns.setColumnsHidden(false);
    countdowns.resumeTimer(id(1));
    EXPECT_DOUBLE_EQ(ring(id(1)), 0.3) << "the ring goes on";
    EXPECT_THAT(closedAfter(3s), ElementsAre(id(1)));

    countdowns.armTimer(id(1));
    countdowns.setColumnsHidden(true);
    loop.advance(11s);
    countdowns.setColumnsHidden(false);
    countdowns.resumeTimer(id(1));
    EXPECT_THAT(closedAfter(9999ms), IsEmpty()) << "its deadline has passed meanwhile";
    EXPECT_THAT(closedAfter(1ms), ElementsAre(id(1)));
}

TEST_F(CardCountdownsTest, OneThatWasRefusedLeavesNoDeadlineBehind)
{
    choose(10);
    countdowns.armTimer(id(1));
    loop.advance(4s);
    lookedAt.insert(id(1));
    countdowns.resumeTimer(id(1)); // it went to a pile at which somebody is
    lookedAt.clear();
    countdowns.setColumnsHidden(true);
    countdowns.setColumnsHidden(false);
    countdowns.resumeTimer(id(1));
    EXPECT_DOUBLE_EQ(ring(id(1)), 1) << "no card closes without a ring";
    EXPECT_THAT(closedAfter(9999ms), IsEmpty());
    EXPECT_THAT(closedAfter(1ms), ElementsAre(id(1)));
}

TEST_F(CardCountdownsTest, HoldsEndTogether)
{
    choose(5);
    for (uint card = 1; card <= 3; ++card)
        countdowns.armTimer(id(card));
    EXPECT_FALSE(countdowns.holdCountdowns(CountdownHold::onboarding, true));
    EXPECT_FALSE(countdowns.countdown(id(1)).isShown());
    EXPECT_FALSE(countdowns.holdCountdowns(CountdownHold::peek, true));
    EXPECT_FALSE(countdowns.holdCountdowns(CountdownHold::onboarding, false));
    EXPECT_THAT(closedAfter(1h), IsEmpty());
    EXPECT_TRUE(countdowns.holdCountdowns(CountdownHold::peek, false)) << "all are to be armed";
    EXPECT_FALSE(countdowns.holdCountdowns(CountdownHold::peek, false));
}

TEST_F(CardCountdownsTest, TheActionIsTheOneThatWasChosenWhenTheCountdownBegan)
{
    choose(5);
    preferences.set(Settings::previewAutoCloseAction, AutoCloseAction::saveAndClose);
    EXPECT_TRUE(countdowns.takePreferenceChange());
    EXPECT_FALSE(countdowns.takePreferenceChange());
    countdowns.armTimer(id(1));
    preferences.set(Settings::previewAutoCloseAction, AutoCloseAction::justClose);
    countdowns.resumeTimer(id(1));
    loop.advance(5s);
    EXPECT_THAT(actions, ElementsAre(AutoCloseAction::saveAndClose));
    EXPECT_TRUE(countdowns.takePreferenceChange());
}

} // namespace Kovrel
