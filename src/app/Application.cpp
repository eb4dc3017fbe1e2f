#include "app/Application.h"

#include "app/AppPaths.h"
#include "platform/Clipboard.h"
#include "platform/desktop/AnimationSetting.h"
#include "platform/plugins/PluginSoundPlayer.h"
#include "platform/plugins/PluginTextRecogniser.h"
#include "platform/session/DesktopSession.h"
#include "recognition/text/PatientRecogniser.h"
#include "saving/DragFiles.h"
#include "saving/PrivateFolder.h"
#include "ui/AppStyle.h"
#include "ui/tokens/Motion.h"

#include <QApplication>
#include <QLoggingCategory>
#include <QPointer>
#include <QScreen>

namespace Kovrel {

namespace {

Q_LOGGING_CATEGORY(log, "com.kovrel.app")

// A desktop gives up the keys of a shortcut some time after its setting.
constexpr auto shortcutDelay = std::chrono::milliseconds(500);
// For background work when the program ends.
constexpr auto shortestGrace = std::chrono::milliseconds(1000);
constexpr auto fullGrace = std::chrono::milliseconds(15000);

// Windows with a frame, minimised ones too; neither panels nor menus nor the tray item.
bool isTitledWindow(const QWidget& widget)
{
    return widget.windowType() == Qt::Window && !(widget.windowFlags() & Qt::FramelessWindowHint) && widget.isVisible();
}

void bringForward(QWidget& window)
{
    window.showNormal();
    window.raise();
    window.activateWindow();
}

QWidgetList titledWindows()
{
    QWidgetList windows = QApplication::topLevelWidgets();
    windows.removeIf([](const QWidget* widget) { return !isTitledWindow(*widget); });
    return windows;
}

std::vector<TrayMenu::OpenWindow> openWindows()
{
    std::vector<TrayMenu::OpenWindow> windows;
    for (QWidget* widget : titledWindows())
        windows.push_back({widget->windowTitle(), widget->isActiveWindow(), [window = QPointer(widget)] {
                               if (window)
                                   bringForward(*window);
                           }});
    return windows;
}

} // namespace

Application::Application(AppDelegate::Launch launch)
    : m_launch(std::move(launch)),
      m_defaults(AppPaths::preferencesFile(), &m_workers),
      m_preferences(m_defaults),
      m_trace(m_loop, [this] { return m_defaults.boolean("traceCapture"); }),
      m_desktop(Desktops::open(m_loop, m_workers)),
      m_localTokens(m_loop, m_workers, AppPaths::dataFolder()),
      m_account(m_localTokens, m_desktop->secrets()),
      m_clipboardService(m_loop, m_workers, m_desktop->clipboard()),
      m_editorSaves(m_loop, m_workers),
      m_output(m_loop, m_workers, m_preferences, m_desktop->displays(), m_clipboardService,
               std::make_shared<ReservationJournal>(AppPaths::reservationFolder()),
               AppPaths::dataFolder() + "/Unsaved"),
      m_absent(m_loop),
      m_backdrop(m_loop, m_workers, m_desktop->picture(), m_desktop->displays(), m_preferences),
      m_sounds(m_loop, m_workers, m_preferences, m_trace, std::make_unique<PluginSoundPlayer>()),
      m_toasts(m_loop, m_desktop->displays()),
      m_nativeCapture({m_loop, m_workers, m_trace, m_desktop->pixels(), m_desktop->windows(), m_desktop->displays(),
                       m_desktop->tools()},
                      {AppPaths::screenshotTool(), AppPaths::temporaryFolder()}),
      m_selectionOverlay({m_loop, m_preferences, m_trace, m_desktop->displays(), m_desktop->pointer(),
                          m_desktop->windows(), m_desktop->keys(), m_desktop->lock(), m_desktop->overlay()}),
      m_selectionCapture(m_loop, m_workers, m_desktop->windows()),
      m_recognition(m_loop, m_workers,
                    std::make_unique<PatientRecogniser>([] { return std::make_unique<PluginTextRecogniser>(); }),
                    [this] { return m_defaults.textList("textLanguages"); }),
      m_codes(m_loop, m_workers, m_codeReader),
      m_textReader(m_loop, m_workers, m_recognition, m_codes),
      m_textCommand(m_loop, m_workers, m_recognition, m_codes),
      m_coordinator(captureServices()),
      m_delegate(*this, m_preferences, m_loop),
      m_commands(m_loop, m_workers, m_coordinator, m_delegate, m_account, m_preferences, m_trace, m_textCommand),
      m_shortcuts(m_loop, m_workers, m_preferences, m_desktop->shortcuts(),
                  [this] { return m_account.isSignedIn() && mayRecordScreen(); }),
      m_hotkeys(m_desktop->keys(), m_preferences, m_trace, hotkeyHandlers())
{
    m_coordinator.onCaptureFinished([this](const CaptureResult& result) {
        m_bus.announceCaptureFinished(result.id.toString(QUuid::WithoutBraces).toUpper(), rawString(result.mode),
                                      result.image.width(), result.image.height());
        if (m_homeWindow)
            m_homeWindow->refresh();
    });
}

Application::~Application()
{
    // Jobs in flight use what goes after this; a save that was begun is finished, but not for ever waited for.
    // A log-out may end the event loop without asking us first.
    const bool wasAsked = m_exitDeadline.count() > 0;
    if (!m_workers.finish(wasAsked ? std::max(timeToExit(), shortestGrace) : fullGrace)) {
        qCWarning(log, "Background work hangs; Kovrel ends without it");
        std::_Exit(EXIT_FAILURE);
    }
    QApplication::setStyle(new QProxyStyle);
}

CaptureServices Application::captureServices()
{
    return {
        .loop = m_loop,
        .workers = m_workers,
        .preferences = m_preferences,
        .trace = m_trace,
        .displays = m_desktop->displays(),
        .pointer = m_desktop->pointer(),
        .pixels = m_desktop->pixels(),
        .windows = m_desktop->windows(),
        .keys = m_desktop->keys(),
        .engine = m_nativeCapture,
        .access = *this,
        .overlay = m_selectionOverlay,
        .grabber = m_selectionCapture,
        .backdrop = m_backdrop,
        .effects = m_sounds,
        .textReader = m_textReader,
        .cards = m_absent,
        .historyWindow = m_absent,
        .toasts = m_toasts,
        .history = m_absent,
        .ledger = m_absent,
        .delivery = m_output,
    };
}

// --- Start

InstanceBus::Claim Application::claimInstance()
{
    return m_bus.claim(busHandlers());
}

void Application::start()
{
    QApplication::setStyle(new AppStyle(m_defaults));
    AnimationSetting::read(m_loop, m_workers, [](bool isOn) { Motion::shared().setReduced(!isOn); });
    m_tray = std::make_unique<TrayMenu>(m_preferences, trayHandlers());
    m_tray->show();
    m_delegate.applicationDidFinishLaunching(m_launch);
    // Somebody may have signed out from outside.
    QObject::connect(qGuiApp, &QGuiApplication::applicationStateChanged, &m_context,
                     [this](Qt::ApplicationState state) {
                         if (state == Qt::ApplicationActive && m_account.isSignedIn())
                             m_account.restore();
                     });
    // Without a tray the window is the way in.
    if (!TrayMenu::desktopHasTray() && !m_launch.isLoginItem) {
        qCInfo(log, "This desktop has no tray; Kovrel is reached by its window and by its command line");
        whenAccountIsKnown([this] { showHome(); });
    }
}

void Application::run(const QStringList& arguments, Reply<CommandAnswer> reply)
{
    m_commands.run(arguments, 0, std::move(reply));
}

InstanceBus::Handlers Application::busHandlers()
{
    return {
        .run = [this](QStringList arguments, quint64 requestID,
                      Reply<CommandAnswer> reply) { m_commands.run(arguments, requestID, std::move(reply)); },
        .callerVanished = [this](quint64 requestID) { m_commands.cancel(requestID); },
        .activate = [this] { m_delegate.applicationShouldHandleReopen(); },
        .open =
            [this](QStringList uris) {
                for (const QString& uri : uris)
                    m_delegate.handleURL(uri);
            },
        .activateAction =
            [this](QString action) {
                for (const CaptureCommands::Entry& entry : CaptureCommands::entries())
                    if (entry.mode && rawString(*entry.mode) == action)
                        perform(entry, false);
            },
        .quit = [this](QString reason) { m_delegate.quit(reason); },
    };
}

TrayMenu::Handlers Application::trayHandlers()
{
    return {
        .isEnabled = [this](const auto& entry) { return isEnabled(entry); },
        .perform = [this](const auto& entry) { perform(entry, true); },
        .isCountingDown = [this] { return m_coordinator.isCountingDown(); },
        .cancelCountdown = [this] { m_coordinator.cancelCountdown(); },
        .openWindows = openWindows,
        .openHome = [this] { m_delegate.applicationShouldHandleReopen(); },
        .quit = [this] { m_delegate.quit("menu"); },
    };
}

GlobalHotkeyManager::Handlers Application::hotkeyHandlers()
{
    return {
        .isSignedIn = [this] { return m_account.isSignedIn(); },
        .syncOwnership = [this] { m_shortcuts.syncOwnership(); },
        .perform = [this](const auto& entry) { perform(entry, false); },
    };
}

// --- Commands

bool Application::isEnabled(const CaptureCommands::Entry& entry) const
{
    const bool canCapture = m_account.isSignedIn() && mayRecordScreen();
    return entry.action == CaptureCommands::Action::capture && canCapture;
}

void Application::perform(const CaptureCommands::Entry& entry, bool fromMenu)
{
    if (!isEnabled(entry))
        return;
    m_trace.begin();
    m_coordinator.capture({.mode = *entry.mode, .options = {.waitsForRepaint = fromMenu}});
}

// --- AppEnvironment

void Application::ensureDefaultSaveFolder()
{
    m_workers.submit(Lane::utility, [] { Preferences::ensureDefaultSaveDirectoryExists(); });
}

void Application::restoreAccount()
{
    m_account.restore();
}

void Application::sweepTemporaryFiles()
{
    const QString temporaryFolder = AppPaths::temporaryFolder();
    PrivateFolder::make(temporaryFolder);
    m_workers.submit(Lane::utility, [temporaryFolder] {
        DragFiles(temporaryFolder).sweepDragTemp();
        ReservationJournal::sweep(AppPaths::reservationFolder());
    });
}

void Application::terminateOnSignal()
{
    m_sigterm = std::make_unique<SigtermSource>([this] { m_delegate.quit("SIGTERM"); });
}

void Application::registerHotkeys()
{
    m_account.whenKnown([this] { m_hotkeys.registerAll(); });
}

void Application::unregisterHotkeys()
{
    m_hotkeys.unregisterAll();
}

void Application::startMaintainingShortcuts()
{
    m_shortcuts.onSwitchedOff([this] { m_loop.after(shortcutDelay, [this] { m_hotkeys.refresh(); }); });
    m_account.whenKnown([this] { m_shortcuts.startMaintaining(); });
}

void Application::prewarm()
{
    m_selectionOverlay.prewarm();
    m_desktop->keys().onModifiersHeld([this] { m_selectionOverlay.expectSession(); });
}

void Application::prewarmDelayed() {}

bool Application::isSignedIn() const
{
    return m_account.isSignedIn();
}

bool Application::mayRecordScreen() const
{
    return DesktopSession::obstacle().isEmpty();
}

void Application::whenAccountIsKnown(std::function<void()> work)
{
    m_account.whenKnown(std::move(work));
}

void Application::onAccountChange(std::function<void()> observer)
{
    m_account.onChange([this, observer = std::move(observer)] {
        observer();
        if (m_homeWindow)
            m_homeWindow->refresh();
    });
}

HomeWindow& Application::homeWindow()
{
    if (!m_homeWindow)
        m_homeWindow = std::make_unique<HomeWindow>(
            m_preferences, HomeWindow::Handlers{
                               .isSignedIn = [this] { return m_account.isSignedIn(); },
                               .signIn =
                                   [this] {
                                       CommandRunner::runAccountCommand(Command{.name = "sign-in"}, m_account,
                                                                        m_defaults, [](const CommandAnswer&) {});
                                   },
                               .obstacle = [] { return DesktopSession::obstacle(); },
                               .isEnabled = [this](const auto& entry) { return isEnabled(entry); },
                               .perform = [this](const auto& entry) { perform(entry, false); },
                           });
    return *m_homeWindow;
}

void Application::showHome()
{
    m_coordinator.whenForegroundIsFree([this] { homeWindow().present(); });
}

void Application::showOnboarding(bool)
{
    showHome();
}

void Application::showPermissionWindow()
{
    showHome();
}

void Application::presentUpdatedNotice(const QString& version)
{
    showHome();
    homeWindow().showNotice(HomeWindow::tr("Kovrel was updated to version %1.").arg(version));
}

void Application::openFiles(const QStringList& paths)
{
    qCWarning(log, "Files can't be opened: %s", qUtf8Printable(paths.join(", ")));
}

void Application::handleSignInAnswer(const QString& url)
{
    m_account.handleCallback(QUrl(url), [](bool) {});
}

bool Application::bringTitledWindowsForward()
{
    const QWidgetList windows = titledWindows();
    for (QWidget* window : windows)
        bringForward(*window);
    return !windows.isEmpty();
}

void Application::closeTitledWindows()
{
    for (QWidget* window : titledWindows())
        window->close();
}

void Application::stopTakingCommands()
{
    m_bus.release();
}

void Application::afterPendingSaves(std::chrono::milliseconds deadline, std::function<void()> work)
{
    m_exitDeadline = m_loop.now() + deadline;
    m_editorSaves.afterPendingEditorSaves(double(deadline.count()) / 1000, [this, work = std::move(work)] {
        m_output.afterPendingSaves(timeToExit(), work);
    });
}

std::chrono::milliseconds Application::timeToExit() const
{
    const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(m_exitDeadline - m_loop.now());
    return std::max(left, std::chrono::milliseconds(0));
}

// The desktop can have its keys once they are free.
void Application::giveShortcutsBack()
{
    m_hotkeys.unregisterAll();
    m_shortcuts.reconcile({});
}

void Application::exit()
{
    QCoreApplication::quit();
}

// --- CaptureAccess

void Application::refreshCredentials(std::chrono::seconds) {}

void Application::abandonColorPicking() {}

} // namespace Kovrel
