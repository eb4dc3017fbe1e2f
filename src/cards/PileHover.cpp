#include "cards/PileHover.h"

namespace Kovrel {

bool PileHover::set(bool on, quint32 pile, Reason reason)
{
    const bool was = isAt(pile);
    if (on)
        m_reasons[pile].insert(reason);
    else if (was && m_reasons[pile].erase(reason) && m_reasons[pile].empty())
        m_reasons.erase(pile);
    return isAt(pile) != was;
}

std::optional<quint32> PileHover::take(QUuid card, Reason reason)
{
    const auto held = m_holds.extract({card, reason});
    return held ? std::optional(held.mapped()) : std::nullopt;
}

void PileHover::clear()
{
    m_reasons.clear();
    m_holds.clear();
    setCard({});
}

void PileHover::setCard(std::optional<QUuid> card)
{
    if (std::exchange(m_card, card) != card)
        m_observers.notify(card);
}

Subscription PileHover::onCardChange(std::function<void(std::optional<QUuid>)> observer)
{
    return m_observers.add(std::move(observer));
}

} // namespace Kovrel
