#include "capture/OverlayPainter.h"

#include <QFontDatabase>
#include <QFontMetricsF>
#include <QPainterPath>

#include <cmath>

namespace Kovrel {

namespace {

using Decoration = OverlayScene::Decoration;
using Kind = Decoration::Kind;

constexpr QColor accent(0x2f, 0x6b, 0xff);
constexpr QColor pill(24, 24, 27, 230);
constexpr QColor pillEdge(255, 255, 255, 46);

// In points.
constexpr double labelText = 12;
constexpr double hintText = 13;
constexpr double hintPadding = 16;
constexpr double labelPadding = 9;
constexpr double hintHeight = 36;
constexpr double labelHeight = 24;
constexpr double magnifierRadius = 12;
constexpr int shadowSteps = 8;

QFont pillFont(Kind kind, double scale)
{
    QFont font = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
    font.setPixelSize(int(std::lround((kind == Kind::hint ? hintText : labelText) * scale)));
    font.setWeight(QFont::Medium);
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setStyleStrategy(QFont::NoSubpixelAntialias);
    return font;
}

// A soft shadow as a stack of faint rounded outlines, each a little wider.
void drawShadow(QPainter& painter, const QRectF& rect, double radius, double scale)
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0, 0, 0, 12));
    for (int step = shadowSteps; step > 0; --step) {
        const double reach = step * scale;
        painter.drawRoundedRect(rect.adjusted(-reach, -reach + scale, reach, reach + scale), radius + reach,
                                radius + reach);
    }
}

void drawPill(QPainter& painter, const Decoration& decoration)
{
    const QRectF rect(decoration.rect);
    const double radius = rect.height() / 2;
    const double edge = std::max(1.0, decoration.scale * 0.75);
    drawShadow(painter, rect, radius, decoration.scale);
    painter.setBrush(pill);
    painter.setPen(QPen(pillEdge, edge));
    painter.drawRoundedRect(rect.adjusted(edge / 2, edge / 2, -edge / 2, -edge / 2), radius, radius);
    painter.setFont(pillFont(decoration.kind, decoration.scale));
    painter.setPen(Qt::white);
    painter.drawText(rect, Qt::AlignCenter, decoration.text);
}

void drawFrame(QPainter& painter, const Decoration& decoration)
{
    for (const QRect& side : decoration.region())
        painter.fillRect(side, accent);
}

void drawHandle(QPainter& painter, const Decoration& decoration)
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

void drawMagnifier(QPainter& painter, const Decoration& decoration, const QImage& screen, const QRect& screenRect)
{
    const QRectF rect(decoration.rect);
    const double scale = decoration.scale;
    const double radius = magnifierRadius * scale;
    const int count = 2 * OverlayScene::magnifierReach + 1;
    const double cell = rect.width() / count;
    drawShadow(painter, rect, radius, scale);
    QPainterPath outline;
    outline.addRoundedRect(rect, radius, radius);
    painter.save();
    painter.setClipPath(outline, Qt::IntersectClip);
    painter.fillRect(rect, QColor(24, 24, 27));
    const QPoint first = decoration.pixel - QPoint(OverlayScene::magnifierReach, OverlayScene::magnifierReach);
    painter.setRenderHint(QPainter::Antialiasing, false);
    for (int y = 0; y < count; ++y)
        for (int x = 0; x < count; ++x) {
            const QPoint pixel = first + QPoint(x, y) - screenRect.topLeft();
            if (screen.rect().contains(pixel))
                painter.fillRect(QRectF(rect.x() + x * cell, rect.y() + y * cell, cell, cell),
                                 screen.pixelColor(pixel));
        }
    drawGrid(painter, rect, cell);
    const double middle = OverlayScene::magnifierReach * cell;
    drawMagnifiedPixel(painter, QRectF(rect.x() + middle, rect.y() + middle, cell, cell), scale);
    painter.restore();
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(QColor(255, 255, 255, 200), 1.5 * scale));
    painter.drawPath(outline);
}

} // namespace

QColor OverlayPainter::shade()
{
    return QColor(0, 0, 0, 112);
}

QSize OverlayPainter::pillSize(Kind kind, const QString& text, double scale)
{
    const bool isHint = kind == Kind::hint;
    const double width = QFontMetricsF(pillFont(kind, scale)).horizontalAdvance(text);
    return {int(std::ceil(width + 2 * (isHint ? hintPadding : labelPadding) * scale)),
            int(std::lround((isHint ? hintHeight : labelHeight) * scale))};
}

void OverlayPainter::draw(QPainter& painter, const Decoration& decoration, const QImage& screen,
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
