#include "editor/canvas/CanvasPicture.h"

#include "editor/AnnotationFlattener.h"
#include "editor/backdrop/AlphaSubject.h"
#include "editor/backdrop/EditorBackdropMetrics.h"
#include "editor/document/CroppedCapture.h"
#include "editor/geometry/MarkChanges.h"
#include "editor/marks/AnnotationDrawing.h"
#include "imaging/Resampling.h"

#include <QPainter>

#include <algorithm>

namespace Kovrel {

namespace {

using Kind = Annotation::Kind;

QImage paintable(const QImage& image)
{
    return image.convertToFormat(image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32);
}

QImage atShare(const QImage& image, double share)
{
    const QSize size = (QSizeF(image.size()) * share).toSize().expandedTo({1, 1});
    return image.isNull() ? image : Resampling::resampledExactly(image, size).value_or(image);
}

// A look at every pixel.
std::optional<CaptureSubject> subjectOf(const EditorCapture& capture)
{
    return capture.subject ? capture.subject : AlphaSubject::measured(capture.image);
}

bool isOnCapture(const Annotation& mark)
{
    return mark.kind == Kind::blur || mark.kind == Kind::pixelate || mark.kind == Kind::blackout ||
           mark.kind == Kind::highlighter || mark.kind == Kind::spotlight;
}

// From pixels, y down from the upper left corner of a picture, to target points, y up from the lower left corner of a
// capture in it.
QTransform captureTransform(QPoint origin, int captureHeight)
{
    return {1, 0, 0, -1, double(origin.x()), double(origin.y() + captureHeight)};
}

} // namespace

CanvasPicture::CanvasPicture(EditorCapture capture, MeasureUnit measureUnit)
    : m_capture(std::move(capture)),
      m_measureUnit(measureUnit),
      m_whole{m_capture.image.rect(), subjectOf(m_capture), BackdropMargins::measured(m_capture.image)},
      m_card(m_whole)
{
    m_capture.image = paintable(m_capture.image);
    takeShare();
}

void CanvasPicture::setRedactions(Redactions redactions)
{
    m_redactions = std::move(redactions);
    takeShare();
}

void CanvasPicture::setBackdropPicture(const QString& value, const QImage& picture)
{
    m_renderer.setPicture(value, picture);
    takeBackdrop();
    redrawAll();
}

void CanvasPicture::setShare(double share)
{
    m_share = share;
    takeShare();
}

void CanvasPicture::takeShare()
{
    m_shown = {atShare(m_capture.image, m_share), atShare(m_redactions.blurred, m_share),
               atShare(m_redactions.pixelated, m_share)};
    takePadding();
    takeBackdrop();
    redrawAll();
}

// On a backdrop marks may reach over the capture anyway.
void CanvasPicture::takePadding()
{
    m_padding = m_document.composition.backdrop.isNone()
                    ? AnnotationFlattener::exportPadding(m_document.marks, m_shown.size(), scale(), m_measureUnit)
                    : QMargins();
}

// Looked at only where a backdrop asks for it, and the crop is another one.
void CanvasPicture::takeCard()
{
    const QRect pixels = CroppedCapture::pixels(m_capture, m_document.composition);
    if (m_document.composition.backdrop.isNone() || pixels == m_card.pixels)
        return;
    if (pixels == m_whole.pixels) {
        m_card = m_whole;
        return;
    }
    const EditorCapture left = CroppedCapture::of(m_capture, {{}, m_document.composition}).capture;
    m_card = {pixels, subjectOf(left), BackdropMargins::measured(left.image)};
}

// In the shown capture.
QPoint CanvasPicture::cardCorner() const
{
    return (QPointF(m_card.pixels.topLeft()) * m_share).toPoint();
}

void CanvasPicture::takeBackdrop()
{
    takeCard();
    const EditorBackdrop& backdrop = m_document.composition.backdrop;
    if (backdrop.isNone()) {
        m_layout.reset();
        m_backdrop = {};
        return;
    }
    m_layout = EditorBackdropMetrics::layout(m_card.pixels.size(), m_capture.scale, scale(), backdrop, m_card.subject,
                                             m_card.margins);
    m_backdrop = m_layout ? m_renderer.canvas(*m_layout, backdrop) : QImage();
}

QRegion CanvasPicture::setDocument(const EditorDocument& document)
{
    const QRect areaBefore = area();
    const EditorComposition& was = m_document.composition;
    const bool isBackdropChanged = document.composition.backdrop != was.backdrop ||
                                   (!document.composition.backdrop.isNone() && document.composition.crop != was.crop);
    const std::vector<Annotation> before = std::exchange(m_document, document).marks;
    takePadding();
    const QRectF all = inTarget(area());
    const QRectF inPoints(all.topLeft() / scale(), all.size() / scale());
    const QRegion changed = pixelsOf(MarkChanges::areas(before, m_document.marks, inPoints));
    if (isBackdropChanged)
        takeBackdrop();
    if (isBackdropChanged || area() != areaBefore) {
        redrawAll();
        return QRegion(areaBefore) + area();
    }
    redraw(changed);
    return changed & area();
}

// Image points, y up.
QRegion CanvasPicture::pixelsOf(const std::vector<QRectF>& areas) const
{
    QRegion region;
    for (const QRectF& area : areas) {
        const QRectF pixels(area.left() * scale(), m_shown.size().height() - area.bottom() * scale(),
                            area.width() * scale(), area.height() * scale());
        region += pixels.adjusted(-1, -1, 1, 1).toAlignedRect();
    }
    return region;
}

QRect CanvasPicture::area() const
{
    if (m_layout)
        return {cardCorner() - m_layout->image.topLeft(), m_layout->canvas};
    return captureArea().marginsAdded(m_padding);
}

void CanvasPicture::redrawAll()
{
    m_marked = m_shown.capture;
    m_picture = QImage(area().size(), QImage::Format_ARGB32_Premultiplied);
    redraw(area());
}

// What changes the capture first: all that lies above it is laid on that.
void CanvasPicture::redraw(const QRegion& region)
{
    for (const QRect& rect : region& captureArea())
        redrawMarked(rect);
    for (const QRect& rect : region& area())
        redrawPicture(rect);
}

QRectF CanvasPicture::inTarget(const QRect& rect) const
{
    return QRectF(rect.left(), m_shown.size().height() - rect.bottom() - 1, rect.width(), rect.height());
}

// What is to be hidden is hidden before its picture has been made.
std::vector<Annotation> CanvasPicture::marksOnCapture() const
{
    std::vector<Annotation> marks;
    std::ranges::copy_if(m_document.marks, std::back_inserter(marks), isOnCapture);
    for (Annotation& mark : marks)
        if ((mark.kind == Kind::blur && m_shown.blurred.isNull()) ||
            (mark.kind == Kind::pixelate && m_shown.pixelated.isNull()))
            mark.kind = Kind::blackout;
    return marks;
}

// Without marks of the kind the pixels are the capture's own, and shared with it.
void CanvasPicture::redrawMarked(const QRect& rect)
{
    if (std::ranges::none_of(m_document.marks, isOnCapture)) {
        m_marked = m_shown.capture;
        return;
    }
    QPainter painter(&m_marked);
    painter.setClipRect(rect);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.drawImage(rect.topLeft(), m_shown.capture, rect);
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    painter.setTransform(captureTransform({}, m_shown.size().height()));
    const QRectF all({}, QSizeF(m_shown.size()));
    AnnotationDrawing::drawOnCapture(painter, marksOnCapture(),
                                     {.scale = scale(),
                                      .blurredFull = m_shown.blurred,
                                      .pixelatedFull = m_shown.pixelated,
                                      .fullRect = all,
                                      .shadeRegion = {all},
                                      .culledTo = inTarget(rect)});
}

// Of all of it there is no copy.
QImage CanvasPicture::cardPixels() const
{
    return m_card.pixels == m_whole.pixels ? m_marked : m_marked.copy({cardCorner(), m_layout->image.size()});
}

void CanvasPicture::redrawPicture(const QRect& rect)
{
    const QPoint origin = -area().topLeft();
    QPainter painter(&m_picture);
    painter.setClipRect(rect.translated(origin));
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    if (m_layout) {
        painter.drawImage(0, 0, m_backdrop);
        painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
        EditorBackdropRenderer::drawCapture(painter, *m_layout, cardPixels());
    } else {
        painter.fillRect(rect.translated(origin), Qt::transparent);
        painter.drawImage(origin, m_marked);
        painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    }
    painter.setTransform(captureTransform(origin, m_shown.size().height()));
    AnnotationDrawing::drawAbove(painter, m_document.marks,
                                 {.scale = scale(),
                                  .fullRect = QRectF({}, QSizeF(m_shown.size())),
                                  .culledTo = inTarget(rect),
                                  .reading = {m_measureUnit, m_capture.scale}});
}

} // namespace Kovrel
