#include "settings/transfer/SettingsTransfer.h"

#include "tests/support/TempFolder.h"

#include <QFile>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace Kovrel {

using testing::ElementsAre;

namespace {

struct SettingsTransferTest : testing::Test {
    Testing::TempFolder folder;
    UserDefaults here{folder / "here.conf"};
    UserDefaults there{folder / "there.conf"};
    Preferences atHome{here};
    Preferences abroad{there};

    void SetUp() override
    {
        Preferences::registerDefaults(here);
        Preferences::registerDefaults(there);
    }

    void fillHome()
    {
        atHome.set(Settings::jpegQuality, 0.55);
        atHome.set(Settings::imageFormat, ImageFormat::heic);
        atHome.set(Settings::historyRetentionCount, 2000);
        atHome.set(Settings::saveFormatAuto, true);
        atHome.set(Settings::fileNameTemplate, "Bild \"%Y\" ü");
        atHome.set(Settings::textLanguages, {"de", "en"});
        atHome.set(Settings::hotkeyArea, KeyCombo{20, KeyCombo::command | KeyCombo::control});
        atHome.set(Settings::hotkeyWindow, std::nullopt);
        atHome.setSaveDirectory("/media/stick/Bilder & mehr");
        atHome.setToolColorHex("#123456", EditorTool::arrow);
    }
};

} // namespace

TEST_F(SettingsTransferTest, EverySettingArrivesAsItWasAndWhatWasNotSetIsNot)
{
    fillHome();
    abroad.set(Settings::soundVolume, 0.25);
    const auto content = SettingsTransfer::fromJson(SettingsTransfer::toJson(here));
    ASSERT_TRUE(content) << qPrintable(content.error());
    SettingsTransfer::apply(*content, there);
    EXPECT_EQ(abroad.get(Settings::jpegQuality), 0.55);
    EXPECT_EQ(abroad.get(Settings::imageFormat), ImageFormat::heic);
    EXPECT_EQ(abroad.get(Settings::historyRetentionCount), 2000);
    EXPECT_TRUE(abroad.get(Settings::saveFormatAuto));
    EXPECT_EQ(abroad.get(Settings::fileNameTemplate), "Bild \"%Y\" ü");
    EXPECT_THAT(abroad.get(Settings::textLanguages), ElementsAre("de", "en"));
    EXPECT_EQ(abroad.get(Settings::hotkeyArea), atHome.get(Settings::hotkeyArea));
    EXPECT_FALSE(abroad.get(Settings::hotkeyWindow));
    EXPECT_EQ(abroad.chosenSaveDirectory(), "/media/stick/Bilder & mehr");
    EXPECT_EQ(abroad.toolColorHex(EditorTool::arrow), "#123456");
    EXPECT_FALSE(abroad.isStored(Settings::soundVolume));
    EXPECT_FALSE(abroad.isStored(Settings::playToastSound));
}

TEST_F(SettingsTransferTest, WhatBelongsToOneComputerStaysThere)
{
    atHome.set(Settings::lastRunBuild, "12");
    atHome.set(Settings::takenDesktopShortcuts, "[]");
    abroad.set(Settings::hasCompletedOnboarding, true);
    const QByteArray json = SettingsTransfer::toJson(here);
    EXPECT_FALSE(json.contains("lastRunBuild"));
    EXPECT_FALSE(json.contains("takenDesktopShortcuts"));
    SettingsTransfer::apply(*SettingsTransfer::fromJson(json), there);
    EXPECT_TRUE(abroad.get(Settings::hasCompletedOnboarding));
}

TEST_F(SettingsTransferTest, AnythingElseIsRefusedInOneLine)
{
    fillHome();
    const QByteArray whole = SettingsTransfer::toJson(here);
    EXPECT_TRUE(SettingsTransfer::fromJson(whole.trimmed()));
    for (qsizetype length = 0; length < whole.trimmed().size(); ++length)
        EXPECT_FALSE(SettingsTransfer::fromJson(whole.first(length))) << length;

    const auto with = [](const QByteArray& settings, const QByteArray& version = "1") -> QByteArray {
        return "{\"format\":\"com.kovrel.settings\",\"version\":" + version + ",\"settings\":" + settings + '}';
    };
    for (const QByteArray& json :
         {QByteArray("{\"theme\":\"dark\",\"settings\":{}}"), QByteArray("[General]\njpegQuality=1\n"),
          QByteArray("\x89PNG\r\n"), with("{}", "2"), with("[]"), with(R"({"jpegQuality":"much"})"),
          with(R"({"imageFormat":"bmp"})"), with(R"({"saveFormatAuto":1})"), with(R"({"hotkeyArea":1.5})"),
          with(R"({"hotkeyArea":1e300})"), with(R"({"textLanguages":["de",1]})"), with(R"({"textLanguages":{}})")}) {
        const auto content = SettingsTransfer::fromJson(json);
        ASSERT_FALSE(content) << json.constData();
        EXPECT_FALSE(content.error().isEmpty() || content.error().contains('\n'));
    }
}

TEST_F(SettingsTransferTest, KeysOfAnotherVersionAreNamedAndLeftOut)
{
    const auto content = SettingsTransfer::fromJson(
        R"({"format":"com.kovrel.settings","version":1,"settings":{"future":3,"soundVolume":0.5,"jpegQuality.arrow":1}})");
    ASSERT_TRUE(content);
    EXPECT_THAT(content->unknown, ElementsAre("future", "jpegQuality.arrow"));
    SettingsTransfer::apply(*content, there);
    EXPECT_EQ(abroad.get(Settings::soundVolume), 0.5);
    EXPECT_FALSE(there.isStored("future"));
}

TEST_F(SettingsTransferTest, FilesThatCanNotBeReadOrWrittenSaySo)
{
    const QString file = folder / "settings.json";
    ASSERT_TRUE(SettingsTransfer::write(file, SettingsTransfer::toJson(here)));
    EXPECT_TRUE(SettingsTransfer::read(file));
    EXPECT_FALSE(SettingsTransfer::write(folder / "nowhere/settings.json", "{}"));
    for (const QString& path : {folder / "nowhere.json", folder.path(), QString("/dev/zero")})
        EXPECT_FALSE(SettingsTransfer::read(path)) << qPrintable(path);
}

} // namespace Kovrel
