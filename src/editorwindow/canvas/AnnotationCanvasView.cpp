#include "editorwindow/canvas/AnnotationCanvasView.h"

#include "editorwindow/canvas/CanvasCursors.h"
#include "editorwindow/canvas/CanvasOverlay.h"
#include "ui/tokens/Theme.h"

#include <QMouseEvent>
#include <QNativeGestureEvent>
#include <QPainter>

namespace Kovrel {

namespace {

constexpr double zoomStep = 1.25;
constexpr double wheelStep = 120; // of one notch
constexpr double largeNudge = 10;
constexpr qint64 mostSmooth = 5'000'000; // device pixels
constexpr std::chrono::milliseconds untilExact(150);

// Stretching smoothly what will be drawn exactly in a moment must not cost the frame.
bool isSmoothEnough(QSize view)
{
    return qint64(view.width()) * view.height() <= mostSmooth;
}

} // namespace

AnnotationCanvasView::AnnotationCanvasView(EditorSession& session, MeasureUnit measureUnit)
    : m_session(session),
      m_pointing(session),
      m_picture(session.capture(), measureUnit),
      m_viewport(session.capture().image.height(), session.capture().scale),
      m_writing(session, *this),
      m_shownBackdrop(shownDocument().composition.backdrop)
{
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAccessibleName(tr("Canvas"));
    connect(&m_writing, &CanvasWriting::looksDifferent, this, &AnnotationCanvasView::updateOverlay);
    connect(&m_writing, &CanvasWriting::textWanted, this, &AnnotationCanvasView::textWanted);
    connect(&m_writing, &CanvasWriting::textCopied, this, &AnnotationCanvasView::textCopied);
    m_restTimer.setSingleShot(true);
    m_restTimer.setInterval(untilExact);
    connect(&m_restTimer, &QTimer::timeout, this, &AnnotationCanvasView::drawExactly);
    m_changes = session.onChange([this] { follow(); });
    m_picture.setDocument(shownDocument());
    m_viewport.setCanvas(m_picture.area());
}

void AnnotationCanvasView::setRedactions(CanvasPicture::Redactions redactions)
{
    m_picture.setRedactions(std::move(redactions));
    update();
}

void AnnotationCanvasView::setBackdropPicture(const QString& value, const QImage& picture)
{
    m_picture.setBackdropPicture(value, picture);
    update();
}

void AnnotationCanvasView::setFound(std::vector<Rect> boxes, std::vector<Rect> now)
{
    if (!now.empty() && now != m_found.second)
        m_viewport.reveal(now.front());
    m_found = {std::move(boxes), std::move(now)};
    update();
}

// --- What is shown

void AnnotationCanvasView::follow()
{
    const QRect area = m_picture.area();
    const EditorDocument shown = shownDocument();
    if (shown.composition.backdrop != m_shownBackdrop)
        sketchBackdrop();
    m_shownBackdrop = shown.composition.backdrop;
    const QRegion changed = m_picture.setDocument(shown);
    if (m_picture.area() != area)
        takeView();
    if (std::exchange(m_shownCrop, hidingCrop()) != hidingCrop())
        update();
    updatePicture(changed);
    updateOverlay();
}

// What is chosen at a slider is seen at once, and exactly when it rests.
void AnnotationCanvasView::sketchBackdrop()
{
    m_picture.setSketched(true);
    m_restTimer.start();
}

void AnnotationCanvasView::drawExactly()
{
    m_picture.setSketched(false);
    m_picture.setShare(share());
    takeView();
    update();
}

// Of the widget, in its own points, a pixel more than what was drawn for what scaling makes of its edges.
QRect AnnotationCanvasView::fromView(const QRectF& devicePixels) const
{
    const double ratio = devicePixelRatioF();
    return QRectF(devicePixels.topLeft() / ratio, devicePixels.size() / ratio).toAlignedRect().adjusted(-1, -1, 1, 1);
}

void AnnotationCanvasView::updatePicture(const QRegion& changed)
{
    const double enlarged = m_viewport.zoom() / m_picture.share();
    const QPointF origin = m_viewport.toView(QPointF(0, 0));
    for (const QRect& rect : changed)
        update(fromView(QRectF(origin + QPointF(rect.topLeft()) * enlarged, QSizeF(rect.size()) * enlarged)));
}

// While it is chosen, what it leaves out is shaded and not hidden; on a backdrop it is carried out.
std::optional<Rect> AnnotationCanvasView::hidingCrop() const
{
    const EditorComposition& composition = m_session.document().composition;
    const bool isHiding = m_session.tool() != EditorTool::crop && composition.backdrop.isNone();
    return isHiding ? composition.crop : std::nullopt;
}

void AnnotationCanvasView::updateOverlay()
{
    CanvasOverlay overlay(nullptr, m_viewport, devicePixelRatioF());
    layOver(overlay);
    for (const QRegion& area : {m_overlayArea, overlay.area()})
        for (const QRect& rect : area)
            update(fromView(rect));
}

// A crop is chosen on the whole capture, without a backdrop around it.
EditorDocument AnnotationCanvasView::shownDocument() const
{
    EditorDocument document = m_session.document();
    if (m_session.tool() == EditorTool::crop)
        document.composition.backdrop = EditorBackdrop::none;
    return document;
}

void AnnotationCanvasView::takeView()
{
    // The canvas is told in pixels of the capture, the picture's places at its share.
    const QRectF area(m_picture.area());
    const double share = m_picture.share();
    const std::pair placeBefore(m_viewport.toView(QPointF()), m_viewport.zoom());
    m_viewport.setCanvas(QRectF(area.topLeft() / share, area.size() / share).toAlignedRect());
    if (placeBefore != std::pair(m_viewport.toView(QPointF()), m_viewport.zoom()))
        takeShare();
}

// Smaller than the capture, the picture is drawn at the size it is shown; larger, its pixels are enlarged.
double AnnotationCanvasView::share() const
{
    return std::min(m_viewport.zoom(), 1.0);
}

// While somebody zooms or makes the window larger, what is drawn already is stretched.
void AnnotationCanvasView::takeShare()
{
    if (share() != m_picture.share() && m_picture.isDrawn())
        m_restTimer.start();
    else
        m_picture.setShare(share());
    Q_EMIT zoomChanged();
    update();
}

void AnnotationCanvasView::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    m_viewport.setView((QSizeF(size()) * devicePixelRatioF()).toSize(), devicePixelRatioF());
    takeShare();
}

void AnnotationCanvasView::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    const double ratio = devicePixelRatioF();
    QRegion needed;
    for (const QRect& rect : event->region())
        needed += inCanvas(rect);
    const CanvasPixels& pixels = m_picture.drawn(needed);
    // One by one: within a single rectangle pictures are copied, within several they are composed.
    for (const QRect& rect : event->region()) {
        painter.save();
        painter.setClipRect(rect);
        painter.scale(1 / ratio, 1 / ratio);
        paintPicture(painter, pixels, QRectF(QPointF(rect.topLeft()) * ratio, QSizeF(rect.size()) * ratio));
        painter.restore();
    }
    painter.scale(1 / ratio, 1 / ratio);
    painter.setRenderHint(QPainter::Antialiasing);
    CanvasOverlay overlay(&painter, m_viewport, ratio);
    overlay.drawPixelGrid(QRectF({}, QSizeF(m_session.capture().image.size())));
    layOver(overlay);
    m_overlayArea = overlay.area();
}

// What of the picture is to be seen in a part of the widget, with the pixels around that smoothing looks at.
QRect AnnotationCanvasView::inCanvas(const QRect& part) const
{
    const double pixels = devicePixelRatioF() * m_picture.share() / m_viewport.zoom();
    const QPointF origin = m_viewport.toView(QPointF(0, 0)) / devicePixelRatioF();
    const QRectF seen((part.topLeft() - origin) * pixels, QSizeF(part.size()) * pixels);
    return seen.toAlignedRect().adjusted(-2, -2, 2, 2);
}

// `part`: of the view.
void AnnotationCanvasView::paintPicture(QPainter& painter, const CanvasPixels& pixels, const QRectF& part) const
{
    const double enlarged = m_viewport.zoom() / m_picture.share();
    const QRect area = m_picture.area();
    const QPointF corner = m_viewport.toView(QPointF(0, 0)) + QPointF(area.topLeft()) * enlarged;
    const QRectF place(corner, QSizeF(area.size()) * enlarged);
    const QRect covered = pixels.isOpaque() ? place.toAlignedRect().adjusted(1, 1, -1, -1) : QRect();
    for (const QRect& rect : QRegion(part.toAlignedRect()) - covered)
        painter.fillRect(rect, Theme::current().canvas);
    painter.setRenderHint(QPainter::SmoothPixmapTransform,
                          m_picture.share() < 1 && isSmoothEnough(size() * devicePixelRatioF()));
    painter.drawImage(place, pixels.image(), QRectF(area.translated(-pixels.corner())));
}

void AnnotationCanvasView::layOver(CanvasOverlay& overlay) const
{
    const EditorGesture* const gesture = m_pointing.gesture();
    if (m_session.tool() == EditorTool::crop) {
        const Rect canvas = m_session.capture().canvas();
        overlay.drawCrop(m_session.document().composition.crop.value_or(canvas), canvas, gesture != nullptr);
        return;
    }
    if (const auto crop = hidingCrop())
        overlay.hideOutside(*crop, Theme::current().canvas);
    overlay.drawFound(m_found.first, m_found.second);
    if (m_writing.isActive())
        return m_writing.layOver(overlay);
    if (!gesture && m_hovered.mark && !m_hovered.isSelected && m_session.tool() == EditorTool::select)
        if (const Annotation* const mark = m_session.document().mark(*m_hovered.mark))
            overlay.drawHovered(*mark);
    overlay.drawSelection(m_session.selectedMarks());
    if (!gesture)
        return;
    overlay.drawGuides(gesture->guides());
    if (const auto marquee = gesture->marquee())
        overlay.drawMarquee(*marquee);
}

// --- Zoom

double AnnotationCanvasView::zoomPercent() const
{
    return 100 * m_viewport.zoom() * m_session.capture().scale / devicePixelRatioF();
}

void AnnotationCanvasView::setZoomPercent(double percent)
{
    m_viewport.zoomTo(percent / 100 * devicePixelRatioF() / m_session.capture().scale, inView(QRectF(rect()).center()));
    takeShare();
}

void AnnotationCanvasView::zoomBy(double factor, QPointF about)
{
    m_viewport.zoomTo(m_viewport.zoom() * factor, about);
    takeShare();
}

void AnnotationCanvasView::zoomIn()
{
    zoomBy(zoomStep, inView(QRectF(rect()).center()));
}

void AnnotationCanvasView::zoomOut()
{
    zoomBy(1 / zoomStep, inView(QRectF(rect()).center()));
}

void AnnotationCanvasView::fit()
{
    m_viewport.fit();
    takeShare();
}

void AnnotationCanvasView::wheelEvent(QWheelEvent* event)
{
    const QPointF about = inView(event->position());
    if (event->modifiers().testFlag(Qt::ControlModifier)) {
        zoomBy(std::pow(zoomStep, event->angleDelta().y() / wheelStep), about);
        return;
    }
    QPointF by = event->pixelDelta().isNull() ? QPointF(event->angleDelta()) / 2 : QPointF(event->pixelDelta());
    if (event->modifiers().testFlag(Qt::ShiftModifier) && by.x() == 0)
        by = by.transposed();
    m_viewport.pan(inView(by));
    update();
}

void AnnotationCanvasView::pinch(const QNativeGestureEvent& event)
{
    zoomBy(1 + event.value(), inView(event.position()));
}

bool AnnotationCanvasView::event(QEvent* event)
{
    if (event->type() == QEvent::NativeGesture) {
        const auto& gesture = static_cast<const QNativeGestureEvent&>(*event);
        if (gesture.gestureType() == Qt::ZoomNativeGesture) {
            pinch(gesture);
            return true;
        }
    }
    // While somebody writes, letters are no shortcuts.
    if (event->type() == QEvent::ShortcutOverride && m_writing.isActive()) {
        event->accept();
        return true;
    }
    return QWidget::event(event);
}

// --- Pointer

Point AnnotationCanvasView::imagePoint(QPointF widgetPoint) const
{
    return m_viewport.toImage(inView(widgetPoint));
}

QPointF AnnotationCanvasView::widgetPoint(Point imagePoint) const
{
    return m_viewport.fromImage(imagePoint) / devicePixelRatioF();
}

CanvasPointer AnnotationCanvasView::pointer(const QMouseEvent& event, int clicks) const
{
    const Qt::KeyboardModifiers keys = event.modifiers();
    return {.at = imagePoint(event.position()),
            .pixel = m_viewport.imagePointsPerScreenPoint(),
            .shift = keys.testFlag(Qt::ShiftModifier),
            .alt = keys.testFlag(Qt::AltModifier),
            .control = keys.testFlag(Qt::ControlModifier),
            .clicks = clicks};
}

void AnnotationCanvasView::mousePressEvent(QMouseEvent* event)
{
    const bool pans = event->button() == Qt::MiddleButton || (event->button() == Qt::LeftButton && m_isSpaceHeld);
    if (pans) {
        m_panFrom = inView(event->position());
        setCursor(Qt::ClosedHandCursor);
    } else if (event->button() == Qt::LeftButton) {
        press(*event, 1);
    }
}

void AnnotationCanvasView::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        press(*event, 2);
}

void AnnotationCanvasView::press(const QMouseEvent& event, int clicks)
{
    const CanvasPointer place = pointer(event, clicks);
    if (m_writing.hasLabelAt(place.at))
        return m_writing.press(place.at, clicks, place.shift);
    stopWriting();
    m_pointing.press(place);
    updateOverlay();
}

void AnnotationCanvasView::mouseMoveEvent(QMouseEvent* event)
{
    if (m_panFrom) {
        const QPointF at = inView(event->position());
        m_viewport.pan(at - *std::exchange(m_panFrom, at));
        update();
        return;
    }
    const CanvasPointer place = pointer(*event);
    if (m_writing.isActive() && event->buttons().testFlag(Qt::LeftButton) && !m_pointing.isActive())
        m_writing.drag(place.at);
    m_pointing.move(place);
    showCursor(place);
}

void AnnotationCanvasView::mouseReleaseEvent(QMouseEvent* event)
{
    if (m_panFrom && event->button() != Qt::RightButton) {
        m_panFrom.reset();
        showCursor(pointer(*event));
        return;
    }
    if (event->button() != Qt::LeftButton)
        return;
    const auto label = m_pointing.release(pointer(*event));
    if (label)
        write(*label);
    showCursor(pointer(*event));
    updateOverlay();
}

void AnnotationCanvasView::leaveEvent(QEvent* event)
{
    QWidget::leaveEvent(event);
    m_hovered = {};
    updateOverlay();
}

void AnnotationCanvasView::showCursor(const CanvasPointer& place)
{
    if (m_pointing.isActive())
        return;
    const auto target = m_pointing.targetAt(place);
    if (target != std::exchange(m_hovered, target))
        updateOverlay();
    if (m_isSpaceHeld)
        setCursor(Qt::OpenHandCursor);
    else if (m_writing.hasLabelAt(place.at))
        setCursor(Qt::IBeamCursor);
    else
        setCursor(CanvasCursors::of(target, m_session));
}

void AnnotationCanvasView::contextMenuEvent(QContextMenuEvent* event)
{
    if (m_hovered.mark && !m_hovered.isSelected)
        m_session.select({*m_hovered.mark});
    Q_EMIT contextMenuWanted(event->globalPos());
}

// --- Keys

bool AnnotationCanvasView::escape()
{
    if (isWriting()) {
        stopWriting();
        return true;
    }
    if (m_pointing.isActive()) {
        m_pointing.cancel();
        return true;
    }
    if (m_session.selection().empty())
        return false;
    m_session.select({});
    return true;
}

void AnnotationCanvasView::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Space && !isWriting()) {
        m_isSpaceHeld = true;
        setCursor(Qt::OpenHandCursor);
        return;
    }
    const bool isTaken = isWriting() ? m_writing.press(*event) : editKey(*event);
    if (!isTaken)
        QWidget::keyPressEvent(event);
}

void AnnotationCanvasView::keyReleaseEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Space && !event->isAutoRepeat()) {
        m_isSpaceHeld = false;
        unsetCursor();
    }
    QWidget::keyReleaseEvent(event);
}

bool AnnotationCanvasView::editKey(const QKeyEvent& event)
{
    const double step = (event.modifiers().testFlag(Qt::ShiftModifier) ? largeNudge : 1) / m_session.capture().scale;
    switch (event.key()) {
    case Qt::Key_Left:
        m_session.moveBy({-step, 0}, "nudge");
        return true;
    case Qt::Key_Right:
        m_session.moveBy({step, 0}, "nudge");
        return true;
    case Qt::Key_Up:
        m_session.moveBy({0, step}, "nudge");
        return true;
    case Qt::Key_Down:
        m_session.moveBy({0, -step}, "nudge");
        return true;
    case Qt::Key_Delete:
    case Qt::Key_Backspace:
        m_session.removeSelected();
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (m_session.selection().size() != 1 || m_session.selectedMarks().front().kind != Annotation::Kind::text)
            return false;
        write(m_session.selection().front());
        return true;
    default:
        return false;
    }
}

void AnnotationCanvasView::inputMethodEvent(QInputMethodEvent* event)
{
    if (!isWriting())
        return;
    m_writing.takeInput(*event);
    event->accept();
    updateMicroFocus();
}

QVariant AnnotationCanvasView::inputMethodQuery(Qt::InputMethodQuery query) const
{
    const QVariant answer = isWriting() ? m_writing.answer(query, m_viewport, devicePixelRatioF()) : QVariant();
    return answer.isValid() ? answer : QWidget::inputMethodQuery(query);
}

} // namespace Kovrel
