#include "app/AppDelegate.h"

#include "ports/AccountStatus.h"
#include "ports/CaptureEditors.h"
#include "ports/HelpWindows.h"

#include <QLoggingCategory>
#include <QUrl>

namespace Kovrel {

using namespace std::chrono_literals;

namespace {

Q_LOGGING_CATEGORY(log, "com.kovrel.app")

constexpr auto delayedPrewarm = 2s;
constexpr auto pendingSaveDeadline = 15000ms;

} // namespace

AppDelegate::AppDelegate(Features& features, const Ports& ports, Preferences& preferences, MainLoop& loop,
                         Process process)
    : m_features(features), m_ports(ports), m_preferences(preferences), m_loop(loop), m_process(std::move(process))
{
}

AppDelegate::~AppDelegate()
{
    m_loop.cancel(m_prewarmTimer);
}

// --- Start

void AppDelegate::applicationDidFinishLaunching(const Launch& launch)
{
    Preferences::registerDefaults(m_preferences.defaults());
    m_preferences.defaults().registerDefaults({{Settings::toolTipDelay.name, 1000}});
    for (const auto& feature : m_features)
        feature->start(launch);
    if (m_ports.account)
        m_accountChanges = m_ports.account->onChange([this] { accountChanged(); });
    for (const auto& feature : m_features)
        feature->prewarm();
    m_prewarmTimer = m_loop.after(delayedPrewarm, [this] {
        for (const auto& feature : m_features)
            feature->prewarmLater();
    });
    const bool isUpdated = noteBuild(launch);
    const auto showWindow = [this, launch, isUpdated] {
        noteKnownUser();
        showFirstWindow(launch, isUpdated);
    };
    if (m_ports.account)
        m_ports.account->whenKnown(showWindow);
    else
        showWindow();
    if (!launch.files.isEmpty())
        openFiles(launch.files);
}

bool AppDelegate::openFiles(const QStringList& paths)
{
    if (m_ports.editors)
        m_ports.editors->openFiles(paths);
    else
        qCWarning(log, "Files can't be opened: %s", qUtf8Printable(paths.join(", ")));
    return bool(m_ports.editors);
}

// Whoever is signed in has been through the first run, whatever became of the settings.
void AppDelegate::noteKnownUser()
{
    if (m_ports.account && isSignedIn() && !isOnboarded())
        m_preferences.set(Settings::hasCompletedOnboarding, true);
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
    if (!isOnboarded()) {
        m_ports.help.tell(&HelpWindows::showOnboarding, !isSignedIn());
        return;
    }
    if (!isSignedIn())
        m_ports.help.tell(&HelpWindows::showHome);
    else if (!m_process.mayRecordScreen())
        m_ports.help.tell(&HelpWindows::showPermissionWindow);
    if (isUpdated)
        m_ports.help.tell(&HelpWindows::presentUpdatedNotice, launch.version);
}

void AppDelegate::accountChanged()
{
    if (!isSignedIn() && isOnboarded())
        m_ports.help.tell(&HelpWindows::showHome);
}

bool AppDelegate::isSignedIn() const
{
    return !m_ports.account || m_ports.account->isSignedIn();
}

bool AppDelegate::isOnboarded() const
{
    return m_preferences.get(Settings::hasCompletedOnboarding);
}

// --- While it runs

void AppDelegate::applicationShouldHandleReopen()
{
    if (m_process.bringTitledWindowsForward())
        return;
    if (isOnboarded() && isSignedIn())
        m_ports.help.tell(&HelpWindows::showHome);
    else
        m_ports.help.tell(&HelpWindows::showOnboarding, !isSignedIn());
}

void AppDelegate::handleURL(const QString& text)
{
    const QUrl url(text);
    if (url.isLocalFile()) {
        openFiles({url.toLocalFile()});
        return;
    }
    for (const auto& feature : m_features)
        for (const UrlHandler& handler : feature->urlHandlers())
            if (url.scheme() == "kovrel" && url.host() == handler.host) {
                handler.handle(url);
                return;
            }
    const QString host = url.host().isEmpty() ? "<nil>" : url.host();
    qCCritical(log, "Unrecognized deep-link host: %s", qUtf8Printable(host));
}

// --- End

AppDelegate::TerminationDecision AppDelegate::terminationDecision(const QString& reason)
{
    if (m_isRelaunching || !reason.isEmpty())
        return TerminationDecision::terminate;
    m_process.closeTitledWindows();
    return TerminationDecision::cancel;
}

void AppDelegate::quit(const QString& reason)
{
    if (m_exitDeadline || terminationDecision(reason) == TerminationDecision::cancel)
        return;
    m_exitDeadline = m_loop.now() + pendingSaveDeadline;
    finishPending([this] { end(); });
    m_process.stopTakingCommands();
}

// All features at the same time; the last one calls back.
void AppDelegate::finishPending(std::function<void()> done)
{
    const auto unfinished = std::make_shared<size_t>(m_features.size());
    if (m_features.empty())
        done();
    for (const auto& feature : m_features)
        feature->finishPending(pendingSaveDeadline, [unfinished, done] {
            if (--*unfinished == 0)
                done();
        });
}

void AppDelegate::end()
{
    for (const auto& feature : m_features)
        feature->prepareToEnd();
    m_process.exit();
}

std::optional<std::chrono::milliseconds> AppDelegate::timeToExit() const
{
    if (!m_exitDeadline)
        return std::nullopt;
    const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(*m_exitDeadline - m_loop.now());
    return std::max(left, 0ms);
}

} // namespace Kovrel
