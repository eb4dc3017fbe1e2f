#include "capture/selection/SelectionScene.h"

#include "overlay/OverlayMetrics.h"

#include <QCoreApplication>

namespace Kovrel {

namespace {

using Kind = OverlayDecoration::Kind;
using OverlayMetrics::pixels;

// All in points.
constexpr double handleRadius = 4;
constexpr double labelGap = 8;
constexpr double hintFromBottom = 64;
constexpr double magnifierPixel = 8;
constexpr double magnifierGap = 20;

QRect centredAt(QPoint middle, QSize size)
{
    return {middle - QPoint(size.width() / 2, size.height() / 2), size};
}

// Moved as little as possible to lie within.
QRect keptWithin(QRect rect, const QRect& room)
{
    if (rect.right() > room.right())
        rect.moveRight(room.right());
    if (rect.bottom() > room.bottom())
        rect.moveBottom(room.bottom());
    if (rect.left() < room.left())
        rect.moveLeft(room.left());
    if (rect.top() < room.top())
        rect.moveTop(room.top());
    return rect;
}

// Under the rectangle, or over it, or inside of it: where there is room.
QRect besideArea(const QRect& area, QSize size, int gap, const QRect& room)
{
    QRect label({}, size);
    label.moveTopLeft({area.center().x() - size.width() / 2, area.y() + area.height() + gap});
    if (label.bottom() > room.bottom())
        label.moveTop(area.y() - gap - size.height());
    if (label.top() < room.top())
        label.moveTop(area.y() + area.height() - gap - size.height());
    return keptWithin(label, room);
}

// To the lower right of the pointer; on the other side where there is no room.
QRect besidePointer(QPoint pointer, int side, int gap, const QRect& room)
{
    QRect rect(pointer + QPoint(gap, gap), QSize(side, side));
    if (rect.right() > room.right())
        rect.moveRight(pointer.x() - gap);
    if (rect.bottom() > room.bottom())
        rect.moveBottom(pointer.y() - gap);
    return rect;
}

class Builder {
public:
    Builder(const Display& display, const SelectionScene::Moment& moment)
        : m_display(display), m_scale(display.scale), m_moment(moment)
    {
    }

    OverlayScene build()
    {
        if (m_moment.isWindowMode)
            addWindows();
        else
            addArea();
        if (m_moment.showsHint && !m_moment.isDragging && holdsPointer())
            addHint();
        return m_scene;
    }

private:
    bool holdsPointer() const { return m_moment.pointer && m_display.pixelRect.contains(*m_moment.pointer); }

    void add(Kind kind, const QRect& rect, const QString& text = {}, QPoint pixel = {})
    {
        const OverlayDecoration decoration{kind, rect, m_scale, text, pixel};
        if (decoration.region().intersects(m_display.pixelRect))
            m_scene.decorations.push_back(decoration);
    }

    void addWindows()
    {
        m_scene.lit = m_moment.windowsInSight & m_display.pixelRect;
        for (const QRect& window : m_moment.windows)
            add(Kind::windowFrame, window);
    }

    void addArea()
    {
        const bool isSelected = m_moment.area && !m_moment.area->isEmpty();
        if (isSelected) {
            const QRect area = *m_moment.area;
            m_scene.lit = area & m_display.pixelRect;
            add(Kind::areaFrame, area);
            const int knob = 2 * pixels(handleRadius, m_scale) + 1;
            for (const QPoint corner : {area.topLeft(), area.topRight(), area.bottomLeft(), area.bottomRight()})
                add(Kind::handle, centredAt(corner, {knob, knob}));
        }
        if (!holdsPointer())
            return;
        if (isSelected)
            addSizeLabel(*m_moment.area);
        const int side = pixels(magnifierPixel, m_scale) * (2 * OverlayMetrics::magnifierReach + 1);
        add(Kind::magnifier, besidePointer(*m_moment.pointer, side, pixels(magnifierGap, m_scale), m_display.pixelRect),
            {}, *m_moment.pointer);
    }

    void addSizeLabel(const QRect& area)
    {
        const QString text = QString("%1 \u00d7 %2").arg(area.width()).arg(area.height());
        const QSize size = OverlayMetrics::pillSize(Kind::sizeLabel, text, m_scale);
        add(Kind::sizeLabel, besideArea(area, size, pixels(labelGap, m_scale), m_display.pixelRect), text);
    }

    void addHint()
    {
        const QString text =
            m_moment.isWindowMode
                ? QCoreApplication::translate(
                      "SelectionScene",
                      "Click a window to capture it  \u00b7  Space to drag instead  \u00b7  Esc to cancel")
                : QCoreApplication::translate(
                      "SelectionScene", "Drag to select an area  \u00b7  Space for a window  \u00b7  Esc to cancel");
        const QSize size = OverlayMetrics::pillSize(Kind::hint, text, m_scale);
        const QRect& room = m_display.pixelRect;
        const int fromBottom = pixels(hintFromBottom, m_scale);
        add(Kind::hint,
            QRect({room.center().x() - size.width() / 2, room.y() + room.height() - fromBottom - size.height()}, size),
            text);
    }

    const Display& m_display;
    double m_scale;
    const SelectionScene::Moment& m_moment;
    OverlayScene m_scene;
};

} // namespace

OverlayScene SelectionScene::of(const Display& display, const Moment& moment)
{
    return Builder(display, moment).build();
}

} // namespace Kovrel
