#include "cards/PreviewDuration.h"
#include "settings/pages/CardsPage.h"
#include "settings/pages/HistoryPage.h"
#include "settings/pages/SavingPage.h"
#include "settings/pages/TextPage.h"
#include "tests/support/FakeMainLoop.h"
#include "tests/support/FakeWorkers.h"
#include "tests/support/TempFolder.h"
#include "tests/support/desktop/FakeFilePanel.h"

#include <QDir>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <unistd.h>

namespace Kovrel {

using testing::ElementsAre;

namespace {

struct SettingsPagesTest : testing::Test {
    Testing::TempFolder folder;
    Testing::FakeMainLoop loop;
    Testing::FakeWorkers workers;
    Testing::FakeFilePanel panel{loop};
    UserDefaults defaults{folder / "kovrel.conf"};
    Preferences preferences{defaults};
    int unsaved = 1;

    void SetUp() override { Preferences::registerDefaults(defaults); }

    static SettingRow rowOf(const std::vector<SettingsPage>& pages, const QString& key)
    {
        for (const SettingsPage& page : pages)
            for (const SettingGroup& group : page.groups)
                for (const SettingRow& row : group.rows)
                    if (row.binding.key == key)
                        return row;
        throw std::out_of_range(key.toStdString());
    }

    static QStringList titles(const SettingRow& row)
    {
        QStringList titles;
        for (const auto& option : std::get<SettingControls::Choice>(row.control).options)
            titles << option.title;
        return titles;
    }

    SettingRow historyRow(const QString& key)
    {
        return rowOf({HistoryPage::make({preferences, [this] { return unsaved; },
                                         [](int retention) { return retention < 100 ? 7 : 0; }})},
                     key);
    }

    SettingRemark folderRemark()
    {
        const auto pages = SavingPage::make({loop, workers, panel, preferences});
        std::optional<SettingRemark> remark;
        rowOf(pages, "saveLocationBookmark").remark([&](const SettingRemark& given) { remark = given; });
        workers.runAll();
        loop.runPosted();
        return remark.value_or(SettingRemark{"never", true});
    }
};

} // namespace

TEST_F(SettingsPagesTest, TheHistoryIsTurnedOffByWhoKnowsWhatGoes)
{
    const SettingRow row = historyRow("historyEnabled");
    EXPECT_FALSE(row.question(true));
    EXPECT_EQ(row.question(false)->text, "Turn off history and delete 1 unsaved capture?");
    EXPECT_EQ(row.question(false)->explanation,
              "Kovrel stops recording new captures, and recent captures you haven't saved are deleted. Saved captures "
              "stay in the list, and files on disk are not affected.");
    unsaved = 12;
    EXPECT_EQ(row.question(false)->text, "Turn off history and delete 12 unsaved captures?");
}

TEST_F(SettingsPagesTest, ASmallerHistoryAsksOnlyWhereCapturesGo)
{
    const SettingRow row = historyRow("historyRetentionCount");
    EXPECT_THAT(titles(row), ElementsAre("25 captures", "50 captures", "100 captures", "200 captures", "2,000 captures",
                                         "20,000 captures"));
    EXPECT_EQ(row.question(50)->text, "Delete the 7 oldest captures?");
    EXPECT_FALSE(row.question(200));
    preferences.set(Settings::historyRetentionCount, -3);
    EXPECT_EQ(row.binding.read(), 50);
    preferences.set(Settings::historyEnabled, false);
    EXPECT_FALSE(row.isEnabled());
}

TEST_F(SettingsPagesTest, CardsCloseAfterATimeOrNever)
{
    const SettingRow row =
        rowOf({CardsPage::make(preferences, PreviewDuration::helpText("Ctrl+Alt+Z"))}, "previewDurationSeconds");
    EXPECT_THAT(titles(row), ElementsAre("Close after 5 seconds", "Close after 10 seconds", "Close after 15 seconds",
                                         "Close after 30 seconds", "Keep previews until I close them"));
    EXPECT_EQ(row.hint, "A preview closes on its own once this runs out. Hovering one holds its countdown, and "
                        "Ctrl+Alt+Z brings back the last one that closed.");
    preferences.set(Settings::previewDurationSeconds, -70);
    EXPECT_EQ(row.binding.read(), std::get<SettingControls::Choice>(row.control).options.back().value);
}

TEST_F(SettingsPagesTest, EachActionAfterACaptureIsSetByItself)
{
    const auto pages = SavingPage::make({loop, workers, panel, preferences});
    const auto& rows = pages.front().groups.front().rows;
    ASSERT_EQ(rows.size(), 5u);
    rows[0].binding.write(false);
    rows[2].binding.write(true);
    rows[4].binding.write(true);
    EXPECT_EQ(preferences.get(Settings::afterCaptureActions).toInt(), 4 | 16);
    rows[2].binding.reset();
    rows[0].binding.reset();
    EXPECT_EQ(preferences.get(Settings::afterCaptureActions).toInt(), 1 | 16);
    EXPECT_TRUE(rows[4].binding.isChanged());
    EXPECT_FALSE(rows[0].binding.isChanged());
}

TEST_F(SettingsPagesTest, ATemplateShowsItsFileAndWhatIsWrongWithIt)
{
    const QDateTime date(QDate(2026, 3, 5), QTime(9, 7, 3));

    struct Case {
        QString fileNameTemplate;
        QString text;
        bool isWarning;
    };

    for (const auto& [fileNameTemplate, text, isWarning] :
         {Case{"%Y-%m-%d %H.%M.%S", "Example: 2026-03-05 09.07.03.png", false}, Case{"", "Example: Kovrel.png", false},
          Case{"a/b", "“/” can't be part of a name and becomes a hyphen. Example: a-b.png", true},
          Case{"%Y %x", "“%x” can't be part of a name and becomes a hyphen. Example: 2026 -x.png", true},
          Case{"50%", "“%” can't be part of a name and becomes a hyphen. Example: 50-.png", true},
          Case{QString(300, 'x'), "This name is too long for a file and is cut off.", true}})
        EXPECT_EQ(SavingPage::templateRemark(fileNameTemplate, "png", date), (SettingRemark{text, isWarning}))
            << qPrintable(fileNameTemplate);
}

TEST_F(SettingsPagesTest, AFolderThatCanNotBeUsedSaysWhereCapturesGo)
{
    EXPECT_EQ(folderRemark(), SettingRemark()) << "the usual one is made";
    preferences.setSaveDirectory(folder.path());
    EXPECT_EQ(folderRemark(), SettingRemark());
    preferences.setSaveDirectory(folder / "nowhere");
    EXPECT_TRUE(folderRemark().isWarning);
    EXPECT_TRUE(folderRemark().text.contains("Documents/Kovrel"));

    QDir(folder.path()).mkdir("locked");
    QFile::setPermissions(folder / "locked", QFile::ReadOwner | QFile::ExeOwner);
    preferences.setSaveDirectory(folder / "locked");
    if (::geteuid() != 0) // whom no permission stops
        EXPECT_TRUE(folderRemark().text.startsWith("Kovrel can't write to this folder."));
}

TEST(TextPage, OffersWhatIsThereAndNamesThePackagesOfTheRest)
{
    QStringList offered;
    for (const auto& [code, title, package] :
         TextPage::languages({"jpn", "eng", "deu", "chi_sim_vert"}, {"de-AT", "pt", "chi_tra"}, {"C", "en-US", "nb"}))
        offered << code + ' ' + package;
    EXPECT_THAT(offered, testing::UnorderedElementsAre("deu ", "eng ", "jpn ", "chi_sim_vert ", "por tesseract-ocr-por",
                                                       "chi_tra tesseract-ocr-chi-tra", "nor tesseract-ocr-nor"));
}

} // namespace Kovrel
