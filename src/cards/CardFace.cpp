#include "cards/CardFace.h"

#include <QPainter>

#include <algorithm>
#include <cmath>
#include <thread>

namespace Kovrel {

namespace {

constexpr qint64 largePicture = 2'000'000; // pixels

QImage smoothly(const QImage& image, QSize size)
{
    return image.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

// Its pixels, shared; it must not outlive the picture.
QImage part(const QImage& image, const QRect& rect)
{
    const uchar* first = image.constScanLine(rect.y()) + qsizetype(rect.x()) * image.depth() / 8;
    return {first, rect.width(), rect.height(), image.bytesPerLine(), image.format()};
}

// Where the middle of a side is a whole pixel before and after, each half can be made without the other.
std::optional<Qt::Orientation> seam(QSize from, QSize to)
{
    if (from.width() % 2 == 0 && to.width() % 2 == 0)
        return Qt::Vertical;
    if (from.height() % 2 == 0 && to.height() % 2 == 0)
        return Qt::Horizontal;
    return std::nullopt;
}

// Two threads, a half each.
QImage inHalves(const QImage& image, QSize size, Qt::Orientation seam)
{
    const auto half = [seam](QSize whole, int index) {
        const QSize size =
            seam == Qt::Vertical ? QSize(whole.width() / 2, whole.height()) : QSize(whole.width(), whole.height() / 2);
        const QPoint at = seam == Qt::Vertical ? QPoint(size.width(), 0) : QPoint(0, size.height());
        return QRect(at * index, size);
    };
    const auto make = [&](int index) {
        return smoothly(part(image, half(image.size(), index)), half(size, index).size());
    };
    QImage second;
    std::jthread helper([&] { second = make(1); });
    const QImage first = make(0);
    helper.join();
    QImage whole(size, first.format());
    QPainter painter(&whole);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.drawImage(half(size, 0), first);
    painter.drawImage(half(size, 1), second);
    return whole;
}

QImage scaled(const QImage& image, QSize size)
{
    const bool isLarge = qint64(image.width()) * image.height() >= largePicture && image.depth() == 32;
    const auto middle = isLarge ? seam(image.size(), size) : std::nullopt;
    return middle ? inHalves(image, size, *middle) : smoothly(image, size);
}

} // namespace

QSizeF CardFace::cardSize(QSize pixels)
{
    const double pictureWidth = width - 2 * frame;
    const double shape = pixels.isEmpty() ? 0 : double(pixels.height()) / pixels.width();
    return {width, std::round(std::clamp(pictureWidth * shape + 2 * frame, leastHeight, mostHeight))};
}

QSize CardFace::room(QSizeF card, double scale)
{
    return {int((card.width() - 2 * frame) * scale), int((card.height() - 2 * frame) * scale)};
}

QImage CardFace::render(const QImage& capture, double pixelScale, QSizeF card, double scale)
{
    if (capture.isNull())
        return {};
    const QSize room = CardFace::room(card, scale);
    const QSizeF natural = QSizeF(capture.size()) / pixelScale * scale;
    const QSize fitted = natural.toSize().boundedTo(natural.scaled(room, Qt::KeepAspectRatio).toSize());
    return scaled(capture, fitted.expandedTo({1, 1}));
}

} // namespace Kovrel
