#pragma once

namespace Kovrel {

// Lengths that windows have in common, in points.
namespace Spacing {

constexpr int tight = 2;
constexpr int small = 8;
constexpr int medium = 14;
constexpr int large = 18;
constexpr int window = 28; // from a window's edge to what is in it

} // namespace Spacing

namespace Radius {

constexpr double control = 8;
constexpr double group = 12; // cards and notices within a window
constexpr double card = 16;

} // namespace Radius

namespace Stroke {

constexpr double hairline = 1;
constexpr double focusRing = 2;

} // namespace Stroke

} // namespace Kovrel
