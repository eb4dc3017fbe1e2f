#pragma once

#include <QImage>
#include <QRectF>
#include <QString>

class QPainter;

namespace Kovrel {

// What is painted on a card. Lengths are points. Main thread.
namespace CardPainting {

// Where the picture is: in the middle of its room, on whole device pixels.
QRectF place(const QRectF& room, QSize face, double scale);
// With rounded corners; a picture that could not be made shows as a symbol.
void picture(QPainter& painter, const QRectF& room, const QImage& face, double scale, double radius);

// A disc of dark glass with a symbol.
void disc(QPainter& painter, const QRectF& box, const QColor& ground, const QString& symbol, const QColor& color);
// The time that is left, from 1 to 0, clockwise from the top.
void ring(QPainter& painter, const QRectF& box, double remaining);

// A bar of dark glass with a symbol and one line of text, which is elided where there is too little room.
QSizeF pillSize(const QString& text);
void pill(QPainter& painter, const QRectF& box, const QColor& ground, const QString& symbol, const QColor& color,
          const QString& text);

} // namespace CardPainting

} // namespace Kovrel
