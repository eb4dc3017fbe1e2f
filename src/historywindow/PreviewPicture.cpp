#include "historywindow/PreviewPicture.h"

#include "ui/Ground.h"
#include "ui/tokens/Metrics.h"
#include "ui/tokens/Theme.h"

#include <QPainter>

namespace Kovrel {

namespace {

constexpr int padding = 8;
constexpr double markReach = 2; // around the words
constexpr QSize smallest(200, 150);

} // namespace

PreviewPicture::PreviewPicture()
{
    setMinimumSize(smallest);
    setAccessibleName(tr("Preview"));
}

void PreviewPicture::setPicture(QImage picture)
{
    m_picture = std::move(picture);
    update();
}

void PreviewPicture::setMarks(std::vector<Rect> marks)
{
    m_marks = std::move(marks);
    update();
}

QSize PreviewPicture::room() const
{
    return (QSizeF(size() - QSize(2 * padding, 2 * padding)) * devicePixelRatioF()).toSize();
}

QRectF PreviewPicture::place() const
{
    QRectF place(QPointF(), QSizeF(m_picture.size()) / devicePixelRatioF());
    place.moveCenter(QRectF(rect()).center());
    place.moveTopLeft(place.topLeft().toPoint());
    return place;
}

void PreviewPicture::paintEvent(QPaintEvent*)
{
    const Theme& theme = Theme::current();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    Ground{theme.card, theme.cardEdge, Radius::group}.paint(painter, rect());
    if (m_picture.isNull())
        return;
    const QRectF picture = place();
    painter.drawImage(picture, m_picture);
    QColor fill = theme.accent;
    fill.setAlphaF(0.25F);
    painter.setPen(QPen(theme.accent, Stroke::focusRing));
    painter.setBrush(fill);
    for (const Rect& mark : m_marks) {
        const QRectF words(picture.left() + mark.x * picture.width(),
                           picture.bottom() - (mark.y + mark.height) * picture.height(), mark.width * picture.width(),
                           mark.height * picture.height());
        painter.drawRoundedRect(words.adjusted(-markReach, -markReach, markReach, markReach), 3, 3);
    }
}

void PreviewPicture::resizeEvent(QResizeEvent*)
{
    Q_EMIT roomChanged();
}

} // namespace Kovrel
