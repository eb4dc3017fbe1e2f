#pragma once

#include "platform/Reply.h"

#include <QColor>

#include <optional>

namespace Kovrel {

// The desktop's own way to let the user pick a colour from the screen. Main thread.
class ColorSampler {
public:
    virtual ~ColorSampler() = default;

    // Answers once, with an opaque sRGB colour; nothing when the user does not want one, and where the desktop has no
    // sampler or it does not answer. One at a time: a new one ends the one before.
    virtual void pick(Reply<std::optional<QColor>> reply) = 0;
    // Ends it; nothing is answered any more.
    virtual void cancel() = 0;
};

} // namespace Kovrel
