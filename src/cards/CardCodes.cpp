#include "cards/CardCodes.h"

#include "ports/TextReader.h"

namespace Kovrel {

CardCodes::CardCodes(CardServices services, CardShelf& shelf, CardPixels& pixels, std::function<void(QUuid)> found)
    : m_services(std::move(services)),
      m_shelf(shelf),
      m_pixels(pixels),
      m_found(std::move(found)),
      m_scope(m_services.loop, m_services.workers)
{
}

void CardCodes::look(QUuid id)
{
    if (!m_services.ports.textReader)
        return;
    m_waiting.push_front(id);
    if (!std::exchange(m_isLooking, true))
        Scope::start(lookAtAll(), "Looking for codes");
}

QCoro::Task<> CardCodes::lookAtAll()
{
    const auto leave = qScopeGuard([this] { m_isLooking = false; });
    while (!m_waiting.empty()) {
        const QUuid id = m_waiting.front();
        m_waiting.pop_front();
        if (m_shelf.find(id))
            co_await lookAt(id);
    }
}

QCoro::Task<> CardCodes::lookAt(QUuid id)
{
    const std::optional<CaptureResult> capture = co_await m_scope.join(m_pixels.capture(id));
    if (!capture)
        co_return;
    using Codes = std::optional<std::vector<QRCode>>;
    const Codes codes = co_await m_scope.reply<Codes>(
        [&](auto done) { m_services.ports.textReader->readCodes(capture->image, std::move(done)); });
    PiledCard* card = m_shelf.find(id);
    if (!card || !codes || codes->empty())
        co_return;
    card->code = CardCode{codes->front().payload};
    m_found(id);
}

} // namespace Kovrel
