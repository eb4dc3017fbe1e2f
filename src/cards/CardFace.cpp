#include "cards/CardFace.h"

#include <algorithm>
#include <cmath>

namespace Kovrel {

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
    // The toolkit shares a large picture out among the cores.
    return capture.scaled(fitted.expandedTo({1, 1}), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

} // namespace Kovrel
