#include "editor/backdrop/ShadowTile.h"

#include "imaging/GaussianBlur.h"

#include <QPainterPath>

#include <algorithm>
#include <array>
#include <cmath>

namespace Kovrel {

namespace {

using Layers = std::vector<BackdropLayout::ShadowLayer>;

// A Gaussian of the blur's exactness has ended there.
constexpr double reachInSigmas = 3.5;

int reachOf(const Layers& layers)
{
    double reach = 0;
    for (const auto& layer : layers)
        reach = std::max(reach, reachInSigmas * layer.sigma + std::max(std::abs(layer.x), std::abs(layer.y)));
    return int(std::ceil(reach)) + 1;
}

// The shortest side along whose middle a shadow is the same everywhere: one pixel between two corners.
int leastStretchable(double radius, int reach)
{
    return 2 * (int(std::ceil(radius)) + reach) + 1;
}

QSize tileShape(QSize size, double radius, int reach)
{
    const int least = leastStretchable(radius, reach);
    return size.boundedTo({least, least});
}

QImage drawnShape(QSize canvas, const QRectF& rect, double radius)
{
    QImage image(canvas, QImage::Format_Alpha8);
    image.fill(0);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    QPainterPath path;
    path.addRoundedRect(rect, radius, radius);
    painter.fillPath(path, Qt::black);
    return image;
}

// Takes away what lies wholly inside the shape. A pixel that the shape's edge crosses keeps its shadow, for the part of
// it that is outside; the capture is drawn over the rest.
void clearInside(QImage& image, const QImage& shape)
{
    for (int y = 0; y < image.height(); ++y) {
        auto* const pixels = reinterpret_cast<QRgb*>(image.scanLine(y));
        const uchar* const covered = shape.constScanLine(y);
        for (int x = 0; x < image.width(); ++x)
            if (covered[x] == 255)
                pixels[x] = 0;
    }
}

// One of the nine parts along an axis: where it is drawn and where in the tile it comes from.
struct Part {
    int to;
    int length;
    int from;
    int fromLength;

    bool isStretched() const { return length != fromLength; }
};

std::array<Part, 3> partsOf(int start, int length, int shape, int padded)
{
    const int end = padded + shape / 2; // a corner with what is around it
    const int tileEnd = padded + shape - shape / 2;
    const int middle = length - 2 * (shape / 2);
    return {Part{start - padded, end, 0, end}, Part{start - padded + end, middle, end, shape % 2},
            Part{start - padded + end + middle, end, tileEnd, end}};
}

void drawPart(QPainter& painter, const QImage& tile, const Part& row, const Part& column)
{
    const bool isInside = row.isStretched() && column.isStretched();
    if (!isInside && row.length > 0 && column.length > 0)
        painter.drawImage(QRect(column.to, row.to, column.length, row.length), tile,
                          QRect(column.from, row.from, column.fromLength, row.fromLength));
}

} // namespace

ShadowTile ShadowTile::rendered(QSize size, double radius, const Layers& layers)
{
    const int reach = reachOf(layers);
    ShadowTile tile{.shape = tileShape(size, radius, reach), .radius = radius, .layers = layers, .padded = reach};
    const QRect rect({reach, reach}, tile.shape);
    const QSize canvas = tile.shape.grownBy({reach, reach, reach, reach});
    tile.image = QImage(canvas, QImage::Format_ARGB32_Premultiplied);
    if (tile.image.isNull())
        return tile;
    tile.image.fill(Qt::transparent);
    QPainter painter(&tile.image);
    for (const auto& layer : layers) {
        const QImage shape = drawnShape(canvas, QRectF(rect).translated(layer.x, layer.y), radius);
        painter.setOpacity(layer.opacity);
        painter.drawImage(0, 0, GaussianBlur::blurred(shape, layer.sigma, GaussianBlur::Edges::transparent));
    }
    painter.end();
    clearInside(tile.image, drawnShape(canvas, rect, radius));
    return tile;
}

bool ShadowTile::serves(QSize size, double cornerRadius, const Layers& wanted) const
{
    return radius == cornerRadius && layers == wanted && shape == tileShape(size, radius, padded);
}

void ShadowTile::drawOutside(QPainter& painter, const QRect& rect, double opacity) const
{
    painter.save();
    painter.setOpacity(opacity);
    painter.setRenderHint(QPainter::SmoothPixmapTransform, false);
    for (const Part& row : partsOf(rect.y(), rect.height(), shape.height(), padded))
        for (const Part& column : partsOf(rect.x(), rect.width(), shape.width(), padded))
            drawPart(painter, image, row, column);
    painter.restore();
}

const ShadowTile& ShadowTileCache::tile(QSize size, double radius, const Layers& layers)
{
    if (!m_tile || !m_tile->serves(size, radius, layers))
        m_tile = ShadowTile::rendered(size, radius, layers);
    return *m_tile;
}

} // namespace Kovrel
