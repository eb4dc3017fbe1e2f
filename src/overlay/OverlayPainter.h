#pragma once

#include "overlay/OverlayScene.h"

#include <QPainter>

namespace Kovrel {

// Draws the decorations of the selection. The painter's coordinates are root pixels. What looks the same from move to
// move, as shadows and the rim of the magnifier, is drawn once and kept.
class OverlayPainter {
public:
    // What everything that is not selected is covered with.
    static QColor shade();

    // Of a label or hint with this text, without its shadow, in pixels.
    static QSize pillSize(OverlayScene::Decoration::Kind kind, const QString& text, double scale);

    // `screen` is what the display of `screenRect` showed, for the magnifier; null: nothing can be magnified.
    void draw(QPainter& painter, const OverlayScene::Decoration& decoration, const QImage& screen,
              const QRect& screenRect);

private:
    using Decoration = OverlayScene::Decoration;

    void drawPill(QPainter& painter, const Decoration& decoration);
    void drawMagnifier(QPainter& painter, const Decoration& decoration, const QImage& screen, const QRect& screenRect);
    void drawShadow(QPainter& painter, const QRect& rect, double radius, double scale);

    struct Shadow {
        QSize size; // of what casts it
        double scale = 0;
        QImage image;
    };

    struct Magnifier {
        double scale = 0;
        QImage glass; // grid, rim and the mark in the middle
        QImage shape; // opaque where pixels are seen
    };

    std::vector<Shadow> m_shadows; // the newest last
    Magnifier m_magnifier;
};

} // namespace Kovrel
