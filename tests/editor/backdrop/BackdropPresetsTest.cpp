#include "editor/backdrop/BackdropPresets.h"
#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>

namespace Kovrel {

namespace {

struct BackdropPresetsTest : testing::Test {
    Testing::TempFolder folder;
    UserDefaults defaults{folder / "kovrel.conf"};
    Preferences preferences{defaults};

    static EditorBackdrop padded(double padding)
    {
        EditorBackdrop backdrop;
        backdrop.padding = padding;
        return backdrop;
    }

    QStringList names() const
    {
        QStringList all;
        for (const BackdropPreset& preset : BackdropPresets::stored(preferences))
            all.append(preset.name);
        return all;
    }
};

} // namespace

TEST_F(BackdropPresetsTest, AreKeptInTheOrderInWhichTheyWereSaved)
{
    EXPECT_TRUE(BackdropPresets::stored(preferences).empty());
    BackdropPresets::save({"Talk", padded(0.1)}, preferences);
    BackdropPresets::save({" Größe 🎉 ", padded(0.2)}, preferences);
    BackdropPresets::save({"Talk", padded(0.3)}, preferences);
    EXPECT_EQ(names(), (QStringList{"Talk", "Größe 🎉"}));
    EXPECT_EQ(BackdropPresets::stored(preferences)[0].backdrop, padded(0.3));
    BackdropPresets::remove("Talk", preferences);
    EXPECT_EQ(names(), QStringList{"Größe 🎉"});
}

TEST_F(BackdropPresetsTest, NothingIsSavedWithoutANameOrABackdrop)
{
    BackdropPresets::save({"  ", padded(0.1)}, preferences);
    BackdropPresets::save({"None", EditorBackdrop::none}, preferences);
    EXPECT_TRUE(names().isEmpty());
}

TEST_F(BackdropPresetsTest, ABadEntryLosesOnlyItself)
{
    preferences.set(Settings::backdropPresets, R"([{"name": "one", "backdrop": {}}, 7, {"name": 3, "backdrop": {}},
        {"name": "two", "backdrop": {"padding": "x"}}, {"name": "three"}, {"name": "four", "backdrop": {"blur": 1}}])");
    EXPECT_EQ(names(), (QStringList{"one", "four"}));
    for (const QByteArray json : {"{}", "[", "", "null", "\xff"}) {
        preferences.set(Settings::backdropPresets, json);
        EXPECT_TRUE(names().isEmpty()) << json.constData();
    }
}

TEST_F(BackdropPresetsTest, TheLastOneIsRememberedAndElseANewOne)
{
    EXPECT_EQ(BackdropPresets::last(preferences), EditorBackdrop());
    BackdropPresets::setLast(padded(0.4), preferences);
    EXPECT_EQ(BackdropPresets::last(preferences), padded(0.4));
    BackdropPresets::setLast(EditorBackdrop::none, preferences);
    EXPECT_EQ(BackdropPresets::last(preferences), EditorBackdrop::none);
    preferences.set(Settings::lastBackdrop, "{");
    EXPECT_EQ(BackdropPresets::last(preferences), EditorBackdrop());
}

TEST_F(BackdropPresetsTest, ARenamedOneStaysWhereItIs)
{
    for (const char* const name : {"One", "Two", "Three"})
        BackdropPresets::save({name, padded(0.1)}, preferences);

    const struct {
        const char* from;
        const char* to;
        std::vector<QString> expected;
    } cases[] = {
        {"Two", " Second ", {"One", "Second", "Three"}},
        {"Second", " ", {"One", "Second", "Three"}},
        {"Nobody", "Other", {"One", "Second", "Three"}},
        {"One", "One", {"One", "Second", "Three"}},
        {"Three", "One", {"Second", "One"}},
    };

    for (const auto& [from, to, expected] : cases) {
        BackdropPresets::rename(from, to, preferences);
        EXPECT_EQ(names(), QStringList(expected.begin(), expected.end())) << from << " to " << to;
    }
}

} // namespace Kovrel
