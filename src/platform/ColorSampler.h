#pragma once

#include "platform/Reply.h"

#include <QColor>

#include <expected>

namespace Kovrel {

// The desktop's own way to let the user pick a colour from the screen. Main thread.
class ColorSampler {
public:
    // An opaque sRGB colour; else why there is none, in the words that follow a colon, for people, and empty when the
    // user does not want one.
    using Outcome = std::expected<QColor, QString>;

    virtual ~ColorSampler() = default;

    // Answers once. One at a time: a new one ends the one before.
    virtual void pick(Reply<Outcome> reply) = 0;
    // Ends it; nothing is answered any more.
    virtual void cancel() = 0;
};

} // namespace Kovrel
