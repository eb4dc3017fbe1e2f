#pragma once

#include "platform/Scope.h"
#include "saving/SaveService.h"

#include <functional>
#include <memory>

namespace Kovrel {

// The editor's saves: one at a time, in the background, in the order in which they were asked for. Main thread.
class EditorSaves {
public:
    EditorSaves(MainLoop& loop, Workers& workers) : m_loop(loop), m_workers(workers), m_scope(loop, workers) {}

    struct Request {
        SaveSettings settings;
        QImage image;
        std::optional<QString> sourceFileURL;    // the file that the editor was opened on: written back as it is
        std::optional<QString> existingSavedURL; // else the capture's saved file, reduced as that was
        std::optional<double> pixelScale;
    };

    using Completion = std::function<void(const SaveService::Result&)>;

    // A save that was asked for is done, also when this object goes in the meantime. The completion is called on the
    // main thread.
    void saveEditorImageInBackground(Request request, Completion completion);

    // Calls back once no editor save is in flight, at the latest after the deadline; at once where none is. Looks every
    // 50 ms, and only while it has to wait.
    void afterPendingEditorSaves(double deadlineSeconds, std::function<void()> callback);

private:
    QCoro::Task<> waitForPending(std::chrono::microseconds deadline, std::function<void()> callback);

    MainLoop& m_loop;
    Workers& m_workers;
    std::shared_ptr<int> m_pending = std::make_shared<int>(0); // outlives this object with the saves under way
    Scope m_scope;
};

} // namespace Kovrel
