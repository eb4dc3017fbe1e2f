#pragma once

#include <QRect>
#include <QString>

class QPainter;

namespace Kovrel {

// One line of a text that somebody else has written, as a name. Main thread.
namespace LineOfText {

// Where lines begin in that layout, elided where its own reading ends, whatever the layout's.
void paint(QPainter& painter, const QRect& place, const QString& text, Qt::TextElideMode mode,
           Qt::LayoutDirection layout);

} // namespace LineOfText

} // namespace Kovrel
