#include "livetext/preview/PreviewWindow.h"

#include "imaging/Resampling.h"
#include "platform/Guarded.h"
#include "platform/Workers.h"
#include "ui/tokens/Metrics.h"
#include "ui/tokens/Theme.h"

#include <QCloseEvent>
#include <QIcon>
#include <QKeyEvent>
#include <QPainter>
#include <QScreen>

#include <algorithm>

namespace Kovrel {

namespace {

constexpr double screenShare = 0.8;
constexpr QSize smallest(240, 160);

} // namespace

PreviewWindow::PreviewWindow(QImage picture, const QString& title, Services services)
    : m_picture(std::move(picture)),
      m_text(new LiveTextLayer(*this, services.preferences, std::move(services.doors))),
      m_scope(services.loop, services.workers)
{
    setWindowTitle(title);
    setWindowIcon(QIcon(":/com.kovrel.Kovrel.svg"));
    setMinimumSize(smallest);
    placeWherePointerIs(usualSize());
}

// Not larger than the picture is by itself.
QSize PreviewWindow::usualSize() const
{
    const QSizeF room = QSizeF(screen()->availableSize()) * screenShare;
    const QSizeF own = QSizeF(m_picture.size()) / devicePixelRatioF();
    const QSizeF shown =
        own.width() > room.width() || own.height() > room.height() ? own.scaled(room, Qt::KeepAspectRatio) : own;
    return shown.toSize().expandedTo(smallest);
}

void PreviewWindow::setReading(const OCRResult& text, const std::vector<QRCode>& codes)
{
    m_text->setReading(text, codes, m_picture.size());
    m_text->setFocus();
}

void PreviewWindow::present()
{
    showNormal();
    raise();
    activateWindow();
}

// In the middle, on whole device pixels.
QRectF PreviewWindow::place() const
{
    const double ratio = devicePixelRatioF();
    const QSizeF own = QSizeF(m_picture.size()) / ratio;
    const QSizeF room = size();
    const bool fits = own.width() <= room.width() && own.height() <= room.height();
    const QSizeF shown = ((fits ? own : own.scaled(room, Qt::KeepAspectRatio)) * ratio).toSize();
    const QPointF corner =
        QPointF((room.width() * ratio - shown.width()) / 2, (room.height() * ratio - shown.height()) / 2);
    return {QPointF(corner.toPoint()) / ratio, shown / ratio};
}

void PreviewWindow::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), Theme::current().canvas);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    const QRectF place = this->place();
    const QSize pixels = (place.size() * devicePixelRatioF()).toSize();
    const bool isExact = m_shown.size() == pixels;
    painter.drawImage(place, isExact ? m_shown : m_picture);
    if (!isExact)
        Scope::start(sharpen(pixels), "making a picture smaller");
}

// While the window changes its size, its picture is drawn quickly; at rest it is as clear as it can be.
QCoro::Task<> PreviewWindow::sharpen(QSize pixels)
{
    if (std::exchange(m_wanted, pixels) == pixels)
        co_return;
    const auto job = [picture = m_picture, pixels] {
        return Resampling::resampledExactly(picture, pixels).value_or(QImage());
    };
    const QImage made = co_await m_scope.onWorker(Lane::thumbnails, Guarded::orElse(job, QImage()));
    if (made.size() == m_wanted) {
        m_shown = made;
        update();
    }
}

void PreviewWindow::resizeEvent(QResizeEvent*)
{
    const QRectF place = this->place();
    m_text->setPlacement(QTransform()
                             .translate(place.x(), place.y())
                             .scale(place.width() / m_picture.width(), place.height() / m_picture.height()));
}

void PreviewWindow::keyPressEvent(QKeyEvent* event)
{
    const bool closes =
        event->key() == Qt::Key_Escape || event->key() == Qt::Key_Space || event->matches(QKeySequence::Close);
    if (closes)
        close();
    else
        AppWindow::keyPressEvent(event);
}

void PreviewWindow::closeEvent(QCloseEvent* event)
{
    event->accept();
    Q_EMIT closed();
}

} // namespace Kovrel
