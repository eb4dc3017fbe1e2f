#include "cards/chords/CardChordActions.h"

namespace Kovrel {

CardChordActions::CardChordActions(QuickAccessController& cards, CardChordHotkeys& hotkeys)
    : m_cards(cards),
      m_hotkeys(hotkeys),
      m_hoverChanges(cards.onHoverChange([this](const std::optional<QUuid>& card) { hoverChanged(card.has_value()); }))
{
}

void CardChordActions::hoverChanged(bool isHovered)
{
    if (isHovered)
        m_hotkeys.arm([this](CardChord chord) { fireChord(chord); });
    else
        m_hotkeys.release();
}

void CardChordActions::fireChord(CardChord chord)
{
    const CardQuickAction action = allCardChords[size_t(chord)].action;
    if (action == CardQuickAction::closeAll)
        m_cards.dismissAll();
    else if (const auto card = m_cards.hoveredCardID())
        m_cards.perform(action, *card);
}

} // namespace Kovrel
