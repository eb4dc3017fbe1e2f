#pragma once

#include "cards/PiledCard.h"

#include <list>
#include <vector>

namespace Kovrel {

// The cards of all piles, the newest first; a pile is those of one display. Main thread.
class CardShelf {
public:
    const std::list<PiledCard>& cards() const { return m_cards; }

    PiledCard& add(PiledCard card);
    // Null for none; valid until it is taken.
    PiledCard* find(QUuid id);
    const PiledCard* find(QUuid id) const;
    void take(QUuid id);

    std::vector<QUuid> ids() const;
    std::vector<QUuid> idsOn(quint32 displayID) const;

private:
    std::list<PiledCard> m_cards;
};

} // namespace Kovrel
