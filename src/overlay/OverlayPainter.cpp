#include "overlay/OverlayPainter.h"

#include "overlay/OverlayMetrics.h"
#include "ui/tokens/OverlayTokens.h"
#include "ui/tokens/SoftShadow.h"

#include <QPainterPath>

#include <algorithm>
#include <cmath>

namespace Kovrel {

namespace {

using namespace OverlayTokens;
using Kind = OverlayDecoration::Kind;

// With a pixel for the drop of the shadow.
int shadowMargin(double scale)
{
    return int(std::ceil((shadowReach + 1) * scale));
}

QImage shadowOf(QSize size, double radius, double scale)
{
    const int margin = shadowMargin(scale);
    QImage image(size + 2 * QSize(margin, margin), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    const SoftShadow shadow{.layer = shadowLayer, .layers = shadowReach, .step = scale, .drop = scale};
    shadow.paint(painter, QRectF(QPointF(margin, margin), size), radius);
    return image;
}

void drawFrame(QPainter& painter, const OverlayDecoration& decoration)
{
    for (const QRect& side : decoration.region())
        painter.fillRect(side, accent);
}

void drawHandle(QPainter& painter, const OverlayDecoration& decoration)
{
    const double edge = line * decoration.scale;
    painter.setPen(QPen(accent, edge));
    painter.setBrush(knob);
    painter.drawEllipse(QRectF(decoration.rect).adjusted(edge / 2, edge / 2, -edge / 2, -edge / 2));
}

// The cell of the pixel in the middle, twice outlined so that it stands out from any colour.
void drawMagnifiedPixel(QPainter& painter, const QRectF& cell, double scale)
{
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(pixelMarkEdge, 2 * line * scale));
    painter.drawRect(cell);
    painter.setPen(QPen(pixelMark, line * scale));
    painter.drawRect(cell);
}

void drawGrid(QPainter& painter, const QRectF& rect, double cell)
{
    painter.setPen(QPen(magnifierGrid, 1));
    for (int line = 1; line * cell < rect.width() - 0.5; ++line) {
        const double at = line * cell;
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
    painter.setBrush(magnifierGround);
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
    const double edge = line * scale;
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(magnifierRim, edge));
    const double radius = (magnifierRadius - line / 2) * scale;
    painter.drawRoundedRect(QRectF({}, size).adjusted(edge / 2, edge / 2, -edge / 2, -edge / 2), radius, radius);
    return image;
}

} // namespace

QColor OverlayPainter::shade()
{
    return OverlayTokens::shade;
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
    const int margin = shadowMargin(scale);
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
    painter.setPen(pillText);
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
    pixels.fill(magnifierGround);
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
