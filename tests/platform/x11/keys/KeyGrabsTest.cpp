#include "platform/x11/keys/X11KeyGrabs.h"

#include "model/VirtualKeys.h"
#include "tests/support/EventLoop.h"
#include "tests/support/FakeMainLoop.h"
#include "tests/support/TestKeyboard.h"
#include "tests/support/VirtualDisplay.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace Kovrel {

using testing::ElementsAre;
using Testing::TestKeyboard;
using Testing::waitFor;
using namespace std::chrono_literals;

namespace {

constexpr KeyCombo area{21, KeyCombo::command | KeyCombo::shift};
constexpr KeyCombo color{8, KeyCombo::control | KeyCombo::option};
constexpr KeyCombo escape{53, 0};
constexpr int anyLocks = XCB_MOD_MASK_LOCK | XCB_MOD_MASK_2;

struct KeyGrabsTest : testing::Test {
    using Log = std::vector<std::string>;

    Testing::VirtualDisplay server{{640, 480}};
    TestKeyboard keyboard{server.name()};
    Testing::FakeMainLoop loop;
    X11KeyGrabs grabs{loop, std::make_unique<X11Connection>(server.name())};
    Log log;

    // Logs "name", "name again" while it is held, "name up".
    std::expected<KeyGrabs::GrabID, KeyGrabs::Status> grab(KeyCombo combo, const std::string& name,
                                                           KeyGrabs::Modifiers modifiers = KeyGrabs::Modifiers::exact)
    {
        return grabs.grab(
            combo,
            {.onPress = [this, name](KeyGrabs::Press press) { log.push_back(press.isRepeat ? name + " again" : name); },
             .onRelease = [this, name](KeyGrabs::Time) { log.push_back(name + " up"); }},
            modifiers);
    }

    // What came of all keys typed so far. The mark is typed last.
    Log takeLog()
    {
        static constexpr KeyCombo mark{111, KeyCombo::control}; // F12
        const auto id =
            grabs.grab(mark, {.onPress = [this](KeyGrabs::Press) { log.push_back("mark"); }}, KeyGrabs::Modifiers::any);
        EXPECT_TRUE(id);
        keyboard.type({96});
        EXPECT_TRUE(waitFor([&] { return !log.empty() && log.back() == "mark"; }));
        grabs.release(*id);
        log.pop_back();
        return std::exchange(log, {});
    }
};

const KeyGrabsTest::Log once{"area", "area up"};

} // namespace

TEST_F(KeyGrabsTest, AHotkeyIsPressedOnceWhateverIsLockedOrHeldByOthers)
{
    ASSERT_TRUE(grab(area, "area"));
    const std::vector<xcb_keycode_t> keys{TestKeyboard::super, TestKeyboard::shift, TestKeyboard::digit4};
    keyboard.type(keys);
    EXPECT_EQ(takeLog(), once);
    keyboard.type({TestKeyboard::capsLock});
    keyboard.type(keys);
    EXPECT_EQ(takeLog(), once) << "Caps Lock";
    keyboard.type({TestKeyboard::numLock});
    keyboard.type(keys);
    EXPECT_EQ(takeLog(), once) << "Caps Lock and Num Lock";
    keyboard.type({TestKeyboard::capsLock});
    keyboard.type(keys);
    EXPECT_EQ(takeLog(), once) << "Num Lock";

    ASSERT_TRUE(keyboard.holdKeyboard());
    keyboard.type(keys);
    EXPECT_EQ(takeLog(), once) << "a menu is open";
    keyboard.letKeyboardGo();

    for (const auto& others : {std::vector<xcb_keycode_t>{TestKeyboard::shift, TestKeyboard::digit4},
                               {TestKeyboard::super, TestKeyboard::control, TestKeyboard::shift, TestKeyboard::digit4},
                               {TestKeyboard::super, TestKeyboard::shift, TestKeyboard::digit3}})
        keyboard.type(others);
    EXPECT_EQ(takeLog(), Log());
}

TEST_F(KeyGrabsTest, AHeldKeyTellsThatItRepeats)
{
    ASSERT_TRUE(grab(escape, "escape"));
    keyboard.press(TestKeyboard::escape);
    ASSERT_TRUE(waitFor([&] { return log.size() >= 3; }));
    keyboard.release(TestKeyboard::escape);
    ASSERT_TRUE(waitFor([&] { return log.back() == "escape up"; }));
    EXPECT_EQ(log[0], "escape");
    for (size_t index = 1; index + 1 < log.size(); ++index)
        EXPECT_EQ(log[index], "escape again");
    log.clear();
    keyboard.type({TestKeyboard::escape});
    EXPECT_THAT(takeLog(), ElementsAre("escape", "escape up"));
}

namespace {

struct Case {
    QStringList layout;
    const char* combo;
    std::vector<xcb_keycode_t> keys;
};

// Combinations and the keys that are pressed for them.
std::vector<Case> cases()
{
    using enum TestKeyboard::Key;
    return {
        {{"us"}, "Super+Shift+4", {super, shift, digit4}},
        {{"fr"}, "Super+Shift+4", {super, shift, digit4}}, // Shift is what types the 4 there
        {{"fr"}, "Super+4", {super, digit4}},
        {{"us", "-variant", "dvorak"}, "Ctrl+Alt+C", {control, alt, placeOfI}},
        {{"us,us", "-variant", ",dvorak"}, "Ctrl+Alt+C", {control, alt, placeOfC}},
        {{"ru"}, "Ctrl+Alt+C", {control, alt, placeOfC}},    // no key bears a C
        {{"ru,us"}, "Ctrl+Alt+C", {control, alt, placeOfC}}, // one does in the other group
        {{"us", "-option", "altwin:swap_alt_win"}, "Super+Shift+S", {alt, shift, placeOfS}},
        {{"us", "-option", ""}, "Print", {print}},
        {{"us"}, "Super+KP4", {super, keypad4}},
        {{"us"}, "Shift+F13", {shift, 191}},
        {{"us"}, "Super+F21", {super, 199}},
        {{"us"}, "MediaPlay", {172}},
        {{"us"}, "#473", {225}}, // KEY_SEARCH
    };
}

} // namespace

TEST_F(KeyGrabsTest, CombinationsAreTheKeysThatBearTheirSymbols)
{
    for (const Case& c : cases()) {
        keyboard.setLayout(QStringList{"-layout"} + c.layout);
        X11KeyGrabs fresh(loop, std::make_unique<X11Connection>(server.name()));
        int presses = 0;
        ASSERT_TRUE(fresh.grab(*KeyCombo::fromText(c.combo), {.onPress = [&](KeyGrabs::Press) { ++presses; }}));
        keyboard.type(c.keys);
        takeLog();
        EXPECT_TRUE(waitFor([&] { return presses == 1; })) << qPrintable(c.layout.join(' ')) << ", " << c.combo;
    }
}

TEST_F(KeyGrabsTest, GrabsFollowTheLayoutWhileTheProgramRuns)
{
    int changes = 0;
    const Subscription layoutChanges = grabs.onLayoutChange([&] { ++changes; });
    ASSERT_TRUE(grab(color, "color"));
    const std::vector<xcb_keycode_t> usual{TestKeyboard::control, TestKeyboard::alt, TestKeyboard::placeOfC};
    const std::vector<xcb_keycode_t> dvorak{TestKeyboard::control, TestKeyboard::alt, TestKeyboard::placeOfI};
    const auto both = [&] {
        keyboard.type(usual);
        keyboard.type(dvorak);
        return takeLog().size() == 2 && keyboard.grab(TestKeyboard::placeOfI, XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_1);
    };
    EXPECT_TRUE(both());
    keyboard.ungrab(TestKeyboard::placeOfI, XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_1);

    keyboard.setLayout({"us", "-variant", "dvorak"});
    ASSERT_TRUE(waitFor([&] { return changes > 0; }));
    EXPECT_FALSE(both()) << "the other key is taken now";
    EXPECT_TRUE(keyboard.grab(TestKeyboard::placeOfC, XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_1)) << "the old one is free";
    keyboard.ungrab(TestKeyboard::placeOfC, XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_1);

    keyboard.setLayout({"us,us", "-variant", "dvorak,"});
    const int before = changes;
    keyboard.setGroup(1);
    ASSERT_TRUE(waitFor([&] { return changes > before; }));
    EXPECT_TRUE(both()) << "the user went over to the second layout";
}

TEST_F(KeyGrabsTest, WhatAnotherProgramOwnsIsRefused)
{
    ASSERT_TRUE(keyboard.grab(TestKeyboard::digit4, XCB_MOD_MASK_4 | XCB_MOD_MASK_SHIFT));
    const auto refused = grab(area, "area");
    ASSERT_FALSE(refused);
    EXPECT_EQ(refused.error(), XCB_ACCESS);
    EXPECT_TRUE(keyboard.grab(TestKeyboard::digit4, XCB_MOD_MASK_4 | XCB_MOD_MASK_SHIFT | XCB_MOD_MASK_LOCK))
        << "nothing of it is kept";
    keyboard.ungrab(TestKeyboard::digit4, XCB_MOD_MASK_4 | XCB_MOD_MASK_SHIFT);
    keyboard.ungrab(TestKeyboard::digit4, XCB_MOD_MASK_4 | XCB_MOD_MASK_SHIFT | XCB_MOD_MASK_LOCK);

    const auto granted = grab(area, "area");
    ASSERT_TRUE(granted);
    for (const int locks : {0, int(XCB_MOD_MASK_LOCK), int(XCB_MOD_MASK_2), anyLocks})
        EXPECT_FALSE(keyboard.grab(TestKeyboard::digit4, uint16_t(XCB_MOD_MASK_4 | XCB_MOD_MASK_SHIFT | locks)));
    grabs.release(*granted);
    EXPECT_TRUE(
        waitFor([&] { return keyboard.grab(TestKeyboard::digit4, XCB_MOD_MASK_4 | XCB_MOD_MASK_SHIFT | anyLocks); }));
}

TEST_F(KeyGrabsTest, AnyModifierLeavesOthersTheirOwn)
{
    ASSERT_TRUE(keyboard.grab(TestKeyboard::escape, XCB_MOD_MASK_1));
    ASSERT_TRUE(grab(escape, "escape", KeyGrabs::Modifiers::any));
    keyboard.type({TestKeyboard::capsLock});
    keyboard.type({TestKeyboard::escape});
    keyboard.type({TestKeyboard::capsLock});
    keyboard.type({TestKeyboard::super, TestKeyboard::shift, TestKeyboard::control, TestKeyboard::escape});
    EXPECT_THAT(takeLog(), ElementsAre("escape", "escape up", "escape", "escape up"));
    keyboard.type({TestKeyboard::alt, TestKeyboard::escape});
    EXPECT_EQ(takeLog(), Log());
}

TEST_F(KeyGrabsTest, TheNewerOfTwoGrabsGetsTheKeyAndLeavesItToTheOlder)
{
    ASSERT_TRUE(grab(escape, "old"));
    const auto newer = grab(escape, "new", KeyGrabs::Modifiers::any);
    ASSERT_TRUE(newer);
    keyboard.type({TestKeyboard::escape});
    EXPECT_THAT(takeLog(), ElementsAre("new", "new up"));
    grabs.release(*newer);
    keyboard.type({TestKeyboard::escape});
    EXPECT_THAT(takeLog(), ElementsAre("old", "old up"));
    EXPECT_FALSE(keyboard.grab(TestKeyboard::escape, 0));
}

TEST_F(KeyGrabsTest, AHandlerMayReleaseItsGrab)
{
    KeyGrabs::GrabID id = 0;
    bool isPressed = false;
    id = *grabs.grab(escape, {.onPress = [&](KeyGrabs::Press) {
                         grabs.release(id);
                         isPressed = true;
                     }});
    keyboard.type({TestKeyboard::escape});
    EXPECT_TRUE(waitFor([&] { return isPressed; }));
    EXPECT_TRUE(waitFor([&] { return keyboard.grab(TestKeyboard::escape, 0); }));
}

TEST_F(KeyGrabsTest, OnlyAKeyboardThatStaysTakenIsATakeover)
{
    bool isTaken = false;
    ASSERT_TRUE(grab(escape, "escape"));
    Subscription watch = grabs.watchForTakeover([&] { isTaken = true; });
    EXPECT_EQ(loop.pendingTimers(), 0u);

    keyboard.holdKeyboard(); // a window manager's shortcut
    ASSERT_TRUE(waitFor([&] { return loop.pendingTimers() == 1; }));
    keyboard.letKeyboardGo();
    loop.advance(250ms);
    EXPECT_EQ(takeLog(), Log());
    EXPECT_EQ(loop.pendingTimers(), 0u) << "looking at the keyboard is no suspicion";

    keyboard.press(TestKeyboard::escape); // ours
    ASSERT_TRUE(waitFor([&] { return log.size() == 1; }));
    loop.advance(2s);
    keyboard.release(TestKeyboard::escape);
    takeLog();
    EXPECT_FALSE(isTaken);

    loop.advance(2s);
    keyboard.holdKeyboard(); // a screen lock
    ASSERT_TRUE(waitFor([&] { return loop.pendingTimers() == 1; }));
    loop.advance(250ms);
    EXPECT_FALSE(isTaken);
    loop.advance(250ms);
    EXPECT_TRUE(isTaken);

    isTaken = false;
    watch = grabs.watchForTakeover([&] { isTaken = true; }); // it is locked already
    loop.advance(999ms);
    EXPECT_FALSE(isTaken);
    loop.advance(1ms);
    EXPECT_TRUE(isTaken);

    isTaken = false;
    watch = grabs.watchForTakeover([&] { isTaken = true; }); // a menu that closes in time
    keyboard.letKeyboardGo();
    loop.advance(1s);
    EXPECT_FALSE(isTaken);
    watch = {};
    EXPECT_EQ(loop.pendingTimers(), 0u);
}

TEST_F(KeyGrabsTest, AServerThatDiesRefusesEverything)
{
    ASSERT_TRUE(grab(escape, "escape"));
    server.end();
    EXPECT_TRUE(waitFor([&] { return !grab(area, "area"); }));
}

TEST_F(KeyGrabsTest, TheModifiersOfACombinationTellThatItsKeyMayFollow)
{
    const Subscription heldModifiers = grabs.onModifiersHeld([this] { log.push_back("held"); });
    ASSERT_TRUE(grab(area, "area"));
    ASSERT_TRUE(grab(color, "color"));
    ASSERT_TRUE(grab(escape, "escape", KeyGrabs::Modifiers::any));
    keyboard.type({TestKeyboard::super});
    keyboard.type({TestKeyboard::super, TestKeyboard::control});
    keyboard.type({TestKeyboard::control, TestKeyboard::alt});
    EXPECT_EQ(takeLog(), Log()) << "of no combination with Super";
    keyboard.type({TestKeyboard::super, TestKeyboard::shift, TestKeyboard::digit4});
    EXPECT_EQ(takeLog(), (Log{"held", "area", "area up"}));
}

namespace {

// Logs "Super+Shift+4", and "Super+Shift" while the key is missing.
struct ListenedTest : KeyGrabsTest {
    std::vector<std::string> typed;

    std::expected<Subscription, KeyGrabs::Status> listen(X11KeyGrabs& to)
    {
        return to.listen([this](KeyGrabs::Typed keys) {
            const QString text = KeyCombo{keys.keyCode.value_or(VirtualKeys::f20), keys.modifiers}.text();
            typed.push_back((keys.keyCode ? text : text.chopped(std::min<qsizetype>(4, text.size()))).toStdString());
        });
    }
};

} // namespace

TEST_F(ListenedTest, WhoListensHearsAllKeysAndNobodyElseAny)
{
    const std::vector<xcb_keycode_t> keys{TestKeyboard::super, TestKeyboard::shift, TestKeyboard::digit4};
    ASSERT_TRUE(grab(area, "area"));
    auto listening = listen(grabs);
    ASSERT_TRUE(listening);
    EXPECT_FALSE(keyboard.holdKeyboard()) << "it is ours";
    keyboard.type(keys);
    ASSERT_TRUE(waitFor([&] { return typed.size() >= 6; }));
    EXPECT_THAT(typed, ElementsAre("Super", "Super+Shift", "Super+Shift+4", "Super+Shift", "Super", ""));
    EXPECT_EQ(log, Log()) << "the hotkey";

    *listening = Subscription();
    EXPECT_TRUE(keyboard.holdKeyboard()) << "given back";
    EXPECT_FALSE(listen(grabs)) << "another program has it";
    keyboard.letKeyboardGo();
    keyboard.type(keys);
    EXPECT_EQ(takeLog(), once) << "a hotkey again";
}

TEST_F(ListenedTest, AKeyThatIsStillHeldPressesNoHotkeyThatWasMadeOfIt)
{
    using enum TestKeyboard::Key;
    ASSERT_TRUE(grab(color, "color"));
    std::optional<Subscription> listening;
    auto begun = grabs.listen([&](KeyGrabs::Typed keys) {
        if (keys.keyCode && listening) {
            listening.reset();
            EXPECT_TRUE(grab(area, "area"));
        }
    });
    ASSERT_TRUE(begun);
    listening = std::move(*begun);
    for (const xcb_keycode_t key : {super, shift, digit4})
        keyboard.press(key);
    ASSERT_TRUE(waitFor([&] { return !listening; }));
    keyboard.press(digit4); // as it repeats
    keyboard.press(digit4);
    for (const xcb_keycode_t key : {digit4, shift, super})
        keyboard.release(key);
    EXPECT_EQ(takeLog(), Log());
    keyboard.type({super, shift, digit4});
    EXPECT_EQ(takeLog(), once);
}

TEST_F(ListenedTest, KeysAreCalledAsTheCombinationsThatGrabThem)
{
    for (const Case& c : cases()) {
        keyboard.setLayout(QStringList{"-layout"} + c.layout);
        X11KeyGrabs fresh(loop, std::make_unique<X11Connection>(server.name()));
        const auto listening = listen(fresh);
        ASSERT_TRUE(listening);
        typed.clear();
        keyboard.type(c.keys);
        ASSERT_TRUE(waitFor([&] { return typed.size() >= 2 * c.keys.size(); })) << c.combo;
        EXPECT_EQ(typed[c.keys.size() - 1], c.combo) << qPrintable(c.layout.join(' '));
    }
}

} // namespace Kovrel
