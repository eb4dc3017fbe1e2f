#pragma once

#include "capture/pixels/PixelSource.h"
#include "platform/Displays.h"
#include "platform/Scope.h"
#include "platform/ScreenPixels.h"
#include "platform/ToolProcess.h"
#include "platform/Windows.h"
#include "ports/CaptureTrace.h"

#include <QStringList>

#include <chrono>
#include <mutex>
#include <optional>

namespace Kovrel {

// Pixels of a rectangle of the screen or of one window. They are taken in this process; where that fails, the
// platform's screenshot tool runs as a child process and the file that it writes is read. Main thread, unless said.
//
// A tool that can't be started is tried three times, one that does not end within ten seconds is killed. Whatever
// went wrong with the tool is one line of the log "com.kovrel.capture", and part of the failure's reason.
class NativeScreenCapture : public PixelSource {
public:
    using Milliseconds = MainLoop::Milliseconds;

    // All outlive this object.
    struct Services {
        MainLoop& loop;
        Workers& workers;
        const CaptureTrace& trace;
        ScreenPixels& pixels;
        Windows& windows;
        const Displays& displays;
        ToolProcess& toolProcess;
    };

    struct Tool {
        QString program;         // absolute path
        QString temporaryFolder; // the user's own; exists
    };

    NativeScreenCapture(Services services, Tool tool);

    // From global points to points counted from the top-left corner of the primary display, y down.
    Rect topLeftGlobalRect(Rect rect) const;

    QCoro::Task<Outcome> displayRect(Rect topLeftGlobalRect, bool showCursor);
    // A rectangle of root pixels, exact at every scale.
    QCoro::Task<Outcome> pixels(QRect rootPixels, bool showCursor) override;
    // Without its shadow.
    QCoro::Task<Outcome> window(quint32 windowID) override;

    // The tool's own window picker. The failure is empty when the user or `cancelInteractivePick` cancelled it.
    QCoro::Task<std::expected<QImage, QString>> interactivePick();
    // Kills the picker when it has been up for at least `minAge`; false when there is none to kill.
    bool cancelInteractivePick(Milliseconds minAge) override;
    // Returns when no picker is up and the tool has had 12 ms since its last exit, at the latest after `deadline`.
    QCoro::Task<> waitUntilInteractiveIdle(Milliseconds deadline);

private:
    // The tool process at work, shared with whoever cancels it.
    struct Live {
        qint64 pid = 0; // of the picker; 0 is none
        std::chrono::microseconds startedAt{};
        std::optional<std::chrono::microseconds> lastExitAt; // of any run
        bool isCancelled = false;                            // we killed the picker: its exit is no failure
    };

    Wait<GrabbedImage> grabInProcess(QRect rootPixels, bool showCursor);
    // What the tool takes. A failure says what became of the tool, and is empty when there is nothing to say.
    QCoro::Task<std::expected<QImage, QString>> run(QStringList options, bool isInteractive);
    QCoro::Task<std::expected<QImage, QString>> runAndRead(QStringList options, bool isInteractive);
    // Runs the tool to its end.
    QCoro::Task<std::expected<Nothing, QString>> runTool(QStringList arguments, bool isInteractive);
    QCoro::Task<std::expected<Nothing, QString>> finish(qint64 pid, Wait<ToolExit> exit, bool isInteractive);
    std::expected<Nothing, QString> judge(ToolExit exit, bool isInteractive, bool isLate, bool isCancelled) const;

    void noteStart(qint64 pid, bool isInteractive);
    // Whether we had cancelled it.
    bool noteExit(qint64 pid);
    qint64 livePid() const;
    Milliseconds settlingTime() const;

    Services m_services;
    Tool m_tool;
    mutable std::mutex m_liveLock;
    Live m_live;
    Scope m_scope;
};

} // namespace Kovrel
