#include "cards/panels/CardDrag.h"

#include <QDrag>
#include <QMimeData>
#include <QPixmap>
#include <QUrl>

namespace Kovrel {

namespace {

constexpr double shownSize = 120; // points, of the longer side

QPixmap shown(const QImage& face, double scale)
{
    const QSize size = (QSizeF(shownSize, shownSize) * scale).toSize();
    QPixmap picture = QPixmap::fromImage(face.scaled(size, Qt::KeepAspectRatio, Qt::SmoothTransformation));
    picture.setDevicePixelRatio(scale);
    return picture;
}

} // namespace

void CardDrag::run(QObject& source, const QString& file, const QImage& face, double scale)
{
    auto* data = new QMimeData;
    data->setUrls({QUrl::fromLocalFile(file)});
    auto* drag = new QDrag(&source);
    drag->setMimeData(data);
    if (!face.isNull()) {
        drag->setPixmap(shown(face, scale));
        drag->setHotSpot({int(drag->pixmap().deviceIndependentSize().width() / 2), 10});
    }
    drag->exec(Qt::CopyAction);
}

} // namespace Kovrel
