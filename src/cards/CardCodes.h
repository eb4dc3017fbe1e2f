#pragma once

#include "cards/CardPixels.h"

#include <deque>

namespace Kovrel {

// Looks for codes in the captures of cards, one at a time, the newest first. Main thread.
class CardCodes {
public:
    // `found`: a card has a code.
    CardCodes(CardServices services, CardShelf& shelf, CardPixels& pixels, std::function<void(QUuid)> found);

    void look(QUuid id);

private:
    QCoro::Task<> lookAtAll();
    QCoro::Task<> lookAt(QUuid id);

    CardServices m_services;
    CardShelf& m_shelf;
    CardPixels& m_pixels;
    std::function<void(QUuid)> m_found;
    std::deque<QUuid> m_waiting;
    bool m_isLooking = false;
    Scope m_scope;
};

} // namespace Kovrel
