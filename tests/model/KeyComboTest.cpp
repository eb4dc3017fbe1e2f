#include "model/KeyCombo.h"

#include <gtest/gtest.h>

namespace Kovrel {

TEST(KeyCombo, StoredFormIsMaskAndCode)
{
    const KeyCombo area{21, KeyCombo::command | KeyCombo::shift};
    EXPECT_EQ(area.stored(), 0x3000000 + 21);
    EXPECT_EQ(KeyCombo::fromStored(0x3000000 + 21), area);
    for (const qint64 none : {qint64(0), qint64(-5), qint64(1) << 48, qint64(1) << 62})
        EXPECT_FALSE(KeyCombo::fromStored(none)) << none;
}

TEST(KeyCombo, TextFormRoundTrips)
{
    for (const char* text :
         {"Super+Shift+4", "Ctrl+Alt+C", "Print", "Super+Ctrl+Alt+Shift+F12", "Alt+#200", "Pause", "Alt+ScrollLock",
          "Menu", "Shift+F13", "F16", "F24", "Super+KP0", "KPAdd", "VolumeMute", "MediaPrevious", "Super+<"}) {
        const auto combo = KeyCombo::fromText(text);
        ASSERT_TRUE(combo) << text;
        EXPECT_EQ(combo->text(), QString(text));
    }
    EXPECT_EQ(KeyCombo::fromText("shift + super + 4")->text(), "Super+Shift+4");
    EXPECT_EQ(KeyCombo::fromText("print")->stored(), 105);
    EXPECT_EQ(KeyCombo::fromText("f24")->keyCode, KeyCombo::firstLinuxKey + 194) << "as Linux numbers it";
    for (const char* bad : {"", "Super+", "Hyper+4", "Super+Nope", "#x", "#70000"})
        EXPECT_FALSE(KeyCombo::fromText(bad)) << bad;
}

TEST(KeyCombo, AHotkeyLeavesTypingAlone)
{
    for (const char* text : {"Print", "F5", "F16", "F24", "Super+A", "Shift+Print", "Ctrl+Space"})
        EXPECT_TRUE(KeyCombo::fromText(text)->canBeHotkey()) << text;
    for (const char* text : {"A", "4", "Space", "Return", "Left"})
        EXPECT_FALSE(KeyCombo::fromText(text)->canBeHotkey()) << text;
}

} // namespace Kovrel
