#pragma once

#include <QCoroTask>
#include <QImage>
#include <QRect>

#include <chrono>
#include <optional>

namespace Kovrel {

// Pixels of the screen for the coordinator, by whichever way works. Main thread.
class PixelSource {
public:
    struct Grab {
        QImage image;
        bool isInProcess = true; // false: the screenshot tool took it
    };

    virtual ~PixelSource() = default;

    // A rectangle of root pixels; no value when nothing could be taken.
    virtual QCoro::Task<std::optional<Grab>> pixels(QRect rootPixels, bool showCursor) = 0;
    // One window with its alpha, without its shadow.
    virtual QCoro::Task<std::optional<Grab>> window(quint32 id) = 0;

    // Ends the tool's own window picker if it has been up for `minAge`; answers whether it did.
    virtual bool cancelInteractivePick(std::chrono::milliseconds minAge) = 0;
};

} // namespace Kovrel
