#include "cards/panels/CardPainting.h"

#include "ui/Symbols.h"
#include "ui/tokens/CardTokens.h"
#include "ui/tokens/Metrics.h"
#include "ui/tokens/ReadingSide.h"
#include "ui/tokens/Theme.h"
#include "ui/tokens/Typography.h"

#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace Kovrel {

namespace {

constexpr double fullCircle = 360 * 16;

QFont pillFont()
{
    QFont font = Typography::font(TextStyle::caption);
    font.setWeight(QFont::Medium);
    return font;
}

double symbolSize()
{
    return QFontMetricsF(pillFont()).capHeight() + 2;
}

QRectF middle(const QRectF& box, double size)
{
    return {box.center().x() - size / 2, box.center().y() - size / 2, size, size};
}

void glass(QPainter& painter, const QRectF& box, const QColor& ground)
{
    const double half = Stroke::hairline / 2;
    const QRectF inside = box.adjusted(half, half, -half, -half);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(CardTokens::glassEdge, Stroke::hairline));
    painter.setBrush(ground);
    painter.drawRoundedRect(inside, inside.height() / 2, inside.height() / 2);
}

} // namespace

QRectF CardPainting::place(const QRectF& room, QSize face, double scale)
{
    const QSizeF size = QSizeF(face) / scale;
    const auto whole = [scale](double length) { return std::round(length * scale) / scale; };
    return {whole(room.center().x() - size.width() / 2), whole(room.center().y() - size.height() / 2), size.width(),
            size.height()};
}

void CardPainting::picture(QPainter& painter, const QRectF& room, const QImage& face, double scale, double radius)
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(Theme::current().window);
    painter.drawRoundedRect(room, radius, radius);
    if (face.isNull()) {
        Symbols::paint(painter, "photo", middle(room, room.height() / 3), Theme::current().secondaryText);
        return;
    }
    const QRectF place = CardPainting::place(room, face.size(), scale);
    QBrush pixels(face);
    pixels.setTransform(QTransform::fromTranslate(place.x(), place.y()).scale(1 / scale, 1 / scale));
    const double corners = std::min(radius, std::min(place.width(), place.height()) / 6);
    painter.setPen(Qt::NoPen);
    painter.setBrush(pixels);
    painter.drawRoundedRect(place, corners, corners);
}

void CardPainting::disc(QPainter& painter, const QRectF& box, const QColor& ground, const QString& symbol,
                        const QColor& color)
{
    glass(painter, box, ground);
    Symbols::paint(painter, symbol, middle(box, box.height() * CardTokens::symbolShare), color);
}

void CardPainting::ring(QPainter& painter, const QRectF& box, double remaining)
{
    glass(painter, box, CardTokens::glass);
    const QRectF circle = middle(box, box.height() * 0.56);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(CardTokens::ringTrack, CardTokens::ringWidth));
    painter.drawEllipse(circle);
    painter.setPen(QPen(CardTokens::ring, CardTokens::ringWidth, Qt::SolidLine, Qt::RoundCap));
    painter.drawArc(circle, int(fullCircle / 4), int(std::lround(fullCircle * remaining)));
}

QSizeF CardPainting::pillSize(const QString& text)
{
    const QFontMetricsF metrics(pillFont());
    return {2 * CardTokens::pillPadding + symbolSize() + CardTokens::buttonGap +
                std::ceil(metrics.horizontalAdvance(text)) + 1,
            std::max(CardTokens::pillHeight, std::ceil(metrics.height()) + CardTokens::buttonGap)};
}

void CardPainting::pill(QPainter& painter, const QRectF& box, const QColor& ground, const QString& symbol,
                        const QColor& color, const QString& text)
{
    glass(painter, box, ground);
    const QRectF line = box.adjusted(CardTokens::pillPadding, 0, -CardTokens::pillPadding, 0);
    const double size = symbolSize();
    const QRectF icon(line.left(), line.center().y() - size / 2, size, size);
    Symbols::paint(painter, symbol, ReadingSide::placed(icon, line), color);
    painter.setFont(pillFont());
    painter.setPen(CardTokens::onGlass);
    ReadingSide::drawLine(painter, ReadingSide::placed(line.adjusted(size + CardTokens::buttonGap, 0, 0, 0), line),
                          text);
}

} // namespace Kovrel
