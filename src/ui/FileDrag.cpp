#include "ui/FileDrag.h"

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

void FileDrag::run(QObject& source, const Content& content, const QImage& face, double scale)
{
    auto* data = new QMimeData;
    data->setUrls({QUrl::fromLocalFile(content.file)});
    if (!content.png.isEmpty())
        data->setData("image/png", content.png);
    auto* drag = new QDrag(&source);
    drag->setMimeData(data);
    if (!face.isNull()) {
        drag->setPixmap(shown(face, scale));
        drag->setHotSpot({int(drag->pixmap().deviceIndependentSize().width() / 2), 10});
    }
    drag->exec(Qt::CopyAction);
}

} // namespace Kovrel
