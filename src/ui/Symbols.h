#pragma once

#include <QColor>
#include <QIcon>
#include <QRectF>
#include <QString>

class QPainter;

namespace Kovrel {

// The small symbols of toasts and buttons, drawn as lines so that they are sharp at every scale.
namespace Symbols {

// What stands before notices; the first one also says that something went wrong.
constexpr QLatin1String warning("exclamationmark.triangle");
constexpr QLatin1String information("info.circle");

// A name that has no drawing of its own is shown as a dot.
void paint(QPainter& painter, const QString& name, const QRectF& box, const QColor& color);

// Sharp at every size and scale, in the colours of the palette of the moment.
QIcon icon(const QString& name);

} // namespace Symbols

} // namespace Kovrel
