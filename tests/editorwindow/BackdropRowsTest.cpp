#include "editorwindow/backdrop/BackdropRows.h"

#include "editor/backdrop/BackdropCatalogue.h"
#include "tests/support/TempFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace Kovrel {

namespace {

using testing::ElementsAre;

constexpr auto gradients = BackdropChips::gradients;
constexpr auto colors = BackdropChips::colors;
constexpr auto pictures = BackdropChips::pictures;

struct BackdropRowsTest : testing::Test {
    BackdropRowsTest() { Preferences::registerDefaults(defaults); }

    // The ids of the first ones that are shown.
    QStringList first(BackdropChips row, int count) const
    {
        QStringList ids;
        for (const BackdropChip& chip : BackdropRows::shown(row, preferences))
            ids << chip.id;
        return ids.first(count);
    }

    BackdropChip last(BackdropChips row) const { return BackdropRows::shown(row, preferences).back(); }

    Testing::TempFolder folder;
    UserDefaults defaults{folder / "kovrel.conf"};
    Preferences preferences{defaults};
};

} // namespace

TEST_F(BackdropRowsTest, StandInTheOrderThatTheUserGaveThem)
{
    ASSERT_THAT(first(gradients, 4), ElementsAre("lagoon", "dawn", "dusk", "orchid"));

    const struct {
        const char* id;
        int place;
        std::vector<QString> expected;
    } moves[] = {
        {"lagoon", 2, {"dawn", "dusk", "lagoon", "orchid"}},     {"orchid", 0, {"orchid", "dawn", "dusk", "lagoon"}},
        {"dawn", 1, {"orchid", "dawn", "dusk", "lagoon"}},       {"dusk", -3, {"dusk", "orchid", "dawn", "lagoon"}},
        {"unheard of", 0, {"dusk", "orchid", "dawn", "lagoon"}},
    };

    for (const auto& [id, place, expected] : moves) {
        BackdropRows::move(gradients, id, place, preferences);
        EXPECT_THAT(first(gradients, 4), testing::ElementsAreArray(expected)) << id << " to " << place;
    }
    BackdropRows::move(gradients, "dusk", 1000, preferences);
    EXPECT_EQ(last(gradients).id, "dusk");
    EXPECT_EQ(first(colors, 1), QStringList(BackdropCatalogue::colors().front().id)) << "each row has its own";
}

// What a later version adds, or an earlier one knew, does not disturb what is stored.
TEST_F(BackdropRowsTest, AStoredOrderNeedNotBeComplete)
{
    preferences.setBackdropRowOrder({"dusk", "gone", "dusk", "lagoon"}, gradients);
    EXPECT_THAT(first(gradients, 4), ElementsAre("dusk", "lagoon", "dawn", "orchid"));
    EXPECT_EQ(BackdropRows::shown(gradients, preferences).size(), BackdropCatalogue::gradients().size());
}

TEST_F(BackdropRowsTest, WhatIsHiddenComesBackToItsPlace)
{
    EXPECT_FALSE(BackdropRows::hasHidden(gradients, preferences));
    BackdropRows::hide(gradients, "dawn", preferences);
    EXPECT_TRUE(BackdropRows::hasHidden(gradients, preferences));
    EXPECT_THAT(first(gradients, 3), ElementsAre("lagoon", "dusk", "orchid"));
    BackdropRows::move(gradients, "orchid", 1, preferences);
    EXPECT_THAT(first(gradients, 3), ElementsAre("lagoon", "orchid", "dusk"));
    BackdropRows::restore(gradients, preferences);
    EXPECT_THAT(first(gradients, 4), ElementsAre("lagoon", "dawn", "orchid", "dusk"));
}

TEST_F(BackdropRowsTest, TheUsersOwnAreAddedOnceAndForgottenWhenTheyAreRemoved)
{
    const struct {
        BackdropChips row;
        const char* value;
        BackdropChip expected;
    } additions[] = {
        {colors, "#1a2b3c", {"#1A2B3C", "#1A2B3C", {BackdropFill::Kind::color, "#1A2B3C"}, true}},
        {pictures,
         "/home/me/sea.jpg",
         {"/home/me/sea.jpg", "sea", {BackdropFill::Kind::picture, "/home/me/sea.jpg"}, true}},
    };

    for (const auto& [row, value, expected] : additions) {
        const auto before = BackdropRows::shown(row, preferences);
        for (const char* const text : {value, value, "neither a colour nor a path"})
            BackdropRows::addOwn(row, text, preferences);
        EXPECT_EQ(BackdropRows::shown(row, preferences).size(), before.size() + 1);
        EXPECT_EQ(last(row), expected);
        BackdropRows::move(row, expected.id, 0, preferences);
        EXPECT_EQ(first(row, 1), QStringList(expected.id));
        BackdropRows::hide(row, expected.id, preferences);
        EXPECT_EQ(BackdropRows::shown(row, preferences), before);
        EXPECT_FALSE(BackdropRows::hasHidden(row, preferences)) << "it is gone";
    }
    EXPECT_TRUE(preferences.get(Settings::backdropCustomColors).isEmpty());
}

} // namespace Kovrel
