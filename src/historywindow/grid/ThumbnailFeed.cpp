#include "historywindow/grid/ThumbnailFeed.h"

#include <algorithm>

namespace Kovrel {

ThumbnailFeed::ThumbnailFeed(MainLoop& loop, Workers& workers, Read read, std::function<void(QUuid)> onArrival)
    : m_read(std::move(read)), m_onArrival(std::move(onArrival)), m_scope(loop, workers)
{
}

void ThumbnailFeed::setBounds(QSize bounds)
{
    if (bounds == m_bounds)
        return;
    m_bounds = bounds;
    ++m_generation;
    m_kept.clear();
    m_uses.clear();
    m_bytes = 0;
}

void ThumbnailFeed::want(std::vector<QUuid> ids)
{
    // What is shown is not what goes first when room is needed.
    for (const QUuid& id : ids)
        if (const auto kept = m_kept.find(id); kept != m_kept.end())
            m_uses.splice(m_uses.begin(), m_uses, kept->second.use);
    std::erase_if(ids, [this](const QUuid& id) { return m_kept.contains(id); });
    m_wanted.assign(ids.rbegin(), ids.rend());
    readNext();
}

QImage ThumbnailFeed::picture(QUuid id) const
{
    const auto kept = m_kept.find(id);
    return kept == m_kept.end() ? QImage() : kept->second.picture;
}

bool ThumbnailFeed::isExpected(QUuid id) const
{
    return !m_kept.contains(id);
}

void ThumbnailFeed::forget(QUuid id)
{
    if (const auto reading = m_inFlight.find(id); reading != m_inFlight.end())
        ++reading->second;
    const auto kept = m_kept.find(id);
    if (kept == m_kept.end())
        return;
    m_bytes -= kept->second.picture.sizeInBytes();
    m_uses.erase(kept->second.use);
    m_kept.erase(kept);
}

void ThumbnailFeed::readNext()
{
    while (int(m_inFlight.size()) < atOnce && !m_wanted.empty()) {
        const QUuid id = m_wanted.back();
        m_wanted.pop_back();
        if (!m_inFlight.contains(id) && !m_kept.contains(id))
            Scope::start(read(id), "reading a thumbnail");
    }
}

QCoro::Task<> ThumbnailFeed::read(QUuid id)
{
    m_inFlight[id] = 0;
    const int generation = m_generation;
    QImage picture = co_await m_scope.onWorker(Lane::thumbnails,
                                               [read = m_read, id, bounds = m_bounds] { return read(id, bounds); });
    const bool isCurrent = m_inFlight[id] == 0 && generation == m_generation;
    m_inFlight.erase(id);
    if (isCurrent)
        keep(id, std::move(picture));
    else
        m_wanted.push_back(id);
    readNext();
    if (isCurrent)
        m_onArrival(id);
}

void ThumbnailFeed::keep(QUuid id, QImage picture)
{
    m_bytes += picture.sizeInBytes();
    m_uses.push_front(id);
    m_kept[id] = {std::move(picture), m_uses.begin()};
    makeRoom();
}

void ThumbnailFeed::makeRoom()
{
    while (m_bytes > capacity && m_uses.size() > 1)
        forget(QUuid(m_uses.back()));
}

} // namespace Kovrel
