#include "overlay/OverlayPainter.h"

#include "overlay/OverlayMetrics.h"

#include <algorithm>
#include <cmath>

namespace Kovrel {

namespace {

using Kind = OverlayDecoration::Kind;

constexpr QColor accent(0x2f, 0x6b, 0xff);
constexpr QColor pill(24, 24, 27, 230);
constexpr QColor pillEdge(255, 255, 255, 46);

// In points.
constexpr double magnifierRadius = 12;
constexpr int shadowSteps = 8;

int shadowReach(double scale)
{
    return int(std::ceil((shadowSteps + 1) * scale));
}

// Soft, as a stack of faint rounded outlines, each a little wider.
QImage shadowOf(QSize size, double radius, double scale)
{
    const int margin = shadowReach(scale);
    QImage image(size + 2 * QSize(margin, margin), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0, 0, 0, 12));
    const QRectF rect(QPointF(margin, margin), size);
    for (int step = shadowSteps; step > 0; --step) {
        const double reach = step * scale;
        painter.drawRoundedRect(rect.adjusted(-reach, -reach + scale, reach, reach + scale), radius + reach,
                                radius + reach);
    }
    return image;
}

void drawFrame(QPainter& painter, const OverlayDecoration& decoration)
{
    for (const QRect& side : decoration.region())
        painter.fillRect(side, accent);
}

void drawHandle(QPainter& painter, const OverlayDecoration& decoration)
{
    const double line = 1.5 * decoration.scale;
    painter.setPen(QPen(accent, line));
    painter.setBrush(Qt::white);
    painter.drawEllipse(QRectF(decoration.rect).adjusted(line / 2, line / 2, -line / 2, -line / 2));
}

// The cell of the pixel in the middle, twice outlined so that it stands out from any colour.
void drawMagnifiedPixel(QPainter& painter, const QRectF& cell, double scale)
{
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(QColor(0, 0, 0, 160), 3 * scale));
    painter.drawRect(cell);
    painter.setPen(QPen(Qt::white, 1.5 * scale));
    painter.drawRect(cell);
}

void drawGrid(QPainter& painter, const QRectF& rect, double cell)
{
    painter.setPen(QPen(QColor(128, 128, 128, 56), 1));
    for (double at = cell; at < rect.width() - 0.5; at += cell) {
        painter.drawLine(QPointF(rect.x() + at, rect.y()), QPointF(rect.x() + at, rect.bottom()));
        painter.drawLine(QPointF(rect.x(), rect.y() + at), QPointF(rect.right(), rect.y() + at));
    }
}

QImage canvas(QSize size)
{
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    return image;
}

QImage magnifierShape(QSize size, double scale)
{
    QImage image = canvas(size);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::black);
    painter.drawRoundedRect(QRectF({}, size), magnifierRadius * scale, magnifierRadius * scale);
    return image;
}

QImage magnifierGlass(QSize size, double scale)
{
    QImage image = canvas(size);
    QPainter painter(&image);
    const double cell = double(size.width()) / (2 * OverlayMetrics::magnifierReach + 1);
    drawGrid(painter, QRectF({}, size), cell);
    const double middle = OverlayMetrics::magnifierReach * cell;
    drawMagnifiedPixel(painter, QRectF(middle, middle, cell, cell), scale);
    painter.setRenderHint(QPainter::Antialiasing);
    const double line = 1.5 * scale;
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(QColor(255, 255, 255, 220), line));
    const double radius = (magnifierRadius - 0.75) * scale;
    painter.drawRoundedRect(QRectF({}, size).adjusted(line / 2, line / 2, -line / 2, -line / 2), radius, radius);
    return image;
}

} // namespace

QColor OverlayPainter::shade()
{
    return QColor(0, 0, 0, 112);
}

void OverlayPainter::drawShadow(QPainter& painter, const QRect& rect, double radius, double scale)
{
    constexpr size_t mostKept = 8;
    const auto isKept = [&](const Shadow& shadow) { return shadow.size == rect.size() && shadow.scale == scale; };
    auto shadow = std::ranges::find_if(m_shadows, isKept);
    if (shadow == m_shadows.end()) {
        if (m_shadows.size() == mostKept)
            m_shadows.erase(m_shadows.begin());
        m_shadows.push_back({rect.size(), scale, shadowOf(rect.size(), radius, scale)});
        shadow = std::prev(m_shadows.end());
    }
    const int margin = shadowReach(scale);
    painter.drawImage(rect.topLeft() - QPoint(margin, margin), shadow->image);
}

void OverlayPainter::drawPill(QPainter& painter, const OverlayDecoration& decoration)
{
    const QRectF rect(decoration.rect);
    const double radius = rect.height() / 2;
    const double edge = std::max(1.0, decoration.scale * 0.75);
    drawShadow(painter, decoration.rect, radius, decoration.scale);
    painter.setBrush(pill);
    painter.setPen(QPen(pillEdge, edge));
    painter.drawRoundedRect(rect.adjusted(edge / 2, edge / 2, -edge / 2, -edge / 2), radius, radius);
    painter.setFont(OverlayMetrics::pillFont(decoration.kind, decoration.scale));
    painter.setPen(Qt::white);
    painter.drawText(rect, Qt::AlignCenter, decoration.text);
}

void OverlayPainter::drawMagnifier(QPainter& painter, const OverlayDecoration& decoration, const QImage& screen,
                                   const QRect& screenRect)
{
    const QSize size = decoration.rect.size();
    const double scale = decoration.scale;
    if (m_magnifier.scale != scale)
        m_magnifier = {scale, magnifierGlass(size, scale), magnifierShape(size, scale)};
    constexpr int reach = OverlayMetrics::magnifierReach;
    const QPoint first = decoration.pixel - QPoint(reach, reach) - screenRect.topLeft();
    QImage pixels(size, QImage::Format_RGB32);
    pixels.fill(QColor(24, 24, 27)); // beyond the edge of the display
    QPainter(&pixels).drawImage(QRectF({}, size), screen, QRectF(first, QSizeF(2 * reach + 1, 2 * reach + 1)));
    // The screen's unused byte is no alpha: here it becomes one.
    QImage content = pixels.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    QPainter inside(&content);
    inside.drawImage(0, 0, m_magnifier.glass);
    inside.setCompositionMode(QPainter::CompositionMode_DestinationIn);
    inside.drawImage(0, 0, m_magnifier.shape);
    inside.end();
    drawShadow(painter, decoration.rect, magnifierRadius * scale, scale);
    painter.drawImage(decoration.rect.topLeft(), content);
}

void OverlayPainter::draw(QPainter& painter, const OverlayDecoration& decoration, const QImage& screen,
                          const QRect& screenRect)
{
    painter.setRenderHint(QPainter::Antialiasing);
    switch (decoration.kind) {
    case Kind::areaFrame:
    case Kind::windowFrame:
        drawFrame(painter, decoration);
        break;
    case Kind::handle:
        drawHandle(painter, decoration);
        break;
    case Kind::sizeLabel:
    case Kind::hint:
        drawPill(painter, decoration);
        break;
    case Kind::magnifier:
        drawMagnifier(painter, decoration, screen, screenRect);
        break;
    }
}

} // namespace Kovrel
