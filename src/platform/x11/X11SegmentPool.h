#pragma once

#include "platform/x11/X11Connection.h"

#include <QImage>

#include <memory>
#include <mutex>
#include <optional>
#include <vector>

#include <xcb/shm.h>

namespace Kovrel {

// Memory shared with the server, kept mapped and faulted in between grabs: a fresh segment for 4K costs ten times
// the grab itself. At most two segments wait idle. Safe on any thread; lives as long as any of its images.
class X11SegmentPool : public std::enable_shared_from_this<X11SegmentPool> {
public:
    struct Segment {
        std::shared_ptr<X11Connection> connection;
        xcb_shm_seg_t id = XCB_NONE; // the server's
        uchar* bytes = nullptr;
        size_t size = 0;

        Segment() = default;
        ~Segment();
        Segment(const Segment&) = delete;
        Segment& operator=(const Segment&) = delete;
    };

    explicit X11SegmentPool(std::shared_ptr<X11Connection> connection);

    // Null when the server can't share memory with us.
    std::unique_ptr<Segment> take(size_t bytes);
    // An image on the segment's pixels, without a copy; the segment returns with the image's last copy.
    QImage wrap(std::unique_ptr<Segment> segment, QSize size, QImage::Format format);

    struct Place {
        xcb_shm_seg_t id = XCB_NONE;
        uint32_t offset = 0;
    };

    // The segment of an image that was wrapped, in which this pixel lies.
    std::optional<Place> placeOf(const uchar* pixel);

    // How much of what is kept waits to be used.
    size_t idleBytes();

    // Gives the idle segments back to the system, and those that are still in use when they return, until the next one
    // is taken.
    void releaseIdle();

private:
    struct Loan;

    std::unique_ptr<Segment> takeIdle(size_t bytes);
    std::unique_ptr<Segment> create(size_t bytes);
    void giveBack(std::unique_ptr<Segment> segment);

    std::shared_ptr<X11Connection> m_connection;
    bool m_isSharing;
    std::mutex m_lock;
    bool m_keepsIdle = true;
    std::vector<std::unique_ptr<Segment>> m_idle; // the one used last at the end
    std::vector<const Segment*> m_lent;
};

} // namespace Kovrel
