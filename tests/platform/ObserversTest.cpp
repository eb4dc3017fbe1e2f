#include "platform/Observers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <string>

namespace Kovrel {

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

struct ObserversTest : testing::Test {
    std::optional<Observers<int>> observers{std::in_place};
    std::vector<std::string> calls;

    Subscription add(const std::string& name)
    {
        return observers->add([this, name](int value) { calls.push_back(name + std::to_string(value)); });
    }
};

} // namespace

TEST_F(ObserversTest, AnObserverEndsWithItsSubscription)
{
    Subscription first = add("first");
    {
        const Subscription second = add("second");
        observers->notify(1);
    }
    observers->notify(2);
    Subscription moved = std::move(first);
    observers->notify(3);
    moved = add("third");
    observers->notify(4);
    EXPECT_THAT(calls, ElementsAre("first1", "second1", "first2", "first3", "third4"));
    EXPECT_FALSE(observers->isEmpty());
    moved = {};
    observers->notify(5);
    EXPECT_EQ(calls.size(), 5u);
    EXPECT_TRUE(observers->isEmpty());
}

TEST_F(ObserversTest, ASubscriptionMayOutliveWhatItObserves)
{
    Subscription subscription = add("first");
    observers.reset();
    subscription = {};
    EXPECT_THAT(calls, IsEmpty());
}

TEST_F(ObserversTest, OneThatIsRemovedInARoundIsNotCalledAndOneThatIsAddedWaitsForTheNext)
{
    Subscription later;
    Subscription added;
    Subscription itself;
    itself = observers->add([&](int) {
        calls.push_back("first");
        later = {};
        added = add("added");
        itself = {};
    });
    later = add("later");
    const Subscription last = add("last");
    observers->notify(1);
    EXPECT_THAT(calls, ElementsAre("first", "last1"));
    calls.clear();
    observers->notify(2);
    EXPECT_THAT(calls, ElementsAre("last2", "added2"));
}

TEST_F(ObserversTest, WhatIsObservedMayGoInARound)
{
    const Subscription first = observers->add([&](int) { observers.reset(); });
    const Subscription second = add("second");
    observers->notify(1);
    EXPECT_THAT(calls, ElementsAre("second1"));
}

} // namespace Kovrel
