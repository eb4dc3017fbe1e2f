#pragma once

#include <QMargins>
#include <QRectF>
#include <QString>

class QPainter;

namespace Kovrel {

// For what is painted instead of being laid out: the side from which the program's language is read. Everything is said
// as for one that is read from the left. Main thread.
namespace ReadingSide {

// Where a part of a whole belongs: at the other side of it where the language is read from the right.
QRectF placed(const QRectF& part, const QRectF& whole);

// Room around what is in it: more on the other side where the language is read from the right.
QMargins margins(const QMargins& margins);

// A line with the painter's font and pen from the beginning of its room, in its middle, elided where it is too long. It
// keeps the direction of its own words: a path is a path in every language.
void drawLine(QPainter& painter, const QRectF& room, const QString& text, Qt::TextElideMode elision = Qt::ElideRight);

} // namespace ReadingSide

} // namespace Kovrel
