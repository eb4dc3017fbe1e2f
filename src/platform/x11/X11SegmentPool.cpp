#include "platform/x11/X11SegmentPool.h"

#include <algorithm>

#include <sys/mman.h>
#include <unistd.h>

namespace Kovrel {

namespace {

constexpr size_t mostIdle = 2;

}

// What an image holds of its segment.
struct X11SegmentPool::Loan {
    std::shared_ptr<X11SegmentPool> pool;
    std::unique_ptr<Segment> segment;
};

X11SegmentPool::Segment::~Segment()
{
    if (id != XCB_NONE) {
        xcb_shm_detach(connection->handle(), id);
        xcb_flush(connection->handle()); // the memory is gone only when the server has let go too
    }
    if (bytes)
        munmap(bytes, size);
}

// Segments travel as file descriptors, which only a local socket carries: unlike System V segments, they can't
// outlive the program.
X11SegmentPool::X11SegmentPool(std::shared_ptr<X11Connection> connection)
    : m_connection(std::move(connection)), m_isSharing(m_connection->isLocal() && m_connection->has(xcb_shm_id))
{
}

std::unique_ptr<X11SegmentPool::Segment> X11SegmentPool::take(size_t bytes)
{
    if (!m_isSharing || bytes == 0)
        return nullptr;
    auto segment = takeIdle(bytes);
    return segment ? std::move(segment) : create(bytes);
}

// A small picture does not hold on to a big segment.
std::unique_ptr<X11SegmentPool::Segment> X11SegmentPool::takeIdle(size_t bytes)
{
    const std::lock_guard lock(m_lock);
    m_keepsIdle = true;
    const auto fitting = std::find_if(m_idle.rbegin(), m_idle.rend(), [bytes](const auto& segment) {
        return segment->size >= bytes && segment->size / 2 <= bytes;
    });
    if (fitting == m_idle.rend())
        return nullptr;
    auto segment = std::move(*fitting);
    m_idle.erase(std::next(fitting).base());
    return segment;
}

std::unique_ptr<X11SegmentPool::Segment> X11SegmentPool::create(size_t bytes)
{
    const int descriptor = memfd_create("kovrel-pixels", MFD_CLOEXEC);
    if (descriptor < 0 || ftruncate(descriptor, off_t(bytes)) != 0) {
        close(descriptor);
        return nullptr;
    }
    void* memory = mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_POPULATE, descriptor, 0);
    if (memory == MAP_FAILED) {
        close(descriptor);
        return nullptr;
    }
    auto segment = std::make_unique<Segment>();
    segment->connection = m_connection;
    segment->bytes = static_cast<uchar*>(memory);
    segment->size = bytes;
    const xcb_shm_seg_t id = xcb_generate_id(m_connection->handle());
    // xcb closes the descriptor once it is sent.
    if (!m_connection->succeeded(xcb_shm_attach_fd_checked(m_connection->handle(), id, descriptor, false))) {
        m_isSharing = false;
        return nullptr;
    }
    segment->id = id;
    return segment;
}

void X11SegmentPool::giveBack(std::unique_ptr<Segment> segment)
{
    const std::lock_guard lock(m_lock);
    std::erase(m_lent, segment.get());
    if (m_keepsIdle)
        m_idle.push_back(std::move(segment));
    if (m_idle.size() > mostIdle)
        m_idle.erase(m_idle.begin());
}

size_t X11SegmentPool::idleBytes()
{
    const std::lock_guard lock(m_lock);
    size_t bytes = 0;
    for (const auto& segment : m_idle)
        bytes += segment->size;
    return bytes;
}

void X11SegmentPool::releaseIdle()
{
    const std::lock_guard lock(m_lock);
    m_keepsIdle = false;
    m_idle.clear();
}

std::optional<X11SegmentPool::Place> X11SegmentPool::placeOf(const uchar* pixel)
{
    const std::lock_guard lock(m_lock);
    for (const Segment* segment : m_lent)
        if (pixel >= segment->bytes && pixel < segment->bytes + segment->size)
            return Place{segment->id, uint32_t(pixel - segment->bytes)};
    return {};
}

QImage X11SegmentPool::wrap(std::unique_ptr<Segment> segment, QSize size, QImage::Format format)
{
    {
        const std::lock_guard lock(m_lock);
        m_lent.push_back(segment.get());
    }
    auto* loan = new Loan{shared_from_this(), std::move(segment)};
    const auto giveBack = [](void* data) {
        const std::unique_ptr<Loan> ending(static_cast<Loan*>(data));
        ending->pool->giveBack(std::move(ending->segment));
    };
    return QImage(loan->segment->bytes, size.width(), size.height(), qsizetype(size.width()) * 4, format, giveBack,
                  loan);
}

} // namespace Kovrel
