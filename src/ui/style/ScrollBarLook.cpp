#include "ui/style/ScrollBarLook.h"

#include "ui/tokens/Theme.h"

#include <QPainter>
#include <QStyleOption>

#include <algorithm>

namespace Kovrel {

namespace {

constexpr int shortestHandle = 32;
constexpr double inset = 3;

// Along the bar: where the handle begins, and how long it is.
std::pair<int, int> handleOf(const QStyleOptionSlider& bar, int length)
{
    const qint64 range = qint64(bar.maximum) - bar.minimum;
    if (range <= 0)
        return {0, length};
    const auto share = int(qint64(length) * bar.pageStep / (range + bar.pageStep));
    const int handle = std::clamp(share, std::min(shortestHandle, length), length);
    const int from =
        QStyle::sliderPositionFromValue(bar.minimum, bar.maximum, bar.sliderPosition, length - handle, bar.upsideDown);
    return {from, handle};
}

} // namespace

QRect ScrollBarLook::partOf(const QStyleOptionSlider& bar, QStyle::SubControl part)
{
    const bool isLying = bar.orientation == Qt::Horizontal;
    const int length = isLying ? bar.rect.width() : bar.rect.height();
    const auto [from, handle] = handleOf(bar, length);
    const auto along = [&](int begin, int end) {
        const QRect rect =
            isLying ? QRect(begin, 0, end - begin, bar.rect.height()) : QRect(0, begin, bar.rect.width(), end - begin);
        return QStyle::visualRect(bar.direction, bar.rect, rect.translated(bar.rect.topLeft()));
    };
    switch (part) {
    case QStyle::SC_ScrollBarGroove:
        return bar.rect;
    case QStyle::SC_ScrollBarSlider:
        return along(from, from + handle);
    case QStyle::SC_ScrollBarSubPage:
        return along(0, from);
    case QStyle::SC_ScrollBarAddPage:
        return along(from + handle, length);
    default:
        return {};
    }
}

void ScrollBarLook::paint(QPainter& painter, const QStyleOptionSlider& bar)
{
    const Theme& theme = Theme::current();
    const bool isHeld = bar.activeSubControls.testFlag(QStyle::SC_ScrollBarSlider) &&
                        (bar.state.testFlag(QStyle::State_Sunken) || bar.state.testFlag(QStyle::State_MouseOver));
    painter.fillRect(bar.rect, bar.palette.window());
    if (bar.maximum <= bar.minimum)
        return;
    const QRectF handle = QRectF(partOf(bar, QStyle::SC_ScrollBarSlider)).adjusted(inset, inset, -inset, -inset);
    const double radius = std::min(handle.width(), handle.height()) / 2;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(isHeld ? theme.secondaryText : theme.disabledText);
    painter.drawRoundedRect(handle, radius, radius);
    painter.restore();
}

} // namespace Kovrel
