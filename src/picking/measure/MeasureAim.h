#pragma once

#include "picking/measure/MeasureReading.h"
#include "platform/Display.h"

#include <map>
#include <memory>

namespace Kovrel {

// What is measured while the user points and drags: the runs under the pointer, or the rectangle that was dragged out
// last. Main thread.
class MeasureAim {
public:
    // A display and its frozen pixels.
    struct Still {
        Display display;
        std::shared_ptr<const MeasureSampler> sampler;
    };

    // Of one of them; in pixels of its picture.
    struct Shown {
        Display display;
        std::optional<MeasureReading::Cross> cross;
        std::optional<QRect> rect; // instead of the cross

        QSize size() const { return rect ? rect->size() : cross->size(); }
    };

    void add(Still still);

    // Root pixels. A drag stays within the display where it began; its sides go to edges unless it is free.
    void point(QPoint to, bool isFree);
    void press(QPoint at);
    // Whether it was a click, and no drag.
    bool release(QPoint at, bool isFree);

    std::optional<QPoint> pointer() const { return m_pointer; }

    // By steps: towards more colours that count as alike, or towards fewer.
    void changeTolerance(int steps);
    int tolerance() const;

    // Nothing where no pixels are known.
    std::optional<Shown> shown() const;

private:
    struct Dragged {
        quint32 displayID = 0;
        QRect rect;
    };

    const Still* stillAt(QPoint rootPixel) const;
    bool isDrag(const Still& still, QPoint to) const;

    std::map<quint32, Still> m_stills; // by the display's identifier
    std::optional<QPoint> m_pointer;
    std::optional<QPoint> m_pressedAt;
    std::optional<Dragged> m_dragged;
    int m_toleranceStep = 0; // from the usual one
};

} // namespace Kovrel
