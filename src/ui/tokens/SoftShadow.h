#pragma once

#include <QColor>
#include <QRectF>

class QPainter;

namespace Kovrel {

// A soft shadow as a stack of faint rounded outlines, each a little wider. Lengths are in the painter's units.
struct SoftShadow {
    QColor layer;
    int layers = 0;
    double step = 0; // from layer to layer
    double drop = 0; // how much lower the shadow lies

    void paint(QPainter& painter, const QRectF& caster, double radius) const;
};

} // namespace Kovrel
