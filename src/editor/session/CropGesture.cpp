#include "editor/session/CropGesture.h"

#include "editor/crop/CropShapes.h"

#include <algorithm>
#include <cmath>

namespace Kovrel {

namespace {

// Handles work on marks; this one is only a box.
Annotation boxOf(const Rect& rect)
{
    return {.kind = Annotation::Kind::blackout, .points = {{rect.minX(), rect.minY()}, {rect.maxX(), rect.maxY()}}};
}

Point within(const Rect& canvas, Point point)
{
    return {std::clamp(point.x, canvas.minX(), canvas.maxX()), std::clamp(point.y, canvas.minY(), canvas.maxY())};
}

// How much of a length that reaches from a fixed place fits between two bounds.
double shareThatFits(double fixed, double low, double high, double least, double most)
{
    double share = 1;
    if (low < least)
        share = std::min(share, (fixed - least) / (fixed - low));
    if (high > most)
        share = std::min(share, (most - fixed) / (high - fixed));
    return share;
}

// Smaller, in its shape, with a place that stays.
Rect shrunkInto(const Rect& canvas, const Rect& rect, Point fixed)
{
    const double share = std::min(shareThatFits(fixed.x, rect.minX(), rect.maxX(), canvas.minX(), canvas.maxX()),
                                  shareThatFits(fixed.y, rect.minY(), rect.maxY(), canvas.minY(), canvas.maxY()));
    return {fixed.x + (rect.x - fixed.x) * share, fixed.y + (rect.y - fixed.y) * share, rect.width * share,
            rect.height * share};
}

} // namespace

CropGesture::CropGesture(const EditorDocument& start, const CanvasPointer& pointer, Frame frame)
    : m_start(start),
      m_frame(frame),
      m_crop(start.composition.crop.value_or(frame.canvas)),
      m_from(within(frame.canvas, pointer.at)),
      m_handle(handleAt(m_crop, pointer))
{
    m_isNew = !m_handle && (!start.composition.crop || !m_crop.contains(pointer.at));
}

std::optional<MarkHandle> CropGesture::handleAt(const Rect& crop, const CanvasPointer& pointer)
{
    return MarkHandles::at(boxOf(crop), pointer.at, pointer.handleReach(), pointer.turnDistance());
}

EditorDocument CropGesture::moved(const CanvasPointer& pointer)
{
    const Rect crop = m_isNew ? drawn(pointer) : m_handle ? dragged(pointer) : moved(pointer.at);
    EditorDocument next = m_start;
    next.composition.crop = CropShapes::onPixels(crop, m_frame.canvas, m_frame.scale);
    return next;
}

Rect CropGesture::dragged(const CanvasPointer& pointer) const
{
    const bool keepsShape = pointer.shift || m_frame.aspect;
    const Annotation box = MarkHandles::dragged(boxOf(m_crop), *m_handle, within(m_frame.canvas, pointer.at),
                                                {.keepsShape = keepsShape, .fromCentre = pointer.alt});
    const Rect rect = box.boundingRect();
    const Point direction = MarkHandles::direction(*m_handle);
    const Point opposite{m_crop.x + m_crop.width * (1 - direction.x) / 2,
                         m_crop.y + m_crop.height * (1 - direction.y) / 2};
    return keepsShape ? shrunkInto(m_frame.canvas, rect, pointer.alt ? m_crop.centre() : opposite) : rect;
}

Rect CropGesture::drawn(const CanvasPointer& pointer) const
{
    const Point to = within(m_frame.canvas, pointer.at);
    double width = to.x - m_from.x;
    double height = to.y - m_from.y;
    if (const auto aspect = pointer.shift ? std::optional(1.0) : m_frame.aspect) {
        const double wide = std::max(std::abs(width), std::abs(height) * *aspect);
        width = std::copysign(wide, width);
        height = std::copysign(wide / *aspect, height);
    }
    const Rect rect{std::min(m_from.x, m_from.x + width), std::min(m_from.y, m_from.y + height), std::abs(width),
                    std::abs(height)};
    return shrunkInto(m_frame.canvas, rect, m_from);
}

Rect CropGesture::moved(Point to) const
{
    const Rect& canvas = m_frame.canvas;
    const double x = m_crop.x + to.x - m_from.x;
    const double y = m_crop.y + to.y - m_from.y;
    return {std::clamp(x, canvas.minX(), canvas.maxX() - m_crop.width),
            std::clamp(y, canvas.minY(), canvas.maxY() - m_crop.height), m_crop.width, m_crop.height};
}

} // namespace Kovrel
