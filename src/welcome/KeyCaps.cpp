#include "welcome/KeyCaps.h"

#include "ui/LookChanges.h"
#include "ui/controls/AccessibleRole.h"
#include "ui/tokens/Metrics.h"
#include "ui/tokens/Theme.h"
#include "ui/tokens/Typography.h"

#include <QFontMetrics>
#include <QPainter>

#include <algorithm>

namespace Kovrel {

namespace {

constexpr QSize padding(7, 3);
constexpr int gap = 4;
constexpr double radius = 5;

int capHeight(const QFont& font)
{
    return QFontMetrics(font).height() + 2 * padding.height();
}

// At least as broad as it is high.
int capWidth(const QFont& font, const QString& key)
{
    return std::max(QFontMetrics(font).horizontalAdvance(key) + 2 * padding.width(), capHeight(font));
}

} // namespace

KeyCaps::KeyCaps()
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    AccessibleRole::set(*this, QAccessible::StaticText);
    takeLook();
    connect(&LookChanges::shared(), &LookChanges::changed, this, &KeyCaps::takeLook);
}

void KeyCaps::takeLook()
{
    setFont(Typography::font(TextStyle::caption));
    updateGeometry();
    update();
}

void KeyCaps::setKeys(const QString& combination)
{
    m_keys = combination.split('+', Qt::SkipEmptyParts);
    setAccessibleName(combination);
    updateGeometry();
    update();
}

QSize KeyCaps::sizeHint() const
{
    int width = 0;
    for (const QString& key : m_keys)
        width += capWidth(font(), key) + gap;
    return {std::max(width - gap, 0), capHeight(font())};
}

void KeyCaps::paintEvent(QPaintEvent*)
{
    const Theme& theme = Theme::current();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QRect cap(0, 0, 0, height());
    for (const QString& key : m_keys) {
        cap.setWidth(capWidth(font(), key));
        painter.setPen(QPen(theme.separator, Stroke::hairline));
        painter.setBrush(theme.window);
        painter.drawRoundedRect(QRectF(cap).adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
        painter.setPen(theme.text);
        painter.drawText(cap, Qt::AlignCenter, key);
        cap.moveLeft(cap.right() + 1 + gap);
    }
}

} // namespace Kovrel
