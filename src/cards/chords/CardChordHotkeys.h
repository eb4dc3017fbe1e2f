#pragma once

#include "cards/chords/CardChord.h"
#include "platform/KeyGrabs.h"
#include "platform/MainLoop.h"

#include <QObject>

#include <map>
#include <optional>
#include <set>

namespace Kovrel {

// Keeps the chords for the card under the pointer, which never has the keyboard: they are taken from other programs
// only while a card is hovered and no window of ours has the focus. Main thread.
class CardChordHotkeys {
public:
    using Handler = std::function<void(CardChord)>;

    // Both outlive it.
    CardChordHotkeys(MainLoop& loop, KeyGrabs& keys);
    ~CardChordHotkeys();
    CardChordHotkeys(const CardChordHotkeys&) = delete;
    CardChordHotkeys& operator=(const CardChordHotkeys&) = delete;

    // A card is hovered. The handler may release, and arm again.
    void arm(Handler handler);
    // None is.
    void release();

    // The keys that do what the chord does, as far as the last claim tells; none where they belong to others.
    std::optional<KeyCombo> keysOf(CardChord chord) const;
    std::optional<KeyCombo> keysOf(CardQuickAction action) const;

private:
    struct Claim {
        KeyGrabs::GrabID grab;
        KeyCombo combo;
    };

    void scheduleReconcile();
    void watchFocusWindow();
    void reconcile();
    void claim();
    void claim(const CardChordKeys& keys);
    void letGo();
    void fire(CardChord chord) const;

    MainLoop& m_loop;
    KeyGrabs& m_keys;
    Handler m_handler; // empty: not armed
    std::map<CardChord, Claim> m_claims;
    std::map<CardChord, std::optional<KeyCombo>> m_known; // of the last claim
    Subscription m_layoutChanges;
    QMetaObject::Connection m_endOfFocus;
    QObject m_context; // of what is heard of the focus, and of what is posted
};

} // namespace Kovrel
