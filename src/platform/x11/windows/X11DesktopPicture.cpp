#include "platform/x11/windows/X11DesktopPicture.h"

#include "platform/Guarded.h"
#include "platform/ReplyFromWorker.h"
#include "platform/x11/X11Property.h"
#include "platform/x11/windows/X11WindowImage.h"
#include "platform/x11/windows/X11WindowList.h"

#include <QPainter>

namespace Kovrel {

namespace {

using Picture = std::optional<QImage>;

constexpr double mostEnlarged = 3;

bool isOpaque(const QImage& image)
{
    constexpr int samples = 16; // in each direction
    for (int y = 0; y < samples; ++y)
        for (int x = 0; x < samples; ++x)
            if (qAlpha(image.pixel(image.width() * x / samples, image.height() * y / samples)) < 255)
                return false;
    return true;
}

Picture ofDesktopWindow(X11ImageReader& reader, const QRect& display)
{
    const auto windows = X11WindowList::read(reader.connection());
    if (!windows)
        return {};
    for (const auto& [info, instance, className] : *windows) {
        if (info.type != WindowType::desktop || !info.isOnScreen || !info.pixelRect.contains(display))
            continue;
        const auto image = X11WindowImage::grab(reader, info.id);
        if (image && isOpaque(*image)) // some are transparent, with nothing but icons
            return image->copy(display.translated(-info.pixelRect.topLeft()));
    }
    return {};
}

// The root pixmap begins at the root window's corner and repeats where it is smaller.
QImage tiled(const QImage& tile, const QRect& part)
{
    QImage image(part.size(), QImage::Format_RGB32);
    QPainter painter(&image);
    const QPoint first(part.x() / tile.width() * tile.width(), part.y() / tile.height() * tile.height());
    for (int y = first.y(); y <= part.bottom(); y += tile.height()) {
        for (int x = first.x(); x <= part.right(); x += tile.width())
            painter.drawImage(QPoint(x, y) - part.topLeft(), tile);
    }
    return image;
}

Picture ofRoot(X11ImageReader& reader, const QRect& display)
{
    X11Connection& x = reader.connection();
    const xcb_pixmap_t pixmap = X11Property(x, x.root(), "_XROOTPMAP_ID").number();
    const auto geometry = x.reply(xcb_get_geometry_reply, xcb_get_geometry(x.handle(), pixmap));
    if (pixmap == XCB_NONE || !geometry)
        return {};
    const QRect whole(0, 0, geometry->width, geometry->height);
    if (whole.contains(display))
        return reader.read(pixmap, display, X11ImageReader::Alpha::opaque);
    const auto tile = reader.read(pixmap, whole, X11ImageReader::Alpha::opaque);
    return tile ? Picture(tiled(*tile, display)) : std::nullopt;
}

Picture read(X11ImageReader& reader, const QRect& display)
{
    if (auto picture = ofRoot(reader, display))
        return picture;
    return ofDesktopWindow(reader, display);
}

Picture scaled(Picture picture, QSize size)
{
    if (!picture || picture->size() == size)
        return picture;
    return picture->scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

QSize pictureSize(const Display& display, int maxPixelSize)
{
    const double longer = std::max(display.frame.width, display.frame.height);
    const double factor = std::min(maxPixelSize / longer, mostEnlarged);
    return {qRound(display.frame.width * factor), qRound(display.frame.height * factor)};
}

} // namespace

X11DesktopPicture::X11DesktopPicture(MainLoop& loop, Workers& workers, std::shared_ptr<X11ImageReader> reader,
                                     const Displays& displays, FromSettings fromSettings)
    : m_loop(loop),
      m_workers(workers),
      m_reader(std::move(reader)),
      m_displays(displays),
      m_fromSettings(std::move(fromSettings))
{
}

void X11DesktopPicture::grab(quint32 displayID, int maxPixelSize, Reply<std::optional<QImage>> reply)
{
    const DisplayList displays = m_displays.all();
    const Display* display = displayWithID(displays, displayID);
    if (!display) {
        m_loop.post([reply = std::move(reply)] { reply(std::nullopt); });
        return;
    }
    const auto job = [reader = m_reader, fromSettings = m_fromSettings, display = *display, displays, maxPixelSize] {
        auto picture = fromSettings(display, displays);
        if (!picture)
            picture = read(*reader, display.pixelRect);
        return scaled(std::move(picture), pictureSize(display, maxPixelSize));
    };
    replyFromWorker<Picture>(m_loop, m_workers, Lane::capture, Guarded::orElse(job, std::nullopt), std::move(reply));
}

} // namespace Kovrel
