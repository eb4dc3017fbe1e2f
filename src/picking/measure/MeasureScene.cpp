#include "picking/measure/MeasureScene.h"

#include "model/text/MeasureText.h"
#include "overlay/OverlayMetrics.h"
#include "overlay/OverlayPlacement.h"

#include <algorithm>

namespace Kovrel {

namespace {

using Kind = OverlayDecoration::Kind;
using OverlayMetrics::pixels;

// In points.
constexpr double tickLength = 11;
constexpr double labelGap = 6;

// What is taken along a line already: there the other line crosses it, or another label lies.
struct Taken {
    int from = 0;
    int to = 0;
};

// Where a label of some length begins along a line: in the middle of its longer free part, else beyond one of its ends.
int labelStart(const MeasureSampler::Run& run, const Taken& taken, int length, int gap, int end)
{
    const int before = taken.from - run.lower;
    const int after = run.upper - taken.to;
    if (std::max(before, after) >= length + 2 * gap)
        return after >= before ? taken.to + (after - length) / 2 : run.lower + (before - length) / 2;
    const int beyond = std::max(run.upper + gap, taken.to);
    return beyond + length <= end ? beyond : std::min(run.lower - gap, taken.from) - length;
}

class Builder {
public:
    Builder(const Display& display, const MeasureScene::Moment& moment)
        : m_display(display), m_scale(display.scale), m_moment(moment)
    {
    }

    OverlayScene build()
    {
        if (m_moment.rect)
            addRect(*m_moment.rect);
        else if (m_moment.cross)
            addCross(*m_moment.cross);
        if (!m_moment.hint.isEmpty())
            m_scene.decorations.push_back(OverlayMetrics::hint(m_moment.hint, m_display));
        return m_scene;
    }

private:
    void add(Kind kind, const QRect& rect, const QString& text = {})
    {
        m_scene.decorations.push_back({kind, rect.translated(m_display.pixelRect.topLeft()), m_scale, text});
    }

    void addCross(const MeasureReading::Cross& cross)
    {
        const int line = pixels(1, m_scale);
        const int tick = pixels(tickLength, m_scale) | 1;
        const QRect row(cross.row.lower, cross.at.y() - line / 2, cross.row.length(), line);
        const QRect column(cross.at.x() - line / 2, cross.column.lower, line, cross.column.length());
        const int left = cross.at.x() - tick / 2;
        const int top = cross.at.y() - tick / 2;
        add(Kind::guide, row);
        add(Kind::guide, column);
        for (const int x : {cross.row.lower, cross.row.upper + 1 - line})
            add(Kind::guide, {x, top, line, tick});
        for (const int y : {cross.column.lower, cross.column.upper + 1 - line})
            add(Kind::guide, {left, y, tick, line});
        addLengths(cross);
    }

    // Neither label lies on the other: the one of the column keeps clear of the row's.
    void addLengths(const MeasureReading::Cross& cross)
    {
        const int gap = pixels(labelGap, m_scale);
        const QString width = MeasureText::length(cross.row.length(), m_moment.unit, m_scale);
        const QSize rowSize = OverlayMetrics::pillSize(Kind::sizeLabel, width, m_scale);
        const int x = labelStart(cross.row, {cross.at.x() - gap, cross.at.x() + gap}, rowSize.width(), gap,
                                 m_display.pixelRect.width());
        const QRect row = OverlayPlacement::keptWithin({{x, cross.at.y() - rowSize.height() / 2}, rowSize}, room());
        add(Kind::sizeLabel, row, width);

        const QString height = MeasureText::length(cross.column.length(), m_moment.unit, m_scale);
        const QSize columnSize = OverlayMetrics::pillSize(Kind::sizeLabel, height, m_scale);
        const int y = labelStart(cross.column, {row.top() - gap, row.bottom() + gap}, columnSize.height(), gap,
                                 m_display.pixelRect.height());
        const QPoint column(cross.at.x() - columnSize.width() / 2, y);
        add(Kind::sizeLabel, OverlayPlacement::keptWithin({column, columnSize}, room()), height);
    }

    void addRect(const QRect& rect)
    {
        const QString text = MeasureText::size(rect.size(), m_moment.unit, m_scale);
        const QSize size = OverlayMetrics::pillSize(Kind::sizeLabel, text, m_scale);
        add(Kind::areaFrame, rect);
        add(Kind::sizeLabel, OverlayPlacement::besideArea(rect, size, pixels(labelGap, m_scale), room()), text);
    }

    // In pixels of the picture.
    QRect room() const { return {{}, m_display.pixelRect.size()}; }

    const Display& m_display;
    double m_scale;
    const MeasureScene::Moment& m_moment;
    OverlayScene m_scene;
};

} // namespace

OverlayScene MeasureScene::of(const Display& display, const Moment& moment)
{
    return Builder(display, moment).build();
}

} // namespace Kovrel
