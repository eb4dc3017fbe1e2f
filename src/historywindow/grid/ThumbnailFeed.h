#pragma once

#include "platform/Scope.h"

#include <QImage>
#include <QUuid>

#include <functional>
#include <list>
#include <map>
#include <vector>

namespace Kovrel {

// The pictures of a grid: read on a worker in the order in which they are wanted, as large as they are shown, and kept
// as long as there is room. Main thread.
class ThumbnailFeed {
public:
    // On a worker: the picture within the bounds, or a null one where there is none.
    using Read = std::function<QImage(QUuid id, QSize bounds)>;

    static constexpr qsizetype capacity = 64 * 1024 * 1024; // bytes

    // `onArrival` is called with each picture that came, also a null one.
    ThumbnailFeed(MainLoop& loop, Workers& workers, Read read, std::function<void(QUuid)> onArrival);

    // Pixels. Another size drops what is there.
    void setBounds(QSize bounds);
    // What shall be there, the most urgent first. It takes the place of what was asked for before; nothing of that is
    // begun any more.
    void want(std::vector<QUuid> ids);
    // Null while it is not there, and where there is none.
    QImage picture(QUuid id) const;
    // Whether there is something to wait for.
    bool isExpected(QUuid id) const;
    // The file has changed, or gone.
    void forget(QUuid id);

private:
    struct Kept {
        QImage picture;
        std::list<QUuid>::iterator use;
    };

    // More than one at once keeps the lane busy while answers travel.
    static constexpr int atOnce = 2;

    void readNext();
    QCoro::Task<> read(QUuid id);
    void keep(QUuid id, QImage picture);
    void makeRoom();

    Read m_read;
    std::function<void(QUuid)> m_onArrival;
    QSize m_bounds;
    int m_generation = 0;            // of the bounds
    std::vector<QUuid> m_wanted;     // the most urgent last
    std::map<QUuid, int> m_inFlight; // how often it was forgotten meanwhile
    std::map<QUuid, Kept> m_kept;
    std::list<QUuid> m_uses; // the latest first
    qsizetype m_bytes = 0;
    Scope m_scope;
};

} // namespace Kovrel
