#pragma once

#include "app/AbsentParts.h"
#include "app/Account.h"
#include "app/AppDelegate.h"
#include "app/AppEnvironment.h"
#include "app/CaptureOutput.h"
#include "app/CommandRunner.h"
#include "app/GlobalHotkeyManager.h"
#include "app/HomeWindow.h"
#include "app/SigtermSource.h"
#include "app/SystemShortcutManager.h"
#include "app/TextCommand.h"
#include "app/TrayMenu.h"
#include "capture/CaptureAccess.h"
#include "capture/CaptureCoordinator.h"
#include "capture/CaptureSounds.h"
#include "capture/CaptureTrace.h"
#include "capture/NativeScreenCapture.h"
#include "capture/RecognitionTextReader.h"
#include "capture/SelectionCapture.h"
#include "capture/SelectionOverlayController.h"
#include "capture/WindowBackdropCompositor.h"
#include "platform/PluginCodeReader.h"
#include "platform/SpawnedToolProcess.h"
#include "platform/desktop/DBusScreenLock.h"
#include "platform/desktop/FileTokenStore.h"
#include "platform/desktop/InstanceBus.h"
#include "platform/desktop/KeychainTokenStore.h"
#include "platform/desktop/QtClipboard.h"
#include "platform/desktop/QtMainLoop.h"
#include "platform/desktop/ThreadWorkers.h"
#include "platform/x11/X11Desktop.h"
#include "saving/EditorSaves.h"
#include "tools/ToastController.h"

namespace Kovrel {

// Builds everything once and wires it together. Main thread; lives as long as the process.
class Application : private AppEnvironment, private CaptureAccess {
public:
    explicit Application(AppDelegate::Launch launch);
    ~Application() override;

    // Takes the program's place on the bus. Commands wait until `start`.
    InstanceBus::Claim claimInstance();
    void start();

    // The same as a command that comes over the bus.
    void run(const QStringList& arguments, Reply<CommandAnswer> reply);

private:
    // AppEnvironment
    void ensureDefaultSaveFolder() override;
    void restoreAccount() override;
    void sweepTemporaryFiles() override;
    void terminateOnSignal() override;
    void registerHotkeys() override;
    void unregisterHotkeys() override;
    void startMaintainingShortcuts() override;
    void prewarm() override;
    void prewarmDelayed() override;
    bool isSignedIn() const override;
    bool mayRecordScreen() const override;
    void whenAccountIsKnown(std::function<void()> work) override;
    void onAccountChange(std::function<void()> observer) override;
    void showHome() override;
    void showOnboarding(bool withSignIn) override;
    void showPermissionWindow() override;
    void presentUpdatedNotice(const QString& version) override;
    void openFiles(const QStringList& paths) override;
    void handleSignInAnswer(const QString& url) override;
    bool bringTitledWindowsForward() override;
    void closeTitledWindows() override;
    void afterPendingSaves(std::chrono::milliseconds deadline, std::function<void()> work) override;
    void stopTakingCommands() override;
    void giveShortcutsBack() override;
    void exit() override;

    // CaptureAccess
    void refreshCredentials(std::chrono::seconds olderThan) override;
    void abandonColorPicking() override;

    void followScreens();
    std::chrono::milliseconds timeToExit() const;
    CaptureServices captureServices();
    InstanceBus::Handlers busHandlers();
    TrayMenu::Handlers trayHandlers();
    GlobalHotkeyManager::Handlers hotkeyHandlers();
    HomeWindow& homeWindow();
    bool isEnabled(const CaptureCommands::Entry& entry) const;
    void perform(const CaptureCommands::Entry& entry, bool fromMenu);

    AppDelegate::Launch m_launch;
    QtMainLoop m_loop;
    ThreadWorkers m_workers;
    UserDefaults m_defaults;
    Preferences m_preferences;
    CaptureTrace m_trace;
    X11Desktop m_desktop;
    FileTokenStore m_localTokens;
    KeychainTokenStore m_secretTokens;
    Account m_account;
    QtClipboard m_clipboard;
    ClipboardService m_clipboardService;
    EditorSaves m_editorSaves;
    CaptureOutput m_output;
    AbsentParts m_absent;
    WindowBackdropCompositor m_backdrop;
    CaptureSounds m_sounds;
    ToastController m_toasts;
    SpawnedToolProcess m_toolProcess;
    NativeScreenCapture m_nativeCapture;
    DBusScreenLock m_screenLock;
    SelectionOverlayController m_selectionOverlay;
    SelectionCapture m_selectionCapture;
    VisionOCREngine m_recognition;
    PluginCodeReader m_codeReader;
    QRCodeDetector m_codes;
    RecognitionTextReader m_textReader;
    TextCommand m_textCommand;
    InstanceBus m_bus; // before the coordinator: its last replies still leave
    CaptureCoordinator m_coordinator;
    AppDelegate m_delegate;
    CommandRunner m_commands;
    SystemShortcutManager m_shortcuts;
    GlobalHotkeyManager m_hotkeys;
    std::unique_ptr<HomeWindow> m_homeWindow;
    std::unique_ptr<TrayMenu> m_tray;
    std::unique_ptr<SigtermSource> m_sigterm;
    std::chrono::microseconds m_exitDeadline{0}; // of the main loop's clock
    QObject m_context;                           // of connections to what outlives us
};

} // namespace Kovrel
