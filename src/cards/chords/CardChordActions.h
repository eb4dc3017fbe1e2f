#pragma once

#include "cards/QuickAccessController.h"
#include "cards/chords/CardChordHotkeys.h"

namespace Kovrel {

// The chords act on the card under the pointer, as long as there is one. Main thread.
class CardChordActions {
public:
    // Both outlive it.
    CardChordActions(QuickAccessController& cards, CardChordHotkeys& hotkeys);

private:
    void hoverChanged(bool isHovered);
    void fireChord(CardChord chord);

    QuickAccessController& m_cards;
    CardChordHotkeys& m_hotkeys;
    Subscription m_hoverChanges;
};

} // namespace Kovrel
