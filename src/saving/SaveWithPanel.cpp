#include "saving/SaveWithPanel.h"

#include "platform/Guarded.h"
#include "saving/SaveLog.h"

namespace Kovrel {

void SaveWithPanel::saveWithPanel(Request request)
{
    Scope::start(save(std::move(request)), "saving under a chosen name");
}

QCoro::Task<> SaveWithPanel::save(Request request)
{
    const auto path = co_await m_scope.reply<std::optional<QString>>(
        [&](Reply<std::optional<QString>> done) { m_panel.ask(request.suggestedPath, request.window, done); });
    if (!path)
        co_return;
    const auto job = [image = request.image, path = *path, format = request.format, quality = request.quality] {
        return SaveService::saveAs(image, path, format, quality);
    };
    const auto saved = co_await m_scope.onWorker(Lane::save, Guarded::orReason(job));
    if (saved) {
        m_fileManager.reveal(saved->path);
        request.onSaved(saved->path);
        co_return;
    }
    logSaveFailure("Kovrel save-as failed: ", saved.error());
    if (request.onFailed)
        request.onFailed(saved.error());
}

} // namespace Kovrel
