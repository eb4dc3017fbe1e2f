#include "cards/CardFaces.h"

#include "cards/CardFace.h"
#include "platform/Guarded.h"

namespace Kovrel {

CardFaces::CardFaces(CardServices services, CardShelf& shelf, CardPixels& pixels, std::function<void(QUuid)> shown)
    : m_services(std::move(services)),
      m_shelf(shelf),
      m_pixels(pixels),
      m_shown(std::move(shown)),
      m_scope(m_services.loop, m_services.workers)
{
}

void CardFaces::render(QUuid id)
{
    if (PiledCard* card = m_shelf.find(id))
        Scope::start(renderInBackground(id, ++card->faceGeneration), "Drawing a card");
}

double CardFaces::scaleFor(const PiledCard& card) const
{
    const DisplayList displays = m_services.displays.all();
    const Display* display = displayWithID(displays, card.displayID);
    return display ? display->scale : 1;
}

QCoro::Task<> CardFaces::renderInBackground(QUuid id, int generation)
{
    const std::optional<CaptureResult> capture = co_await m_scope.join(m_pixels.capture(id));
    PiledCard* card = m_shelf.find(id);
    if (!card || card->faceGeneration != generation)
        co_return;
    const QImage image = capture ? capture->image : QImage();
    card->size = image.isNull() ? card->size : CardFace::cardSize(image.size());
    card->faceScale = scaleFor(*card);
    const auto job = [image, scaleOfPixels = card->result.pixelScale, size = card->size, scale = card->faceScale] {
        return CardFace::render(image, scaleOfPixels, size, scale);
    };
    const QImage face = co_await m_scope.onWorker(Lane::cardFace, Guarded::orElse(job, QImage()));
    card = m_shelf.find(id);
    if (!card || card->faceGeneration != generation)
        co_return;
    card->face = face;
    card->hasFace = true;
    m_shown(id);
}

} // namespace Kovrel
