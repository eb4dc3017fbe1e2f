#include "ui/FloatingShadow.h"

#include "ui/tokens/SoftShadow.h"
#include "ui/tokens/Theme.h"

#include <QImage>
#include <QPainter>

#include <algorithm>
#include <array>
#include <cmath>
#include <list>

namespace Kovrel {

namespace {

// The shadow of a small card: four corners, and between them what is stretched along its sides.
struct Tile {
    QColor color;
    double radius = 0;
    double scale = 0;
    QImage image;

    bool isFor(const QColor& otherColor, double otherRadius, double otherScale) const
    {
        return color == otherColor && radius == otherRadius && scale == otherScale;
    }
};

// How far a corner reaches into the card; beyond it the shadow is the same all along a side.
double inwards(const SoftShadow& shadow, double radius)
{
    return std::ceil(radius + shadow.drop);
}

Tile makeTile(const SoftShadow& shadow, double radius, double scale)
{
    const double room = SoftShadow::floatingRoom;
    const double side = 2 * inwards(shadow, radius) + 1;
    const double whole = side + 2 * room;
    Tile tile{.color = shadow.layer, .radius = radius, .scale = scale, .image = {}};
    tile.image = QImage((QSizeF(whole, whole) * scale).toSize(), QImage::Format_ARGB32_Premultiplied);
    tile.image.setDevicePixelRatio(scale);
    tile.image.fill(Qt::transparent);
    QPainter painter(&tile.image);
    painter.setRenderHint(QPainter::Antialiasing);
    shadow.paint(painter, {room, room, side, side}, radius);
    return tile;
}

// For displays of different scales, and colours that come back.
constexpr size_t mostTiles = 4;

const Tile& tileFor(const SoftShadow& shadow, double radius, double scale)
{
    static std::list<Tile> tiles; // the latest first
    const auto known =
        std::ranges::find_if(tiles, [&](const Tile& tile) { return tile.isFor(shadow.layer, radius, scale); });
    if (known != tiles.end()) {
        tiles.splice(tiles.begin(), tiles, known);
        return tiles.front();
    }
    tiles.push_front(makeTile(shadow, radius, scale));
    if (tiles.size() > mostTiles)
        tiles.pop_back();
    return tiles.front();
}

// The four lines that part a length into corner, side and corner.
std::array<double, 4> lines(double from, double length, double corner)
{
    return {from, from + corner, from + length - corner, from + length};
}

QRectF cell(const std::array<double, 4>& columns, const std::array<double, 4>& rows, size_t column, size_t row)
{
    return {QPointF(columns[column], rows[row]), QPointF(columns[column + 1], rows[row + 1])};
}

} // namespace

void FloatingShadow::paint(QPainter& painter, const QRectF& card, double radius)
{
    const SoftShadow shadow = SoftShadow::floating(Theme::current().shadow);
    const double scale = painter.device()->devicePixelRatioF();
    const double corner = SoftShadow::floatingRoom + inwards(shadow, radius);
    const double room = SoftShadow::floatingRoom;
    const QRectF whole = card.adjusted(-room, -room, room, room);
    if (whole.width() <= 2 * corner || whole.height() <= 2 * corner) {
        shadow.paint(painter, card, radius);
        return;
    }
    const Tile& tile = tileFor(shadow, radius, scale);
    const double side = tile.image.width();
    const auto fromColumns = lines(0, side, corner * scale);
    const auto columns = lines(whole.left(), whole.width(), corner);
    const auto rows = lines(whole.top(), whole.height(), corner);
    for (const size_t row : {0, 1, 2})
        for (const size_t column : {0, 1, 2})
            if (row != 1 || column != 1)
                painter.drawImage(cell(columns, rows, column, row), tile.image,
                                  cell(fromColumns, fromColumns, column, row));
}

void FloatingShadow::prewarm(double radius, double scale)
{
    tileFor(SoftShadow::floating(Theme::current().shadow), radius, scale);
}

} // namespace Kovrel
