#include "overlay/OverlayPainter.h"

#include "overlay/OverlayMetrics.h"
#include "ui/tokens/OverlayTokens.h"
#include "ui/tokens/SoftShadow.h"

#include <algorithm>
#include <cmath>

namespace Kovrel {

namespace {

using namespace OverlayTokens;
using Kind = OverlayDecoration::Kind;

// With a pixel for the drop of the shadow.
int shadowMargin(int reach, double scale)
{
    return int(std::ceil((reach + 1) * scale));
}

QImage shadowOf(QSize size, double radius, int reach, double scale)
{
    const int margin = shadowMargin(reach, scale);
    QImage image(size + 2 * QSize(margin, margin), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    const SoftShadow shadow{.layer = shadowLayer, .layers = reach, .step = scale, .drop = scale};
    shadow.paint(painter, QRectF(QPointF(margin, margin), size), radius);
    return image;
}

void drawFrame(QPainter& painter, const OverlayDecoration& decoration)
{
    for (const QRect& side : decoration.region())
        painter.fillRect(side, accent);
}

void drawGuide(QPainter& painter, const OverlayDecoration& decoration)
{
    painter.fillRect(decoration.rect.adjusted(-1, -1, 1, 1), guideEdge);
    painter.fillRect(decoration.rect, accent);
}

void drawHandle(QPainter& painter, const OverlayDecoration& decoration)
{
    const double edge = line * decoration.scale;
    painter.setPen(QPen(accent, edge));
    painter.setBrush(knob);
    painter.drawEllipse(QRectF(decoration.rect).adjusted(edge / 2, edge / 2, -edge / 2, -edge / 2));
}

// A round swatch and the pill's text behind it, in the middle together.
void drawColorText(QPainter& painter, const QRectF& rect, const OverlayDecoration& decoration)
{
    const double scale = decoration.scale;
    const double before = OverlayMetrics::swatchWidth(scale);
    const double width = painter.fontMetrics().horizontalAdvance(decoration.text) + before;
    const double left = rect.center().x() - width / 2;
    const double side = swatch * scale;
    painter.drawText(rect.adjusted(left + before - rect.left(), 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter,
                     decoration.text);
    painter.setPen(QPen(swatchEdge, std::max(1.0, scale)));
    painter.setBrush(decoration.color);
    painter.drawEllipse(QRectF(left, rect.center().y() - side / 2, side, side));
}

} // namespace

QColor OverlayPainter::shade()
{
    return OverlayTokens::shade;
}

void OverlayPainter::drawShadow(QPainter& painter, const QRect& rect, double radius, int reach, double scale)
{
    constexpr size_t mostKept = 8;
    const auto isKept = [&](const Shadow& shadow) { return shadow.size == rect.size() && shadow.scale == scale; };
    auto shadow = std::ranges::find_if(m_shadows, isKept);
    if (shadow == m_shadows.end()) {
        if (m_shadows.size() == mostKept)
            m_shadows.erase(m_shadows.begin());
        m_shadows.push_back({rect.size(), scale, shadowOf(rect.size(), radius, reach, scale)});
        shadow = std::prev(m_shadows.end());
    }
    const int margin = shadowMargin(reach, scale);
    painter.drawImage(rect.topLeft() - QPoint(margin, margin), shadow->image);
}

void OverlayPainter::drawPill(QPainter& painter, const OverlayDecoration& decoration)
{
    const QRectF rect(decoration.rect);
    const double radius = rect.height() / 2;
    const double edge = std::max(1.0, decoration.scale * 0.75);
    drawShadow(painter, decoration.rect, radius, pillShadowReach, decoration.scale);
    painter.setBrush(pill);
    painter.setPen(QPen(pillEdge, edge));
    painter.drawRoundedRect(rect.adjusted(edge / 2, edge / 2, -edge / 2, -edge / 2), radius, radius);
    painter.setFont(OverlayMetrics::pillFont(decoration.kind, decoration.scale));
    painter.setPen(pillText);
    if (decoration.kind == Kind::colorLabel)
        drawColorText(painter, rect, decoration);
    else
        painter.drawText(rect, Qt::AlignCenter, decoration.text);
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
    case Kind::guide:
        drawGuide(painter, decoration);
        break;
    case Kind::handle:
        drawHandle(painter, decoration);
        break;
    case Kind::sizeLabel:
    case Kind::hint:
    case Kind::colorLabel:
        drawPill(painter, decoration);
        break;
    case Kind::magnifier:
    case Kind::loupe:
        drawShadow(painter, decoration.rect, MagnifierPainter::radius(decoration), shadowReach, decoration.scale);
        m_magnifier.draw(painter, decoration, screen, screenRect);
        break;
    }
}

} // namespace Kovrel
