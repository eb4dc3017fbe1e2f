#pragma once

#include <QPainterPath>
#include <QRect>

#include <vector>

namespace Kovrel {

// Where everything lies on a canvas, in whole pixels of the canvas, origin top-left: a capture that is drawn at its own
// scale lands on the canvas' pixels as it is.
struct BackdropLayout {
    // A layer of the shadow, as little as fits.
    struct ShadowLayer {
        double x = 0; // to the right
        double y = 0; // downwards
        double sigma = 0;
        double opacity = 0;
        bool operator==(const ShadowLayer&) const = default;
    };

    double scale = 1; // pixels of the canvas to a point of the image
    QSize canvas;
    QRect image; // the whole capture; it may reach over the canvas where auto-balance takes margins off
    QRect card;  // what is to be seen of it
    double cardRadius = 0;
    int frame = 0; // width of the frame around the card
    std::vector<ShadowLayer> shadow;

    QRect framed() const { return card.adjusted(-frame, -frame, frame, frame); }

    // The frame's outer corners have the middle of the card's; a square card has a square frame.
    double framedRadius() const { return cardRadius > 0 ? cardRadius + frame : 0; }

    // The rounded outline of the card.
    QPainterPath captureClip() const;

    bool operator==(const BackdropLayout&) const = default;
};

} // namespace Kovrel
