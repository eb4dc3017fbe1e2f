#include "platform/wallpaper/Wallpaper.h"

#include <QFileInfo>
#include <QImageReader>
#include <QLinearGradient>
#include <QPainter>

namespace Kovrel {

namespace {

QBrush ground(const Wallpaper& wallpaper)
{
    if (!wallpaper.gradient)
        return wallpaper.colour;
    QLinearGradient gradient(0, 0, *wallpaper.gradient == Qt::Horizontal, *wallpaper.gradient == Qt::Vertical);
    gradient.setCoordinateMode(QGradient::ObjectMode);
    gradient.setColorAt(0, wallpaper.colour);
    gradient.setColorAt(1, wallpaper.otherColour);
    return gradient;
}

// Where a picture that fills a rectangle lies, reaching over it on one side or leaving some of it free.
QRect fitted(QSize picture, const QRect& rect, Qt::AspectRatioMode mode)
{
    QRect place({}, picture.scaled(rect.size(), mode));
    place.moveCenter(rect.center());
    return place;
}

QRect centred(QSize picture, const QRect& rect)
{
    return {rect.topLeft() + QPoint((rect.width() - picture.width()) / 2, (rect.height() - picture.height()) / 2),
            picture};
}

QRect placeOf(QSize picture, Wallpaper::Fit fit, const QRect& display, const QRect& desktop)
{
    switch (fit) {
    case Wallpaper::Fit::tiled:
        break;
    case Wallpaper::Fit::centred:
        return centred(picture, display);
    case Wallpaper::Fit::contained:
        return fitted(picture, display, Qt::KeepAspectRatio);
    case Wallpaper::Fit::stretched:
        return display;
    case Wallpaper::Fit::covering:
        return fitted(picture, display, Qt::KeepAspectRatioByExpanding);
    case Wallpaper::Fit::spanned:
        return fitted(picture, desktop, Qt::KeepAspectRatioByExpanding);
    }
    return {display.topLeft(), picture};
}

std::optional<QImage> decoded(const QString& path)
{
    QImageReader reader(path);
    reader.setAutoTransform(true);
    QImage picture = reader.read();
    return picture.isNull() ? std::nullopt : std::optional(std::move(picture));
}

} // namespace

std::optional<QImage> Wallpaper::painted(const QRect& display, const QRect& desktop) const
{
    QImage image(display.size(), QImage::Format_RGB32);
    QPainter painter(&image);
    painter.fillRect(image.rect(), ground(*this));
    painter.translate(-display.topLeft());
    // Desktops show the colour alone where the file is not there.
    if (!QFileInfo(path).isFile())
        return image;
    const auto picture = decoded(path);
    if (!picture)
        return {};
    if (fit == Fit::tiled) {
        painter.fillRect(display, QBrush(*picture));
        return image;
    }
    const QRect place = placeOf(picture->size(), fit, display, desktop);
    painter.drawImage(place.topLeft(), picture->scaled(place.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    return image;
}

} // namespace Kovrel
