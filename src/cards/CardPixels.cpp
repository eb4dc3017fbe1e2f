#include "cards/CardPixels.h"

#include "platform/Guarded.h"
#include "platform/ImageCodec.h"

namespace Kovrel {

CardPixels::CardPixels(CardServices services, const CardShelf& shelf)
    : m_services(std::move(services)), m_shelf(shelf), m_scope(m_services.loop, m_services.workers)
{
}

QCoro::Task<std::optional<CaptureResult>> CardPixels::capture(QUuid id)
{
    return find(id, &CaptureHistory::Reopened::result);
}

QCoro::Task<std::optional<CaptureResult>> CardPixels::base(QUuid id)
{
    return find(id, &CaptureHistory::Reopened::base);
}

QCoro::Task<std::optional<CaptureResult>> CardPixels::find(QUuid id, Part part)
{
    const PiledCard* card = m_shelf.find(id);
    if (card && !card->result.image.isNull())
        co_return card->result;
    if (!card)
        co_return std::nullopt;
    const CaptureResult record = card->result;
    const QString saved = card->savedPath.value_or(QString());
    using Loaded = std::optional<CaptureHistory::Reopened>;
    Loaded loaded;
    if (m_services.ports.history)
        loaded = co_await m_scope.reply<Loaded>([&](auto done) { m_services.ports.history->load(id, done); });
    if (loaded)
        co_return (*loaded).*part;
    const auto read = [saved] { return ImageCodec::decodeFile(saved).value_or(QImage()); };
    const QImage image = co_await m_scope.onWorker(Lane::clipboard, Guarded::orElse(read, QImage()));
    if (image.isNull())
        co_return std::nullopt;
    co_return record.replacing(image, record.subject);
}

} // namespace Kovrel
