#include "welcome/ProgressDots.h"

#include "ui/controls/AccessibleRole.h"
#include "ui/tokens/ReadingSide.h"
#include "ui/tokens/Theme.h"

#include <QPainter>

namespace Kovrel {

namespace {

constexpr double radius = 3.5;
constexpr int pitch = 16;

} // namespace

ProgressDots::ProgressDots()
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    AccessibleRole::set(*this, QAccessible::StaticText);
}

void ProgressDots::setProgress(size_t index, size_t count)
{
    m_index = int(index);
    m_count = int(count);
    setAccessibleName(tr("Step %1 of %2").arg(m_index + 1).arg(m_count));
    updateGeometry();
    update();
}

QSize ProgressDots::sizeHint() const
{
    return {pitch * m_count, pitch};
}

void ProgressDots::paintEvent(QPaintEvent*)
{
    const Theme& theme = Theme::current();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    for (int dot = 0; dot < m_count; ++dot) {
        painter.setPen(QPen(theme.accentText, 1));
        painter.setBrush(dot == m_index ? theme.accentText : theme.window);
        const QRectF room(pitch * dot, 0, pitch, height());
        painter.drawEllipse(ReadingSide::placed(room, rect()).center(), radius, radius);
    }
}

} // namespace Kovrel
