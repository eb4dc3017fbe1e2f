#include "welcome/FirstRunDrawing.h"

#include "ui/LookChanges.h"
#include "ui/Symbols.h"
#include "ui/tokens/Metrics.h"
#include "ui/tokens/Theme.h"
#include "ui/tokens/Typography.h"

#include <QPainter>
#include <QPainterPath>

namespace Kovrel {

namespace {

// All of it is drawn in a box of this size, whatever the size in which it is seen.
constexpr QSizeF box(160, 100);
constexpr QRectF screen(4, 4, 152, 92);
constexpr QRectF area(50, 28, 68, 44);
constexpr QRectF corner(104, 58, 44, 30); // where cards come

void plate(QPainter& painter, const QRectF& rect, const QColor& color, const QColor& edge, double radius)
{
    painter.setPen(QPen(edge, 1));
    painter.setBrush(color);
    painter.drawRoundedRect(rect, radius, radius);
}

void lines(QPainter& painter, const QRectF& rect, int count, const QColor& color)
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    const double pitch = rect.height() / count;
    for (int line = 0; line < count; ++line)
        painter.drawRoundedRect(
            QRectF(rect.left(), rect.top() + line * pitch, rect.width() * (line % 3 == 2 ? 0.55 : 0.9), pitch * 0.42),
            1.5, 1.5);
}

void window(QPainter& painter, const Theme& theme, const QRectF& rect)
{
    plate(painter, rect, theme.window, theme.separator, 4);
    lines(painter, rect.adjusted(7, 14, -7, -4), 4, theme.separator);
    painter.setBrush(theme.secondaryText);
    for (int button = 0; button < 3; ++button)
        painter.drawEllipse(QPointF(rect.left() + 8 + 6 * button, rect.top() + 7), 1.6, 1.6);
}

void desktop(QPainter& painter, const Theme& theme)
{
    plate(painter, screen, theme.accentGround, theme.separator, 8);
    window(painter, theme, {18, 18, 84, 62});
}

void selection(QPainter& painter, const Theme& theme)
{
    QColor veil = theme.accent;
    veil.setAlphaF(0.16F);
    painter.setPen(QPen(theme.accentText, 1.6));
    painter.setBrush(veil);
    painter.drawRect(area);
    painter.setPen(Qt::NoPen);
    painter.setBrush(theme.accentText);
    for (const QPointF& point : {area.topLeft(), area.topRight(), area.bottomLeft(), area.bottomRight()})
        painter.drawEllipse(point, 2.8, 2.8);
}

void pointer(QPainter& painter, const Theme& theme, QPointF tip)
{
    const QPolygonF arrow{{0, 0}, {0, 17}, {4.2, 13.4}, {7, 19.6}, {9.8, 18.3}, {7.1, 12.3}, {12.4, 12}};
    painter.setPen(QPen(theme.card, 1.2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(theme.text);
    painter.drawPolygon(arrow.translated(tip));
}

void card(QPainter& painter, const Theme& theme)
{
    for (int layer = 6; layer > 0; --layer) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(theme.shadow);
        painter.drawRoundedRect(corner.adjusted(-layer, -layer, layer, layer).translated(0, 2), 5 + layer, 5 + layer);
    }
    plate(painter, corner, theme.card, theme.accentText, 5);
    lines(painter, corner.adjusted(7, 8, -7, -6), 3, theme.separator);
}

void check(QPainter& painter, const Theme& theme, QPointF middle)
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(theme.accent);
    painter.drawEllipse(middle, 13, 13);
    Symbols::paint(painter, "checkmark", QRectF(middle - QPointF(6, 6), QSizeF(12, 12)), theme.onAccent);
}

void drawCapture(QPainter& painter, const Theme& theme)
{
    desktop(painter, theme);
    selection(painter, theme);
}

void drawMark(QPainter& painter, const Theme& theme)
{
    plate(painter, screen, theme.accentGround, theme.separator, 8);
    window(painter, theme, {22, 16, 116, 68});
    painter.setPen(Qt::NoPen);
    for (int column = 0; column < 6; ++column) // what is redacted
        for (int row = 0; row < 2; ++row) {
            painter.setBrush((column + row) % 2 ? theme.secondaryText : theme.disabledText);
            painter.drawRect(QRectF(30 + 7 * column, 58 + 7 * row, 7, 7));
        }
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(theme.accentText, 2.2));
    painter.drawEllipse(QRectF(88, 52, 36, 24));
    painter.setPen(QPen(theme.warning, 4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawLine(QPointF(62, 28), QPointF(86, 48));
    painter.drawPolyline(QPolygonF{{74, 48}, {87, 49}, {85, 36}});
}

void drawFind(QPainter& painter, const Theme& theme)
{
    plate(painter, screen, theme.accentGround, theme.separator, 8);
    for (int column = 0; column < 3; ++column)
        for (int row = 0; row < 2; ++row) {
            const bool isFound = column == 1 && row == 1;
            const QColor& ink = isFound ? theme.accentText : theme.separator;
            const QRectF thumbnail(18 + 43 * column, 18 + 34 * row, 38, 28);
            plate(painter, thumbnail, theme.card, ink, 3);
            lines(painter, thumbnail.adjusted(6, 7, -6, -4), 3, ink);
        }
    painter.setPen(QPen(theme.text, 3));
    painter.setBrush(Qt::NoBrush);
    painter.drawEllipse(QPointF(104, 60), 17, 17);
    painter.setPen(QPen(theme.text, 5, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(QPointF(117, 73), QPointF(129, 85));
}

void drawAccount(QPainter& painter, const Theme& theme)
{
    plate(painter, {32, 6, 96, 66}, theme.accentGround, theme.separator, 6);
    painter.setPen(Qt::NoPen);
    painter.setBrush(theme.accentText);
    painter.drawEllipse(QPointF(80, 29), 10, 10);
    QPainterPath shoulders;
    shoulders.moveTo(60, 63);
    shoulders.cubicTo({60, 49}, {68, 43}, {80, 43});
    shoulders.cubicTo({92, 43}, {100, 49}, {100, 63});
    painter.drawPath(shoulders);
    plate(painter, {16, 76, 128, 10}, theme.separator, theme.separator, 5);
}

void drawTryOut(QPainter& painter, const Theme& theme)
{
    drawCapture(painter, theme);
    pointer(painter, theme, area.bottomRight());
}

void drawCard(QPainter& painter, const Theme& theme)
{
    desktop(painter, theme);
    card(painter, theme);
}

void drawDone(QPainter& painter, const Theme& theme)
{
    desktop(painter, theme);
    check(painter, theme, {120, 68});
}

void draw(FirstRunDrawing::Subject subject, QPainter& painter, const Theme& theme)
{
    using enum FirstRunDrawing::Subject;
    switch (subject) {
    case capture:
        return drawCapture(painter, theme);
    case mark:
        return drawMark(painter, theme);
    case find:
        return drawFind(painter, theme);
    case account:
        return drawAccount(painter, theme);
    case tryOut:
        return drawTryOut(painter, theme);
    case card:
        return drawCard(painter, theme);
    case done:
        return drawDone(painter, theme);
    }
}

} // namespace

FirstRunDrawing::FirstRunDrawing(Subject subject, int width) : m_subject(subject), m_width(width)
{
    takeSize();
    connect(&LookChanges::shared(), &LookChanges::changed, this, &FirstRunDrawing::takeSize);
}

void FirstRunDrawing::takeSize()
{
    const double width = m_width * Typography::scale();
    setFixedSize(int(width), int(width * box.height() / box.width()));
}

void FirstRunDrawing::setSubject(Subject subject)
{
    m_subject = subject;
    update();
}

void FirstRunDrawing::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(width() / box.width(), height() / box.height());
    draw(m_subject, painter, Theme::current());
}

} // namespace Kovrel
