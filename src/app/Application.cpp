#include "app/Application.h"

#include "commandline/CommandLine.h"
#include "platform/desktop/AnimationSetting.h"
#include "platform/session/DesktopSession.h"
#include "ports/Captures.h"
#include "ui/TitledWindows.h"
#include "ui/style/AppStyle.h"
#include "ui/tokens/Motion.h"

#include <QApplication>
#include <QLoggingCategory>
#include <QSessionManager>

#include <algorithm>

namespace Kovrel {

using namespace std::chrono_literals;

namespace {

Q_LOGGING_CATEGORY(log, "com.kovrel.app")

// For background work when the program ends.
constexpr auto shortestGrace = 1000ms;
constexpr auto fullGrace = 15000ms;

// A session that is saved is restored by a command of the toolkit's making, which we would not know.
void sayHowToRestart()
{
    QObject::connect(qApp, &QGuiApplication::saveStateRequest, qApp, [](QSessionManager& session) {
        session.setRestartCommand({QCoreApplication::applicationFilePath(), "--background"});
    });
}

QString nameOf(const CaptureResult& result)
{
    return result.id.toString(QUuid::WithoutBraces).toUpper();
}

} // namespace

Application::Application(Launch launch, std::span<const FeatureEntry> features)
    : m_launch(std::move(launch)),
      m_features(FeatureList::make(features, m_foundation, m_ports)),
      m_delegate(m_features, m_ports, m_foundation.preferences, m_foundation.loop, process())
{
    m_ports.commands.offer(*this);
    m_ports.settings.offer(*this);
    addCommands();
    announceCaptures();
}

Application::~Application()
{
    m_suddenExit.reset();
    if (!finishWork()) {
        qCWarning(log, "Background work hangs; Kovrel ends without it");
        std::_Exit(EXIT_FAILURE);
    }
    while (!m_features.empty())
        m_features.pop_back();
    QApplication::setStyle(new QProxyStyle);
}

// Jobs in flight use what goes after this; a save that was begun is finished, but not for ever waited for. A log-out
// may end the event loop without asking us first, and so may the end of the display server.
bool Application::finishWork()
{
    if (!m_delegate.timeToExit())
        for (const auto& feature : m_features)
            feature->prepareToEnd();
    return m_foundation.workers.finish(std::max(m_delegate.timeToExit().value_or(fullGrace), shortestGrace));
}

void Application::endWithoutDisplay()
{
    qCCritical(log, "The display server has gone; Kovrel ends");
    finishWork();
    std::_Exit(CommandLine::failed);
}

void Application::addCommands()
{
    const auto simple = [](const char* name, std::function<void(const Command&)> work) {
        return CommandHandler{.command = name, .run = [work](const Invocation& use, const Reply<CommandAnswer>& reply) {
                                  reply({});
                                  work(use.command);
                              }};
    };
    m_commands.add(
        {simple("start",
                [this](const Command& command) {
                    if (!command.has("background"))
                        bringForward();
                }),
         simple("url",
                [this](const Command& command) {
                    for (const std::string& url : command.operands)
                        m_delegate.handleURL(QString::fromStdString(url));
                }),
         {.command = "open",
          .run = [this](const Invocation& use, const Reply<CommandAnswer>& reply) { reply(open(use.command)); }},
         simple("quit", [this](const Command&) { m_delegate.quit("command"); })});
    for (const auto& feature : m_features)
        m_commands.add(feature->commands());
}

std::vector<SettingsPage> Application::settingsPages()
{
    std::vector<SettingsPage> pages;
    for (const auto& feature : m_features)
        std::ranges::move(feature->settingsPages(), std::back_inserter(pages));
    return pages;
}

CommandAnswer Application::open(const Command& command)
{
    QStringList paths;
    for (const std::string& path : command.operands)
        paths << QString::fromStdString(path);
    if (m_delegate.openFiles(paths))
        return {};
    return {.exitCode = CommandLine::failed, .error = "this program has no editor to open files in"};
}

void Application::announceCaptures()
{
    if (!m_ports.captures)
        return;
    m_captures = m_ports.captures->onCaptureFinished([this](const CaptureResult& result) {
        m_bus.announceCaptureFinished(nameOf(result), rawString(result.mode), result.image.width(),
                                      result.image.height());
    });
}

InstanceBus::Claim Application::claimInstance()
{
    return m_bus.claim(busHandlers());
}

void Application::start()
{
    QApplication::setStyle(new AppStyle([this] { return m_foundation.preferences.get(Settings::toolTipDelay); }));
    sayHowToRestart();
    m_colors.emplace(m_foundation.desktop->appearance());
    m_signals = std::make_unique<QuitSignals>([this](const char* name) { m_delegate.quit(name); });
    m_suddenExit = std::make_unique<SuddenExit>([this] { endWithoutDisplay(); });
    AnimationSetting::read(m_foundation.loop, m_foundation.workers,
                           [](bool isOn) { Motion::shared().setReduced(!isOn); });
    m_delegate.applicationDidFinishLaunching(m_launch);
}

void Application::run(const QStringList& arguments, Reply<CommandAnswer> reply)
{
    m_commands.run(arguments, 0, std::move(reply));
}

InstanceBus::Handlers Application::busHandlers()
{
    return {
        .run = [this](const QStringList& arguments, quint64 requestID,
                      Reply<CommandAnswer> reply) { m_commands.run(arguments, requestID, std::move(reply)); },
        .callerVanished = [this](quint64 requestID) { m_commands.cancel(requestID); },
        .activate = [this] { bringForward(); },
        .open =
            [this](const QStringList& uris) {
                for (const QString& uri : uris)
                    m_delegate.handleURL(uri);
            },
        .activateAction = [this](const QString& action) { m_commands.performAction(action); },
        .quit = [this](const QString& reason) { m_delegate.quit(reason); },
    };
}

AppDelegate::Process Application::process()
{
    return {
        .bringTitledWindowsForward = TitledWindows::bringForward,
        .closeTitledWindows = TitledWindows::close,
        .stopTakingCommands = [this] { m_bus.release(); },
        .exit = [] { QCoreApplication::quit(); },
        .mayRecordScreen = [] { return DesktopSession::obstacle().isEmpty(); },
    };
}

} // namespace Kovrel
