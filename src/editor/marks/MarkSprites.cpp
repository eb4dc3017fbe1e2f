#include "editor/marks/MarkSprites.h"

namespace Kovrel {

namespace {

constexpr qsizetype most = 500; // beyond, those of marks that are gone may be among them

// By how many whole target points one mark is the other one moved; nothing where it is anything else.
std::optional<QPoint> shiftBetween(Annotation mark, const Annotation& moved, double scale)
{
    if (mark.points.empty() || mark.points.size() != moved.points.size())
        return std::nullopt;
    const Size by{moved.points[0].x - mark.points[0].x, moved.points[0].y - mark.points[0].y};
    const QPointF shift(by.width * scale, by.height * scale);
    for (Point& point : mark.points)
        point = {point.x + by.width, point.y + by.height};
    if (mark.curveControl)
        mark.curveControl = {mark.curveControl->x + by.width, mark.curveControl->y + by.height};
    return mark == moved && shift == shift.toPoint() ? std::optional(shift.toPoint()) : std::nullopt;
}

} // namespace

const MarkSprite& MarkSprites::of(const Annotation& mark, double scale, const std::function<MarkSprite()>& drawn)
{
    if (m_kept.size() > most)
        m_kept.clear();
    Kept& kept = m_kept[mark.id];
    const auto shift = kept.scale == scale ? shiftBetween(kept.mark, mark, scale) : std::nullopt;
    if (shift)
        kept.sprite.area.translate(*shift);
    else
        kept = {{}, scale, drawn()};
    kept.mark = mark;
    return kept.sprite;
}

} // namespace Kovrel
