#include "preferences/Preferences.h"
#include "preferences/PreferenceTable.h"
#include "tests/support/FakeMainLoop.h"
#include "tests/support/FakeWorkers.h"
#include "tests/support/FileSizeLimit.h"
#include "tests/support/TempFolder.h"

#include <QFile>
#include <QUrl>

#include <gtest/gtest.h>

namespace Kovrel {

namespace {

struct PreferencesTest : testing::Test {
    Testing::TempFolder folder;
    QString path = folder / "kovrel.conf";

    void write(const QByteArray& content) const
    {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
    }
};

} // namespace

TEST_F(PreferencesTest, RegisteredDefaultsReadButWriteNothing)
{
    UserDefaults defaults(path);
    Preferences::registerDefaults(defaults);
    EXPECT_EQ(defaults.integer("afterCaptureActions"), 1);
    EXPECT_EQ(defaults.real("previewDurationSeconds"), 5.0);
    EXPECT_EQ(defaults.text("fileNameTemplate"), "Screenshot %Y-%m-%d at %H.%M.%S");
    EXPECT_EQ(defaults.integer("hotkeyArea"), 0x3000000 + 21);
    EXPECT_EQ(defaults.integer("hotkeyPickColor"), 0x18000000 + 8);
    EXPECT_FALSE(defaults.boolean("traceCapture"));
    EXPECT_FALSE(QFile::exists(path));

    defaults.set("selfTimerSeconds", 3);
    Preferences::registerDefaults(defaults);
    EXPECT_EQ(defaults.integer("selfTimerSeconds"), 3) << "registering again overrode the user's value";
}

TEST_F(PreferencesTest, EveryValueSurvivesTheFile)
{
    const QHash<QString, QVariant> values{
        {"imageFormat", "jpeg"},
        {"jpegQuality", 0.25},
        {"selfTimerSeconds", 7},
        {"saveFormatAuto", true},
        {"fileNameTemplate", "a, b; %Y"},
        {"savedSwatches", QStringList{"#FF0000"}},
        {"backdropCustomColors", QStringList{"#1", "#2"}},
        {"lastBackdrop", QByteArray("{\"a\":\0}", 7)},
        {"hotkeyArea", 0x3000000 + 21},
        {"annotationColorHex.arrow", "#00FF00"},
    };
    {
        UserDefaults defaults(path);
        for (auto it = values.begin(); it != values.end(); ++it)
            defaults.set(it.key(), it.value());
    }
    const UserDefaults read(path);
    EXPECT_EQ(read.text("imageFormat"), "jpeg");
    EXPECT_EQ(read.real("jpegQuality"), 0.25);
    EXPECT_EQ(read.integer("selfTimerSeconds"), 7);
    EXPECT_TRUE(read.boolean("saveFormatAuto"));
    EXPECT_EQ(read.text("fileNameTemplate"), "a, b; %Y");
    EXPECT_EQ(read.textList("savedSwatches"), QStringList{"#FF0000"});
    EXPECT_EQ(read.textList("backdropCustomColors"), (QStringList{"#1", "#2"}));
    EXPECT_EQ(read.data("lastBackdrop"), QByteArray("{\"a\":\0}", 7));
    EXPECT_EQ(read.integer("hotkeyArea"), 0x3000000 + 21);
    EXPECT_EQ(read.text("annotationColorHex.arrow"), "#00FF00");
}

TEST_F(PreferencesTest, WrongTypesReadAsTheDefault)
{
    write("[General]\nselfTimerSeconds=soon\njpegQuality=nan\nsaveFormatAuto=maybe\nimageFormat=@ByteArray(png)\n"
          "hideChromeFromRecordings=7\nwindowBackdropStyle=paisley\nhotkeyArea=-4\nfileNameTemplate=a, b\n");
    UserDefaults defaults(path);
    Preferences::registerDefaults(defaults);
    const Preferences preferences(defaults);
    EXPECT_EQ(defaults.integer("selfTimerSeconds"), 5);
    EXPECT_EQ(defaults.real("jpegQuality"), 0.9);
    EXPECT_FALSE(defaults.boolean("saveFormatAuto"));
    EXPECT_EQ(defaults.text("imageFormat"), "png");
    EXPECT_TRUE(defaults.boolean("hideChromeFromRecordings"));
    EXPECT_EQ(preferences.get(Settings::windowBackdropStyle), WindowBackdropStyle::wallpaper);
    EXPECT_FALSE(preferences.get(Settings::hotkeyArea));
    EXPECT_EQ(preferences.get(Settings::fileNameTemplate), "a, b");
}

TEST_F(PreferencesTest, DamagedFileKeepsWhatCanBeReadAndACopy)
{
    const QByteArray damaged = "[General]\nselfTimerSeconds=9\njpegQuality=0.5\nima";
    write(damaged);
    UserDefaults defaults(path);
    EXPECT_EQ(defaults.integer("selfTimerSeconds"), 9);
    defaults.set("jpegQuality", 0.75);
    EXPECT_EQ(UserDefaults(path).integer("selfTimerSeconds"), 9);

    QStringList copies = folder.files().filter("unreadable");
    ASSERT_EQ(copies.size(), 1);
    QFile copy(folder / copies.first());
    ASSERT_TRUE(copy.open(QIODevice::ReadOnly));
    EXPECT_EQ(copy.readAll(), damaged);
}

TEST_F(PreferencesTest, UnwritableFileHoldsForThisRun)
{
    const QString blocked = (folder / "file") + "/kovrel.conf";
    QFile file(folder / "file");
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    UserDefaults defaults(blocked);
    defaults.set("selfTimerSeconds", 8);
    EXPECT_EQ(defaults.integer("selfTimerSeconds"), 8);
}

TEST_F(PreferencesTest, WhatCouldNotBeWrittenIsWrittenWithTheNextChange)
{
    Testing::FakeMainLoop loop;
    Testing::FakeWorkers workers;
    UserDefaults defaults(path, loop, workers);
    QList<bool> writes;
    const Subscription seen = defaults.onWrite([&] { writes << defaults.lastWrite().has_value(); });
    const auto run = [&] {
        workers.runAll();
        loop.runPosted();
    };
    {
        const Testing::FileSizeLimit full(0);
        defaults.set("selfTimerSeconds", 7);
        defaults.set("imageFormat", "jpeg");
        run();
        defaults.set("selfTimerSeconds", 8);
        run();
    }
    EXPECT_FALSE(QFile::exists(path));
    UserDefaults(path).set("jpegQuality", 0.5);
    defaults.remove("imageFormat");
    run();
    EXPECT_EQ(writes, (QList<bool>{false, false, false, true}));
    UserDefaults(path).set("selfTimerSeconds", 9);
    defaults.set("saveFormatAuto", true);
    run();
    const UserDefaults read(path);
    EXPECT_EQ(read.integer("selfTimerSeconds"), 9) << "what the file has is written once";
    EXPECT_FALSE(read.isStored("imageFormat"));
    EXPECT_EQ(read.real("jpegQuality"), 0.5);
}

TEST_F(PreferencesTest, TheFileIsWrittenOnAWorkerAndKeepsOthersChanges)
{
    Testing::FakeMainLoop loop;
    Testing::FakeWorkers workers;
    UserDefaults defaults(path, loop, workers);
    QStringList changed;
    const Subscription changes = defaults.onChange([&](const QString& key) { changed << key; });
    defaults.set("selfTimerSeconds", 8);
    EXPECT_EQ(defaults.integer("selfTimerSeconds"), 8);
    EXPECT_FALSE(QFile::exists(path));
    UserDefaults(path).set("jpegQuality", 0.5);
    workers.runAll();
    EXPECT_EQ(UserDefaults(path).integer("selfTimerSeconds"), 8);
    EXPECT_EQ(UserDefaults(path).real("jpegQuality"), 0.5);
    EXPECT_EQ(changed, QStringList{"selfTimerSeconds"});
}

TEST_F(PreferencesTest, ValuesAreStoredInTheFormOfTheirType)
{
    UserDefaults defaults(path);
    Preferences preferences(defaults);
    preferences.set(Settings::imageFormat, ImageFormat::heic);
    preferences.set(Settings::afterCaptureActions, AfterCaptureAction::copy | AfterCaptureAction::save);
    preferences.set(Settings::hotkeyArea, KeyCombo{21, KeyCombo::command});
    preferences.set(Settings::hotkeyWindow, {});
    preferences.set(Settings::annotationFillStyle.of(EditorTool::rectangle), AnnotationFillStyle::hatched);
    EXPECT_EQ(defaults.text("imageFormat"), "heic");
    EXPECT_EQ(defaults.integer("afterCaptureActions"), 6);
    EXPECT_EQ(defaults.integer("hotkeyArea"), 0x1000000 + 21);
    EXPECT_TRUE(defaults.isStored("hotkeyWindow"));
    EXPECT_EQ(defaults.integer("hotkeyWindow"), 0);
    EXPECT_EQ(defaults.text("annotationFillStyle.rectangle"), "hatched");
}

TEST_F(PreferencesTest, ValuesOfNoUseReadAsTheNearestOrTheRegisteredOne)
{
    UserDefaults defaults(path);
    Preferences::registerDefaults(defaults);
    const Preferences preferences(defaults);
    defaults.set("captureSound", "unheard-of");
    defaults.set("annotationTextStyle", "unheard-of");
    defaults.set("historyRetentionCount", qint64(1) << 40);
    EXPECT_EQ(preferences.get(Settings::captureSound), CaptureSound::pop);
    EXPECT_EQ(preferences.get(Settings::annotationTextStyle), AnnotationTextStyle::bubble);
    EXPECT_EQ(preferences.get(Settings::historyRetentionCount), std::numeric_limits<int>::max());
}

TEST_F(PreferencesTest, ToolSettingsFallBackToolByTool)
{
    UserDefaults defaults(path);
    Preferences::registerDefaults(defaults);
    Preferences preferences(defaults);
    preferences.set(Settings::annotationColorHex, "#112233");
    preferences.set(Settings::annotationFillStyle, AnnotationFillStyle::hatched);

    struct Case {
        EditorTool tool;
        const char* color;
        AnnotationFillStyle fill;
    };

    for (const Case& c : {Case{EditorTool::arrow, "#112233", AnnotationFillStyle::hatched},
                          Case{EditorTool::text, "#FFDC2C", AnnotationFillStyle::hatched},
                          Case{EditorTool::highlighter, "#FFDC2C", AnnotationFillStyle::hatched},
                          Case{EditorTool::rectangle, "#112233", AnnotationFillStyle::outline},
                          Case{EditorTool::rectangleFilled, "#112233", AnnotationFillStyle::filled}}) {
        EXPECT_EQ(preferences.toolColorHex(c.tool), QString(c.color));
        EXPECT_EQ(preferences.toolFillStyle(c.tool), c.fill);
        EXPECT_EQ(preferences.toolStrokeWidth(c.tool), 4.0);
    }
    preferences.setToolColorHex("#ABCDEF", EditorTool::text);
    preferences.setToolFillStyle(AnnotationFillStyle::translucent, EditorTool::rectangle);
    preferences.set(Settings::annotationStrokeWidth.of(EditorTool::rectangle), 9.0);
    EXPECT_EQ(preferences.toolColorHex(EditorTool::text), "#ABCDEF");
    EXPECT_EQ(preferences.toolFillStyle(EditorTool::rectangle), AnnotationFillStyle::translucent);
    EXPECT_EQ(preferences.toolStrokeWidth(EditorTool::rectangleFilled), 9.0);
    EXPECT_EQ(preferences.get(Settings::annotationTextStyle), AnnotationTextStyle::bubble);
}

TEST_F(PreferencesTest, SelfTimerBelowOneCountsAsFive)
{
    UserDefaults defaults(path);
    Preferences::registerDefaults(defaults);
    const Preferences preferences(defaults);
    for (const auto& [stored, seconds] : {std::pair{0, 5}, {-3, 5}, {1, 1}, {12, 12}}) {
        defaults.set("selfTimerSeconds", stored);
        EXPECT_EQ(preferences.selfTimerSeconds(), seconds);
    }
}

TEST_F(PreferencesTest, SaveFolderThatIsGoneFallsBackToTheDefault)
{
    UserDefaults defaults(path);
    Preferences preferences(defaults);
    EXPECT_EQ(preferences.resolvedSaveDirectory(), Preferences::defaultSaveDirectory());
    preferences.setSaveDirectory(folder.path());
    EXPECT_EQ(preferences.resolvedSaveDirectory(), folder.path());
    preferences.setSaveDirectory(folder / "gone");
    EXPECT_EQ(preferences.resolvedSaveDirectory(), Preferences::defaultSaveDirectory());
    defaults.set("saveLocationBookmark", QByteArray("%%%"));
    EXPECT_EQ(preferences.resolvedSaveDirectory(), Preferences::defaultSaveDirectory());
}

TEST(PreferenceTable, KnowsEachKeyOnceAndTheToolsOwn)
{
    QSet<QString> keys;
    for (const Setting& setting : PreferenceTable::settings()) {
        EXPECT_FALSE(keys.contains(setting.key)) << setting.key;
        keys.insert(setting.key);
        if (setting.registered.isValid() && !setting.choices.isEmpty())
            EXPECT_TRUE(setting.choices.contains(setting.registered.toString())) << setting.key;
    }
    EXPECT_EQ(PreferenceTable::registeredDefaults().size(), 51);
    EXPECT_TRUE(PreferenceTable::find("annotationFillStyle.rectangle"));
    EXPECT_FALSE(PreferenceTable::find("annotationFillStyle.spoon"));
    EXPECT_FALSE(PreferenceTable::find("jpegQuality.arrow"));
    EXPECT_FALSE(PreferenceTable::find("nonsense"));
}

} // namespace Kovrel
