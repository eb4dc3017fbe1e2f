#include "cards/CardCountdowns.h"

namespace Kovrel {

using namespace std::chrono_literals;

CardCountdowns::CardCountdowns(MainLoop& loop, const Preferences& preferences, Callbacks callbacks)
    : m_loop(loop), m_preferences(preferences), m_callbacks(std::move(callbacks)), m_last(choice())
{
}

CardCountdowns::~CardCountdowns()
{
    for (auto& [card, timer] : m_timers)
        stop(timer);
}

CardCountdowns::Choice CardCountdowns::choice() const
{
    return {.duration = PreviewDuration::of(m_preferences.get(Settings::previewDurationSeconds)),
            .action = m_preferences.get(Settings::previewAutoCloseAction)};
}

bool CardCountdowns::refuses(QUuid card) const
{
    return isFrozen(card) || m_areColumnsHidden || !m_holds.empty() || !choice().duration.time() ||
           m_callbacks.isLookedAt(card);
}

void CardCountdowns::armTimer(QUuid card)
{
    Timer& timer = m_timers[card];
    stop(timer);
    timer = {};
    if (refuses(card))
        return;
    timer.action = choice().action;
    const auto total = *choice().duration.time();
    timer.deadline = m_loop.now() + total;
    timer.shown = {.deadline = *timer.deadline, .total = total, .stoppedAt = {}};
    schedule(card, total);
}

void CardCountdowns::resumeTimer(QUuid card)
{
    Timer& timer = m_timers[card];
    const auto left = timer.deadline.value_or(0us) - m_loop.now();
    if (refuses(card) || left <= 0us) {
        armTimer(card);
        return;
    }
    stop(timer);
    timer.shown.stoppedAt.reset();
    schedule(card, left);
}

void CardCountdowns::stop(Timer& timer)
{
    m_loop.cancel(std::exchange(timer.pending, 0));
}

void CardCountdowns::schedule(QUuid card, std::chrono::microseconds delay)
{
    // The ring must be empty when the card goes.
    const auto rounded = std::chrono::ceil<MainLoop::Milliseconds>(delay);
    m_timers[card].pending = m_loop.after(rounded, [this, card] { fire(card); });
}

void CardCountdowns::fire(QUuid card)
{
    const Timer fired = std::exchange(m_timers[card], {});
    m_callbacks.fired(card, fired.action);
}

void CardCountdowns::cancelTimer(QUuid card)
{
    const auto found = m_timers.find(card);
    if (found == m_timers.end())
        return;
    Timer& timer = found->second;
    stop(timer);
    timer.deadline.reset();
    if (timer.shown.isRunning())
        timer.shown.stoppedAt = m_loop.now();
}

void CardCountdowns::cancelAllTimers(const Cards& cards)
{
    for (const QUuid& card : cards)
        cancelTimer(card);
}

void CardCountdowns::forget(QUuid card)
{
    if (const auto found = m_timers.find(card); found != m_timers.end()) {
        stop(found->second);
        m_timers.erase(found);
    }
    m_frozen.erase(card);
}

void CardCountdowns::setColumnsHidden(bool areHidden)
{
    m_areColumnsHidden = areHidden;
    if (areHidden)
        for (auto& [card, timer] : m_timers)
            stop(timer);
}

bool CardCountdowns::holdCountdowns(CountdownHold hold, bool on)
{
    const bool wasHeld = !m_holds.empty();
    if (on)
        m_holds.insert(hold);
    else
        m_holds.erase(hold);
    const bool isHeld = !m_holds.empty();
    if (isHeld && !wasHeld)
        for (auto& [card, timer] : m_timers) {
            stop(timer);
            timer = {};
        }
    return wasHeld && !isHeld;
}

void CardCountdowns::toggleFreeze(QUuid card)
{
    if (m_frozen.erase(card) == 0)
        m_frozen.insert(card);
    armTimer(card);
}

bool CardCountdowns::takePreferenceChange()
{
    return std::exchange(m_last, choice()) != m_last;
}

Countdown CardCountdowns::countdown(QUuid card) const
{
    const auto found = m_timers.find(card);
    return found == m_timers.end() ? Countdown{} : found->second.shown;
}

} // namespace Kovrel
