#include "capture/CaptureReopener.h"

#include "platform/Guarded.h"
#include "platform/ImageCodec.h"
#include "platform/Pointer.h"
#include "ports/CardPile.h"
#include "ports/ReopenLedger.h"

namespace Kovrel {

CaptureReopener::CaptureReopener(CaptureServices& services)
    : m_services(services), m_scope(services.loop, services.workers)
{
}

void CaptureReopener::reopenClosed(std::function<void(bool)> reply)
{
    const auto id = m_services.ports.ledger ? m_services.ports.ledger->takeLastClosed() : std::nullopt;
    if (id)
        presentFromHistory(*id, std::move(reply));
    else
        reply(false);
}

void CaptureReopener::presentFromHistory(QUuid id, std::function<void(bool)> reply)
{
    Scope::start(reopen(id, std::move(reply)), "Reopening a capture");
}

// What no history has may have been saved.
QCoro::Task<CaptureReopener::Loaded> CaptureReopener::find(QUuid id)
{
    const Ports& ports = m_services.ports;
    Loaded loaded;
    if (ports.history)
        loaded = co_await m_scope.reply<Loaded>([&](auto done) { ports.history->load(id, done); });
    const auto path = ports.ledger ? ports.ledger->savedFile(id) : std::nullopt;
    if (loaded || !path)
        co_return loaded;
    const auto read = [path = *path] { return ImageCodec::decodeFile(path).value_or(QImage()); };
    const QImage image = co_await m_scope.onWorker(Lane::capture, Guarded::orElse(read, QImage()));
    if (image.isNull())
        co_return std::nullopt;
    const CaptureResult result{.id = id, .image = image, .date = m_services.loop.date(), .pixelScale = 1};
    co_return CaptureHistory::Reopened{.result = result, .base = result, .savedPath = path};
}

QCoro::Task<> CaptureReopener::reopen(QUuid id, std::function<void(bool)> reply)
{
    const Ports& ports = m_services.ports;
    if (!ports.cards || !m_reopensInFlight.insert(id).second) {
        reply(false);
        co_return;
    }
    const auto leave = qScopeGuard([this, id] { m_reopensInFlight.erase(id); });
    const Loaded loaded = co_await find(id);
    using Position = std::optional<PointerPosition>;
    const Position pointer = co_await m_scope.reply<Position>([this](auto done) { m_services.pointer.position(done); });
    if (loaded)
        ports.cards->present({
            .result = loaded->result,
            .savedPath = loaded->savedPath,
            .didCopyToClipboard = false,
            .showOn = pointer ? std::optional(pointer->displayID) : std::nullopt,
            .baseResult = loaded->base,
        });
    reply(loaded.has_value());
}

} // namespace Kovrel
