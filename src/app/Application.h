#pragma once

#include "account/Account.h"
#include "app/AbsentParts.h"
#include "app/AppDelegate.h"
#include "app/AppEnvironment.h"
#include "app/CommandRunner.h"
#include "app/SigtermSource.h"
#include "app/commands/TextCommand.h"
#include "capture/CaptureCoordinator.h"
#include "capture/RecognitionTextReader.h"
#include "capture/delivery/CaptureOutput.h"
#include "capture/pixels/NativeScreenCapture.h"
#include "capture/pixels/WindowBackdropCompositor.h"
#include "capture/selection/SelectionCapture.h"
#include "capture/selection/SelectionOverlayController.h"
#include "hotkeys/GlobalHotkeyManager.h"
#include "hotkeys/SystemShortcutManager.h"
#include "platform/desktop/FileTokenStore.h"
#include "platform/desktop/InstanceBus.h"
#include "platform/desktop/QtMainLoop.h"
#include "platform/desktop/ThreadWorkers.h"
#include "platform/plugins/PluginCodeReader.h"
#include "platform/session/Desktops.h"
#include "ports/CaptureAccess.h"
#include "ports/CaptureTrace.h"
#include "saving/EditorSaves.h"
#include "sounds/CaptureSounds.h"
#include "toasts/ToastController.h"
#include "tray/TrayMenu.h"
#include "welcome/HomeWindow.h"

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
    Subscription onAccountChange(std::function<void()> observer) override;
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
    std::unique_ptr<Desktop> m_desktop;
    FileTokenStore m_localTokens;
    Account m_account;
    ClipboardService m_clipboardService;
    EditorSaves m_editorSaves;
    CaptureOutput m_output;
    AbsentParts m_absent;
    WindowBackdropCompositor m_backdrop;
    CaptureSounds m_sounds;
    ToastController m_toasts;
    NativeScreenCapture m_nativeCapture;
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
    Subscription m_captures;
    Subscription m_freedShortcuts;
    Subscription m_heldModifiers;
    std::chrono::microseconds m_exitDeadline{0}; // of the main loop's clock
    QObject m_context;                           // of connections to what outlives us
};

} // namespace Kovrel
