#pragma once

#include <QColor>
#include <QRectF>
#include <QString>

class QPainter;

namespace Kovrel {

// The small symbols of toasts and buttons, drawn as lines so that they are sharp at every scale.
namespace Symbols {

// What says that something went wrong.
constexpr QLatin1String warning("exclamationmark.triangle");

// A name that has no drawing of its own is shown as a dot.
void paint(QPainter& painter, const QString& name, const QRectF& box, const QColor& color);

} // namespace Symbols

} // namespace Kovrel
