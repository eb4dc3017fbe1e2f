#pragma once

#include <QColor>
#include <QRect>
#include <QRegion>
#include <QString>

namespace Kovrel {

// One thing that is drawn over a display in a session, as a value. Root pixels.
struct OverlayDecoration {
    enum class Kind {
        areaFrame,   // a line around `rect`, outside of it
        windowFrame, // the same, stronger
        guide,       // a line that fills `rect`, with a faint edge
        handle,      // a knob in the middle of `rect`
        sizeLabel,   // `text` on a pill that fills `rect`
        hint,        // the same, larger
        magnifier,   // the pixels around `pixel`, in `rect`
        loupe,       // the same, in the circle that `rect` holds
        colorLabel,  // a pill as `sizeLabel`, with a swatch of `color` before its text
    };

    Kind kind = Kind::areaFrame;
    QRect rect;
    double scale = 1; // of the display
    QString text = {};
    QPoint pixel = {};
    int cell = 0; // how large a magnified pixel is shown, in pixels
    QColor color = {};

    // All that it may touch.
    QRegion region() const;
    // Of a frame, in pixels.
    int lineWidth() const;

    bool operator==(const OverlayDecoration&) const = default;
};

} // namespace Kovrel
