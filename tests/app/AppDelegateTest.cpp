#include "app/AppDelegate.h"
#include "tests/support/FakeMainLoop.h"
#include "tests/support/TempFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace Kovrel {

using namespace std::chrono_literals;
using testing::ElementsAre;

namespace {

// The program as a log of what was asked of it.
struct LoggedEnvironment : AppEnvironment {
    std::vector<std::string> log;
    bool signedIn = true;
    bool permitted = true;
    bool hasTitledWindow = false;
    Observers<> accountObservers;
    std::function<void()> savesLanded;

    std::vector<std::string> takeLog() { return std::exchange(log, {}); }

    void ensureDefaultSaveFolder() override { log.push_back("save folder"); }

    void restoreAccount() override { log.push_back("account"); }

    void sweepTemporaryFiles() override { log.push_back("sweep"); }

    void terminateOnSignal() override { log.push_back("signal"); }

    void registerHotkeys() override { log.push_back("hotkeys"); }

    void unregisterHotkeys() override { log.push_back("no hotkeys"); }

    void startMaintainingShortcuts() override { log.push_back("shortcuts"); }

    void prewarm() override { log.push_back("prewarm"); }

    void prewarmDelayed() override { log.push_back("prewarm more"); }

    bool isSignedIn() const override { return signedIn; }

    bool mayRecordScreen() const override { return permitted; }

    void whenAccountIsKnown(std::function<void()> work) override { work(); }

    Subscription onAccountChange(std::function<void()> observer) override
    {
        return accountObservers.add(std::move(observer));
    }

    void accountChanged() { accountObservers.notify(); }

    void showHome() override { log.push_back("home"); }

    void showOnboarding(bool withSignIn) override { log.push_back(withSignIn ? "first run, sign in" : "first run"); }

    void showPermissionWindow() override { log.push_back("permission"); }

    void presentUpdatedNotice(const QString& version) override { log.push_back("updated to " + version.toStdString()); }

    void openFiles(const QStringList& paths) override { log.push_back("open " + paths.join(' ').toStdString()); }

    void handleSignInAnswer(const QString& url) override { log.push_back(url.toStdString()); }

    bool bringTitledWindowsForward() override
    {
        log.push_back("forward");
        return hasTitledWindow;
    }

    void closeTitledWindows() override { log.push_back("close windows"); }

    void afterPendingSaves(std::chrono::milliseconds deadline, std::function<void()> work) override
    {
        log.push_back("wait " + std::to_string(deadline.count()));
        savesLanded = std::move(work);
    }

    void stopTakingCommands() override { log.push_back("no commands"); }

    void giveShortcutsBack() override { log.push_back("give back"); }

    void exit() override { log.push_back("exit"); }
};

struct AppDelegateTest : testing::Test {
    Testing::TempFolder folder;
    Testing::FakeMainLoop loop;
    UserDefaults defaults{folder / "kovrel.conf"};
    Preferences preferences{defaults};
    LoggedEnvironment environment;
    std::optional<AppDelegate> delegate{std::in_place, environment, preferences, loop};

    void launch(AppDelegate::Launch launch)
    {
        delegate->applicationDidFinishLaunching(launch);
        loop.runPosted();
    }
};

const AppDelegate::Launch usual{.files = {}, .isLoginItem = false, .build = "7", .version = "1.2"};

} // namespace

TEST_F(AppDelegateTest, StartsInOrderAndPrewarmsTheRestAfterTwoSeconds)
{
    launch({.files = {"/a.png"}, .isLoginItem = false, .build = "7", .version = "1.2"});
    EXPECT_THAT(environment.takeLog(), ElementsAre("save folder", "account", "sweep", "signal", "hotkeys", "shortcuts",
                                                   "prewarm", "first run", "open /a.png"));
    EXPECT_EQ(defaults.integer("NSInitialToolTipDelay"), 1000);
    EXPECT_EQ(defaults.integer("afterCaptureActions"), 1) << "defaults are registered";
    loop.advance(1999ms);
    EXPECT_TRUE(environment.log.empty());
    loop.advance(1ms);
    EXPECT_THAT(environment.log, ElementsAre("prewarm more"));
}

TEST_F(AppDelegateTest, TheFirstWindowFollowsAccountPermissionAndUpdate)
{
    struct Case {
        bool onboarded, signedIn, permitted, loginItem;
        const char* lastBuild;
        std::vector<std::string> windows;
    };

    const Case cases[] = {
        {false, true, true, false, "", {"first run"}},
        {false, false, true, false, "", {"first run, sign in"}},
        {true, true, true, false, "7", {}},
        {true, true, false, false, "7", {"permission"}},
        {true, false, true, false, "7", {"home"}},
        {true, true, true, false, "6", {"updated to 1.2"}},
        {true, true, true, true, "6", {}},
        {false, false, true, true, "", {}},
    };
    for (const Case& c : cases) {
        preferences.set(Settings::hasCompletedOnboarding, c.onboarded);
        preferences.set(Settings::lastRunBuild, c.lastBuild);
        environment.signedIn = c.signedIn;
        environment.permitted = c.permitted;
        AppDelegate::Launch with = usual;
        with.isLoginItem = c.loginItem;
        launch(with);
        std::vector<std::string> log = environment.takeLog();
        log.erase(log.begin(), std::find(log.begin(), log.end(), "prewarm") + 1);
        EXPECT_EQ(log, c.windows) << c.onboarded << c.signedIn << c.permitted << c.loginItem << c.lastBuild;
        EXPECT_EQ(defaults.text("lastRunBuild"), "7");
    }
    preferences.set(Settings::saveLocationBookmark, QByteArray("file:///elsewhere"));
    launch(usual);
    EXPECT_EQ(environment.log.front(), "account") << "a chosen folder needs no default one";
}

TEST_F(AppDelegateTest, AnAccountChangeRegistersHotkeysAgain)
{
    preferences.set(Settings::hasCompletedOnboarding, true);
    launch(usual);
    environment.takeLog();
    environment.accountChanged();
    EXPECT_THAT(environment.takeLog(), ElementsAre("no hotkeys", "hotkeys"));
    environment.signedIn = false;
    environment.accountChanged();
    EXPECT_THAT(environment.takeLog(), ElementsAre("no hotkeys", "hotkeys", "home"));
}

TEST_F(AppDelegateTest, ASecondStartBringsForwardWhatThereIs)
{
    environment.hasTitledWindow = true;
    delegate->applicationShouldHandleReopen();
    EXPECT_THAT(environment.takeLog(), ElementsAre("forward"));
    environment.hasTitledWindow = false;
    delegate->applicationShouldHandleReopen();
    EXPECT_THAT(environment.takeLog(), ElementsAre("forward", "first run"));
    preferences.set(Settings::hasCompletedOnboarding, true);
    delegate->applicationShouldHandleReopen();
    EXPECT_THAT(environment.takeLog(), ElementsAre("forward", "home"));
}

TEST_F(AppDelegateTest, QuittingWithoutAReasonClosesWindowsWithOneWaitsForSaves)
{
    delegate->quit("");
    EXPECT_THAT(environment.takeLog(), ElementsAre("close windows"));
    delegate->quit("log-out");
    delegate->quit("SIGTERM");
    EXPECT_THAT(environment.takeLog(), ElementsAre("no commands", "wait 15000")) << "asked twice, ended once";
    environment.savesLanded();
    EXPECT_THAT(environment.takeLog(), ElementsAre("give back", "exit"));

    delegate.emplace(environment, preferences, loop);
    delegate->setRelaunching(true);
    delegate->quit("");
    EXPECT_THAT(environment.takeLog(), ElementsAre("no commands", "wait 15000"));
}

TEST_F(AppDelegateTest, OnlySignInAnswersAreUrlsItKnows)
{
    for (const char* url :
         {"kovrel://", "kovrel://elsewhere", "http://auth-callback", "kovrel:auth-callback", "nonsense"})
        delegate->handleURL(url);
    EXPECT_TRUE(environment.log.empty());
    delegate->handleURL("kovrel://auth-callback?state=1");
    EXPECT_THAT(environment.log, ElementsAre("kovrel://auth-callback?state=1"));
}

} // namespace Kovrel
