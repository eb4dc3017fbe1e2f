#pragma once

#include "cards/CardLook.h"

#include <vector>

namespace Kovrel {

// What shows cards. Main thread.
class CardViews {
public:
    virtual ~CardViews() = default;

    // All there are, the newest first. Those that were shown before come to their places, new ones appear, those that
    // are not among them go.
    virtual void show(const std::vector<CardLook>& cards) = 0;
    // A card will come on a display soon: its window may be made ready, unseen. Nothing: it does not come.
    virtual void expectCard(std::optional<quint32> displayID) = 0;
    // At once, also for compositors, or back again. Answers whether the screen changes by it.
    virtual bool setHidden(bool isHidden) = 0;
};

} // namespace Kovrel
