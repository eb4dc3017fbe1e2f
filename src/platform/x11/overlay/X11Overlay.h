#pragma once

#include "platform/OverlaySurfaces.h"
#include "platform/x11/X11ImageReader.h"
#include "platform/x11/X11Visuals.h"

#include <memory>
#include <vector>

namespace Kovrel {

// The windows of one session of the overlay, gone with the object. OverlaySurfaces says what the operations do. Used
// by one thread at a time.
//
// The windows manage themselves and have no background, so that they show what was on the screen until something is
// drawn in them: nothing flashes. On the frozen ground only the shade is drawn then, by the server, from the pixels
// that are on the screen already; with a compositor, which gives windows pixels of their own, these are put first.
class X11Overlay {
public:
    X11Overlay(std::shared_ptr<X11ImageReader> reader, const X11Visuals& visuals);
    ~X11Overlay();
    X11Overlay(const X11Overlay&) = delete;
    X11Overlay& operator=(const X11Overlay&) = delete;

    struct Surface {
        Display display;
        OverlayCursor cursor;
    };

    // Returns when the first frame is painted.
    OverlaySurfaces::Outcome open(std::vector<Surface> surfaces, OverlaySurfaces::Ground ground, QColor shade);
    bool takePointer();

    void reveal(const QRect& rootPixels);
    void shade(const QRect& rootPixels);
    void put(QPoint rootPixel, const QImage& pixels);
    void setCursor(quint32 displayID, const OverlayCursor& cursor);
    void movePointer(QPoint rootPixel);
    void raise();

    bool isOurs(xcb_window_t window) const;
    // Root pixels of ours that an event tells to be lost; empty for other events.
    QRect exposedBy(const xcb_generic_event_t& event) const;
    // The window of which an event of the root window tells that it was put above ours; none for other events.
    xcb_window_t coveredBy(const xcb_generic_event_t& event) const;

private:
    struct Window {
        quint32 displayID = 0;
        QRect pixels;
        xcb_window_t id = XCB_NONE;
        xcb_gcontext_t context = XCB_NONE;
        xcb_render_picture_t picture = XCB_NONE;
        std::optional<X11SegmentPool::Place> frozen; // where its pixels are
        QImage screen;                               // what the display showed
    };

    void clearAway();
    bool freeze(const std::vector<Surface>& surfaces);

    bool isFrozen() const { return m_ground == OverlaySurfaces::Ground::frozen; }

    const X11Visual& visual() const;
    void show(const Window& window, bool isComposited);
    void create(Window& window, const OverlayCursor& cursor);
    void nameWindow(xcb_window_t window);
    void listen(xcb_window_t window, uint32_t events);
    bool isPointerFree();
    void pressEscape();
    void fill(const Window& window, const QRect& part, uint8_t operation, QColor colour);
    void putScreen(const Window& window, const QRect& part);
    void putCopied(const Window& window, QPoint at, const QImage& pixels);
    // Calls `draw` with each window and its part of the rectangle, in the window's pixels; sends it off.
    template <class Draw>
    void onEach(const QRect& rootPixels, Draw draw);

    std::shared_ptr<X11ImageReader> m_reader;
    X11Connection& m_connection;
    X11Visuals m_visuals;
    OverlaySurfaces::Ground m_ground = OverlaySurfaces::Ground::frozen;
    QColor m_shade;
    std::vector<Window> m_windows;
    xcb_colormap_t m_colormap = XCB_NONE; // of translucent windows
};

} // namespace Kovrel
