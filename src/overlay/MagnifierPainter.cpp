#include "overlay/MagnifierPainter.h"

#include "overlay/OverlayMetrics.h"
#include "ui/tokens/OverlayTokens.h"

#include <cmath>

namespace Kovrel {

namespace {

using namespace OverlayTokens;

constexpr double smallestGrid = 6; // points of a cell: finer, it would hide what it divides

QImage canvas(QSize size)
{
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    return image;
}

// The cell of the pixel in the middle.
QRect middleCell(QSize size, int cell)
{
    return {(size.width() - cell) / 2, (size.height() - cell) / 2, cell, cell};
}

// As many cells on each side of the middle as begin within the lens.
int reachOf(QSize size, int cell)
{
    return (middleCell(size, cell).x() + cell - 1) / cell;
}

// All cells, also the parts of them that lie outside of the lens.
QRect cellsOf(QSize size, int cell)
{
    const int beside = reachOf(size, cell) * cell;
    return middleCell(size, cell).adjusted(-beside, -beside, beside, beside);
}

void drawGrid(QPainter& painter, const QRect& cells, int cell)
{
    for (int at = cell; at < cells.width(); at += cell) {
        painter.fillRect(cells.x() + at, cells.y(), 1, cells.height(), magnifierGrid);
        painter.fillRect(cells.x(), cells.y() + at, cells.width(), 1, magnifierGrid);
    }
}

// Framed twice from outside, so that it stands out from any colour and is seen whole.
void drawMiddle(QPainter& painter, const QRect& cell, double scale)
{
    const int frame = OverlayMetrics::pixels(line, scale);
    const int edge = OverlayMetrics::pixels(1, scale);
    const QRect framed = cell.adjusted(-frame, -frame, frame, frame);
    for (const QRect& side : QRegion(framed.adjusted(-edge, -edge, edge, edge)) - framed)
        painter.fillRect(side, pixelMarkEdge);
    for (const QRect& side : QRegion(framed) - cell)
        painter.fillRect(side, pixelMark);
}

void drawRim(QPainter& painter, const OverlayDecoration& decoration, double width, double inset, const QColor& color)
{
    const QRectF box(QPointF(), QSizeF(decoration.rect.size()));
    const double middle = inset + width / 2;
    const double radius = MagnifierPainter::radius(decoration) - middle;
    painter.setPen(QPen(color, width));
    painter.drawRoundedRect(box.adjusted(middle, middle, -middle, -middle), radius, radius);
}

QImage glassOf(const OverlayDecoration& decoration)
{
    const QSize size = decoration.rect.size();
    QImage image = canvas(size);
    QPainter painter(&image);
    if (decoration.cell >= smallestGrid * decoration.scale)
        drawGrid(painter, cellsOf(size, decoration.cell), decoration.cell);
    drawMiddle(painter, middleCell(size, decoration.cell), decoration.scale);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    const bool isLoupe = decoration.kind == OverlayDecoration::Kind::loupe;
    const double edge = isLoupe ? decoration.scale : 0;
    drawRim(painter, decoration, (isLoupe ? loupeRim : line) * decoration.scale, edge, magnifierRim);
    if (isLoupe)
        drawRim(painter, decoration, edge, 0, magnifierRimEdge);
    return image;
}

QImage shapeOf(const OverlayDecoration& decoration)
{
    const QSize size = decoration.rect.size();
    const double radius = MagnifierPainter::radius(decoration);
    QImage image = canvas(size);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(magnifierGround);
    painter.drawRoundedRect(QRectF(QPointF(), QSizeF(size)), radius, radius);
    return image;
}

// Without smoothing, so that each pixel is a square of one colour.
QImage magnified(const OverlayDecoration& decoration, const QImage& screen, const QRect& screenRect)
{
    const QSize size = decoration.rect.size();
    const int reach = reachOf(size, decoration.cell);
    const QPoint first = decoration.pixel - QPoint(reach, reach) - screenRect.topLeft();
    QImage pixels(size, QImage::Format_RGB32);
    pixels.fill(magnifierGround);
    QPainter(&pixels).drawImage(QRectF(cellsOf(size, decoration.cell)), screen,
                                QRectF(first, QSizeF(2 * reach + 1, 2 * reach + 1)));
    // The screen's unused byte is no alpha: here it becomes one.
    return pixels.convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

} // namespace

double MagnifierPainter::radius(const OverlayDecoration& decoration)
{
    const bool isLoupe = decoration.kind == OverlayDecoration::Kind::loupe;
    return isLoupe ? decoration.rect.width() / 2.0 : magnifierRadius * decoration.scale;
}

void MagnifierPainter::draw(QPainter& painter, const OverlayDecoration& decoration, const QImage& screen,
                            const QRect& screenRect)
{
    if (m_lens.size != decoration.rect.size() || m_lens.cell != decoration.cell)
        m_lens = {decoration.rect.size(), decoration.cell, glassOf(decoration), shapeOf(decoration)};
    QImage content = magnified(decoration, screen, screenRect);
    QPainter inside(&content);
    inside.drawImage(0, 0, m_lens.glass);
    inside.setCompositionMode(QPainter::CompositionMode_DestinationIn);
    inside.drawImage(0, 0, m_lens.shape);
    inside.end();
    painter.drawImage(decoration.rect.topLeft(), content);
}

} // namespace Kovrel
