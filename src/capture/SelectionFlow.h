#pragma once

#include "capture/CaptureFinisher.h"
#include "capture/CaptureStages.h"
#include "capture/DesktopSurvey.h"
#include "capture/TextCapture.h"
#include "capture/WindowComposition.h"
#include "capture/pixels/PixelSource.h"
#include "capture/selection/SelectionOverlay.h"
#include "platform/Scope.h"

namespace Kovrel {

// The runs in which something is selected, an area or windows, from the overlay to the finished capture or its text.
// Main thread.
class SelectionFlow {
public:
    using Run = CaptureStages::Run;

    SelectionFlow(CaptureServices& services, CaptureFinisher& finisher, DesktopSurvey& survey, CaptureStages& stages);

    bool isOverlayUp() const { return m_overlayIsUp; }

    // Whether the overlay that is up is what this mode would open.
    bool isSameAsOverlay(CaptureMode mode) const;

    QCoro::Task<> runAreaSelection(Run run, bool ocrOnly);
    QCoro::Task<> runWindowSelection(Run run);

    // Stops the reading of a text capture.
    void cancelReading(quint64 requestID) { m_textCapture.cancel(requestID); }

    // What follows once the pixels of an area are in hand.
    QCoro::Task<> finishArea(Run run, QImage image, QRect rootPixels, Display display, bool ocrOnly);

private:
    QCoro::Task<> runGivenArea(Run run, bool ocrOnly);
    QCoro::Task<SelectionResult> select(Run run, SelectionOverlay::Mode mode, bool ocrOnly);
    QCoro::Task<> prewarmWindowBackdrop();
    QCoro::Task<> takeSelection(Run run, SelectionResult selection, bool ocrOnly);
    QCoro::Task<> takeArea(Run run, QRect rootPixels, bool ocrOnly);
    QCoro::Task<std::optional<Display>> displayOf(QRect rootPixels);
    QCoro::Task<PixelSource::Outcome> fallbackAreaGrab(QRect rootPixels);
    QCoro::Task<> takeWindows(Run run, std::vector<WindowInfo> windows, bool ocrOnly);
    QCoro::Task<> finishWindowPick(Run run, CaptureFinisher::Pixels picked);

    CaptureServices& m_services;
    CaptureFinisher& m_finisher;
    DesktopSurvey& m_survey;
    CaptureStages& m_stages;
    TextCapture m_textCapture;
    WindowComposition m_composition;

    bool m_overlayIsUp = false;
    SelectionOverlay::Mode m_overlayMode = SelectionOverlay::Mode::areaDrag;
    bool m_overlaySessionIsOCR = false;
    Subscription m_modeChanges;

    Scope m_scope;
};

} // namespace Kovrel
