#pragma once

#include "platform/MainLoop.h"

#include <QPointF>
#include <QUuid>

#include <map>

namespace Kovrel {

// Cards on their way: all move by one clock, which stands still while nothing moves. A card that is sent elsewhere on
// its way begins where it is. Who wants no motion sees the end at once. Main thread.
class PileMotion {
public:
    struct Pose {
        QPointF origin; // upper left corner, in whatever coordinates the user of it has
        double opacity = 1;
        bool operator==(const Pose&) const = default;
    };

    // `frame` is called for each frame, the last one included, while something moves.
    PileMotion(MainLoop& loop, std::function<void()> frame);
    ~PileMotion();
    PileMotion(const PileMotion&) = delete;
    PileMotion& operator=(const PileMotion&) = delete;

    // At once.
    void place(QUuid card, Pose pose);
    // From where it is; one that is nowhere is placed.
    void moveTo(QUuid card, Pose pose, MainLoop::Milliseconds duration);

    void forget(QUuid card) { m_ways.erase(card); }

    bool knows(QUuid card) const { return m_ways.contains(card); }

    Pose pose(QUuid card) const;
    Pose target(QUuid card) const;
    bool isMoving(QUuid card) const;
    bool isMoving() const;

private:
    struct Way {
        Pose from;
        Pose to;
        std::chrono::microseconds begin{0};
        std::chrono::microseconds duration{0};
    };

    bool isUnderWay(const Way& way) const { return m_loop.now() < way.begin + way.duration; }

    void run();
    void tick();

    MainLoop& m_loop;
    std::function<void()> m_frame;
    std::map<QUuid, Way> m_ways;
    MainLoop::TimerID m_clock = 0;
};

} // namespace Kovrel
