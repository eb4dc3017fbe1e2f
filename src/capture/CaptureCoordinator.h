#pragma once

#include "capture/CaptureFinisher.h"
#include "capture/CaptureReopener.h"
#include "capture/CaptureRequest.h"
#include "capture/CaptureRun.h"
#include "capture/CaptureServices.h"
#include "capture/DesktopSurvey.h"
#include "capture/PixelSource.h"
#include "capture/SelectionOverlay.h"
#include "capture/SelfTimer.h"
#include "capture/TextCapture.h"
#include "capture/WindowComposition.h"
#include "platform/Display.h"
#include "platform/Scope.h"

#include <optional>

namespace Kovrel {

// Turns capture requests into finished captures, one selection at a time. A request starts a run, waits in the one
// place behind the run in progress (the last one wins), switches the overlay that is up, or is ignored; each is
// answered exactly once. A new run may start while the one before is still finishing. Main thread.
class CaptureCoordinator {
public:
    explicit CaptureCoordinator(CaptureServices services);
    ~CaptureCoordinator();

    // Every trigger ends here. Returns at once.
    void capture(CaptureMode mode) { capture({.mode = mode}); }

    void capture(CaptureRequest request);

    // Closes a showing overlay as if Escape had been pressed.
    void cancelAim();

    bool isCountingDown() const { return m_selfTimer.isCountingDown(); }

    void cancelCountdown();
    // Ends whatever the request is waiting for: its place in the queue, its overlay, its countdown.
    void cancel(quint64 requestID);

    bool hasLastArea() const { return m_lastArea.has_value(); }

    // Whether one may capture now; shows what helps when one may not.
    bool ensureScreenAccess();

    // The capture whose card was closed last comes back.
    void reopenClosed();
    // Answers whether there was one.
    void reopenClosed(std::function<void(bool)> reply);
    void presentFromHistory(QUuid id, std::function<void(bool)> reply);

    // Work that wants to bring a window to the front runs now, or when the selection in progress has ended.
    void whenForegroundIsFree(std::function<void()> work);

    void onCaptureFinished(std::function<void(const CaptureResult&)> observer);

    std::shared_ptr<CaptureSave> lastCaptureSave() const { return m_finisher.lastCaptureSave(); }

private:
    using Run = std::shared_ptr<CaptureRun>;

    void startRun(CaptureRequest request);
    void queueRequest(CaptureRequest request);
    void arbitrateWithoutOverlay(CaptureRequest request);
    void arbitrateWithOverlay(CaptureRequest request);
    bool isSameAsOverlay(CaptureMode mode) const;
    bool ensurePermission();

    QCoro::Task<> run(Run run);
    QCoro::Task<> dispatch(Run run);
    void leaveRun(const Run& run);
    void leaveInteractivePhase(const Run& run);
    void selectionEnded(const Run& run, std::optional<DisplayArea> area = {});
    void abandon(const Run& run, const QString& message);
    void flushDeferredForeground();

    QCoro::Task<> runAreaSelection(Run run, bool ocrOnly);
    QCoro::Task<> runGivenArea(Run run, bool ocrOnly);
    QCoro::Task<> runWindowSelection(Run run);
    QCoro::Task<> runFullScreen(Run run, std::optional<Display> on, std::optional<Display> previewOn);
    QCoro::Task<> runLastArea(Run run);
    QCoro::Task<> runTimed(Run run);

    QCoro::Task<SelectionResult> select(Run run, SelectionOverlay::Mode mode, bool ocrOnly);
    void armOverlayModeTracking(SelectionOverlay::Mode initial, bool isOCR);
    QCoro::Task<> prewarmWindowBackdrop();
    QCoro::Task<> takeSelection(Run run, SelectionResult selection, bool ocrOnly);
    QCoro::Task<> takeArea(Run run, QRect rootPixels, bool ocrOnly);
    QCoro::Task<std::optional<QImage>> fallbackAreaGrab(QRect rootPixels);
    QCoro::Task<> takeWindows(Run run, std::vector<WindowInfo> windows, bool ocrOnly);
    QCoro::Task<> finishArea(Run run, QImage image, QRect rootPixels, Display display, bool ocrOnly);
    QCoro::Task<> finishWindowPick(Run run, CaptureFinisher::Pixels picked);

    bool hideChrome(const Run& run, bool withToasts);
    QCoro::Task<> hideChromeAndRepaint(Run run);

    CaptureServices m_services;
    CaptureFinisher m_finisher;
    TextCapture m_textCapture;
    SelfTimer m_selfTimer;
    CaptureReopener m_reopener;
    WindowComposition m_composition;
    DesktopSurvey m_survey;

    bool m_isCapturing = false;
    std::optional<CaptureRequest> m_queuedCapture;
    bool m_selectionUIDone = false;
    int m_runGeneration = 0;
    int m_activeRuns = 0;
    Run m_currentRun;

    bool m_overlayIsUp = false;
    SelectionOverlay::Mode m_overlayMode = SelectionOverlay::Mode::areaDrag;
    bool m_overlaySessionIsOCR = false;

    std::vector<std::function<void()>> m_deferredForeground;
    std::optional<DisplayArea> m_lastArea;
    std::optional<int> m_chromeHiddenBy;

    Scope m_scope;
};

} // namespace Kovrel
