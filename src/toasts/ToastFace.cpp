#include "toasts/ToastFace.h"

#include "toasts/ToastLines.h"
#include "ui/Symbols.h"
#include "ui/tokens/Metrics.h"
#include "ui/tokens/ReadingSide.h"
#include "ui/tokens/Theme.h"
#include "ui/tokens/Typography.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPainterPath>

namespace Kovrel {

namespace {

constexpr double iconSize = 36;
constexpr double imageSize = 48;
constexpr double iconGap = 12;
constexpr double iconInset = 9;
constexpr double badgeSize = 16;
constexpr qsizetype mostLines = 3;
constexpr qsizetype mostMessageLines = 2;
constexpr double spinnerStroke = 3;
constexpr double spinnerShare = 0.28; // of the circle

QRectF around(QPointF centre, double size)
{
    return {centre.x() - size / 2, centre.y() - size / 2, size, size};
}

// A symbol on a disc that stands out from what it lies on.
void paintDisc(QPainter& painter, const QRectF& circle, const QString& symbol, const QColor& ground,
               const QColor& color)
{
    const double inset = circle.width() * 0.3;
    painter.setPen(QPen(Theme::current().card, Stroke::focusRing));
    painter.setBrush(ground);
    painter.drawEllipse(circle);
    Symbols::paint(painter, symbol, circle.adjusted(inset, inset, -inset, -inset), color);
}

void paintSpinner(QPainter& painter, const QRectF& circle, double turn)
{
    constexpr int fullCircle = 360 * 16; // as Qt counts angles
    const Theme& theme = Theme::current();
    const QRectF ring = circle.adjusted(spinnerStroke, spinnerStroke, -spinnerStroke, -spinnerStroke);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(theme.accentGround, spinnerStroke));
    painter.drawEllipse(ring);
    painter.setPen(QPen(theme.accentText, spinnerStroke, Qt::SolidLine, Qt::RoundCap));
    painter.drawArc(ring, int((0.25 - turn) * fullCircle), int(-spinnerShare * fullCircle));
}

void paintSymbol(QPainter& painter, const QRectF& circle, const ToastContent& content)
{
    const Theme& theme = Theme::current();
    const bool isWarning = content.icon == Symbols::warning;
    const double inset = iconInset * Typography::scale();
    painter.setPen(Qt::NoPen);
    painter.setBrush(isWarning ? theme.warningGround : theme.accentGround);
    painter.drawEllipse(circle);
    Symbols::paint(painter, content.icon, circle.adjusted(inset, inset, -inset, -inset),
                   content.iconTint.value_or(isWarning ? theme.warning : theme.accentText));
}

// The middle of the picture fills the square.
void paintImage(QPainter& painter, const QRectF& square, const QImage& image)
{
    const double side = std::min(image.width(), image.height());
    const QRectF middle = around(QRectF(image.rect()).center(), side);
    QPainterPath outline;
    outline.addRoundedRect(square, Radius::control, Radius::control);
    painter.save();
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.setClipPath(outline);
    painter.drawImage(square, image, middle);
    painter.restore();
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(Theme::current().cardEdge, Stroke::hairline));
    painter.drawPath(outline);
}

void paintIcon(QPainter& painter, const QRectF& square, const ToastContent& content, double turn)
{
    if (content.showsSpinner)
        paintSpinner(painter, square, turn);
    else if (content.image)
        paintImage(painter, square, *content.image);
    else
        paintSymbol(painter, square, content);
    const double badge = badgeSize * Typography::scale();
    const Theme& theme = Theme::current();
    if (content.copied)
        paintDisc(painter, ReadingSide::placed(around(square.bottomRight() - QPointF(badge, badge) / 4, badge), square),
                  "checkmark", theme.accent, theme.onAccent);
}

double lineHeight(TextStyle style)
{
    return QFontMetricsF(Typography::font(style)).height();
}

void paintLine(QPainter& painter, const QRectF& line, TextStyle style, const QColor& color, const QString& text)
{
    painter.setFont(Typography::font(style));
    painter.setPen(color);
    ReadingSide::drawLine(painter, line, text);
}

// The message, and below it what is said more: three lines together have room.
void paintText(QPainter& painter, const QRectF& area, const ToastContent& content)
{
    const Theme& theme = Theme::current();
    const QStringList message =
        ToastLines::of(content.message, Typography::font(TextStyle::emphasis), area.width(), mostMessageLines);
    const QStringList details =
        ToastLines::of(content.subtitle.value_or(QString()), Typography::font(TextStyle::caption), area.width(),
                       mostLines - message.size());
    const double first = lineHeight(TextStyle::emphasis);
    const double more = lineHeight(TextStyle::caption);
    const double gap = message.size() + details.size() < mostLines ? Spacing::tight : 0;
    const double height = double(message.size()) * first + gap + double(details.size()) * more;
    QRectF line(area.x(), area.center().y() - height / 2, area.width(), 0);
    for (const QString& text : message) {
        line = {line.x(), line.bottom(), line.width(), first};
        paintLine(painter, line, TextStyle::emphasis, theme.text, text);
    }
    line.translate(0, gap);
    for (const QString& text : details) {
        line = {line.x(), line.bottom(), line.width(), more};
        paintLine(painter, line, TextStyle::caption, theme.secondaryText, text);
    }
}

} // namespace

void ToastFace::paint(QPainter& painter, const QRectF& card, const ToastContent& content, double turn)
{
    const bool hasImage = content.image && !content.image->isNull() && !content.showsSpinner;
    const double size = (hasImage ? imageSize : iconSize) * Typography::scale();
    const double edge = hasImage ? (card.height() - size) / 2 : Spacing::medium;
    const QRectF icon(card.left() + edge, card.center().y() - size / 2, size, size);
    const QRectF text = card.adjusted(edge + size + iconGap, 0, -Spacing::medium, 0);
    paintIcon(painter, ReadingSide::placed(icon, card), content, turn);
    paintText(painter, ReadingSide::placed(text, card), content);
}

void ToastFace::paintCloseButton(QPainter& painter, QPointF centre, bool isUnderPointer)
{
    const Theme& theme = Theme::current();
    paintDisc(painter, around(centre, closeSize), "xmark", isUnderPointer ? theme.text : theme.secondaryText,
              theme.card);
}

} // namespace Kovrel
