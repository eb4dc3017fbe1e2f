#include "platform/x11/X11ImageReader.h"

#include <algorithm>
#include <cstring>
#include <vector>

namespace Kovrel {

namespace {

constexpr int bytesOfBand = 1 << 20;

QImage::Format formatFor(X11ImageReader::Alpha alpha)
{
    return alpha == X11ImageReader::Alpha::kept ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32;
}

void makeOpaque(uchar* bytes, size_t size)
{
    auto* pixel = reinterpret_cast<quint32*>(bytes);
    for (const quint32* end = pixel + size / 4; pixel != end; ++pixel)
        *pixel |= 0xff000000;
}

bool hasPlainDepth(uint8_t depth)
{
    return depth == 24 || depth == 32;
}

} // namespace

X11ImageReader::X11ImageReader(std::shared_ptr<X11Connection> connection)
    : m_connection(std::move(connection)), m_pool(std::make_shared<X11SegmentPool>(m_connection))
{
}

std::optional<QImage> X11ImageReader::read(xcb_drawable_t drawable, QRect pixels, Alpha alpha)
{
    if (pixels.isEmpty() || !m_connection->hasPlainPixels())
        return {};
    if (m_idleMemory)
        m_idleMemory->noteUse();
    auto segment = m_pool->take(size_t(pixels.width()) * 4 * size_t(pixels.height()));
    if (!segment)
        return readCopied(drawable, pixels, alpha);
    const bool isRead = readInto(*segment, drawable, pixels, alpha);
    QImage image = m_pool->wrap(std::move(segment), pixels.size(), formatFor(alpha)); // also brings it back
    return isRead ? std::optional(image) : std::nullopt;
}

// The server copies one band while this thread makes the one before opaque, in the processor's cache: that hides
// nearly all of its cost. Nobody else may draw between the bands, and all of it is sent at once, so that the server
// is ours no longer than for the copy itself.
bool X11ImageReader::readInto(const X11SegmentPool::Segment& segment, xcb_drawable_t drawable, QRect pixels,
                              Alpha alpha)
{
    xcb_connection_t* c = m_connection->handle();
    const int stride = pixels.width() * 4;
    const int bandRows =
        alpha == Alpha::opaque ? std::clamp(bytesOfBand / stride, 1, pixels.height()) : pixels.height();
    const auto rowsAt = [&](int row) { return std::min(bandRows, pixels.height() - row); };
    std::vector<xcb_shm_get_image_cookie_t> cookies;
    {
        const X11Connection::ServerHold hold(*m_connection);
        for (int row = 0; row < pixels.height(); row += bandRows)
            cookies.push_back(xcb_shm_get_image(
                c, drawable, int16_t(pixels.x()), int16_t(pixels.y() + row), uint16_t(pixels.width()),
                uint16_t(rowsAt(row)), ~0u, XCB_IMAGE_FORMAT_Z_PIXMAP, segment.id, uint32_t(row) * uint32_t(stride)));
    }
    xcb_flush(c);
    bool isRead = true;
    int row = 0;
    for (const auto cookie : cookies) {
        const auto band = m_connection->reply(xcb_shm_get_image_reply, cookie);
        isRead = isRead && band && hasPlainDepth(band->depth);
        if (isRead && alpha == Alpha::opaque)
            makeOpaque(segment.bytes + size_t(row) * size_t(stride), size_t(rowsAt(row)) * size_t(stride));
        row += bandRows;
    }
    return isRead;
}

void X11ImageReader::prepare(xcb_drawable_t drawable, const std::vector<QRect>& rectangles)
{
    size_t wanted = 0;
    for (const QRect& pixels : rectangles)
        wanted += size_t(pixels.width()) * 4 * size_t(pixels.height());
    if (m_pool->idleBytes() >= wanted)
        return;
    std::vector<std::optional<QImage>> images; // all at once, so that each has memory of its own
    images.reserve(rectangles.size());
    for (const QRect& pixels : rectangles)
        images.push_back(read(drawable, pixels, Alpha::unused));
}

std::optional<X11SegmentPool::Place> X11ImageReader::placeOf(const QImage& image) const
{
    return m_pool->placeOf(image.constBits());
}

std::optional<QImage> X11ImageReader::readCopied(xcb_drawable_t drawable, QRect pixels, Alpha alpha)
{
    const auto reply = m_connection->reply(xcb_get_image_reply,
                                           xcb_get_image(m_connection->handle(), XCB_IMAGE_FORMAT_Z_PIXMAP, drawable,
                                                         int16_t(pixels.x()), int16_t(pixels.y()),
                                                         uint16_t(pixels.width()), uint16_t(pixels.height()), ~0u));
    if (!reply || !hasPlainDepth(reply->depth))
        return {};
    QImage image(pixels.size(), formatFor(alpha));
    const auto size = size_t(image.sizeInBytes());
    if (image.isNull() || size_t(xcb_get_image_data_length(reply.get())) < size)
        return {};
    std::memcpy(image.bits(), xcb_get_image_data(reply.get()), size);
    if (alpha == Alpha::opaque)
        makeOpaque(image.bits(), size);
    return image;
}

} // namespace Kovrel
