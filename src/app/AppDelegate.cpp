#include "app/AppDelegate.h"

#include <QLoggingCategory>
#include <QUrl>

namespace Kovrel {

using namespace std::chrono_literals;

namespace {

Q_LOGGING_CATEGORY(log, "com.kovrel.app")

constexpr auto delayedPrewarm = 2s;
constexpr auto pendingSaveDeadline = 15s;

} // namespace

AppDelegate::AppDelegate(AppEnvironment& environment, Preferences& preferences, MainLoop& loop)
    : m_environment(environment), m_preferences(preferences), m_loop(loop)
{
}

AppDelegate::~AppDelegate()
{
    m_loop.cancel(m_prewarmTimer);
}

void AppDelegate::applicationDidFinishLaunching(const Launch& launch)
{
    Preferences::registerDefaults(m_preferences.defaults());
    if (!m_preferences.isStored(Settings::saveLocationBookmark))
        m_environment.ensureDefaultSaveFolder();
    m_preferences.defaults().registerDefaults({{Settings::toolTipDelay.name, 1000}});
    m_environment.restoreAccount();
    m_environment.sweepTemporaryFiles();
    m_environment.terminateOnSignal();
    m_environment.registerHotkeys();
    m_environment.startMaintainingShortcuts();
    m_accountChanges = m_environment.onAccountChange([this] { accountChanged(); });
    m_environment.prewarm();
    m_prewarmTimer = m_loop.after(delayedPrewarm, [this] { m_environment.prewarmDelayed(); });
    const bool isUpdated = noteBuild(launch);
    m_environment.whenAccountIsKnown([this, launch, isUpdated] { showFirstWindow(launch, isUpdated); });
    if (!launch.files.isEmpty())
        m_environment.openFiles(launch.files);
}

bool AppDelegate::noteBuild(const Launch& launch)
{
    const QString lastBuild = m_preferences.get(Settings::lastRunBuild);
    if (lastBuild != launch.build)
        m_preferences.set(Settings::lastRunBuild, launch.build);
    return !lastBuild.isEmpty() && lastBuild != launch.build;
}

void AppDelegate::showFirstWindow(const Launch& launch, bool isUpdated)
{
    if (launch.isLoginItem)
        return;
    if (!m_preferences.get(Settings::hasCompletedOnboarding)) {
        m_environment.showOnboarding(!m_environment.isSignedIn());
        return;
    }
    if (!m_environment.isSignedIn())
        m_environment.showHome();
    else if (!m_environment.mayRecordScreen())
        m_environment.showPermissionWindow();
    if (isUpdated)
        m_environment.presentUpdatedNotice(launch.version);
}

void AppDelegate::accountChanged()
{
    m_environment.unregisterHotkeys();
    m_environment.registerHotkeys();
    if (!m_environment.isSignedIn() && m_preferences.get(Settings::hasCompletedOnboarding))
        m_environment.showHome();
}

void AppDelegate::applicationShouldHandleReopen()
{
    if (m_environment.bringTitledWindowsForward())
        return;
    if (m_preferences.get(Settings::hasCompletedOnboarding) && m_environment.isSignedIn())
        m_environment.showHome();
    else
        m_environment.showOnboarding(!m_environment.isSignedIn());
}

void AppDelegate::handleURL(const QString& text)
{
    const QUrl url(text);
    if (url.scheme() == "kovrel" && url.host() == "auth-callback") {
        m_environment.handleSignInAnswer(text);
        return;
    }
    const QString host = url.host().isEmpty() ? "<nil>" : url.host();
    qCCritical(log, "Unrecognized deep-link host: %s", qUtf8Printable(host));
}

AppDelegate::TerminationDecision AppDelegate::terminationDecision(const QString& reason)
{
    if (m_isRelaunching || !reason.isEmpty())
        return TerminationDecision::terminate;
    m_environment.closeTitledWindows();
    return TerminationDecision::cancel;
}

void AppDelegate::quit(const QString& reason)
{
    if (m_isTerminating || terminationDecision(reason) == TerminationDecision::cancel)
        return;
    m_isTerminating = true;
    m_environment.stopTakingCommands();
    m_environment.afterPendingSaves(pendingSaveDeadline, [this] {
        m_environment.giveShortcutsBack();
        m_environment.exit();
    });
}

} // namespace Kovrel
