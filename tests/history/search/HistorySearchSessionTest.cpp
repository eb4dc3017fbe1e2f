#include "history/search/HistorySearchSession.h"

#include "tests/support/FakeMainLoop.h"
#include "tests/support/FakeWorkers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace Kovrel {

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

struct HistorySearchSessionTest : testing::Test {
    Testing::FakeMainLoop loop;
    Testing::FakeWorkers workers;
    HistoryTextIndex index{loop, workers};
    std::vector<HistorySearchSession::Result> results;
    std::unique_ptr<HistorySearchSession> session = std::make_unique<HistorySearchSession>(
        loop, workers, index, [this](HistorySearchSession::Result result) { results.push_back(std::move(result)); });
    HistorySearchSession::Entries entries = std::make_shared<const std::vector<HistoryEntry>>(
        std::vector{made("area", "Notes"), made("window", "Mail"), made("window", "Notes")});

    static HistoryEntry made(const char* mode, const char* app)
    {
        return {
            .id = QUuid::createUuid(), .mode = QString::fromLatin1(mode), .sourceAppName = QString::fromLatin1(app)};
    }

    void settle()
    {
        do
            loop.runPosted();
        while (workers.runAll() > 0);
    }

    // What the latest search has found, after all that was asked has been answered.
    HistorySearchEngine::Rows rows()
    {
        settle();
        return results.empty() ? HistorySearchEngine::Rows{99} : results.back().rows;
    }
};

} // namespace

TEST_F(HistorySearchSessionTest, QueryAndFilterNarrowTogether)
{
    session->setEntries(entries);
    EXPECT_THAT(rows(), ElementsAre(0, 1, 2));
    session->setQuery("notes");
    EXPECT_THAT(rows(), ElementsAre(0, 2));
    HistoryFilter windows;
    windows.toggle({HistoryFacet::Kind{"window"}});
    session->setFilter(windows, {});
    EXPECT_THAT(rows(), ElementsAre(2));
    session->setQuery("");
    EXPECT_THAT(rows(), ElementsAre(1, 2));
    EXPECT_EQ(results.back().entries, entries);
}

TEST_F(HistorySearchSessionTest, OnlyTheLatestSearchIsToldOf)
{
    session->setEntries(entries);
    session->setQuery("m");
    session->setQuery("mail");
    settle();
    ASSERT_EQ(results.size(), 1U);
    EXPECT_THAT(results.back().query.terms, ElementsAre("mail"));
    session->setQuery("n");
    workers.runAll(); // found, but another letter comes before it is told
    session->setQuery("no");
    settle();
    EXPECT_EQ(results.size(), 2U);
    EXPECT_THAT(results.back().query.terms, ElementsAre("no"));
    session->setQuery("no "); // the same
    settle();
    EXPECT_EQ(results.size(), 2U);
}

TEST_F(HistorySearchSessionTest, WordsAndCapturesThatComeLaterAreFound)
{
    session->setEntries(entries);
    session->setQuery("invoice");
    EXPECT_THAT(rows(), IsEmpty());
    index.set({{.text = "Invoice 7"}}, (*entries)[1].id);
    EXPECT_THAT(rows(), ElementsAre(1));
    auto more = *entries;
    more.insert(more.begin(), made("area", "Invoices"));
    session->setEntries(std::make_shared<const std::vector<HistoryEntry>>(more));
    EXPECT_THAT(rows(), ElementsAre(0, 2));
    index.remove((*entries)[1].id);
    EXPECT_THAT(rows(), ElementsAre(0));
}

TEST_F(HistorySearchSessionTest, NobodyIsToldAfterItsEnd)
{
    session->setEntries(entries);
    workers.runAll();
    session.reset();
    settle();
    EXPECT_THAT(results, IsEmpty());
}

} // namespace Kovrel
