#pragma once

#include <QColor>
#include <QRectF>

class QPainter;

namespace Kovrel {

// What cards, notices and panels stand on: one colour within a fine edge, which lies inside of the rectangle.
struct Ground {
    QColor color;
    QColor edge;
    double radius = 0; // of the corners

    void paint(QPainter& painter, const QRectF& rect) const;
};

} // namespace Kovrel
