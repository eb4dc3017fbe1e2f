#pragma once

#include "capture/CaptureFinisher.h"
#include "capture/CaptureQueue.h"
#include "capture/CaptureReopener.h"
#include "capture/CaptureRequest.h"
#include "capture/CaptureRun.h"
#include "capture/CaptureServices.h"
#include "capture/CaptureStages.h"
#include "capture/DesktopSurvey.h"
#include "capture/SelectionFlow.h"
#include "capture/SelfTimer.h"
#include "platform/Display.h"
#include "platform/Scope.h"
#include "ports/Captures.h"

#include <optional>

namespace Kovrel {

// Turns capture requests into finished captures, one selection at a time. A request starts a run, waits in the
// CaptureQueue behind the run in progress, switches the overlay that is up, or is ignored; each is
// answered exactly once. A new run may start while the one before is still finishing. Main thread.
class CaptureCoordinator : public Captures, private CaptureStages {
public:
    explicit CaptureCoordinator(CaptureServices services);
    ~CaptureCoordinator() override;

    // Every trigger ends here. Returns at once.
    void capture(CaptureMode mode) { capture({.mode = mode}); }

    void capture(CaptureRequest request);

    void cancelAim() override;

    bool isCountingDown() const override { return m_selfTimer.isCountingDown(); }

    void cancelCountdown() override;
    // Ends whatever the request is waiting for: its place in the queue, its overlay, its countdown, its text.
    void cancel(quint64 requestID);

    bool hasLastArea() const { return m_lastArea.has_value(); }

    bool ensureScreenAccess() override;

    void reopenClosed(std::function<void(bool)> reply) override;
    void presentFromHistory(QUuid id, std::function<void(bool)> reply) override;

    void whenForegroundIsFree(std::function<void()> work) override;
    Subscription onCaptureFinished(std::function<void(const CaptureResult&)> observer) override;

    std::shared_ptr<CaptureSave> lastCaptureSave() const { return m_finisher.lastCaptureSave(); }

private:
    void startRun(CaptureRequest request);
    void startNext();
    void arbitrateWithoutOverlay(CaptureRequest request);
    void arbitrateWithOverlay(CaptureRequest request);
    bool ensurePermission();
    bool abandonColorPicking();

    QCoro::Task<> run(Run run);
    QCoro::Task<> dispatch(Run run);
    void leaveRun(const Run& run);
    void flushDeferredForeground();

    // CaptureStages
    QCoro::Task<> hideChromeAndRepaint(Run run) override;
    void leaveInteractivePhase(const Run& run) override;
    void selectionEnded(const Run& run, std::optional<DisplayArea> area = {}) override;
    void abandon(const Run& run, const QString& message) override;

    QCoro::Task<> runFullScreen(Run run, std::optional<Display> on, std::optional<Display> previewOn);
    QCoro::Task<> runLastArea(Run run);
    QCoro::Task<> runTimed(Run run);

    bool hideChrome(const Run& run, bool withToasts);
    void showChrome();

    CaptureServices m_services;
    CaptureFinisher m_finisher;
    SelfTimer m_selfTimer;
    CaptureReopener m_reopener;
    DesktopSurvey m_survey;
    SelectionFlow m_selection;

    bool m_isCapturing = false;
    CaptureQueue m_queue;
    bool m_selectionUIDone = false;
    int m_runGeneration = 0;
    int m_activeRuns = 0;
    Run m_currentRun;

    std::vector<std::function<void()>> m_deferredForeground;
    std::optional<DisplayArea> m_lastArea;
    std::optional<int> m_chromeHiddenBy;

    Scope m_scope;
};

} // namespace Kovrel
