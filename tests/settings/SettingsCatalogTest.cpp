#include "settings/rows/SettingsCatalog.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace Kovrel {

using testing::ElementsAre;

namespace {

SettingRow row(const QString& label, const QString& hint = {}, const QString& keywords = {})
{
    return {.label = label, .control = SettingControls::Toggle(), .hint = hint, .keywords = keywords};
}

const SettingsCatalog catalog({
    {.tab = SettingsTab::history, .groups = {{.title = "Recent", .rows = {row("Keep captures", "On this computer")}}}},
    {.tab = SettingsTab::general, .groups = {{.title = "Empty", .rows = {}}}},
    {.tab = SettingsTab::capture,
     .groups = {{.title = "Größe", .rows = {row("Self-timer", {}, "delay"), row("Pointer", "The mouse")}}}},
    {.tab = SettingsTab::capture, .groups = {{.title = "Windows", .rows = {row("Shadow of the pointer")}}}},
});

QStringList labels(const std::vector<SettingsPage>& pages)
{
    QStringList found;
    for (const SettingsPage& page : pages)
        for (const SettingGroup& group : page.groups)
            for (const SettingRow& one : group.rows)
                found << one.label;
    return found;
}

} // namespace

TEST(SettingsCatalog, PagesOfATabAreOneAndThoseWithNothingAreNone)
{
    ASSERT_EQ(catalog.pages().size(), 2u);
    EXPECT_EQ(catalog.pages()[0].tab, SettingsTab::capture);
    EXPECT_THAT(labels({catalog.pages()[0]}), ElementsAre("Self-timer", "Pointer", "Shadow of the pointer"));
    EXPECT_EQ(catalog.page(SettingsTab::general), nullptr);
    EXPECT_EQ(catalog.page(SettingsTab::history), &catalog.pages()[1]);
}

TEST(SettingsCatalog, FindsEveryWordInWhatIsReadOfARow)
{
    struct Case {
        const char* query;
        QStringList found;
    };

    const QStringList allOfCapture{"Self-timer", "Pointer", "Shadow of the pointer"};
    for (const auto& [query, found] :
         {Case{"pointer", {"Pointer", "Shadow of the pointer"}}, Case{"  POINTER shadow ", {"Shadow of the pointer"}},
          Case{"mouse", {"Pointer"}}, Case{"delay", {"Self-timer"}}, Case{"grobe", {}},
          Case{"GROßE", {"Self-timer", "Pointer"}}, Case{"windows", {"Shadow of the pointer"}},
          Case{"capture", allOfCapture + QStringList{"Keep captures"}}, Case{"history computer", {"Keep captures"}},
          Case{"pointer computer", {}}, Case{"", {}}, Case{"   ", {}}})
        EXPECT_EQ(labels(catalog.matching(query)), found) << query;
}

} // namespace Kovrel
