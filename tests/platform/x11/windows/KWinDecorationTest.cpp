#include "platform/x11/windows/X11Frame.h"
#include "platform/x11/windows/X11WindowImage.h"
#include "tests/support/PaintedScreen.h"
#include "tests/support/VirtualDisplay.h"

#include <QDBusConnection>
#include <QEventLoop>

#include <gtest/gtest.h>

#include <thread>

#include <xcb/xcb_image.h>

namespace Kovrel {

// As KWin does, it makes a picture of a window with its decoration and the shadow around it, and tells of it later.
class FakeKWin : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.kwin.Screenshot")

public:
    FakeKWin(Testing::PaintedScreen& screen, QSize frame) : m_screen(screen), m_frame(frame)
    {
        auto bus = QDBusConnection::sessionBus();
        EXPECT_TRUE(bus.registerObject("/Screenshot", this,
                                       QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllSignals));
        EXPECT_TRUE(bus.registerService("org.kde.KWin"));
    }

    ~FakeKWin() override
    {
        QDBusConnection::sessionBus().unregisterService("org.kde.KWin");
        QDBusConnection::sessionBus().unregisterObject("/Screenshot");
    }

    static constexpr QMargins shadow{30, 20, 40, 50};

public Q_SLOTS:

    void screenshotForWindow(qulonglong, int)
    {
        QImage picture(m_frame.grownBy(shadow), QImage::Format_ARGB32_Premultiplied);
        picture.fill(QColor(0, 0, 0, 100));
        for (int y = 0; y < m_frame.height(); ++y)
            for (int x = 0; x < m_frame.width(); ++x)
                picture.setPixel(x + shadow.left(), y + shadow.top(), qRgb(x % 256, y % 256, 7));
        Q_EMIT screenshotCreated(pixmapOf(picture));
    }

Q_SIGNALS:
    void screenshotCreated(qulonglong handle);

private:
    xcb_pixmap_t pixmapOf(const QImage& picture)
    {
        xcb_connection_t* c = m_screen.connection();
        const xcb_pixmap_t pixmap = xcb_generate_id(c);
        const xcb_gcontext_t context = xcb_generate_id(c);
        xcb_create_pixmap(c, 32, pixmap, m_screen.root(), uint16_t(picture.width()), uint16_t(picture.height()));
        xcb_create_gc(c, context, pixmap, 0, nullptr);
        for (int y = 0; y < picture.height(); ++y)
            xcb_put_image(c, XCB_IMAGE_FORMAT_Z_PIXMAP, pixmap, context, uint16_t(picture.width()), 1, 0, int16_t(y), 0,
                          32, uint32_t(picture.bytesPerLine()), picture.constScanLine(y));
        xcb_free_gc(c, context);
        m_screen.roundTrip();
        return pixmap;
    }

    Testing::PaintedScreen& m_screen;
    QSize m_frame;
};

namespace {

// A composited desktop whose window manager says that it is KWin.
struct KWinDecorationTest : testing::Test {
    KWinDecorationTest()
    {
        server.run("openbox", {"--sm-disable", "--config-file", "/dev/null"}, "WM_S0");
        server.run("picom", {"--backend", "xrender", "--config", "/dev/null"}, "_NET_WM_CM_S0");
        const xcb_window_t manager =
            screen.show({.pixels = {900, 600, 1, 1}, .colour = Qt::red, .managesItself = true});
        xcb_change_property(screen.connection(), XCB_PROP_MODE_REPLACE, manager, screen.atom("_NET_WM_NAME"),
                            screen.atom("UTF8_STRING"), 8, 4, "KWin");
        screen.setNumbersOnRoot("_NET_SUPPORTING_WM_CHECK", "WINDOW", {manager});
        window = screen.show({.pixels = {100, 100, 300, 200}, .colour = Qt::blue});
        frame = X11Frame::of(reader.connection(), window).value();
    }

    QImage grab()
    {
        GrabbedImage image;
        QEventLoop events;
        std::jthread worker([&] {
            image = X11WindowImage::grab(reader, window);
            QMetaObject::invokeMethod(&events, &QEventLoop::quit, Qt::QueuedConnection);
        });
        events.exec();
        worker.join();
        return image.value_or(QImage());
    }

    Testing::VirtualDisplay server{{1000, 700}};
    Testing::PaintedScreen screen{server.name()};
    X11ImageReader reader{std::make_shared<X11Connection>(server.name())};
    xcb_window_t window = XCB_NONE;
    X11Frame frame;
};

} // namespace

TEST_F(KWinDecorationTest, IsTakenFromItsPictureWithoutTheShadow)
{
    const FakeKWin kwin(screen, frame.visible.size());
    const QImage image = grab();
    ASSERT_EQ(image.size(), frame.visible.size());
    for (const QPoint pixel : {QPoint(40, 0), QPoint(0, 60), QPoint(150, 90), image.rect().bottomRight()})
        EXPECT_EQ(image.pixel(pixel), qRgb(pixel.x() % 256, pixel.y() % 256, 7));
}

TEST_F(KWinDecorationTest, IsTakenFromTheScreenOrLeftOutWhereKWinDoesNotAnswer)
{
    const QImage whole = grab();
    ASSERT_EQ(whole.size(), frame.visible.size());
    const QPoint inTitle(frame.visible.width() / 2, 2);
    EXPECT_EQ(whole.pixel(inTitle) & RGB_MASK, screen.pixelAt(frame.visible.topLeft() + inTitle));
    screen.show({.pixels = {150, 90, 50, 50}, .colour = Qt::yellow, .managesItself = true});
    const QImage bare = grab();
    EXPECT_EQ(bare.size(), frame.client.size());
    EXPECT_EQ(bare.pixel(70, 5), QColor(Qt::blue).rgb());
}

} // namespace Kovrel

#include "KWinDecorationTest.moc"
