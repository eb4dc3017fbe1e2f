#pragma once

#include "platform/KeyGrabs.h"
#include "platform/x11/X11Connection.h"
#include "platform/x11/keys/X11KeyListening.h"
#include "platform/x11/keys/X11Keyboard.h"
#include "platform/x11/keys/X11TakeoverWatch.h"

#include <QSocketNotifier>

#include <map>
#include <memory>
#include <vector>

namespace Kovrel {

// Passive key grabs on the root window, with every state of the lock keys. Main thread; asking for one costs two round
// trips to a local server, however many keys and states it has.
//
// A passive grab keeps a combination from other programs, but it is silent while another program holds the keyboard,
// as each open menu does. XInput's raw events reach the root window all the same, whoever holds the keyboard, unless it
// is us. So both are listened to: a key is down from the first event of either kind that says so, and no press counts
// twice. Raw events are taken all the time while there are grabs, for the server tells nobody reliably when the
// keyboard is held; the price is a wake-up for each key that the user presses, with a look into a small table.
class X11KeyGrabs : public KeyGrabs {
public:
    // The connection belongs to this object alone: it takes its events.
    X11KeyGrabs(MainLoop& loop, std::unique_ptr<X11Connection> connection);

    // The status is the X server's error code: 10 where another program has the combination, 2 where the keyboard has
    // no such key.
    std::expected<GrabID, Status> grab(KeyCombo combo, Handlers handlers,
                                       Modifiers modifiers = Modifiers::exact) override;
    void release(GrabID grab) override;
    std::expected<Subscription, Status> listen(std::function<void(Typed)> typed) override;

    Subscription onModifiersHeld(std::function<void()> callback) override
    {
        return m_modifierObservers.add(std::move(callback));
    }

    Subscription onLayoutChange(std::function<void()> callback) override
    {
        return m_layoutObservers.add(std::move(callback));
    }

    Subscription watchForTakeover(std::function<void()> onTakeover) override
    {
        return m_takeovers.watch(std::move(onTakeover));
    }

private:
    // A key with the state of all modifier bits, as the server compares them.
    struct Chord {
        xcb_keycode_t key;
        uint8_t modifiers;

        auto operator<=>(const Chord&) const = default;
    };

    struct Grab {
        KeyCombo combo;
        Modifiers modifiers;
        Handlers handlers;
        std::vector<Chord> wanted = {}; // on the current layout
        std::vector<Chord> had = {};    // those that no other program owns
    };

    struct HeldKey {
        GrabID grab;
        bool isReported = false; // by a passive grab, too: the next such event is a repeat
    };

    std::vector<Chord> chordsOf(const Grab& grab) const;
    Status take(GrabID id, Grab& grab);
    void drop(GrabID id, Grab& grab);
    void ungrabUnowned(const Chord& chord);
    std::map<Chord, Status> request(const std::vector<Chord>& chords);
    void listen(bool isOn);
    void listenToLayout();
    void handleEvents();
    void handleLater();
    void handle(const xcb_generic_event_t& event);
    void handleGrabbedKey(const xcb_generic_event_t& event);
    void handleListenedKey(const xcb_key_press_event_t& key);
    void handleRawKey(const xcb_generic_event_t& event);
    void handleKeyboardChange(const xcb_generic_event_t& event);
    void followLayout();
    void modifiersChanged();
    void pressed(xcb_keycode_t key);
    void released(xcb_keycode_t key);
    void reported(xcb_keycode_t key);
    void repeated(GrabID id);
    X11TakeoverWatch::OwnKeys ownKeys() const;

    std::unique_ptr<X11Connection> m_connection;
    X11Keyboard m_keyboard;
    X11KeyListening m_listening;
    uint8_t m_rawKeyOpcode = 0;
    uint8_t m_modifiers = 0; // that are down or locked now
    std::map<GrabID, Grab> m_grabs;
    std::map<Chord, std::vector<GrabID>> m_owners; // newest last
    std::map<xcb_keycode_t, HeldKey> m_held;
    GrabID m_lastGrab = 0;
    Time m_time = 0; // of the event that is handled
    Observers<> m_layoutObservers;
    Observers<> m_modifierObservers;
    bool m_layoutIsOld = false; // to be read again
    bool m_groupIsOld = false;  // read, but another one of its groups is in use
    X11TakeoverWatch m_takeovers;
    std::unique_ptr<QSocketNotifier> m_notifier;
};

} // namespace Kovrel
