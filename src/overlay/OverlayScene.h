#pragma once

#include "platform/Display.h"

#include <QCoreApplication>
#include <QRegion>
#include <QString>

#include <optional>
#include <vector>

namespace Kovrel {

// What one display shows of the selection, as values: two scenes tell what must be painted anew. Root pixels.
struct OverlayScene {
    Q_DECLARE_TR_FUNCTIONS(Kovrel::OverlayScene)

public:
    struct Decoration {
        enum class Kind {
            areaFrame,   // a line around `rect`, outside of it
            windowFrame, // the same, stronger
            handle,      // a knob in the middle of `rect`
            sizeLabel,   // `text` on a pill that fills `rect`
            hint,        // the same, larger
            magnifier,   // the pixels around `pixel`, in `rect`
        };

        Kind kind = Kind::areaFrame;
        QRect rect;
        double scale = 1; // of the display
        QString text = {};
        QPoint pixel = {};

        // All that it may touch.
        QRegion region() const;
        // Of a frame, in pixels.
        int lineWidth() const;

        bool operator==(const Decoration&) const = default;
    };

    QRegion lit; // shown without shade
    std::vector<Decoration> decorations;

    bool operator==(const OverlayScene&) const = default;

    // What is selected at a moment.
    struct Moment {
        bool isWindowMode = false;
        std::optional<QRect> area;
        bool isDragging = false;
        std::vector<QRect> windows; // those under the pointer
        QRegion windowsInSight;     // of them, what nothing else covers
        std::optional<QPoint> pointer;
        bool showsHint = false;
    };

    static OverlayScene of(const Display& display, const Moment& moment);

    static constexpr int magnifierReach = 7; // pixels on each side of the one in the middle
};

} // namespace Kovrel
