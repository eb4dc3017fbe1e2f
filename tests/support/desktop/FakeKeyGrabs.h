#pragma once

#include "platform/KeyGrabs.h"

#include <algorithm>
#include <map>
#include <set>

namespace Kovrel::Testing {

// A keyboard whose keys are pressed by the test.
class FakeKeyGrabs : public KeyGrabs {
public:
    std::set<qint64> ownedByOthers;                                        // combinations, as they are stored
    int requests = 0;                                                      // for a combination
    std::function<void(const QString&)> onRequest = [](const QString&) {}; // "grab Escape", "release Escape"

    std::expected<GrabID, Status> grab(KeyCombo combo, Handlers handlers, Modifiers) override
    {
        ++requests;
        onRequest("grab " + combo.text());
        if (ownedByOthers.contains(combo.stored()))
            return std::unexpected(10);
        m_grabs.emplace(++m_last, std::pair(combo, std::move(handlers)));
        return m_last;
    }

    void release(GrabID grab) override
    {
        if (const auto released = m_grabs.extract(grab))
            onRequest("release " + released.mapped().first.text());
    }

    std::expected<Subscription, Status> listen(std::function<void(Typed)> typed) override
    {
        if (isHeldByAnother)
            return std::unexpected(1);
        return m_listeners.add(std::move(typed));
    }

    bool isHeldByAnother = false; // the whole keyboard

    bool isListenedTo() const { return !m_listeners.isEmpty(); }

    void type(quint32 modifiers, std::optional<quint32> keyCode) { m_listeners.notify({modifiers, keyCode}); }

    Subscription onModifiersHeld(std::function<void()>) override { return {}; }

    Subscription onLayoutChange(std::function<void()> callback) override
    {
        return m_layoutObservers.add(std::move(callback));
    }

    Subscription watchForTakeover(std::function<void()> onTakeover) override
    {
        return m_takeoverObservers.add(std::move(onTakeover));
    }

    void layoutChanged() { m_layoutObservers.notify(); }

    // By another program.
    void takeOver() { m_takeoverObservers.notify(); }

    size_t count() const { return m_grabs.size(); }

    // False when nobody has the combination.
    bool press(const QString& combo, bool isRepeat = false, Time time = 0)
    {
        const auto grab = find(combo);
        if (grab == m_grabs.end())
            return false;
        const auto onPress = grab->second.second.onPress;
        onPress({.modifiers = grab->second.first.modifiers, .isRepeat = isRepeat, .time = time});
        return true;
    }

    void release(const QString& combo, Time time)
    {
        const auto grab = find(combo);
        if (grab == m_grabs.end() || !grab->second.second.onRelease)
            return;
        const auto onRelease = grab->second.second.onRelease;
        onRelease(time);
    }

private:
    std::map<GrabID, std::pair<KeyCombo, Handlers>>::iterator find(const QString& combo)
    {
        return std::ranges::find_if(m_grabs, [&](const auto& grab) { return grab.second.first.text() == combo; });
    }

    std::map<GrabID, std::pair<KeyCombo, Handlers>> m_grabs;
    GrabID m_last = 0;
    Observers<Typed> m_listeners;
    Observers<> m_layoutObservers;
    Observers<> m_takeoverObservers;
};

} // namespace Kovrel::Testing
