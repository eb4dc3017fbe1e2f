#pragma once

#include "model/GrabFailure.h"

#include <QCoroTask>
#include <QImage>
#include <QRect>

#include <chrono>
#include <expected>

namespace Kovrel {

// Pixels of the screen for the coordinator, by whichever way works. Main thread.
class PixelSource {
public:
    struct Grab {
        QImage image;
        bool isInProcess = true; // false: the screenshot tool took it
    };

    struct Failure {
        GrabFailure cause = GrabFailure::refused;
        QString reason; // in the words that follow a colon, for people
    };

    using Outcome = std::expected<Grab, Failure>;

    virtual ~PixelSource() = default;

    // A rectangle of root pixels.
    virtual QCoro::Task<Outcome> pixels(QRect rootPixels, bool showCursor) = 0;
    // One window with its alpha, without its shadow.
    virtual QCoro::Task<Outcome> window(quint32 id) = 0;

    // Ends the tool's own window picker if it has been up for `minAge`; answers whether it did.
    virtual bool cancelInteractivePick(std::chrono::milliseconds minAge) = 0;
};

} // namespace Kovrel
