#include "cards/PileMotion.h"

#include "ui/tokens/Motion.h"

#include <algorithm>

namespace Kovrel {

using namespace std::chrono_literals;

namespace {

constexpr auto frameTime = 16ms;

double between(double from, double to, double progress)
{
    return from + (to - from) * progress;
}

} // namespace

PileMotion::PileMotion(MainLoop& loop, std::function<void()> frame) : m_loop(loop), m_frame(std::move(frame)) {}

PileMotion::~PileMotion()
{
    m_loop.cancel(m_clock);
}

void PileMotion::place(QUuid card, Pose pose)
{
    m_ways[card] = {.from = pose, .to = pose, .begin = m_loop.now(), .duration = 0us};
}

void PileMotion::moveTo(QUuid card, Pose pose, MainLoop::Milliseconds duration)
{
    if (!knows(card) || Motion::shared().isReduced())
        place(card, pose);
    else if (target(card) != pose)
        m_ways[card] = {.from = this->pose(card), .to = pose, .begin = m_loop.now(), .duration = duration};
    run();
}

PileMotion::Pose PileMotion::pose(QUuid card) const
{
    const Way& way = m_ways.at(card);
    if (!isUnderWay(way))
        return way.to;
    const double share = double((m_loop.now() - way.begin).count()) / double(way.duration.count());
    const double progress = QEasingCurve(Motion::easing).valueForProgress(share);
    return {.origin = {between(way.from.origin.x(), way.to.origin.x(), progress),
                       between(way.from.origin.y(), way.to.origin.y(), progress)},
            .opacity = between(way.from.opacity, way.to.opacity, progress)};
}

PileMotion::Pose PileMotion::target(QUuid card) const
{
    return m_ways.at(card).to;
}

bool PileMotion::isMoving(QUuid card) const
{
    return isUnderWay(m_ways.at(card));
}

bool PileMotion::isMoving() const
{
    return std::ranges::any_of(m_ways, [this](const auto& way) { return isUnderWay(way.second); });
}

void PileMotion::run()
{
    if (m_clock == 0 && isMoving())
        m_clock = m_loop.after(frameTime, [this] { tick(); });
}

// The frame may send cards elsewhere, or make them go.
void PileMotion::tick()
{
    m_clock = 0;
    const bool goesOn = isMoving();
    m_frame();
    if (goesOn && m_clock == 0)
        m_clock = m_loop.after(frameTime, [this] { tick(); });
}

} // namespace Kovrel
