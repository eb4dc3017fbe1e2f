#include "app/AppDelegate.h"
#include "ports/AccountStatus.h"
#include "ports/CaptureEditors.h"
#include "ports/HelpWindows.h"
#include "tests/support/FakeMainLoop.h"
#include "tests/support/TempFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace Kovrel {

using namespace std::chrono_literals;
using testing::ElementsAre;

namespace {

using Log = std::vector<std::string>;

// A part of the program as a log of what was asked of it.
struct LoggedFeature : Feature {
    LoggedFeature(Log& all, std::string called) : log(all), name(std::move(called)) {}

    std::vector<UrlHandler> urlHandlers() override
    {
        return {{"auth-callback", [this](const QUrl& url) { log.push_back(url.toString().toStdString()); }}};
    }

    void start(const Launch&) override { log.push_back(name); }

    void prewarm() override { log.push_back("prewarm " + name); }

    void prewarmLater() override { log.push_back("prewarm more " + name); }

    void finishPending(std::chrono::milliseconds deadline, std::function<void()> done) override
    {
        log.push_back("wait " + std::to_string(deadline.count()));
        finished = std::move(done);
    }

    void prepareToEnd() override { log.push_back("give back " + name); }

    Log& log;
    std::string name;
    std::function<void()> finished;
};

// What the others offer, as a log too.
struct LoggedParts : AccountStatus, HelpWindows, CaptureEditors {
    Log log;
    bool signedIn = true;
    bool permitted = true;
    bool hasTitledWindow = false;
    std::function<void()> accountChanged;

    Log takeLog() { return std::exchange(log, {}); }

    AccountKind kind() const override { return signedIn ? AccountKind::thisComputer : AccountKind::none; }

    void whenKnown(std::function<void()> work) override { work(); }

    Subscription onChange(std::function<void()> observer) override
    {
        accountChanged = std::move(observer);
        return {};
    }

    void signInOnThisComputer() override {}

    void signOut() override {}

    void refreshCredentials(std::chrono::seconds) override {}

    void showHome() override { log.push_back("home"); }

    void showOnboarding(bool withSignIn) override { log.push_back(withSignIn ? "first run, sign in" : "first run"); }

    void showPermissionWindow() override { log.push_back("permission"); }

    void presentUpdatedNotice(const QString& version) override { log.push_back("updated to " + version.toStdString()); }

    void open(CaptureResult) override {}

    void openFiles(const QStringList& paths) override { log.push_back("open " + paths.join(' ').toStdString()); }

    AppDelegate::Process process()
    {
        return {
            .bringTitledWindowsForward =
                [this] {
                    log.push_back("forward");
                    return hasTitledWindow;
                },
            .closeTitledWindows = [this] { log.push_back("close windows"); },
            .stopTakingCommands = [this] { log.push_back("no commands"); },
            .exit = [this] { log.push_back("exit"); },
            .mayRecordScreen = [this] { return permitted; },
        };
    }
};

struct AppDelegateTest : testing::Test {
    AppDelegateTest()
    {
        for (const char* name : {"save folder", "hotkeys"})
            features.push_back(std::make_unique<LoggedFeature>(parts.log, name));
        ports.account.offer(parts);
        ports.help.offer(parts);
        ports.editors.offer(parts);
        delegate.emplace(features, ports, preferences, loop, parts.process());
    }

    Testing::TempFolder folder;
    Testing::FakeMainLoop loop;
    UserDefaults defaults{folder / "kovrel.conf"};
    Preferences preferences{defaults};
    LoggedParts parts;
    Ports ports;
    AppDelegate::Features features;
    std::optional<AppDelegate> delegate;

    void launch(Launch launch)
    {
        delegate->applicationDidFinishLaunching(launch);
        loop.runPosted();
    }

    void savesLand(size_t feature) { static_cast<LoggedFeature&>(*features[feature]).finished(); }
};

const Launch usual{.files = {}, .isLoginItem = false, .build = "7", .version = "1.2"};

} // namespace

TEST_F(AppDelegateTest, StartsInOrderAndPrewarmsTheRestAfterTwoSeconds)
{
    parts.signedIn = false;
    launch({.files = {"/a.png"}, .isLoginItem = false, .build = "7", .version = "1.2"});
    EXPECT_THAT(parts.takeLog(), ElementsAre("save folder", "hotkeys", "prewarm save folder", "prewarm hotkeys",
                                             "first run, sign in", "open /a.png"));
    EXPECT_EQ(defaults.integer("NSInitialToolTipDelay"), 1000);
    EXPECT_EQ(defaults.integer("afterCaptureActions"), 1) << "defaults are registered";
    loop.advance(1999ms);
    EXPECT_TRUE(parts.log.empty());
    loop.advance(1ms);
    EXPECT_THAT(parts.log, ElementsAre("prewarm more save folder", "prewarm more hotkeys"));
}

TEST_F(AppDelegateTest, TheFirstWindowFollowsAccountPermissionAndUpdate)
{
    struct Case {
        bool onboarded, signedIn, permitted, loginItem;
        const char* lastBuild;
        std::vector<std::string> windows;
    };

    const Case cases[] = {
        {false, true, true, false, "", {}}, // the settings were lost
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
        parts.signedIn = c.signedIn;
        parts.permitted = c.permitted;
        Launch with = usual;
        with.isLoginItem = c.loginItem;
        launch(with);
        std::vector<std::string> log = parts.takeLog();
        log.erase(log.begin(), std::find(log.begin(), log.end(), "prewarm hotkeys") + 1);
        EXPECT_EQ(log, c.windows) << c.onboarded << c.signedIn << c.permitted << c.loginItem << c.lastBuild;
        EXPECT_EQ(defaults.text("lastRunBuild"), "7");
    }
}

TEST_F(AppDelegateTest, SigningOutShowsTheHomeWindow)
{
    preferences.set(Settings::hasCompletedOnboarding, true);
    launch(usual);
    parts.takeLog();
    parts.accountChanged();
    EXPECT_TRUE(parts.takeLog().empty());
    parts.signedIn = false;
    parts.accountChanged();
    EXPECT_THAT(parts.takeLog(), ElementsAre("home"));
}

TEST_F(AppDelegateTest, ASecondStartBringsForwardWhatThereIs)
{
    parts.hasTitledWindow = true;
    delegate->applicationShouldHandleReopen();
    EXPECT_THAT(parts.takeLog(), ElementsAre("forward"));
    parts.hasTitledWindow = false;
    delegate->applicationShouldHandleReopen();
    EXPECT_THAT(parts.takeLog(), ElementsAre("forward", "first run"));
    preferences.set(Settings::hasCompletedOnboarding, true);
    delegate->applicationShouldHandleReopen();
    EXPECT_THAT(parts.takeLog(), ElementsAre("forward", "home"));
}

TEST_F(AppDelegateTest, QuittingWithoutAReasonClosesWindowsWithOneWaitsForSaves)
{
    delegate->quit("");
    EXPECT_THAT(parts.takeLog(), ElementsAre("close windows"));
    delegate->quit("log-out");
    delegate->quit("SIGTERM");
    EXPECT_THAT(parts.takeLog(), ElementsAre("wait 15000", "wait 15000", "no commands")) << "asked twice, ended once";
    savesLand(1);
    EXPECT_TRUE(parts.log.empty());
    savesLand(0);
    EXPECT_THAT(parts.takeLog(), ElementsAre("give back save folder", "give back hotkeys", "exit"));

    delegate.emplace(features, ports, preferences, loop, parts.process());
    delegate->setRelaunching(true);
    delegate->quit("");
    EXPECT_THAT(parts.takeLog(), ElementsAre("wait 15000", "wait 15000", "no commands"));
}

TEST_F(AppDelegateTest, OnlySignInAnswersAreUrlsItKnows)
{
    for (const char* url :
         {"kovrel://", "kovrel://elsewhere", "http://auth-callback", "kovrel:auth-callback", "nonsense"})
        delegate->handleURL(url);
    EXPECT_TRUE(parts.log.empty());
    delegate->handleURL("kovrel://auth-callback?state=1");
    EXPECT_THAT(parts.log, ElementsAre("kovrel://auth-callback?state=1"));
}

} // namespace Kovrel
