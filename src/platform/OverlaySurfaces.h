#pragma once

#include "platform/Display.h"
#include "platform/Reply.h"

#include <QColor>
#include <QImage>
#include <QPoint>

#include <expected>
#include <functional>
#include <optional>
#include <vector>

namespace Kovrel {

// What one display showed at one moment.
struct FrozenScreen {
    quint32 displayID = 0;
    QRect pixelRect; // on the root window
    QImage image;    // Format_RGB32, of which the unused byte may hold anything
};

using FrozenScreens = std::vector<FrozenScreen>;

struct OverlayCursor {
    QImage image; // premultiplied
    QPoint hotSpot;
};

// What the pointer does over the overlay.
struct OverlayPointer {
    enum class Kind { move, press, release, scroll };

    Kind kind = Kind::move;
    QPoint rootPixel;
    Qt::MouseButton button = Qt::NoButton; // of a press or release: left or right
    bool isShiftDown = false;
    quint32 time = 0; // milliseconds that wrap around
    bool isAltDown = false;
    int scrolled = 0; // by the wheel: 1 away from the user, -1 towards him
};

// One surface for each display, over everything else that is shown there, panels and full-screen programs included.
// Positions are root pixels, origin top-left of the root; what lies on no display is left out. Main thread. Nothing
// else is grabbed: while it is open other programs work as always.
class OverlaySurfaces {
public:
    enum class Ground {
        frozen, // opaque: shows the displays as they were when it opened
        live,   // translucent: what other programs draw goes on to show; needs a composited desktop
    };

    struct Opening {
        Ground ground = Ground::frozen;
        QColor shade = Qt::transparent; // laid over everything in the first frame
        std::function<OverlayCursor(const Display&)> cursor;
    };

    struct Handlers {
        std::function<void(OverlayPointer)> onPointer;
        std::function<void()> onDesktopSwitch;       // to another workspace
        std::function<void(const QRect&)> onExposed; // what was shown in these root pixels is lost
        // The surfaces can't be kept where they belong: the server is gone, or another program covers them again and
        // again.
        std::function<void()> onLost;
    };

    struct Opened {
        Ground ground = Ground::frozen; // frozen also when live was asked for, while the pointer is held
        FrozenScreens screens;          // what was there without the overlay, on either ground
        // Another program, as one with an open menu, holds the pointer: `takePointer` makes it let go.
        bool isPointerHeld = false;
    };

    // The failure is why not, in the words that follow a colon, for people.
    using Outcome = std::expected<Opened, QString>;

    virtual ~OverlaySurfaces() = default;

    // Makes ready what does not change from session to session.
    virtual void prewarm() = 0;
    // A session may begin in a moment: makes ready what would be waited for then, for some seconds.
    virtual void expectOpening() = 0;
    // Answers when the first frame is painted. It fails where the pixels or the surfaces are refused; nothing is open
    // then. A session that was open ends.
    virtual void open(Opening opening, Handlers handlers, Reply<Outcome> reply) = 0;
    // Closes the menus that hold the pointer. False when somebody goes on to hold it.
    virtual void takePointer(Reply<bool> reply) = 0;

    // The ground alone, without shade.
    virtual void reveal(const QRect& rootPixels) = 0;
    virtual void shade(const QRect& rootPixels) = 0;
    // Replaces pixels: on the frozen ground by opaque ones, on the live one by premultiplied ones.
    virtual void put(QPoint rootPixel, const QImage& pixels) = 0;

    virtual void setCursor(std::function<OverlayCursor(const Display&)> cursor) = 0;
    virtual void movePointer(QPoint rootPixel) = 0;
    // Back over everything.
    virtual void raise() = 0;
    // Takes the surfaces away; no handler is called any more.
    virtual void close() = 0;
};

} // namespace Kovrel
