#include "cards/chords/CardChordHotkeys.h"
#include "tests/support/FakeMainLoop.h"
#include "tests/support/LogLines.h"
#include "tests/support/desktop/FakeKeyGrabs.h"

#include <QWindow>

#include <gtest/gtest.h>

#include <qpa/qwindowsysteminterface.h>

namespace Kovrel {

namespace {

struct CardChordHotkeysTest : testing::Test {
    Testing::FakeMainLoop loop;
    Testing::FakeKeyGrabs keys;
    CardChordHotkeys chords{loop, keys};
    std::vector<CardChord> fired;

    void arm()
    {
        chords.arm([this](CardChord chord) { fired.push_back(chord); });
    }

    void own(const QString& combo) { keys.ownedByOthers.insert(KeyCombo::fromText(combo)->stored()); }
};

} // namespace

TEST_F(CardChordHotkeysTest, AreHadOnlyWhileACardIsHovered)
{
    EXPECT_FALSE(keys.press("Super+C"));
    arm();
    arm();
    EXPECT_EQ(keys.count(), 6u);
    for (const char* combo : {"Super+C", "Super+S", "Super+E", "Super+P", "Super+W", "Super+Alt+W"})
        EXPECT_TRUE(keys.press(combo)) << combo;
    using enum CardChord;
    EXPECT_EQ(fired, (std::vector{copy, save, edit, pin, close, closeAll}));
    keys.press("Super+C", true);
    EXPECT_EQ(fired.size(), 6u) << "a key that is held down is one press";
    chords.release();
    EXPECT_EQ(keys.count(), 0u);
}

TEST_F(CardChordHotkeysTest, AHandlerMayLetThemGo)
{
    int count = 0;
    chords.arm([&](CardChord) {
        ++count;
        chords.release();
    });
    keys.press("Super+W");
    EXPECT_FALSE(keys.press("Super+W"));
    EXPECT_EQ(count, 1);
}

TEST_F(CardChordHotkeysTest, AWindowOfOursKeepsItsKeys)
{
    auto editor = std::make_unique<QWindow>();
    const auto focus = [&](QWindow* window) {
        QWindowSystemInterface::handleWindowActivated<QWindowSystemInterface::SynchronousDelivery>(window);
        loop.runPosted();
    };
    focus(editor.get());
    arm();
    EXPECT_EQ(keys.count(), 0u);
    focus(nullptr);
    EXPECT_EQ(keys.count(), 6u);
    focus(editor.get());
    EXPECT_EQ(keys.count(), 0u);
    editor.reset();
    loop.runPosted();
    EXPECT_EQ(keys.count(), 6u) << "it took the focus along";
    chords.release();
    loop.runPosted();
    EXPECT_EQ(keys.count(), 0u);
}

TEST_F(CardChordHotkeysTest, WhereTheDesktopHasOneTheSameLetterWithControlDoesIt)
{
    own("Super+P");
    own("Super+E");
    own("Ctrl+E");
    EXPECT_EQ(chords.keysOf(CardChord::pin)->text(), "Super+P") << "before anything is known";
    const Testing::LogLines lines;
    arm();
    EXPECT_EQ(chords.keysOf(CardQuickAction::pin)->text(), "Ctrl+P");
    EXPECT_FALSE(chords.keysOf(CardQuickAction::edit));
    EXPECT_FALSE(chords.keysOf(CardQuickAction::rotateLeft));
    EXPECT_TRUE(keys.press("Ctrl+P"));
    EXPECT_EQ(fired, std::vector{CardChord::pin});
    EXPECT_EQ(keys.count(), 5u);
    ASSERT_EQ(Testing::LogLines::lines().size(), 3);
    EXPECT_EQ(Testing::LogLines::lines()[2], "com.kovrel.cards: Kovrel: card chord Super+P unavailable (status 10)");

    chords.release();
    arm();
    EXPECT_EQ(Testing::LogLines::lines().size(), 3) << "said once, not with each card";
    keys.ownedByOthers.clear();
    keys.layoutChanged();
    loop.runPosted();
    EXPECT_EQ(chords.keysOf(CardChord::edit)->text(), "Super+E");
}

} // namespace Kovrel
