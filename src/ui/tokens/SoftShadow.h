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

    // Of a card that floats above other windows, in points; it stays within this room around the card.
    static constexpr double floatingRoom = 30;

    static SoftShadow floating(const QColor& layer) { return {.layer = layer, .layers = 12, .step = 2, .drop = 5}; }

    void paint(QPainter& painter, const QRectF& caster, double radius) const;
};

} // namespace Kovrel
