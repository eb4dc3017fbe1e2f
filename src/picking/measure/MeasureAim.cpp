#include "picking/measure/MeasureAim.h"

#include <algorithm>
#include <array>

namespace Kovrel {

namespace {

constexpr std::array tolerances{0, 2, 4, 8, 16, MeasureSampler::usualTolerance, 40, 64, 96};
constexpr int usualStep = 5;
static_assert(tolerances[usualStep] == MeasureSampler::usualTolerance);

constexpr double edgeReach = 8;    // points from a side to the edge that it goes to
constexpr double smallestDrag = 4; // points: less is a click

} // namespace

void MeasureAim::add(Still still)
{
    const quint32 id = still.display.id;
    m_stills[id] = std::move(still);
}

void MeasureAim::point(QPoint to, bool isFree)
{
    m_pointer = to;
    const Still* still = m_pressedAt ? stillAt(*m_pressedAt) : nullptr;
    if (!still || !isDrag(*still, to))
        return;
    const QRect& pixels = still->display.pixelRect;
    const QRect rect = (MeasureReading::between(*m_pressedAt, to) & pixels).translated(-pixels.topLeft());
    const double reach = edgeReach * still->display.scale;
    m_dragged = {still->display.id, isFree ? rect : MeasureReading::atEdges(*still->sampler, rect, reach)};
}

void MeasureAim::press(QPoint at)
{
    m_pointer = at;
    m_pressedAt = at;
}

bool MeasureAim::release(QPoint at, bool isFree)
{
    if (!m_pressedAt)
        return false;
    point(at, isFree);
    const Still* still = stillAt(*m_pressedAt);
    const bool isClick = !still || !isDrag(*still, at);
    m_pressedAt.reset();
    return isClick;
}

void MeasureAim::changeTolerance(int steps)
{
    m_toleranceStep = std::clamp(m_toleranceStep + steps, -usualStep, int(tolerances.size()) - 1 - usualStep);
}

int MeasureAim::tolerance() const
{
    return tolerances[size_t(usualStep + m_toleranceStep)];
}

std::optional<MeasureAim::Shown> MeasureAim::shown() const
{
    if (m_dragged)
        return Shown{.display = m_stills.at(m_dragged->displayID).display, .cross = {}, .rect = m_dragged->rect};
    const Still* still = m_pointer ? stillAt(*m_pointer) : nullptr;
    if (!still)
        return std::nullopt;
    const QPoint pixel = *m_pointer - still->display.pixelRect.topLeft();
    const auto cross = MeasureReading::crossAt(*still->sampler, pixel, tolerance());
    return cross ? std::optional(Shown{.display = still->display, .cross = cross, .rect = {}}) : std::nullopt;
}

const MeasureAim::Still* MeasureAim::stillAt(QPoint rootPixel) const
{
    const auto holds = [&](const auto& still) { return still.second.display.pixelRect.contains(rootPixel); };
    const auto found = std::ranges::find_if(m_stills, holds);
    return found == m_stills.end() ? nullptr : &found->second;
}

bool MeasureAim::isDrag(const Still& still, QPoint to) const
{
    return (to - *m_pressedAt).manhattanLength() >= smallestDrag * still.display.scale;
}

} // namespace Kovrel
