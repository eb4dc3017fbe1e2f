#include "cards/CardShelf.h"

#include <algorithm>

namespace Kovrel {

PiledCard& CardShelf::add(PiledCard card)
{
    return m_cards.emplace_front(std::move(card));
}

PiledCard* CardShelf::find(QUuid id)
{
    const auto found = std::ranges::find(m_cards, id, &PiledCard::id);
    return found == m_cards.end() ? nullptr : &*found;
}

const PiledCard* CardShelf::find(QUuid id) const
{
    const auto found = std::ranges::find(m_cards, id, &PiledCard::id);
    return found == m_cards.end() ? nullptr : &*found;
}

void CardShelf::take(QUuid id)
{
    m_cards.remove_if([id](const PiledCard& card) { return card.id() == id; });
}

std::vector<QUuid> CardShelf::ids() const
{
    std::vector<QUuid> ids;
    for (const PiledCard& card : m_cards)
        ids.push_back(card.id());
    return ids;
}

std::vector<QUuid> CardShelf::idsOn(quint32 displayID) const
{
    std::vector<QUuid> ids;
    for (const PiledCard& card : m_cards)
        if (card.displayID == displayID)
            ids.push_back(card.id());
    return ids;
}

} // namespace Kovrel
