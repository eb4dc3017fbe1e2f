#include "history/records/HistoryMerge.h"
#include "history/records/Retention.h"

#include "history/records/HistoryLists.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace Kovrel {

namespace {

QUuid id(int number)
{
    return QUuid(uint(number), 0, 0x4000, 0x80, 0, 0, 0, 0, 0, 0, 1);
}

// Newest first is largest number first.
HistoryState state(std::vector<int> entries, std::vector<std::vector<int>> lists = {})
{
    HistoryState made;
    for (const int number : entries)
        made.entries << HistoryEntry{.id = id(number), .date = QDateTime(QDate(2024, 1, 1), QTime(0, 0, number))};
    for (int number = 1000; const auto& members : lists) {
        HistoryList list{.id = id(++number), .name = QString::number(number)};
        for (const int member : members)
            list.entryIDs.push_back(id(member));
        made.lists.push_back(list);
    }
    return made;
}

} // namespace

TEST(HistoryMergeTest, NothingThatEitherAddedIsLostAndNothingThatEitherRemovedComesBack)
{
    const struct {
        const char* what;
        HistoryState base, ours, theirs, merged;
    } cases[] = {
        {"nobody changed anything", state({2, 1}), state({2, 1}), state({2, 1}), state({2, 1})},
        {"both added", state({1}), state({4, 1}), state({5, 3, 1}), state({5, 4, 3, 1})},
        {"both removed", state({3, 2, 1}), state({3, 2}), state({2, 1}), state({2})},
        {"one starts with nothing", {}, state({3}), state({2, 1}), state({3, 2, 1})},
        {"the same was added by both", state({}), state({1}), state({1}), state({1})},
        {"members are added and removed", state({3, 2, 1}, {{1, 2}}), state({3, 2, 1}, {{2, 3}}),
         state({4, 3, 2, 1}, {{1, 2, 4}}), state({4, 3, 2, 1}, {{2, 3, 4}})},
        {"one capture is filed twice", state({1}, {{}, {}}), state({1}, {{1}, {}}), state({1}, {{}, {1}}),
         state({1}, {{1}, {}})},
        {"lists come and go", state({}, {{}, {}}), state({}, {{}}), state({}, {{}, {}, {}}),
         [] {
             HistoryState both = state({}, {{}, {}, {}});
             both.lists.erase(both.lists.begin() + 1);
             return both;
         }()},
    };

    for (const auto& one : cases)
        EXPECT_EQ(HistoryMerge::merged(one.base, one.ours, one.theirs), one.merged) << one.what;
}

TEST(HistoryMergeTest, AChangeOfEitherHoldsAndOursWins)
{
    const HistoryState base = state({2, 1}, {{}});
    HistoryState ours = base;
    HistoryState theirs = base;
    ours.entries[0].title = "ours";
    theirs.entries[0].title = "theirs";
    theirs.entries[1].title = "theirs";
    ours.lists[0].name = "ours";
    theirs.lists[0].name = "theirs";
    theirs.lists[0].colorHex = "#FF9F0A";
    const HistoryState merged = HistoryMerge::merged(base, ours, theirs);
    EXPECT_EQ(merged.entries[0].title, "ours");
    EXPECT_EQ(merged.entries[1].title, "theirs");
    EXPECT_EQ(merged.lists[0].name, "ours");
    EXPECT_EQ(merged.lists[0].colorHex, "#FF9F0A");
}

TEST(HistoryMergeTest, OnlyTheOldestThatAreInNoListAreTooMany)
{
    const HistoryState many = state({6, 5, 4, 3, 2, 1}, {{1, 5}});
    EXPECT_EQ(Retention::surplus(many, 2), (QSet{id(3), id(2)}));
    EXPECT_EQ(Retention::surplus(many, 4), QSet<QUuid>());
    for (const auto& [setting, cap] : {std::pair(0, 50), {-7, 50}, {1, 1}, {20000, 20000}})
        EXPECT_EQ(Retention::cap(setting), cap);
}

TEST(HistoryMergeTest, ListsGetNamesAndColoursOfTheirOwn)
{
    std::vector<HistoryList> lists;
    QStringList names;
    QStringList colors;
    for (int round = 0; round < 12; ++round) {
        lists.push_back(
            {.id = id(round), .name = HistoryLists::defaultName(lists), .colorHex = HistoryLists::nextColor(lists)});
        names << lists.back().name;
        colors << lists.back().colorHex;
    }
    EXPECT_EQ(names.mid(0, 3), (QStringList{"Untitled", "Untitled 2", "Untitled 3"}));
    EXPECT_EQ(QSet<QString>(colors.begin(), colors.begin() + 10).size(), 10);
    EXPECT_EQ(colors.mid(10), (QStringList{"#2F6BFF", "#5AC8FA"}));
    lists[1].name = "Mine";
    EXPECT_EQ(HistoryLists::defaultName(lists), "Untitled 2");
    HistoryLists::reorder(lists, id(0), 99);
    EXPECT_EQ(lists.back().id, id(0));
    HistoryLists::reorder(lists, id(0), 0);
    EXPECT_EQ(lists.front().id, id(0));
}

} // namespace Kovrel
