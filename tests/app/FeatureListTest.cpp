#include "app/Application.h"
#include "preferences/PreferenceTable.h"
#include "tests/support/EventLoop.h"
#include "tests/support/PaintedScreen.h"
#include "tests/support/Patterns.h"
#include "tests/support/TempFolder.h"
#include "tests/support/VirtualDisplay.h"

#include <QFileInfo>

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
    expect({"annotate", shot, "--output", marked}, {"Annotating"});
    EXPECT_EQ(run({"codes", shot}).exitCode, GetParam() == "Reading" ? CommandLine::failed : CommandLine::nothingThere);
    expect({"sign-out"}, {"Account"});
    EXPECT_EQ(run({"capture", "fullScreen"}).exitCode, exitOfACaptureWhenSignedOut());
}

INSTANTIATE_TEST_SUITE_P(Features, LeftOutTest, testing::ValuesIn(namesOfFeatures()),
                         [](const auto& info) { return "Without" + info.param; });

// A key on two pages could be changed in one and show its old value in the other.
TEST(FeatureList, EachSettingIsOnOnePageAtMost)
{
    const Testing::VirtualDisplay display;
    qputenv("DISPLAY", display.name());
    Foundation foundation(Foundation::Kind::instance);
    Ports ports;
    QStringList keys;
    for (const auto& feature : FeatureList::make(FeatureList::all(), foundation, ports))
        for (const SettingsPage& page : feature->settingsPages()) {
            EXPECT_FALSE(page.title.isEmpty());
            for (const QString& key : page.keys) {
                EXPECT_TRUE(PreferenceTable::find(key)) << qPrintable(key);
                EXPECT_FALSE(keys.contains(key)) << qPrintable(key);
                keys << key;
            }
        }
    EXPECT_FALSE(keys.isEmpty());
}

} // namespace Kovrel
