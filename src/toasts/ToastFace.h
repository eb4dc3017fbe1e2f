#pragma once

#include "model/ToastContent.h"

#include <QRectF>

class QPainter;

namespace Kovrel {

// What is seen on the card of a toast. Stateless; lengths are points.
namespace ToastFace {

// `turn`: how far the spinner has turned, 0 to 1.
void paint(QPainter& painter, const QRectF& card, const ToastContent& content, double turn);

// The button that closes the card, around a point.
constexpr double closeSize = 20;
void paintCloseButton(QPainter& painter, QPointF centre, bool isUnderPointer);

} // namespace ToastFace

} // namespace Kovrel
