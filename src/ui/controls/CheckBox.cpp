#include "ui/controls/CheckBox.h"

#include "ui/LookChanges.h"
#include "ui/Symbols.h"
#include "ui/tokens/Metrics.h"
#include "ui/tokens/Theme.h"
#include "ui/tokens/Typography.h"

#include <QPainter>
#include <QStyle>

namespace Kovrel {

namespace {

constexpr int boxSide = 17;
constexpr int padding = 3; // for the ring of the keyboard's focus
constexpr double corner = 4;
constexpr double markInset = 4;

} // namespace

CheckBox::CheckBox(const QString& text) : QCheckBox(text)
{
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::StrongFocus);
    connect(&LookChanges::shared(), &LookChanges::changed, this, &QWidget::updateGeometry);
}

QSize CheckBox::sizeHint() const
{
    const QSize title = QFontMetrics(Typography::font(TextStyle::control)).size(Qt::TextSingleLine, text());
    return {padding + boxSide + Spacing::small + title.width(), std::max(title.height(), boxSide) + 2 * padding};
}

void CheckBox::paintEvent(QPaintEvent*)
{
    const Theme& theme = Theme::current();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRect line = rect().adjusted(padding, 0, 0, 0);
    const QRectF box =
        QStyle::alignedRect(layoutDirection(), Qt::AlignLeft | Qt::AlignVCenter, {boxSide, boxSide}, line);
    painter.setPen(QPen(isChecked() ? theme.accent : theme.secondaryText, 1.5));
    painter.setBrush(isChecked() ? theme.accent : underMouse() ? theme.hoverGround : theme.card);
    painter.drawRoundedRect(box.adjusted(0.75, 0.75, -0.75, -0.75), corner, corner);
    if (isChecked())
        Symbols::paint(painter, "checkmark", box.adjusted(markInset, markInset, -markInset, -markInset),
                       theme.onAccent);
    if (hasFocus()) {
        painter.setPen(QPen(theme.focusRing, Stroke::focusRing));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(box.adjusted(-2, -2, 2, 2), corner + 2, corner + 2);
    }
    painter.setFont(Typography::font(TextStyle::control));
    painter.setPen(isEnabled() ? theme.text : theme.disabledText);
    const int used = boxSide + Spacing::small;
    const bool isLeftToRight = layoutDirection() == Qt::LeftToRight;
    painter.drawText(line.adjusted(isLeftToRight ? used : 0, 0, isLeftToRight ? 0 : -used, 0),
                     int(QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft | Qt::AlignVCenter)), text());
}

} // namespace Kovrel
