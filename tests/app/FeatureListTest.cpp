#include "app/Application.h"
#include "commandline/CommandTable.h"
#include "preferences/PreferenceTable.h"
#include "tests/support/EventLoop.h"
#include "tests/support/PaintedScreen.h"
#include "tests/support/Patterns.h"
#include "tests/support/TempFolder.h"
#include "tests/support/VirtualDisplay.h"

#include <QDirIterator>
#include <QFileInfo>
#include <QRegularExpression>

#include <gtest/gtest.h>

namespace Kovrel {

namespace {

std::vector<std::string> namesOfFeatures()
{
    std::vector<std::string> names;
    for (const FeatureEntry& entry : FeatureList::all())
        names.emplace_back(entry.name);
    return names;
}

// The program with one of its features left out, on a display of its own.
struct LeftOutTest : testing::TestWithParam<std::string> {
    LeftOutTest()
    {
        for (const char* folder : {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME"})
            qputenv(folder, files.path().toUtf8());
        qputenv("DISPLAY", display.name());
        screen.setRootPicture(Testing::pattern({1280, 800}));
        for (const FeatureEntry& entry : FeatureList::all())
            if (entry.name != GetParam())
                features.push_back(entry);
        kovrel.emplace(Launch{.isLoginItem = true, .build = "1", .version = "1"}, features);
        kovrel->start();
    }

    CommandAnswer run(const QStringList& arguments)
    {
        std::optional<CommandAnswer> answer;
        kovrel->run(arguments, [&answer](const CommandAnswer& given) { answer = given; });
        EXPECT_TRUE(Testing::waitFor([&] { return answer.has_value(); })) << qPrintable(arguments.join(' '));
        return answer.value_or(CommandAnswer{.exitCode = -1});
    }

    // A command works unless its own feature, or one that it can't do without, is absent: then it says so.
    void expect(const QStringList& arguments, const std::vector<std::string>& needed)
    {
        const CommandAnswer answer = run(arguments);
        const bool isPossible = std::ranges::find(needed, GetParam()) == needed.end();
        EXPECT_EQ(answer.exitCode, isPossible ? CommandLine::done : CommandLine::failed)
            << qPrintable(arguments.join(' ') + ": " + answer.error);
        EXPECT_EQ(answer.error.isEmpty(), isPossible) << qPrintable(arguments.join(' '));
    }

    static int exitOfACaptureWhenSignedOut()
    {
        if (GetParam() == "Capture")
            return CommandLine::failed;
        return GetParam() == "Account" ? CommandLine::done : CommandLine::refused;
    }

    Testing::VirtualDisplay display;
    Testing::PaintedScreen screen{display.name()};
    Testing::TempFolder files;
    std::vector<FeatureEntry> features;
    std::optional<Application> kovrel;
};

} // namespace

TEST_P(LeftOutTest, TheOthersWorkAndWhatIsAbsentSaysSo)
{
    const QString shot = files / "shot.png";
    const QString marked = files / "marked.png";
    expect({"preferences", "get", "jpegQuality"}, {"Preferences"});
    expect({"sign-in", "--local"}, {"Account"});
    expect({"capture", "fullScreen", "--output", shot}, {"Capture", "Saving"});
    expect({"capture", "area", "--rect", "10,10,40,30", "--copy"}, {"Capture", "Saving"});
    EXPECT_EQ(QFileInfo::exists(shot), GetParam() != "Capture" && GetParam() != "Saving");
    Testing::pattern({80, 60}).save(shot);
    expect({"pin", shot}, {"Pins"});
    expect({"settings"}, {"Settings"});
    expect({"feedback"}, {"Feedback"});
    expect({"color", shot, "1", "1"}, {"Picking"});
    expect({"annotate", shot, "--output", marked}, {"Annotating"});
    EXPECT_EQ(run({"codes", shot}).exitCode, GetParam() == "Reading" ? CommandLine::failed : CommandLine::nothingThere);
    expect({"sign-out"}, {"Account"});
    EXPECT_EQ(run({"capture", "fullScreen"}).exitCode, exitOfACaptureWhenSignedOut());
}

INSTANTIATE_TEST_SUITE_P(Features, LeftOutTest, testing::ValuesIn(namesOfFeatures()),
                         [](const auto& info) { return "Without" + info.param; });

// --- What can be set

namespace {

// Settings without a row in the window, and why.
const std::pair<const char*, const char*> withoutRow[] = {
    {"backdropLooksExpanded", "the backdrop panel's own"},
    {"backdropGradientsExpanded", "the backdrop panel's own"},
    {"backdropPicturesExpanded", "the backdrop panel's own"},
    {"backdropColorsExpanded", "the backdrop panel's own"},
    {"lastBackdrop", "the backdrop panel's own"},
    {"backdropPresets", "the backdrop panel's own"},
    {"backdropCustomColors", "the backdrop panel's own"},
    {"backdropPictureOrder", "the backdrop panel's own"},
    {"backdropColorOrder", "the backdrop panel's own"},
    {"backdropGradientOrder", "the backdrop panel's own"},
    {"backdropPicturesHidden", "the backdrop panel's own"},
    {"backdropColorsHidden", "the backdrop panel's own"},
    {"backdropGradientsHidden", "the backdrop panel's own"},
    {"savedSwatches", "kept and forgotten where colours are chosen"},
    {"lastEditorTool", "the tool that was used last"},
    {"redactTool", "the tool that was used last"},
    {"declinedMoveToApplications", "an answer that was given once"},
    {"hasCompletedOnboarding", "seen once"},
    {"measureHintSeen", "seen once"},
    {"liveTextHintSeen", "seen once"},
    {"defaultEditorNudgeShown", "seen once"},
    {"selectionHintShownCount", "seen once"},
    {"lastRunBuild", "of the program's life"},
    {"settingsSelectedTab", "the window's own"},
    {"editorWindowSize", "the window's own"},
    {"historyWindowSize", "the window's own"},
    {"NSInitialToolTipDelay", "for those who know that they need it"},
    {"notedTextLanguages", "a note of what text was read in"},
    {"textLanguagesChosen", "a note of what text was read in"},
    {"kovrelDisabledNativeHotKeys", "a note of what is borrowed"},
};

// Settings that nothing reads, and why.
const std::pair<const char*, const char*> unread[] = {
    {"declinedMoveToApplications", "another desktop's: there is no such folder here"},
};

template <class List>
bool has(const List& list, const QString& key)
{
    return std::ranges::any_of(list, [&](const auto& entry) { return key == QLatin1StringView(entry.first); });
}

// What every source says but for the table itself and the window in which settings are changed.
QByteArray sources()
{
    QByteArray text;
    QDirIterator files(SOURCE_FOLDER, {"*.h", "*.cpp"}, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString path = files.next().mid(qsizetype(std::strlen(SOURCE_FOLDER)));
        QFile file(SOURCE_FOLDER + path);
        if (!path.startsWith("/settings/pages/") && !path.startsWith("/settings/rows/") &&
            !path.startsWith("/settings/transfer/") && path != "/preferences/Settings.h" &&
            path != "/preferences/PreferenceTable.cpp" && file.open(QIODevice::ReadOnly))
            text += file.readAll();
    }
    return text;
}

// The names of the typed keys by those in the file, as the table has them.
QHash<QString, QString> namesOfKeys()
{
    QFile file(QString(SOURCE_FOLDER) + "/preferences/PreferenceTable.cpp");
    QHash<QString, QString> names;
    if (!file.open(QIODevice::ReadOnly))
        return names;
    static const QRegularExpression row(R"re(Settings::(\w+) =[^"]*"([^"]+)")re");
    for (auto rows = row.globalMatch(QString::fromUtf8(file.readAll())); rows.hasNext();) {
        const auto match = rows.next();
        names.insert(match.captured(2), match.captured(1));
    }
    return names;
}

} // namespace

TEST(SettingsTest, EachHasARowOrAReasonAndTheRowOfAnotherOneIsElsewhere)
{
    const Testing::VirtualDisplay display;
    qputenv("DISPLAY", display.name());
    Foundation foundation(Foundation::Kind::instance);
    Ports ports;
    QHash<QString, int> rows;
    QStringList labels;
    for (const auto& feature : FeatureList::make(FeatureList::all(), foundation, ports))
        for (const SettingsPage& page : feature->settingsPages())
            for (const SettingGroup& group : page.groups)
                for (const SettingRow& row : group.rows) {
                    EXPECT_FALSE(labels.contains(row.label)) << qPrintable(row.label);
                    labels << row.label;
                    ++rows[row.binding.key];
                }
    for (const Setting& setting : PreferenceTable::settings()) {
        const int usual = setting.key == Settings::afterCaptureActions.name ? 5 : 1; // a row for each bit
        EXPECT_EQ(rows.take(setting.key), has(withoutRow, setting.key) ? 0 : usual) << setting.key;
    }
    rows.remove(QString()); // what is kept elsewhere
    EXPECT_TRUE(rows.isEmpty()) << "rows of settings that are none";
}

TEST(SettingsTest, EachIsReadOrThereIsAReason)
{
    const QByteArray text = sources();
    const QHash<QString, QString> names = namesOfKeys();
    for (const Setting& setting : PreferenceTable::settings()) {
        ASSERT_TRUE(names.contains(setting.key)) << setting.key;
        EXPECT_NE(text.contains(QByteArray("Settings::" + names.value(setting.key).toUtf8())), has(unread, setting.key))
            << setting.key;
    }
}

TEST(SettingsTest, TheCommandKnowsTheTabsOfTheWindow)
{
    std::vector<std::string> tabs;
    tabs.reserve(RawStrings<SettingsTab>::table.size());
    for (const auto& [tab, name] : RawStrings<SettingsTab>::table)
        tabs.emplace_back(name);
    EXPECT_EQ(CommandTable::find("settings")->choices, tabs);
}

} // namespace Kovrel
