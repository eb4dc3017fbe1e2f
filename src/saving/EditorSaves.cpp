#include "saving/EditorSaves.h"

#include "platform/Guarded.h"
#include "platform/ReplyFromWorker.h"

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

void EditorSaves::saveEditorImageInBackground(Request request, Completion completion)
{
    ++*m_pending;
    replyFromWorker<SaveService::Result>(
        m_loop, m_workers, Lane::editorSave,
        Guarded::orReason([request = std::move(request)] { return save(request); }),
        [pending = m_pending, completion = std::move(completion)](const SaveService::Result& result) {
            --*pending;
            completion(result);
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
    while (*m_pending > 0 && m_loop.now() <= deadline)
        co_await m_scope.sleep(50ms);
    callback();
}

} // namespace Kovrel
