#pragma once

#include "cards/Countdown.h"
#include "cards/PreviewDuration.h"
#include "platform/MainLoop.h"
#include "ports/CountdownHold.h"
#include "preferences/Preferences.h"

#include <QUuid>

#include <map>
#include <set>

namespace Kovrel {

// When cards close by themselves. A card has at most one close pending. Main thread.
class CardCountdowns {
public:
    using Cards = std::vector<QUuid>;

    struct Callbacks {
        // Whether somebody is at the card's pile: nothing there counts then.
        std::function<bool(QUuid)> isLookedAt;
        // The card's time is up. The action is the one that was chosen when its countdown began.
        std::function<void(QUuid, AutoCloseAction)> fired;
    };

    CardCountdowns(MainLoop& loop, const Preferences& preferences, Callbacks callbacks);
    ~CardCountdowns();

    // From the full duration, or not at all: for a frozen card, hidden columns, a hold, somebody who looks, and where
    // cards are kept.
    void armTimer(QUuid card);
    // After a pause that was none of the user's: the earlier deadline counts where it still lies ahead.
    void resumeTimer(QUuid card);
    // Stops without closing. The ring stands still, for as long as somebody looks.
    void cancelTimer(QUuid card);
    void cancelAllTimers(const Cards& cards);
    // The card has gone.
    void forget(QUuid card);

    // Hidden columns don't count. Their deadlines are kept, for resumeTimer.
    void setColumnsHidden(bool areHidden);
    // The first hold takes all rings away; answers whether the last one has gone, so that all are to be armed.
    bool holdCountdowns(CountdownHold hold, bool on);
    // A frozen card stays until it is closed by hand.
    void toggleFreeze(QUuid card);

    bool isFrozen(QUuid card) const { return m_frozen.contains(card); }

    // Whether duration or action are others than those of the countdowns that run; answers so once.
    bool takePreferenceChange();

    Countdown countdown(QUuid card) const;

private:
    struct Timer {
        Countdown shown;
        std::optional<std::chrono::microseconds> deadline;   // kept while nothing is pending
        AutoCloseAction action = AutoCloseAction::justClose; // as it was chosen when the countdown began
        MainLoop::TimerID pending = 0;
    };

    struct Choice {
        PreviewDuration duration;
        AutoCloseAction action = AutoCloseAction::justClose;
        bool operator==(const Choice&) const = default;
    };

    bool refuses(QUuid card) const;
    Choice choice() const;
    void stop(Timer& timer);
    void schedule(QUuid card, std::chrono::microseconds delay);
    void fire(QUuid card);

    MainLoop& m_loop;
    const Preferences& m_preferences;
    Callbacks m_callbacks;
    std::map<QUuid, Timer> m_timers;
    std::set<QUuid> m_frozen;
    std::set<CountdownHold> m_holds;
    bool m_areColumnsHidden = false;
    Choice m_last; // what the timers were armed with
};

} // namespace Kovrel
