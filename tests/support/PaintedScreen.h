#pragma once

#include <QByteArray>
#include <QColor>
#include <QImage>
#include <QRect>

#include <atomic>
#include <map>
#include <mutex>
#include <thread>
#include <vector>

#include <xcb/xcb.h>

namespace Kovrel::Testing {

// A program with windows of known colours. It repaints them when the server asks, on a thread of its own, as other
// programs do while a test looks at them.
class PaintedScreen {
public:
    explicit PaintedScreen(const QByteArray& display);
    ~PaintedScreen();
    PaintedScreen(const PaintedScreen&) = delete;
    PaintedScreen& operator=(const PaintedScreen&) = delete;

    struct Look {
        QRect pixels;
        QColor colour;              // with alpha: the window has a depth of 32
        bool managesItself = false; // override-redirect
        QByteArray type = {};       // _NET_WM_WINDOW_TYPE_…
        QByteArray className = {};
        int pid = 0;
        bool paintsLate = false; // and leaves to others what is there before
    };

    // Returns when the window is mapped and painted.
    xcb_window_t show(const Look& look);
    void hide(xcb_window_t window);
    void raise(xcb_window_t window);
    // The one rectangle that is left of a window.
    void setShape(xcb_window_t window, QRect shape);
    void letClicksThrough(xcb_window_t window);
    void setNumbers(xcb_window_t window, const char* property, const char* type, const std::vector<quint32>& values);
    void setNumbersOnRoot(const char* property, const char* type, const std::vector<quint32>& values);
    // The picture behind all windows, as desktop programs set it, and the root window's background.
    void setRootPicture(const QImage& picture);
    void movePointer(QPoint rootPixel);
    // A square cursor of one colour, its hot spot in the middle, over every window of the root.
    void setCursor(int size, QColor colour);

    // The user's hands.
    void press(QPoint rootPixel, int button = 1);
    void release(int button = 1);
    void click(QPoint rootPixel, int button = 1);
    void drag(QPoint from, QPoint to);
    void typeEscape();
    // Whether the pointer was free to be taken from everybody else; it is let go again.
    bool holdPointer();
    // What the screen shows, without the unused byte.
    QRgb pixelAt(QPoint rootPixel) const;

    // Where windows stand that no window manager places, the lowest first;
    // those beside the screen serve window managers themselves.
    std::vector<QRect> panels() const;

    bool hasOwner(const QByteArray& selection) const;

    xcb_connection_t* connection() const { return m_connection; }

    xcb_window_t root() const { return m_screen->root; }

    xcb_atom_t atom(const QByteArray& name) const;
    void roundTrip() const;

private:
    void repaint();
    void paint(xcb_window_t window);
    void waitUntilPainted(xcb_window_t window);
    xcb_window_t create(const Look& look);

    struct Painted {
        quint32 pixel;
        QSize size;
        bool paintsLate = false;
        bool isPainted = false;
    };

    xcb_connection_t* m_connection;
    xcb_screen_t* m_screen;
    std::mutex m_lock;
    std::map<xcb_window_t, Painted> m_windows;
    std::atomic<bool> m_isEnding = false;
    std::thread m_painter;
};

} // namespace Kovrel::Testing
