#pragma once

#include "overlay/OverlayDecoration.h"

#include <QImage>
#include <QPainter>

namespace Kovrel {

// Draws pixels of a display magnified: a rounded square, or the round loupe. The pixel that is pointed at is in the
// middle. The grid and the rim look the same from move to move: they are drawn once and kept.
class MagnifierPainter {
public:
    // Of its corners, in pixels.
    static double radius(const OverlayDecoration& decoration);

    // `screen` is what the display of `screenRect`, root pixels, showed; null: nothing can be magnified.
    void draw(QPainter& painter, const OverlayDecoration& decoration, const QImage& screen, const QRect& screenRect);

private:
    // What is the same for all decorations of one look.
    struct Lens {
        QSize size;
        int cell = 0;
        QImage glass; // grid, rim and the mark in the middle
        QImage shape; // opaque where pixels are seen
    };

    Lens m_lens;
};

} // namespace Kovrel
