#include "historywindow/PreviewPicture.h"

#include "ui/Ground.h"
#include "ui/tokens/Metrics.h"
#include "ui/tokens/Theme.h"

#include <QPainter>
#include <QResizeEvent>

#include <algorithm>

namespace Kovrel {

namespace {

constexpr int padding = 8;
constexpr double markReach = 2; // around the words
constexpr QSize usualShape(16, 10);
constexpr int leastWidth = 200;
constexpr int leastHeight = 60;
constexpr double mostHeight = 1.4; // of the width

} // namespace

PreviewPicture::PreviewPicture(Preferences& preferences, LiveTextLayer::Doors doors)
    : m_text(new LiveTextLayer(*this, preferences, std::move(doors)))
{
    setMinimumWidth(leastWidth);
    setAccessibleName(tr("Preview"));
}

void PreviewPicture::setPicture(QImage picture)
{
    m_picture = std::move(picture);
    placeText();
    update();
}

void PreviewPicture::setShape(QSize shape)
{
    m_shape = shape.isEmpty() ? usualShape : shape;
    takeHeight();
}

// What is smaller than the room is shown as it is.
void PreviewPicture::takeHeight()
{
    const double scale = m_shape == usualShape ? 0 : 1 / devicePixelRatioF();
    const double room = width() - 2 * padding;
    const double shown = scale > 0 ? std::min(room, m_shape.width() * scale) : room;
    const double height = shown * m_shape.height() / m_shape.width() + 2 * padding;
    setFixedHeight(int(std::clamp(height, double(leastHeight), mostHeight * width())));
}

void PreviewPicture::setMarks(std::vector<Rect> marks)
{
    m_marks = std::move(marks);
    update();
}

void PreviewPicture::setText(const OCRResult& text)
{
    m_text->setReading(text, {}, m_shape);
    placeText();
}

void PreviewPicture::placeText()
{
    const QRectF picture = place();
    m_text->setPlacement(QTransform()
                             .translate(picture.x(), picture.y())
                             .scale(picture.width() / m_shape.width(), picture.height() / m_shape.height()));
}

QSize PreviewPicture::room() const
{
    const double width = this->width() - 2 * padding;
    return (QSizeF(width, mostHeight * this->width() - 2 * padding) * devicePixelRatioF()).toSize();
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

// Another display may have another scale.
bool PreviewPicture::event(QEvent* event)
{
    const bool isDone = QWidget::event(event);
    if (event->type() == QEvent::ScreenChangeInternal) {
        takeHeight();
        Q_EMIT roomChanged();
    }
    return isDone;
}

void PreviewPicture::resizeEvent(QResizeEvent* event)
{
    takeHeight();
    placeText();
    if (event->size().width() != event->oldSize().width())
        Q_EMIT roomChanged();
}

} // namespace Kovrel
