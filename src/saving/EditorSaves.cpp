#include "saving/EditorSaves.h"

#include <QCoreApplication>

namespace Kovrel {

using namespace std::chrono_literals;

namespace {

SaveService::Result save(const EditorSaves::Request& request)
{
    if (request.sourceFileURL)
        return SaveService::overwriteFile(request.settings, request.image, *request.sourceFileURL);
    if (request.existingSavedURL)
        return SaveService::overwrite(request.settings, request.image, *request.existingSavedURL, request.pixelScale);
    return std::unexpected(SaveFailure{QCoreApplication::translate("EditorSaves", "This picture has no file yet.")});
}

} // namespace

void EditorSaves::Pending::add(int difference)
{
    const std::lock_guard lock(pendingLock);
    count += difference;
}

bool EditorSaves::Pending::isEmpty()
{
    const std::lock_guard lock(pendingLock);
    return count == 0;
}

void EditorSaves::saveEditorImageInBackground(Request request, Completion completion)
{
    m_pending->add(1);
    m_workers.submit(Lane::editorSave, [pending = m_pending, loop = &m_loop, request = std::move(request),
                                        completion = std::move(completion)] {
        const auto atEnd = qScopeGuard([&] { pending->add(-1); });
        loop->post([result = save(request), completion] { completion(result); });
    });
}

void EditorSaves::afterPendingEditorSaves(double deadlineSeconds, std::function<void()> callback)
{
    const auto wait =
        std::chrono::duration_cast<std::chrono::microseconds>(std::chrono::duration<double>(deadlineSeconds));
    Scope::start(waitForPending(m_loop.now() + wait, std::move(callback)), "waiting for the editor's saves");
}

QCoro::Task<> EditorSaves::waitForPending(std::chrono::microseconds deadline, std::function<void()> callback)
{
    while (!m_pending->isEmpty() && m_loop.now() <= deadline)
        co_await m_scope.sleep(50ms);
    callback();
}

} // namespace Kovrel
