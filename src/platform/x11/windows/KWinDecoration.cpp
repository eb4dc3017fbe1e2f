#include "platform/x11/windows/KWinDecoration.h"

#include "platform/x11/X11Property.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QEventLoop>
#include <QTimer>

namespace Kovrel {

namespace {

using namespace std::chrono_literals;

constexpr const char* service = "org.kde.KWin";
constexpr const char* path = "/Screenshot";
constexpr const char* interface = "org.kde.kwin.Screenshot";
constexpr int withDecoration = 1;
constexpr auto patience = 1s;

bool isOpaque(const QImage& image, int x, int y)
{
    return image.valid(x, y) && qAlpha(image.pixel(x, y)) == 255;
}

// Where the opaque frame begins in its shadow. No value where nothing opaque has the frame's size.
std::optional<QPoint> placeOfFrame(const QImage& image, QSize size)
{
    const QPoint middle = image.rect().center();
    QPoint place;
    while (place.x() < image.width() && !isOpaque(image, place.x(), middle.y()))
        ++place.rx();
    while (place.y() < image.height() && !isOpaque(image, middle.x(), place.y()))
        ++place.ry();
    const QRect frame(place, size);
    if (!image.rect().contains(frame) || isOpaque(image, frame.right() + 1, middle.y()) ||
        isOpaque(image, middle.x(), frame.bottom() + 1))
        return {};
    return place;
}

QDBusMessage request(xcb_window_t window)
{
    auto call = QDBusMessage::createMethodCall(service, path, interface, "screenshotForWindow");
    call.setAutoStartService(false);
    call.setArguments({QVariant::fromValue(qulonglong(window)), withDecoration});
    return call;
}

xcb_pixmap_t pictureOf(xcb_window_t window)
{
    KWinPicture picture;
    auto bus = QDBusConnection::sessionBus();
    if (!bus.connect(service, path, interface, "screenshotCreated", &picture, SLOT(created(qulonglong))))
        return XCB_NONE;
    QEventLoop events;
    QObject::connect(&picture, &KWinPicture::arrived, &events, &QEventLoop::quit);
    QTimer::singleShot(patience, &events, &QEventLoop::quit);
    const QDBusPendingCallWatcher call(bus.asyncCall(request(window)));
    QObject::connect(&call, &QDBusPendingCallWatcher::finished, &events, [&] {
        if (call.isError())
            events.quit();
    });
    events.exec();
    return picture.pixmap();
}

} // namespace

void KWinPicture::created(qulonglong handle)
{
    m_pixmap = xcb_pixmap_t(handle);
    Q_EMIT arrived();
}

bool KWinDecoration::isDrawnApart(X11Connection& x, xcb_window_t window, const X11Frame& frame)
{
    if (frame.topLevel == window || frame.visible == frame.client || !x.hasCompositor())
        return false;
    const xcb_window_t manager = X11Property(x, x.root(), "_NET_SUPPORTING_WM_CHECK").number();
    return X11Property(x, manager, "_NET_WM_NAME").text() == "KWin";
}

std::optional<QImage> KWinDecoration::read(X11ImageReader& reader, xcb_window_t window, const X11Frame& frame)
{
    const xcb_pixmap_t pixmap = pictureOf(window);
    if (pixmap == XCB_NONE)
        return {};
    X11Connection& x = reader.connection();
    const auto geometry = x.reply(xcb_get_geometry_reply, xcb_get_geometry(x.handle(), pixmap));
    if (!geometry || geometry->depth != 32)
        return {};
    const auto image = reader.read(pixmap, {0, 0, geometry->width, geometry->height}, X11ImageReader::Alpha::kept);
    const auto place = image ? placeOfFrame(*image, frame.visible.size()) : std::nullopt;
    return place ? std::optional(image->copy({*place, frame.visible.size()})) : std::nullopt;
}

} // namespace Kovrel
