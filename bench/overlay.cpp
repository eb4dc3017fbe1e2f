// What the selection overlay costs on two displays of 3840 x 2160: from the press of the hotkey, given to the real
// program, to the shade over both displays, beside a bare copy of the same pixels from the screen and back; and what a
// move of the pointer repaints beside a repaint of the whole display.
//
//   bench_overlay [ROUNDS]

#include "bench/Samples.h"
#include "capture/selection/SelectionScene.h"
#include "overlay/OverlayPainter.h"
#include "overlay/OverlayView.h"
#include "platform/x11/overlay/X11Overlay.h"
#include "tests/e2e/UserSession.h"
#include "tests/support/PaintedScreen.h"
#include "tests/support/Patterns.h"
#include "tests/support/TestKeyboard.h"
#include "tests/support/VirtualDisplay.h"

#include <QGuiApplication>
#include <QThread>

#include <cstdio>

#include <xcb/shm.h>

using namespace Kovrel;

namespace {

constexpr QSize displaySize(3840, 2160);
constexpr QRect left({0, 0}, displaySize);
constexpr QRect right({3840, 0}, displaySize);
constexpr QSize desktopSize(7680, 2160);

// The same pixels from the screen and back with the fewest requests, by segments and windows that are kept.
class BareCopy {
public:
    explicit BareCopy(const QByteArray& display)
        : m_connection(std::make_shared<X11Connection>(display)), m_pool(std::make_shared<X11SegmentPool>(m_connection))
    {
        xcb_connection_t* c = m_connection->handle();
        m_context = xcb_generate_id(c);
        xcb_create_gc(c, m_context, m_connection->root(), 0, nullptr);
        for (const QRect& pixels : {left, right}) {
            m_segments.push_back(m_pool->take(size_t(pixels.width()) * 4 * size_t(pixels.height())));
            m_windows.push_back(createWindow(pixels));
        }
    }

    ~BareCopy() { show(false); }

    void show(bool isShown)
    {
        for (const xcb_window_t window : m_windows)
            isShown ? xcb_map_window(m_connection->handle(), window) : xcb_unmap_window(m_connection->handle(), window);
        m_connection->roundTrip();
    }

    void getAndPut()
    {
        xcb_connection_t* c = m_connection->handle();
        const int16_t offsets[] = {0, 3840};
        for (size_t index = 0; index < 2; ++index)
            m_connection->reply(xcb_shm_get_image_reply,
                                xcb_shm_get_image(c, m_connection->root(), offsets[index], 0, 3840, 2160, ~0u,
                                                  XCB_IMAGE_FORMAT_Z_PIXMAP, m_segments[index]->id, 0));
        for (size_t index = 0; index < 2; ++index)
            xcb_shm_put_image(c, m_windows[index], m_context, 3840, 2160, 0, 0, 3840, 2160, 0, 0, 24,
                              XCB_IMAGE_FORMAT_Z_PIXMAP, false, m_segments[index]->id, 0);
        m_connection->roundTrip();
    }

    // A window of one colour on both displays, from nothing to what a reader of the screen sees.
    void firstFrame(const Testing::PaintedScreen& painted)
    {
        xcb_connection_t* c = m_connection->handle();
        const uint32_t colour = 0x123456;
        for (const xcb_window_t window : m_windows) {
            xcb_map_window(c, window);
            xcb_change_gc(c, m_context, XCB_GC_FOREGROUND, &colour);
            const xcb_rectangle_t whole{0, 0, 3840, 2160};
            xcb_poly_fill_rectangle(c, window, m_context, 1, &whole);
        }
        xcb_flush(c);
        while (painted.pixelAt({3, 3}) != colour || painted.pixelAt({7670, 2150}) != colour) {
        }
    }

private:
    xcb_window_t createWindow(const QRect& pixels)
    {
        const xcb_window_t window = xcb_generate_id(m_connection->handle());
        const uint32_t values[] = {XCB_BACK_PIXMAP_NONE, true};
        xcb_create_window(m_connection->handle(), XCB_COPY_FROM_PARENT, window, m_connection->root(),
                          int16_t(pixels.x()), 0, 3840, 2160, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
                          XCB_CW_BACK_PIXMAP | XCB_CW_OVERRIDE_REDIRECT, values);
        return window;
    }

    std::shared_ptr<X11Connection> m_connection;
    std::shared_ptr<X11SegmentPool> m_pool;
    std::vector<std::unique_ptr<X11SegmentPool::Segment>> m_segments;
    std::vector<xcb_window_t> m_windows;
    xcb_gcontext_t m_context = XCB_NONE;
};

// The program in a session of its own, and somebody who presses its hotkey.
class RealProgram {
public:
    RealProgram(const Testing::VirtualDisplay& display, const Testing::PaintedScreen& painted,
                const QStringList& options)
        : m_painted(painted), m_keyboard(display.name()), m_session(&display)
    {
        m_session.prepare(options);
        m_session.startKovrel({"--background"});
        const bool isRunning = Testing::UserSession::eventually([this] { return pressUntilUp(); });
        if (!isRunning)
            throw std::runtime_error("the hotkey does nothing");
        end();
    }

    double pressToPainted()
    {
        const double milliseconds = Bench::milliseconds([this] {
            press();
            while (!isUp()) {
            }
        });
        end();
        return milliseconds;
    }

private:
    using Keyboard = Testing::TestKeyboard;

    void press() { m_keyboard.type({Keyboard::super, Keyboard::shift, Keyboard::digit4}); }

    bool pressUntilUp()
    {
        press();
        QThread::msleep(500);
        return isUp();
    }

    bool isShaded(QPoint pixel) const
    {
        return m_painted.pixelAt(pixel) != (Testing::patternAt(pixel.x(), pixel.y()) & 0xffffff);
    }

    bool isUp() const { return isShaded({3, 3}) && isShaded({7670, 2150}); }

    void end()
    {
        m_keyboard.type({Keyboard::escape});
        while (isShaded({3, 3}) || isShaded({7670, 2150})) {
        }
        QThread::msleep(100);
    }

    const Testing::PaintedScreen& m_painted;
    Keyboard m_keyboard;
    Testing::UserSession m_session;
};

// Surfaces on which each drawing is waited for.
class WaitingSurfaces : public OverlaySurfaces {
public:
    WaitingSurfaces(X11Overlay& overlay, X11Connection& connection) : m_overlay(overlay), m_connection(connection) {}

    void prewarm() override {}

    void expectOpening() override {}

    void open(Opening, Handlers, Reply<Outcome>) override {}

    void takePointer(Reply<bool>) override {}

    void reveal(const QRect& rootPixels) override { m_overlay.reveal(rootPixels); }

    void shade(const QRect& rootPixels) override { m_overlay.shade(rootPixels); }

    void put(QPoint rootPixel, const QImage& pixels) override { m_overlay.put(rootPixel, pixels); }

    void setCursor(std::function<OverlayCursor(const Kovrel::Display&)>) override {}

    void movePointer(QPoint) override {}

    void raise() override {}

    void close() override {}

    void wait() { m_connection.roundTrip(); }

private:
    X11Overlay& m_overlay;
    X11Connection& m_connection;
};

void measureMoves(const QByteArray& displayName, int rounds)
{
    const auto connection = std::make_shared<X11Connection>(displayName);
    const auto reader = std::make_shared<X11ImageReader>(connection);
    const Kovrel::Display display{.id = 1, .frame = {0, 0, 3840, 2160}, .pixelRect = left};
    X11Overlay overlay(reader, X11Visuals::read(*connection));
    const auto opened = overlay.open({{display, {}}}, OverlaySurfaces::Ground::frozen, OverlayPainter::shade());
    WaitingSurfaces surfaces(overlay, *connection);
    OverlayView view(surfaces, display,
                     {opened->screens.front().image, OverlaySurfaces::Ground::frozen, OverlayPainter::shade()});
    Bench::Samples moves;
    Bench::Samples wholes;
    for (int round = 0; round < rounds; ++round) {
        const QPoint pointer = QPoint(2600 + 12 * round, 1500 + 7 * round);
        const OverlayScene scene = SelectionScene::of(
            display, {.area = QRect(QPoint(400, 300), pointer), .isDragging = true, .pointer = pointer});
        const double move = Bench::milliseconds([&] {
            view.show(scene);
            surfaces.wait();
        });
        if (round > 0) // the first one shows all of it
            moves.add(move);
        wholes.add(Bench::milliseconds([&] {
            surfaces.put({0, 0}, view.compose(left));
            surfaces.wait();
        }));
    }
    std::printf("%-52s %9.2f\n", "one display repainted as a whole, ms", wholes.median());
    std::printf("%-52s %9.2f  ratio %.3f (bound 0.1)\n", "what a move of the pointer changes, ms", moves.median(),
                moves.median() / wholes.median());
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    const int rounds = argc > 1 ? atoi(argv[1]) : 25;
    for (const bool isComposited : {false, true}) {
        Testing::VirtualDisplay server(desktopSize);
        server.setMonitors({{"LEFT", left}, {"RIGHT", right}});
        Testing::PaintedScreen painted(server.name());
        painted.setRootPicture(Testing::pattern(desktopSize));
        painted.movePointer({1000, 1000});
        if (isComposited)
            server.run("picom", {"--backend", "xrender", "--config", "/dev/null"}, "_NET_WM_CM_S0");
        RealProgram program(server, painted, {"freezeScreenDuringSelection=true"});
        BareCopy bare(server.name());
        Bench::Samples overlay;
        Bench::Samples copy;
        Bench::Samples frame;
        for (int round = -2; round < rounds; ++round) {
            const double painting = program.pressToPainted();
            bare.show(true);
            const double copying = Bench::milliseconds([&] { bare.getAndPut(); });
            bare.show(false);
            QThread::msleep(100);
            const double showing = Bench::milliseconds([&] { bare.firstFrame(painted); });
            bare.show(false);
            QThread::msleep(100);
            if (round < 0)
                continue;
            overlay.add(painting);
            copy.add(copying);
            frame.add(showing);
        }
        std::printf("%s\n", isComposited ? "with a compositing manager" : "without a compositing manager");
        std::printf("%-52s %9.2f\n", "bare copy from the screen and back, ms", copy.median());
        std::printf("%-52s %9.2f\n", "a bare window's first frame, ms", frame.median());
        std::printf("%-52s %9.2f  ratio %.2f%s\n", "hotkey to overlay, ms", overlay.median(),
                    overlay.median() / copy.median(), isComposited ? "" : " (bound 1.5)");
        if (!isComposited)
            measureMoves(server.name(), rounds);
    }
}
