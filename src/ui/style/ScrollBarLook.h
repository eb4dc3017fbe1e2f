#pragma once

#include <QStyle>

class QPainter;
class QStyleOptionSlider;

namespace Kovrel {

// Scroll bars of Kovrel's windows, the same on every desktop: a slim handle and nothing else. Points of the bar, origin
// upper left. Main thread.
namespace ScrollBarLook {

constexpr int extent = 12; // across

// Where that part of a bar is; empty for the parts that it does not have.
QRect partOf(const QStyleOptionSlider& bar, QStyle::SubControl part);
void paint(QPainter& painter, const QStyleOptionSlider& bar);

} // namespace ScrollBarLook

} // namespace Kovrel
