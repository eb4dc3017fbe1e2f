#pragma once

#include <QRect>
#include <QString>

class QColor;
class QPainter;

namespace Kovrel {

// What a control says that opens something: its text where lines begin, a chevron where they end. Main thread.
namespace ChevronLine {

constexpr int chevronSide = 9;

// In the painter's font. `symbol`: the chevron's.
void paint(QPainter& painter, const QRect& place, const QString& text, const QColor& color, const QString& symbol,
           const QColor& symbolColor, Qt::LayoutDirection direction);

} // namespace ChevronLine

} // namespace Kovrel
