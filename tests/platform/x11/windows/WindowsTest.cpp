#include "platform/x11/X11Displays.h"
#include "platform/x11/windows/X11Windows.h"
#include "tests/support/FakeMainLoop.h"
#include "tests/support/FakeWorkers.h"
#include "tests/support/GrabFailures.h"
#include "tests/support/PaintedScreen.h"
#include "tests/support/TempFolder.h"
#include "tests/support/VirtualDisplay.h"

#include <QDeadlineTimer>

#include <gtest/gtest.h>

namespace Kovrel {

using Testing::failureOf;

namespace {

struct WindowsTest : testing::Test {
    std::vector<WindowInfo> list()
    {
        displays.refresh();
        std::optional<std::vector<WindowInfo>> answer;
        service().list([&](auto infos) { answer = std::move(infos); });
        workers.runAll();
        loop.runPosted();
        return answer.value_or(std::vector<WindowInfo>());
    }

    // The listed windows among these, by index, front to back.
    std::vector<size_t> orderOf(const std::vector<xcb_window_t>& windows)
    {
        std::vector<size_t> order;
        for (const WindowInfo& info : list()) {
            const auto found = std::ranges::find(windows, info.id);
            if (found != windows.end())
                order.push_back(size_t(found - windows.begin()));
        }
        return order;
    }

    WindowInfo infoOf(xcb_window_t window)
    {
        const auto infos = list();
        const auto found = std::ranges::find(infos, window, &WindowInfo::id);
        return found == infos.end() ? WindowInfo() : *found;
    }

    GrabbedImage grab(xcb_window_t window)
    {
        std::optional<GrabbedImage> answer;
        service().grab(window, [&](GrabbedImage image) { answer = std::move(image); });
        workers.runAll();
        loop.runPosted();
        return *std::move(answer);
    }

    X11Windows& service()
    {
        if (!m_service)
            m_service.emplace(loop, workers,
                              std::make_shared<X11ImageReader>(std::make_shared<X11Connection>(server.name())),
                              displays, ApplicationNames({applications.path()}));
        return *m_service;
    }

    void withOpenbox() { server.run("openbox", {"--sm-disable", "--config-file", "/dev/null"}, "WM_S0"); }

    void withPicom() { server.run("picom", {"--backend", "xrender", "--config", "/dev/null"}, "_NET_WM_CM_S0"); }

    Testing::TempFolder applications;
    Testing::VirtualDisplay server{{1000, 700}};
    Testing::PaintedScreen screen{server.name()};
    Testing::FakeMainLoop loop;
    Testing::FakeWorkers workers;
    X11Displays displays{std::make_unique<X11Connection>(server.name()), [](const QString&) { return 2.0; }};

private:
    std::optional<X11Windows> m_service;
};

// The premultiplied value of all pixels; none where they differ.
std::optional<QRgb> onlyValue(const QImage& image)
{
    const auto valueAt = [&](int x, int y) { return reinterpret_cast<const QRgb*>(image.constScanLine(y))[x]; };
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (valueAt(x, y) != valueAt(0, 0))
                return std::nullopt;
        }
    }
    return valueAt(0, 0);
}

} // namespace

TEST_F(WindowsTest, ListsFrontToBackWithPopUps)
{
    withOpenbox();
    const auto bottom = screen.show({.pixels = {10, 40, 300, 200}, .colour = Qt::red});
    const auto middle = screen.show({.pixels = {50, 80, 300, 200}, .colour = Qt::green});
    const auto popUp = screen.show({.pixels = {70, 90, 50, 50}, .colour = Qt::blue, .managesItself = true});
    EXPECT_EQ(orderOf({bottom, middle, popUp}), (std::vector<size_t>{2, 1, 0}));
    const uint32_t above = XCB_STACK_MODE_ABOVE;
    xcb_configure_window(screen.connection(), bottom, XCB_CONFIG_WINDOW_STACK_MODE, &above);
    screen.roundTrip();
    const QDeadlineTimer deadline(20000); // until the window manager has heard of it
    while (orderOf({bottom, middle, popUp})[1] != 0 && !deadline.hasExpired()) {
    }
    EXPECT_EQ(orderOf({bottom, middle, popUp}), (std::vector<size_t>{2, 0, 1}));
}

TEST_F(WindowsTest, TellsFrameOwnerAndType)
{
    QFile entry(applications / "org.example.Painter.desktop");
    ASSERT_TRUE(entry.open(QIODevice::WriteOnly));
    entry.write("[Desktop Entry]\nName=Paint Shop\nStartupWMClass=Painting\n[Desktop Action x]\nName=Wrong\n");
    entry.close();
    withOpenbox();
    const auto known =
        screen.show({.pixels = {100, 60, 300, 200}, .colour = Qt::red, .className = "Painting", .pid = 77});
    const auto unknown = screen.show({.pixels = {500, 60, 200, 100},
                                      .colour = Qt::red,
                                      .type = "_NET_WM_WINDOW_TYPE_DIALOG",
                                      .className = "Nobody"});
    const auto menu = screen.show({.pixels = {0, 600, 20, 10},
                                   .colour = Qt::red,
                                   .managesItself = true,
                                   .type = "_NET_WM_WINDOW_TYPE_POPUP_MENU"});
    const WindowInfo info = infoOf(known);
    EXPECT_EQ(info.app, (SourceApp{"Paint Shop", "org.example.Painter"}));
    EXPECT_EQ(info.ownerPid, 77);
    EXPECT_EQ(info.type, WindowType::normal);
    EXPECT_TRUE(info.isOnScreen);
    EXPECT_GT(info.pixelRect.height(), 200) << "the title bar belongs to it";
    EXPECT_EQ(info.frame.width, info.pixelRect.width() / 2.0);
    EXPECT_EQ(infoOf(unknown).app, (SourceApp{"Nobody", "Nobody"}));
    EXPECT_EQ(infoOf(unknown).type, WindowType::dialog);
    EXPECT_EQ(infoOf(menu).type, WindowType::menu);
    EXPECT_EQ(infoOf(menu).pixelRect, QRect(0, 600, 20, 10));
    screen.hide(known);
    EXPECT_FALSE(infoOf(known).isOnScreen);
}

TEST_F(WindowsTest, WindowsOfOtherDesktopsAreNotOnTheScreenAndCompositorsOwnAreNotListed)
{
    const auto here = screen.show({.pixels = {0, 0, 30, 20}, .colour = Qt::red});
    const auto elsewhere = screen.show({.pixels = {0, 0, 30, 20}, .colour = Qt::red});
    const auto everywhere = screen.show({.pixels = {0, 0, 30, 20}, .colour = Qt::red});
    const auto overlay = screen.show({.pixels = {0, 0, 900, 600}, .colour = Qt::red, .managesItself = true});
    screen.letClicksThrough(overlay);
    screen.setNumbersOnRoot("_NET_CURRENT_DESKTOP", "CARDINAL", {1});
    screen.setNumbersOnRoot("_NET_CLIENT_LIST_STACKING", "WINDOW", {here, elsewhere, everywhere});
    screen.setNumbers(here, "_NET_WM_DESKTOP", "CARDINAL", {1});
    screen.setNumbers(elsewhere, "_NET_WM_DESKTOP", "CARDINAL", {0});
    screen.setNumbers(everywhere, "_NET_WM_DESKTOP", "CARDINAL", {0xffffffff});
    EXPECT_TRUE(infoOf(here).isOnScreen);
    EXPECT_FALSE(infoOf(elsewhere).isOnScreen);
    EXPECT_TRUE(infoOf(everywhere).isOnScreen);
    EXPECT_EQ(orderOf({here, elsewhere, everywhere, overlay}), (std::vector<size_t>{2, 1, 0}));
    screen.hide(here);
    EXPECT_EQ(infoOf(here).id, here);
    EXPECT_FALSE(infoOf(here).isOnScreen);
}

TEST_F(WindowsTest, InvisibleEdgesAreNoPartOfAWindow)
{
    const auto window = screen.show({.pixels = {100, 100, 200, 150}, .colour = Qt::red});
    screen.setNumbers(window, "_GTK_FRAME_EXTENTS", "CARDINAL", {10, 12, 8, 16});
    EXPECT_EQ(infoOf(window).pixelRect, QRect(110, 108, 178, 126));
    EXPECT_EQ(grab(window)->size(), QSize(178, 126));
}

TEST_F(WindowsTest, ACoveredWindowIsGrabbedAsIfNothingCoveredIt)
{
    for (const bool isComposited : {false, true}) {
        if (isComposited)
            withPicom();
        const auto plain = screen.show({.pixels = {100, 100, 200, 150}, .colour = Qt::blue});
        const auto glass = screen.show({.pixels = {120, 120, 200, 150}, .colour = QColor(255, 0, 0, 128)});
        screen.show({.pixels = {0, 0, 900, 600}, .colour = Qt::yellow});
        const auto plainImage = grab(plain);
        ASSERT_TRUE(plainImage);
        EXPECT_EQ(plainImage->size(), QSize(200, 150));
        EXPECT_EQ(plainImage->format(), QImage::Format_ARGB32_Premultiplied);
        EXPECT_EQ(onlyValue(*plainImage), QColor(Qt::blue).rgba()) << "composited: " << isComposited;
        const auto glassImage = grab(glass);
        ASSERT_TRUE(glassImage);
        EXPECT_EQ(onlyValue(*glassImage), qPremultiply(qRgba(255, 0, 0, 128)));
    }
}

TEST_F(WindowsTest, AProgramThatPaintsAfterItsFrameIsWaitedFor)
{
    withOpenbox();
    const auto late = screen.show({.pixels = {100, 100, 200, 150}, .colour = Qt::blue, .paintsLate = true});
    screen.show({.pixels = {50, 50, 400, 300}, .colour = Qt::yellow});
    const auto image = grab(late);
    ASSERT_TRUE(image);
    const QRect client(image->width() / 2 - 50, image->height() - 140, 100, 130);
    EXPECT_EQ(onlyValue(image->copy(client)), QColor(Qt::blue).rgba());
}

TEST_F(WindowsTest, PixelsBesideAWindowsShapeAreTransparent)
{
    const auto window = screen.show({.pixels = {100, 100, 40, 30}, .colour = Qt::blue});
    screen.setShape(window, {5, 0, 30, 30});
    const auto image = grab(window);
    ASSERT_TRUE(image);
    EXPECT_EQ(image->pixel(4, 15), 0u);
    EXPECT_EQ(image->pixel(5, 15), QColor(Qt::blue).rgba());
    EXPECT_EQ(image->pixel(35, 15), 0u);
}

TEST_F(WindowsTest, WindowsThatAreHiddenClosedOrNeverWereAreGone)
{
    const auto window = screen.show({.pixels = {100, 100, 40, 30}, .colour = Qt::blue});
    screen.hide(window);
    EXPECT_EQ(failureOf(grab(window)), GrabFailure::windowGone);
    xcb_destroy_window(screen.connection(), window);
    screen.roundTrip();
    EXPECT_EQ(failureOf(grab(window)), GrabFailure::windowGone);
    EXPECT_EQ(failureOf(grab(0x7ffffff)), GrabFailure::windowGone);
    server.end();
    EXPECT_EQ(failureOf(grab(window)), GrabFailure::noDisplay);
    EXPECT_TRUE(list().empty());
}

} // namespace Kovrel
