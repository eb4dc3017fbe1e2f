#include "feedback/FeedbackReport.h"

#include "tests/support/TempFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace Kovrel {

using testing::ElementsAre;

TEST(PersonalTraces, NothingTellsWhoWroteIt)
{
    const PersonalTraces traces("/home/Zoë K", "zoe");
    const std::pair<const char*, const char*> cases[] = {
        {"/home/Zoë K/Documents/a.png can't be opened", "~/Documents/a.png can't be opened"},
        {"in /home/Zoë K: full", "in ~: full"},
        {"/home/Zoë Kimber/a.png", "/home/Zoë Kimber/a.png"},
        {"file:///home/Zo%C3%AB%20K/a.png", "file://~/a.png"},
        {"/media/zoe/stick is full", "/media/(user)/stick is full"},
        {"zoe's desktop, zoey's desktop", "(user)'s desktop, zoey's desktop"},
        {"https://example.org/?q=mine could not be opened", "https://(hidden) could not be opened"},
        {"kovrel://auth-callback?state=1&token=abc", "kovrel://(hidden)"},
        {"refused token=s3cret&x=1", "refused token=(hidden)&x=1"},
        {"text 6F9619FF-8B86-D011-B42D-00CF4FC964FF: kept", "text (id): kept"},
        {"{6f9619ff8b86d011b42d00cf4fc964ff}", "{(id)}"},
        {"1920x1080 at 0,0", "1920x1080 at 0,0"},
    };
    for (const auto& [text, expected] : cases)
        EXPECT_EQ(traces.removed(QString::fromUtf8(text)), QString::fromUtf8(expected)) << text;
    EXPECT_EQ(PersonalTraces("/", "").removed("/a of zoe"), "/a of zoe") << "a user without home and name";
}

TEST(FeedbackReport, SettingsThatWereChangedAreToldWithoutWhatSomebodyTyped)
{
    const Testing::TempFolder folder;
    UserDefaults defaults(folder / "kovrel.conf");
    Preferences::registerDefaults(defaults);
    Preferences preferences(defaults);
    preferences.set(Settings::imageFormat, ImageFormat::jpeg);
    preferences.set(Settings::jpegQuality, 0.5);
    preferences.set(Settings::soundVolume, 1.0); // as it ships
    preferences.set(Settings::hotkeyArea, std::nullopt);
    preferences.set(Settings::fileNameTemplate, "Secret plan %Y");
    preferences.setSaveDirectory("/media/secret");
    preferences.set(Settings::textLanguages, {"secret"});
    preferences.setToolColorHex("#123456", EditorTool::arrow);
    EXPECT_THAT(FeedbackReport::changedSettings(defaults),
                ElementsAre("imageFormat = jpeg", "jpegQuality = 0.5", "fileNameTemplate is set",
                            "annotationColorHex.arrow is set", "hotkeyArea = none", "saveLocationBookmark is set",
                            "textLanguages is set"));
}

TEST(FeedbackReport, SaysWhatIsKnownLineByLine)
{
    const PersonalTraces traces("/home/zoe", "zoe");
    FeedbackReport::Facts facts{
        .version = "1.2 (build 3)",
        .system = "Debian 12, linux 6.1, x86_64",
        .desktop = "KDE",
        .sessionType = "x11",
        .isComposited = true,
        .displays = {{.name = "DP-1", .pixelRect = {0, 0, 3840, 2160}, .scale = 1.5, .isPrimary = true}},
        .libraries = {"Qt 6.4.2 on xcb"},
        .settings = {"jpegQuality = 0.5"},
        .log = {"09:07:03 warning com.kovrel.save: /home/zoe/a.png: full"}};
    EXPECT_EQ(FeedbackReport::text(facts, traces), "Kovrel 1.2 (build 3)\n"
                                                   "System: Debian 12, linux 6.1, x86_64\n"
                                                   "Desktop: KDE, x11 session, composited\n"
                                                   "Displays:\n  DP-1: 3840x2160 at 0,0, scale 1.5, primary\n"
                                                   "Libraries:\n  Qt 6.4.2 on xcb\n"
                                                   "Changed settings:\n  jpegQuality = 0.5\n"
                                                   "Log:\n  09:07:03 warning com.kovrel.save: ~/a.png: full\n");
    facts.log.clear();
    EXPECT_TRUE(FeedbackReport::text(facts, traces).endsWith("Log: none\n"));
}

} // namespace Kovrel
