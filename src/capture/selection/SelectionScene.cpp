#include "capture/selection/SelectionScene.h"

#include "overlay/OverlayMetrics.h"
#include "overlay/OverlayPlacement.h"

#include <QCoreApplication>

namespace Kovrel {

namespace {

using Kind = OverlayDecoration::Kind;
using OverlayMetrics::pixels;

// All in points.
constexpr double handleRadius = 4;
constexpr double labelGap = 8;
constexpr double magnifierPixel = 8;
constexpr int magnifiedPixels = 15; // in a row
constexpr double magnifierGap = 20;

QRect centredAt(QPoint middle, QSize size)
{
    return {middle - QPoint(size.width() / 2, size.height() / 2), size};
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

    void add(Kind kind, const QRect& rect, const QString& text = {})
    {
        const OverlayDecoration decoration{kind, rect, m_scale, text};
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
        addMagnifier(*m_moment.pointer);
    }

    void addSizeLabel(const QRect& area)
    {
        const QString text = QString("%1 \u00d7 %2").arg(area.width()).arg(area.height());
        const QSize size = OverlayMetrics::pillSize(Kind::sizeLabel, text, m_scale);
        add(Kind::sizeLabel, OverlayPlacement::besideArea(area, size, pixels(labelGap, m_scale), m_display.pixelRect),
            text);
    }

    void addMagnifier(QPoint pointer)
    {
        const int cell = pixels(magnifierPixel, m_scale);
        const QSize size = cell * QSize(magnifiedPixels, magnifiedPixels);
        m_scene.decorations.push_back(
            {.kind = Kind::magnifier,
             .rect = OverlayPlacement::besidePointer(pointer, size, pixels(magnifierGap, m_scale), m_display.pixelRect),
             .scale = m_scale,
             .pixel = pointer,
             .cell = cell});
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
        m_scene.decorations.push_back(OverlayMetrics::hint(text, m_display));
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
