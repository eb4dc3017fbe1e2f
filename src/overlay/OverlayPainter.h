#pragma once

#include "overlay/MagnifierPainter.h"

#include <QImage>
#include <QPainter>

#include <vector>

namespace Kovrel {

// Draws the decorations of a session. The painter's coordinates are root pixels. Shadows, which look the same from move
// to move, are drawn once and kept.
class OverlayPainter {
public:
    // What everything that is not lit is covered with.
    static QColor shade();

    // `screen` is what the display of `screenRect` showed, for the magnifier; null: nothing can be magnified.
    void draw(QPainter& painter, const OverlayDecoration& decoration, const QImage& screen, const QRect& screenRect);

private:
    void drawPill(QPainter& painter, const OverlayDecoration& decoration);
    void drawShadow(QPainter& painter, const QRect& rect, double radius, int reach, double scale);

    struct Shadow {
        QSize size; // of what casts it
        double scale = 0;
        QImage image;
    };

    std::vector<Shadow> m_shadows; // the newest last
    MagnifierPainter m_magnifier;
};

} // namespace Kovrel
