#pragma once

#include "platform/x11/X11IdleMemory.h"

#include <QImage>
#include <QRect>

#include <memory>
#include <optional>
#include <vector>

namespace Kovrel {

// Reads pixels of windows and pixmaps, by shared memory where the server can. Used on the thread that uses the
// connection; its images may go on any thread.
class X11ImageReader {
public:
    enum class Alpha {
        opaque, // the unused byte of the pixels, which servers leave undefined, becomes 255: Format_RGB32
        unused, // Format_RGB32 with whatever the server leaves there: half the work
        kept,   // Format_ARGB32_Premultiplied
    };

    explicit X11ImageReader(std::shared_ptr<X11Connection> connection);

    // Gives the memory that is kept for the next image back to the system when no image was read for a while.
    void releaseWhenIdle(MainLoop& loop) { m_idleMemory = std::make_shared<X11IdleMemory>(loop, m_pool); }

    X11Connection& connection() const { return *m_connection; }

    // A rectangle of one moment, which must lie within the drawable. No value when the drawable is gone, smaller, or
    // not made of 32-bit pixels.
    std::optional<QImage> read(xcb_drawable_t drawable, QRect pixels, Alpha alpha);

    // Makes ready to read these rectangles with no wait for memory, for as long as idle memory is kept. Fresh memory
    // costs several times what is done with it; reading once leaves some, faulted on both sides.
    void prepare(xcb_drawable_t drawable, const std::vector<QRect>& rectangles);

    // Where the pixels of an image lie in memory shared with the server; no value for an image of another origin.
    std::optional<X11SegmentPool::Place> placeOf(const QImage& image) const;

private:
    bool readInto(const X11SegmentPool::Segment& segment, xcb_drawable_t drawable, QRect pixels, Alpha alpha);
    std::optional<QImage> readCopied(xcb_drawable_t drawable, QRect pixels, Alpha alpha);

    std::shared_ptr<X11Connection> m_connection;
    std::shared_ptr<X11SegmentPool> m_pool;
    std::shared_ptr<X11IdleMemory> m_idleMemory; // null: it stays
};

} // namespace Kovrel
