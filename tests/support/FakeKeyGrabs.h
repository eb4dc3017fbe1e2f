#pragma once

#include "platform/KeyGrabs.h"

#include <map>
#include <set>

namespace Kovrel::Testing {

// A keyboard whose keys are pressed by the test.
class FakeKeyGrabs : public KeyGrabs {
public:
    std::set<qint64> ownedByOthers; // combinations, as they are stored
    std::function<void()> layoutChanged;
    int requests = 0; // for a combination

    std::expected<GrabID, Status> grab(KeyCombo combo, Handlers handlers, Modifiers) override
    {
        ++requests;
        if (ownedByOthers.contains(combo.stored()))
            return std::unexpected(10);
        m_grabs.emplace(++m_last, std::pair(combo, std::move(handlers)));
        return m_last;
    }

    void release(GrabID grab) override { m_grabs.erase(grab); }

    void onModifiersHeld(std::function<void()>) override {}

    void onLayoutChange(std::function<void()> callback) override { layoutChanged = std::move(callback); }

    void watchForTakeover(std::function<void()>) override {}

    size_t count() const { return m_grabs.size(); }

    // False when nobody has the combination.
    bool press(const QString& combo, bool isRepeat = false)
    {
        for (const auto& [id, grab] : m_grabs) {
            if (grab.first.text() != combo)
                continue;
            const auto onPress = grab.second.onPress;
            onPress({.modifiers = grab.first.modifiers, .isRepeat = isRepeat});
            return true;
        }
        return false;
    }

private:
    std::map<GrabID, std::pair<KeyCombo, Handlers>> m_grabs;
    GrabID m_last = 0;
};

} // namespace Kovrel::Testing
