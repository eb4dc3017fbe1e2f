#include "picking/LoupeScene.h"

#include "overlay/OverlayMetrics.h"
#include "overlay/OverlayPlacement.h"

#include <algorithm>
#include <array>

namespace Kovrel {

namespace {

using Kind = OverlayDecoration::Kind;
using OverlayMetrics::pixels;

// In points.
constexpr double plateSide = 153; // 17 pixels at the usual zoom
constexpr double pointerGap = 14;
constexpr double labelGap = 10;
constexpr std::array<double, LoupeScene::zooms> cells{5, 7, 9, 13, 17};

QRect centredOn(const QRect& column, int top, QSize size)
{
    return {{column.x() + (column.width() - size.width()) / 2, top}, size};
}

} // namespace

OverlayScene LoupeScene::of(const Display& display, const Moment& moment)
{
    if (!display.pixelRect.contains(moment.pointer))
        return {};
    const double scale = display.scale;
    const int side = pixels(plateSide, scale);
    const int gap = pixels(labelGap, scale);
    const QSize label = OverlayMetrics::pillSize(Kind::colorLabel, moment.widest, scale);
    const QSize size(std::max(side, label.width()), side + gap + label.height());
    const QRect block =
        OverlayPlacement::besidePointer(moment.pointer, size, pixels(pointerGap, scale), display.pixelRect);
    const OverlayDecoration plate{.kind = Kind::loupe,
                                  .rect = centredOn(block, block.y(), {side, side}),
                                  .scale = scale,
                                  .pixel = moment.pointer,
                                  .cell = pixels(cells[size_t(moment.zoom)], scale)};
    const OverlayDecoration text{.kind = Kind::colorLabel,
                                 .rect = centredOn(block, block.y() + side + gap, label),
                                 .scale = scale,
                                 .text = moment.text,
                                 .color = moment.color};
    return {.lit = {}, .decorations = {plate, text}};
}

} // namespace Kovrel
