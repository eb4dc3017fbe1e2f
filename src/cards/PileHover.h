#pragma once

#include "platform/Observers.h"

#include <QUuid>

#include <map>
#include <optional>
#include <set>

namespace Kovrel {

// Who is at which pile. Main thread.
class PileHover {
public:
    enum class Reason {
        pointer,
        menu, // of one of its cards
        drag, // likewise
    };

    // Answers whether somebody is at the pile now who was not, or the other way round.
    bool set(bool on, quint32 pile, Reason reason);

    bool isAt(quint32 pile) const { return m_reasons.contains(pile); }

    // Which pile a menu or a drag of a card holds, until it ends: the card may have gone by then.
    void remember(QUuid card, Reason reason, quint32 pile) { m_holds[{card, reason}] = pile; }

    // Nothing for one that was not remembered.
    std::optional<quint32> take(QUuid card, Reason reason);

    // Nobody is anywhere.
    void clear();

    // The card under the pointer.
    std::optional<QUuid> card() const { return m_card; }

    void setCard(std::optional<QUuid> card);
    Subscription onCardChange(std::function<void(std::optional<QUuid>)> observer);

private:
    std::map<quint32, std::set<Reason>> m_reasons; // no empty ones
    std::map<std::pair<QUuid, Reason>, quint32> m_holds;
    std::optional<QUuid> m_card;
    Observers<std::optional<QUuid>> m_observers;
};

} // namespace Kovrel
