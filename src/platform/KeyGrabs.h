#pragma once

#include "model/KeyCombo.h"
#include "platform/Observers.h"

#include <expected>
#include <functional>
#include <optional>

namespace Kovrel {

// Key combinations that reach us whichever program has the focus. Main thread.
class KeyGrabs {
public:
    using GrabID = quint32;

    // Why a combination can't be had: the desktop's own number, for the log.
    using Status = int;

    // When something was done, in milliseconds that wrap around. The same clock as the pointer's over the overlay,
    // which tells of itself on another way: only the time says what came first.
    using Time = quint32;

    struct Press {
        quint32 modifiers = 0; // KeyCombo's, those that were down
        bool isRepeat = false; // the key was down already
        Time time = 0;
    };

    struct Handlers {
        std::function<void(Press)> onPress;
        std::function<void(Time)> onRelease = {};
    };

    // What somebody who listens to all keys is told.
    struct Typed {
        quint32 modifiers = 0;               // KeyCombo's, those that are down
        std::optional<quint32> keyCode = {}; // the key that went down; none: the modifiers have changed
    };

    enum class Modifiers {
        exact, // those of the combination, and no other
        any,   // whichever are down; those states that another program owns are left to it
    };

    virtual ~KeyGrabs() = default;

    // Fails where the desktop or another program keeps the combination to itself. A grab goes on through changes of
    // the keyboard's layout. Of two grabs of ours that share a combination the newer one gets its presses.
    virtual std::expected<GrabID, Status> grab(KeyCombo combo, Handlers handlers,
                                               Modifiers modifiers = Modifiers::exact) = 0;
    virtual void release(GrabID grab) = 0;

    // Until the subscription ends, all that is typed is told here and to nobody else: neither to programs nor to grabs.
    // Fails where another program holds the keyboard.
    virtual std::expected<Subscription, Status> listen(std::function<void(Typed)> typed) = 0;

    // Called when the modifiers of a grabbed combination are held, Super and another one, and nothing else yet: its key
    // is likely to follow in a moment.
    virtual Subscription onModifiersHeld(std::function<void()> callback) = 0;

    // Called after the keyboard's layout changed: what was refused before may be had now.
    virtual Subscription onLayoutChange(std::function<void()> callback) = 0;

    // Called when another program takes the whole keyboard and keeps it, as a screen lock does: no grab works then.
    virtual Subscription watchForTakeover(std::function<void()> onTakeover) = 0;
};

} // namespace Kovrel
