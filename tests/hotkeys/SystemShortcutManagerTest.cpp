#include "hotkeys/SystemShortcutManager.h"
#include "model/VirtualKeys.h"
#include "tests/support/FakeMainLoop.h"
#include "tests/support/FakeWorkers.h"
#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>

namespace Kovrel {

namespace {

using Bindings = std::map<QString, QStringList>;

// A desktop that writes its accelerators as Kovrel does.
struct FakeSwitches : ShortcutSwitches {
    Bindings bindings;
    bool answers = true;
    bool accepts = true;

    std::vector<Shortcut> shortcuts() override
    {
        if (!answers)
            return {};
        std::vector<Shortcut> all;
        for (const auto& [id, accelerators] : bindings)
            all.push_back({id, accelerators});
        return all;
    }

    bool set(const Shortcut& shortcut) override
    {
        if (!answers || !accepts)
            return false;
        bindings[shortcut.id] = shortcut.accelerators;
        return true;
    }

    std::optional<KeyCombo> combo(const QString& accelerator) const override { return KeyCombo::fromText(accelerator); }
};

const Bindings usual{
    {"area", {"Print", "Super+Shift+4"}}, {"both", {"Super+Shift+3", "Super+Shift+5"}}, {"none", {"Super+4"}}};

struct SystemShortcutManagerTest : testing::Test {
    using Ownership = SystemShortcutManager::Ownership;

    // One run of the program. What it has not done yet when it goes is lost, as in a crash.
    struct Run {
        explicit Run(const QString& file, std::shared_ptr<FakeSwitches> desktop)
            : defaults(file, loop, workers), shortcuts(loop, workers, preferences, desktop, [this] { return signedIn; })
        {
            Preferences::registerDefaults(defaults);
        }

        Testing::FakeMainLoop loop;
        Testing::FakeWorkers workers;
        bool signedIn = true;
        UserDefaults defaults;
        Preferences preferences{defaults};
        SystemShortcutManager shortcuts;

        bool step()
        {
            const bool isBusy = workers.runAll() > 0;
            loop.runPosted();
            return isBusy;
        }
    };

    Testing::TempFolder folder;
    std::shared_ptr<FakeSwitches> desktop = std::make_shared<FakeSwitches>();
    std::optional<Run> run;

    void SetUp() override
    {
        desktop->bindings = usual;
        run.emplace(folder / "kovrel.conf", desktop);
        run->preferences.set(Settings::hasCompletedOnboarding, true);
        after([] {});
    }

    void restart() { run.emplace(folder / "kovrel.conf", desktop); }

    Bindings after(const std::function<void()>& change)
    {
        change();
        while (run->step()) {
        }
        return desktop->bindings;
    }
};

} // namespace

TEST_F(SystemShortcutManagerTest, TakesTheChordsOfOurHotkeysAndGivesThemBack)
{
    const Bindings allTaken{{"area", {"Print"}}, {"both", {}}, {"none", {"Super+4"}}};
    EXPECT_EQ(after([&] { run->shortcuts.startMaintaining(); }), allTaken);
    EXPECT_EQ(run->shortcuts.disabledByUs(), (std::set{28, 30, 184}));
    EXPECT_EQ(run->shortcuts.syncOwnership(), Ownership::owned);

    // Another of our commands has the chord, then none.
    const Hotkey chord = KeyCombo::fromText("Super+Shift+4");
    EXPECT_EQ(after([&] {
                  run->preferences.set(Settings::hotkeyArea, KeyCombo{VirtualKeys::print});
                  run->preferences.set(Settings::hotkeyHistory, chord);
              }),
              allTaken);
    EXPECT_EQ(after([&] { run->preferences.set(Settings::hotkeyHistory, {}); })["area"], usual.at("area"));
    EXPECT_EQ(after([&] { run->preferences.set(Settings::hotkeyWindow, {}); })["both"], QStringList{"Super+Shift+5"});
    EXPECT_EQ(run->shortcuts.disabledByUs(), std::set{28});
    EXPECT_EQ(after([&] { run->shortcuts.reconcile({}); }), usual) << "the program ends";
    EXPECT_TRUE(run->shortcuts.disabledByUs().empty());
}

TEST_F(SystemShortcutManagerTest, OwnsNothingBeforeItMayCapture)
{
    for (const auto& [onboarded, account] : {std::pair(false, true), {true, false}}) {
        run->preferences.set(Settings::hasCompletedOnboarding, onboarded);
        run->signedIn = account;
        EXPECT_EQ(after([&] { EXPECT_EQ(run->shortcuts.syncOwnership(), Ownership::none); }), usual);
    }
    run->signedIn = true;
    EXPECT_NE(after([&] { run->shortcuts.startMaintaining(); }), usual);
    EXPECT_EQ(after([&] { run->preferences.set(Settings::hasCompletedOnboarding, false); }), usual);

    SystemShortcutManager without(run->loop, run->workers, run->preferences, nullptr, [] { return true; });
    EXPECT_EQ(without.syncOwnership(), Ownership::unavailable);
}

TEST_F(SystemShortcutManagerTest, ACrashAtAnyMomentLosesNothing)
{
    for (int jobs = 0; jobs < 6; ++jobs) { // done before the program was killed
        restart();
        run->shortcuts.startMaintaining();
        for (int done = 0; done < jobs; ++done) {
            run->workers.runNext(Lane::utility);
            run->loop.runPosted();
        }
        restart();
        EXPECT_EQ(after([&] { run->shortcuts.forceEnableAllNative(); }), usual) << jobs;
        EXPECT_TRUE(run->shortcuts.disabledByUs().empty());
    }
}

TEST_F(SystemShortcutManagerTest, WhatCouldNotBeGivenBackIsGivenBackAtTheNextStart)
{
    for (bool* const ability : {&desktop->answers, &desktop->accepts}) {
        after([&] { run->shortcuts.startMaintaining(); });
        *ability = false;
        bool isSettled = false;
        after([&] {
            run->shortcuts.reconcile({});
            run->shortcuts.whenSettled([&] { isSettled = true; });
        });
        EXPECT_TRUE(isSettled) << "a quit waits for it";
        EXPECT_NE(desktop->bindings, usual);
        EXPECT_EQ(run->shortcuts.disabledByUs(), (std::set{28, 30, 184})) << "noted as long as they are not back";
        *ability = true;
        restart();
        EXPECT_EQ(after([&] { run->shortcuts.forceEnableAllNative(); }), usual);
        EXPECT_TRUE(run->shortcuts.disabledByUs().empty());
        restart();
    }
}

TEST_F(SystemShortcutManagerTest, WhatTheUserChangedMeanwhileStays)
{
    after([&] { run->shortcuts.startMaintaining(); });
    desktop->bindings["area"] = QStringList{"Super+A"};
    desktop->bindings["both"] = QStringList{"Super+Shift+3"}; // bound again: by the next start it's taken again
    restart();
    EXPECT_EQ(after([&] { run->shortcuts.startMaintaining(); })["both"], QStringList());
    const Bindings chosen{{"area", {"Super+A"}}, {"both", {"Super+Shift+3"}}, {"none", {"Super+4"}}};
    EXPECT_EQ(after([&] { run->shortcuts.reconcile({}); }), chosen);
}

TEST_F(SystemShortcutManagerTest, AnEndWhileTheDesktopIsAskedLeavesItAsItWas)
{
    run->shortcuts.startMaintaining();
    run->shortcuts.reconcile({});
    EXPECT_EQ(after([] {}), usual);
    run->shortcuts.reconcile({30});
    run->step(); // noted, and the change is on its way
    run->shortcuts.reconcile({});
    while (run->workers.runAll() > 0) { // the main loop has ended
    }
    EXPECT_EQ(desktop->bindings, usual);
}

TEST_F(SystemShortcutManagerTest, WhatIsGivenBackStaysTheDesktopsAndOtherHotkeysOurs)
{
    after([&] { run->shortcuts.startMaintaining(); });
    EXPECT_EQ(run->shortcuts.borrowedKeys(), (QStringList{"Super+Shift+3", "Super+Shift+4", "Super+Shift+5"}));
    EXPECT_EQ(after([&] { run->shortcuts.giveBack(); }), usual);
    EXPECT_EQ(run->shortcuts.borrowedKeys(), QStringList());
    EXPECT_FALSE(run->preferences.get(Settings::hotkeyArea));
    EXPECT_TRUE(run->preferences.get(Settings::hotkeyLastArea));
    EXPECT_EQ(after([&] { run->shortcuts.syncOwnership(); }), usual) << "not taken again";
}

} // namespace Kovrel
