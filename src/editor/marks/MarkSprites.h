#pragma once

#include "editor/marks/Annotation.h"

#include <QHash>

#include <functional>

namespace Kovrel {

// A mark as a picture of its own, on nothing.
struct MarkSprite {
    QImage picture; // Format_ARGB32_Premultiplied; null where the mark is too large to have one
    QRect area;     // target points, y up: top() is its lower edge
};

// The sprites of marks as they were drawn last: who draws the same marks again and again keeps one of these, and those
// that did not change, or only moved by whole points, are drawn once. One thread.
class MarkSprites {
public:
    const MarkSprite& of(const Annotation& mark, double scale, const std::function<MarkSprite()>& drawn);

private:
    struct Kept {
        Annotation mark;
        double scale = 0;
        MarkSprite sprite;
    };

    QHash<QUuid, Kept> m_kept;
};

} // namespace Kovrel
