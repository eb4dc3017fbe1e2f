#pragma once

#include "editor/marks/Annotation.h"
#include "editor/marks/MeasureInk.h"

#include <optional>
#include <span>
#include <vector>

namespace Kovrel {

// Which mark a pointer means. Image points, y up. Pure; any thread.
namespace MarkHit {

// From below, as they are drawn: places of the list.
std::vector<size_t> drawingOrder(std::span<const Annotation> marks);

// The topmost mark whose ink is there. A mark above it whose ink is within `tolerance` comes first, the nearest of
// them, or thin lines could not be hit. Else the smallest of those that are hollow there: an outline does not swallow
// what lies in it.
std::optional<size_t> topmost(std::span<const Annotation> marks, Point point, double tolerance,
                              const MeasureInk::Reading& reading = {});

// Whether a mark's ink is there or so near; an outline's inside is not its ink.
bool isOnInk(const Annotation& mark, Point point, double tolerance, const MeasureInk::Reading& reading = {});

// Those whose bounds touch a rectangle that somebody has dragged.
std::vector<size_t> touching(std::span<const Annotation> marks, const Rect& area);

} // namespace MarkHit

} // namespace Kovrel
