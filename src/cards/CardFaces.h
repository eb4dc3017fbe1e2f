#pragma once

#include "cards/CardPixels.h"

namespace Kovrel {

// Makes the faces of cards, away from the main thread, for the displays they stand on. Main thread.
class CardFaces {
public:
    // `shown`: a card has its face, or is known to have none.
    CardFaces(CardServices services, CardShelf& shelf, CardPixels& pixels, std::function<void(QUuid)> shown);

    // Anew, as after an edit or on a display of another scale; one that is being made already is not used.
    void render(QUuid id);

private:
    QCoro::Task<> renderInBackground(QUuid id, int generation);
    double scaleFor(const PiledCard& card) const;

    CardServices m_services;
    CardShelf& m_shelf;
    CardPixels& m_pixels;
    std::function<void(QUuid)> m_shown;
    Scope m_scope;
};

} // namespace Kovrel
