#include "platform/x11/X11Screen.h"

#include "platform/x11/X11Cursor.h"
#include "platform/x11/X11DamageWatch.h"
#include "platform/x11/X11Monitor.h"
#include "platform/x11/X11RepaintFence.h"

#include <QLoggingCategory>
#include <QPainter>
#include <QRegion>

namespace Kovrel {

namespace {

Q_LOGGING_CATEGORY(log, "com.kovrel.capture")

QRegion shownRegion(X11Connection& x)
{
    QRegion region;
    for (const X11Monitor& monitor : X11Monitor::all(x))
        region += monitor.pixels;
    return region;
}

void blacken(QImage& image, const QRegion& region)
{
    for (const QRect& rect : region)
        QPainter(&image).fillRect(rect, Qt::black);
}

QImage onBlack(const QImage& part, QPoint position, QSize size)
{
    QImage whole(size, QImage::Format_RGB32);
    whole.fill(Qt::black);
    QPainter(&whole).drawImage(position, part);
    return whole;
}

} // namespace

GrabbedImage X11Screen::grab(QRect rootPixels, ScreenPixels::PointerOption pointer)
{
    X11Connection& x = m_reader.connection();
    const QRegion shown = shownRegion(x);
    if (!shown.intersects(rootPixels))
        return std::unexpected(GrabFailure::noDisplay);
    if (!x.hasPlainPixels())
        return std::unexpected(GrabFailure::otherPixels);
    auto image = readRoot(rootPixels);
    if (!image) // the screen became smaller just now
        return std::unexpected(GrabFailure::noDisplay);
    if (pointer == ScreenPixels::PointerOption::drawn)
        drawPointer(*image, rootPixels.topLeft());
    blacken(*image, (QRegion(rootPixels) - shown).translated(-rootPixels.topLeft()));
    return *std::move(image);
}

bool X11Screen::waitUntilRepainted()
{
    X11Connection& x = m_reader.connection();
    if (!x.isAlive())
        return false;
    if (x.hasCompositor())
        passFence();
    X11DamageWatch(x, x.root()).waitUntilQuiet(X11DamageWatch::frame);
    return x.isAlive();
}

void X11Screen::passFence()
{
    const auto monitors = X11Monitor::all(m_reader.connection());
    if (!monitors.empty() && !X11RepaintFence(m_reader, monitors.front().pixels.bottomRight()).pass())
        qCWarning(log, "The compositor does not show what was drawn; a picture may show what was hidden for it");
}

std::optional<QImage> X11Screen::readRoot(QRect rootPixels)
{
    X11Connection& x = m_reader.connection();
    const auto root = x.reply(xcb_get_geometry_reply, xcb_get_geometry(x.handle(), x.root()));
    if (!root)
        return {};
    const QRect inside = rootPixels & QRect(0, 0, root->width, root->height);
    auto image = m_reader.read(x.root(), inside, X11ImageReader::Alpha::opaque);
    if (!image || inside == rootPixels)
        return image;
    return onBlack(*image, inside.topLeft() - rootPixels.topLeft(), rootPixels.size());
}

void X11Screen::drawPointer(QImage& image, QPoint topLeft)
{
    const auto cursor = X11Cursor::read(m_reader.connection());
    if (cursor)
        QPainter(&image).drawImage(cursor->topLeft - topLeft, cursor->image);
}

} // namespace Kovrel
