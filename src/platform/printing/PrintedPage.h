#pragma once

#include <QImage>
#include <QRectF>

namespace Kovrel {

// A page with one picture. Any thread.
namespace PrintedPage {

// As large as the page allows, in its middle.
QRectF place(QSize picture, const QRectF& page);

// False where the device takes no page.
bool draw(QPaintDevice& device, const QImage& picture);

} // namespace PrintedPage

} // namespace Kovrel
