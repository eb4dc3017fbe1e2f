#include "history/search/HistoryFilter.h"

#include "history/search/HistoryFilterSuggestions.h"

#include <QTimeZone>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace Kovrel {

using Kind = HistoryDateRange::Kind;
using testing::ElementsAre;

namespace {

const QTimeZone berlin("Europe/Berlin");

QDateTime inBerlin(const char* time)
{
    QDateTime date = QDateTime::fromString(QString::fromLatin1(time), "yyyy-MM-dd HH:mm");
    date.setTimeZone(berlin);
    return date;
}

HistoryFacet kind(const char* mode)
{
    return {HistoryFacet::Kind{QString::fromLatin1(mode)}};
}

HistoryFacet app(const char* name, const char* bundle = nullptr)
{
    return {HistoryFacet::App{bundle ? std::optional(QString::fromLatin1(bundle)) : std::nullopt,
                              QString::fromLatin1(name)}};
}

HistoryEntry entry(const char* name, const char* bundle, const char* mode = "area",
                   const QDateTime& date = inBerlin("2026-11-20 12:00"))
{
    HistoryEntry made{.id = QUuid::createUuid(), .date = date, .mode = QString::fromLatin1(mode)};
    if (name)
        made.sourceAppName = QString::fromLatin1(name);
    if (bundle)
        made.sourceBundleID = QString::fromLatin1(bundle);
    return made;
}

HistoryFilter filterOf(const std::vector<HistoryFacet>& facets)
{
    HistoryFilter filter;
    for (const HistoryFacet& facet : facets)
        filter.toggle(facet);
    return filter;
}

std::vector<std::string> titles(const std::vector<HistoryFacetOptions::Option>& options)
{
    std::vector<std::string> all;
    for (const auto& option : options)
        all.push_back(option.title.toStdString() + " " + std::to_string(option.count));
    return all;
}

} // namespace

TEST(HistoryFilterTest, FacetsOfASectionAddUpAndSectionsNarrow)
{
    const HistoryList list{.id = QUuid::createUuid()};
    HistoryList filed = list;
    const HistoryEntry listed = entry("Files", "org.files", "window");
    filed.entryIDs = {listed.id};
    const auto context = HistoryFacetContext::of({filed}, inBerlin("2026-11-20 18:00"));
    const HistoryFacet today{HistoryDateRange(Kind::today)};
    const HistoryFacet yesterday{HistoryDateRange(Kind::yesterday)};

    const struct {
        std::vector<HistoryFacet> facets;
        HistoryEntry entry;
        bool matches;
    } cases[] = {
        {{}, entry(nullptr, nullptr), true},
        {{kind("window")}, entry("A", nullptr, "window"), true},
        {{kind("window")}, entry("A", nullptr, "area"), false},
        {{kind("window"), kind("area")}, entry("A", nullptr, "area"), true},
        {{app("Anything", "org.a")}, entry("A", "org.a"), true},
        {{app("A", "org.a")}, entry("A", "org.b"), false},
        {{app("A")}, entry("A", nullptr), true},
        {{app("A")}, entry("A", "org.a"), false}, // it is known by its identifier
        {{app("org.a")}, entry("B", "org.a"), true},
        {{app("")}, entry(nullptr, nullptr), false},
        {{app("A"), app("B")}, entry("B", nullptr), true},
        {{app("A"), app("B"), today}, entry("B", nullptr), true},
        {{app("A"), app("B"), yesterday}, entry("B", nullptr), false},
        {{app("A"), app("B"), today}, entry("C", nullptr), false},
        {{{HistoryFacet::List{list.id}}}, listed, true},
        {{{HistoryFacet::List{list.id}}}, entry("Files", "org.files"), false},
        {{{HistoryFacet::List{QUuid::createUuid()}}}, listed, false},
        {{{HistoryFacet::List{list.id}}, kind("area")}, listed, false},
    };

    for (const auto& one : cases)
        EXPECT_EQ(filterOf(one.facets).matches(one.entry, context), one.matches) << &one - cases;
}

TEST(HistoryFilterTest, DaysBeginAndEndByTheClockOfTheUser)
{
    const struct {
        const char* now;
        const char* range;
        QDateTime date;
        bool contains;
    } cases[] = {
        {"2026-11-21 00:00", "today", inBerlin("2026-11-21 00:00"), true},
        {"2026-11-21 00:00", "today", inBerlin("2026-11-20 23:59"), false},
        {"2026-11-21 23:59", "today", inBerlin("2026-11-22 00:00"), false},
        {"2026-11-21 00:00", "yesterday", inBerlin("2026-11-20 00:00"), true},
        {"2026-11-21 00:00", "yesterday", inBerlin("2026-11-21 00:00"), false},
        {"2026-11-21 12:00", "7d", inBerlin("2026-11-15 00:00"), true},
        {"2026-11-21 12:00", "7d", inBerlin("2026-11-14 23:59"), false},
        {"2026-11-21 12:00", "7d", inBerlin("2026-11-25 00:00"), true}, // the clock was set back
        {"2026-11-21 12:00", "30d", inBerlin("2026-10-23 00:00"), true},
        {"2026-11-21 12:00", "30d", inBerlin("2026-10-22 23:59"), false},
        {"2026-11-21 12:00", "2026", inBerlin("2026-01-01 00:00"), true},
        {"2026-11-21 12:00", "2026", inBerlin("2027-01-01 00:00"), false},
        {"2026-11-21 12:00", "2024-02", inBerlin("2024-02-29 23:59"), true},
        {"2026-11-21 12:00", "2024-02", inBerlin("2024-03-01 00:00"), false},
        {"2026-11-21 12:00", "2026-11-21", inBerlin("2026-11-21 23:59"), true},
        {"2026-11-21 12:00", "2026-11-21", inBerlin("2026-11-20 23:59"), false},
        // A day of 25 hours, and one of 23.
        {"2026-10-25 12:00", "today", QDateTime({2026, 10, 24}, {22, 0}, Qt::UTC), true},
        {"2026-10-25 12:00", "today", QDateTime({2026, 10, 25}, {22, 59}, Qt::UTC), true},
        {"2026-10-25 12:00", "today", QDateTime({2026, 10, 25}, {23, 0}, Qt::UTC), false},
        {"2026-03-29 12:00", "today", QDateTime({2026, 3, 28}, {22, 59}, Qt::UTC), false},
        {"2026-03-29 12:00", "today", QDateTime({2026, 3, 29}, {21, 59}, Qt::UTC), true},
        {"2026-03-29 12:00", "today", QDateTime({2026, 3, 29}, {22, 0}, Qt::UTC), false},
        // Elsewhere it is another day.
        {"2026-11-21 12:00", "today", QDateTime({2026, 11, 20}, {18, 30}, Qt::OffsetFromUTC, -5 * 3600), true},
        {"2026-11-21 12:00", "today", QDateTime({2026, 11, 21}, {7, 30}, Qt::OffsetFromUTC, 9 * 3600), false},
        {"2026-11-21 12:00", "2026", QDateTime(), false},
    };

    for (const auto& one : cases) {
        const auto range = HistoryDateRange::parse(one.range);
        ASSERT_TRUE(range) << one.range;
        EXPECT_EQ(range->span(inBerlin(one.now)).contains(one.date), one.contains)
            << one.range << " " << one.date.toString(Qt::ISODate).toStdString();
    }
    for (const char* text : {"", "tomorrow", "8d", "202", "2026-13", "2026-02-30", "2026-11-", " today", "26"})
        EXPECT_FALSE(HistoryDateRange::parse(text)) << text;
}

TEST(HistoryFilterTest, FacetsComeAndGoInOrder)
{
    HistoryFilter filter;
    filter.removeLast();
    EXPECT_TRUE(filter.isEmpty());
    filter = filterOf({kind("area"), app("A"), kind("window")});
    filter.toggle(app("A"));
    EXPECT_THAT(filter.facets(), ElementsAre(kind("area"), kind("window")));
    filter.removeLast();
    EXPECT_THAT(filter.facets(), ElementsAre(kind("area")));
    filter.remove(kind("window"));
    filter.remove(kind("area"));
    EXPECT_TRUE(filter.isEmpty());
}

namespace {

struct SuggestionsTest : testing::Test {
    QDateTime now = inBerlin("2026-11-20 18:00");
    HistoryList empty{.id = QUuid::createUuid(), .name = "Wishes", .colorHex = "#2F6BFF"};
    std::vector<HistoryEntry> entries{
        entry("Firefox", "org.firefox", "window"), entry("Firefox", "org.firefox"), entry("Files", nullptr, "window"),
        entry("Terminal", "org.terminal", "fullScreen", inBerlin("2026-11-16 09:00")), entry(nullptr, nullptr)};
    std::vector<HistoryFacetOptions::Option> options = HistoryFacetOptions::of(entries, {empty}, now);
    HistoryFilterSuggestions field;

    SuggestionsTest() { field.setOptions(options); }
};

} // namespace

TEST_F(SuggestionsTest, OptionsAreCounted)
{
    EXPECT_THAT(titles(options), ElementsAre("Area 2", "Window 2", "Full Screen 1", "Firefox 2", "Files 1",
                                             "Terminal 1", "Wishes 0", "Today 4", "Last 7 Days 5", "Last 30 Days 5"));
    EXPECT_EQ(options[6].colorHex, "#2F6BFF");
}

TEST_F(SuggestionsTest, WhatIsTypedChoosesRows)
{
    const struct {
        QString text;
        std::vector<std::string> rows;
    } cases[] = {
        {"FIL", {"Files 1"}},
        {"fi", {"Files 1", "Firefox 2"}}, // the shorter fits better, though fewer have it
        {"w", {"Window 2", "Wishes 0"}},
        {"7", {"Last 7 Days 5"}},
        {"zz", {}},
    };

    for (const auto& one : cases) {
        field.setText(one.text);
        const auto rows = titles(field.rows());
        EXPECT_EQ(std::set(rows.begin(), rows.end()), std::set(one.rows.begin(), one.rows.end()))
            << one.text.toStdString();
    }
    field.setText("");
    EXPECT_EQ(titles(field.rows()), titles(options));
}

TEST_F(SuggestionsTest, ARowBecomesAChip)
{
    EXPECT_FALSE(field.commitHighlight());
    field.setText("fire");
    field.moveHighlight(1);
    EXPECT_EQ(field.highlight(), 0U);
    EXPECT_TRUE(field.commitHighlight());
    EXPECT_EQ(field.text(), "");
    EXPECT_THAT(field.filter().facets(), ElementsAre(app("Firefox", "org.firefox")));
    EXPECT_THAT(titles(field.rows()), testing::Not(testing::Contains("Firefox 2")));
    EXPECT_EQ(field.highlight(), std::nullopt);
    field.removeLast();
    EXPECT_EQ(titles(field.rows()), titles(options));
}

TEST_F(SuggestionsTest, TheHighlightStopsAtTheEndsAndStaysOnItsRow)
{
    field.moveHighlight(-1);
    EXPECT_EQ(field.highlight(), 9U);
    field.moveHighlight(1);
    EXPECT_EQ(field.highlight(), 9U);
    field.moveHighlight(-100);
    EXPECT_EQ(field.highlight(), 0U);
    field.moveHighlight(3);
    options.erase(options.begin());
    field.setOptions(options);
    EXPECT_EQ(field.highlight(), 2U);
    field.setText("zz");
    EXPECT_EQ(field.highlight(), std::nullopt);
    field.moveHighlight(1);
    EXPECT_EQ(field.highlight(), std::nullopt);
}

TEST_F(SuggestionsTest, ASectionOffersFewRows)
{
    for (int count = 0; count < 9; ++count)
        entries.push_back(entry(qPrintable("Firefly " + QString::number(count)), nullptr));
    field.setOptions(HistoryFacetOptions::of(entries, {}, now));
    field.setText("fire");
    EXPECT_EQ(field.rows().size(), HistoryFacetSuggestions::mostOfSection);
}

} // namespace Kovrel
