#include "platform/printing/PrintedPage.h"

#include <QPainter>

namespace Kovrel {

QRectF PrintedPage::place(QSize picture, const QRectF& page)
{
    QRectF place({}, QSizeF(picture).scaled(page.size(), Qt::KeepAspectRatio));
    place.moveCenter(page.center());
    return place;
}

bool PrintedPage::draw(QPaintDevice& device, const QImage& picture)
{
    QPainter painter;
    if (!painter.begin(&device))
        return false;
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(place(picture.size(), painter.viewport()), picture);
    return painter.end();
}

} // namespace Kovrel
