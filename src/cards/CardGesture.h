#pragma once

#include "model/PreviewPosition.h"

#include <QPointF>

namespace Kovrel {

// What a press on a card becomes once the pointer moves. Lengths are points. Stateless.
namespace CardGesture {

enum class Kind {
    none,    // not far enough to tell
    flick,   // towards the near edge of the screen: the card goes with the pointer
    dragOut, // anywhere else: its file
};

constexpr double threshold = 8;
constexpr double flickedAway = 60; // let go beyond this, the card closes

// 1: the near edge is at the right, -1: at the left.
constexpr int edge(PreviewPosition position)
{
    return position == PreviewPosition::topRight || position == PreviewPosition::bottomRight ? 1 : -1;
}

// `way`: from where it was pressed, y down.
Kind of(QPointF way, PreviewPosition position);
// How far the card goes with the pointer; never away from the edge.
double slide(QPointF way, PreviewPosition position);

} // namespace CardGesture

} // namespace Kovrel
