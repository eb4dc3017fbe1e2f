#pragma once

#include <QPainterPath>

#include <vector>

class QPainter;

namespace Kovrel {

// The small faint shadow around labels, steps and arrows, by which white ones are seen on white. It lies close around
// the ink on all sides, so it has no part in where a mark is hit or how far a picture grows. Any thread.
namespace MarkShadow {

// How far it reaches around the ink, in image points.
constexpr double reach = 1.5;

// Draws the shadow of ink that comes next, in target points. The painter smooths edges.
void draw(QPainter& painter, const std::vector<QPainterPath>& ink, double scale);

} // namespace MarkShadow

} // namespace Kovrel
