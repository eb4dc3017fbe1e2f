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
#include <ranges>

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

constexpr double sketched = 4; // pixels of the canvas to one of its sketch
constexpr int mostPieces = 24; // each costs more than its pixels: many are drawn as one
constexpr int tile = 256;      // pixels, a power of two

// From pixels, y down from the upper left corner of a picture, to target points, y up from the lower left corner of a
// capture in it.
QTransform captureTransform(QPoint origin, int captureHeight)
{
    return {1, 0, 0, -1, double(origin.x()), double(origin.y() + captureHeight)};
}

} // namespace

CanvasPicture::CanvasPicture(EditorCapture capture, MeasureUnit measureUnit)
    : m_capture(std::move(capture)), m_measureUnit(measureUnit)
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
    m_picture = {};
}

void CanvasPicture::setSketched(bool isSketched)
{
    if (isSketched == std::exchange(m_ground.isSketched, isSketched) || isSketched ||
        m_document.composition.backdrop.isNone())
        return;
    takeBackdrop();
    m_picture = {};
}

void CanvasPicture::setShare(double share)
{
    if (share == m_share)
        return;
    m_share = share;
    takeShare();
}

void CanvasPicture::takeShare()
{
    m_shown = {atShare(m_capture.image, m_share), atShare(m_redactions.blurred, m_share),
               atShare(m_redactions.pixelated, m_share)};
    takePadding();
    takeBackdrop();
    m_picture = {};
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
    if (m_document.composition.backdrop.isNone() || (m_card && pixels == m_card->pixels))
        return;
    const auto cardOf = [&pixels](const EditorCapture& capture) {
        return Card{pixels, subjectOf(capture), BackdropMargins::measured(capture.image)};
    };
    if (pixels != m_capture.image.rect()) {
        m_card = cardOf(CroppedCapture::of(m_capture, {{}, m_document.composition}).capture);
        return;
    }
    if (!m_whole)
        m_whole = cardOf(m_capture);
    m_card = m_whole;
}

// In the shown capture.
QPoint CanvasPicture::cardCorner() const
{
    return (QPointF(m_card->pixels.topLeft()) * m_share).toPoint();
}

void CanvasPicture::takeBackdrop()
{
    takeCard();
    const EditorBackdrop& backdrop = m_document.composition.backdrop;
    if (backdrop.isNone()) {
        m_ground.layout.reset();
        m_ground.picture = {};
        return;
    }
    m_ground.layout = layoutAt(scale());
    const auto small = m_ground.isSketched ? layoutAt(scale() / sketched) : std::nullopt;
    m_ground.picture = !m_ground.layout ? QImage()
                       : small          ? m_renderer.sketch(*m_ground.layout, *small, backdrop)
                                        : m_renderer.canvas(*m_ground.layout, backdrop);
}

std::optional<BackdropLayout> CanvasPicture::layoutAt(double scale) const
{
    return EditorBackdropMetrics::layout(m_card->pixels.size(), m_capture.scale, scale, m_document.composition.backdrop,
                                         m_card->subject, m_card->margins);
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
        m_picture = {};
        return QRegion(areaBefore) + area();
    }
    keepBelow(before);
    if (!m_picture.isNull())
        redraw(changed);
    return changed & area();
}

// A mark that changes for the second time is likely to be dragged. What changes the capture lies below all others.
void CanvasPicture::keepBelow(const std::vector<Annotation>& before)
{
    const std::vector<Annotation>& after = m_document.marks;
    const auto first = size_t(std::ranges::mismatch(before, after).in2 - after.begin());
    if (first == before.size() && first == after.size())
        return;
    const auto onCapture = std::views::filter(isOnCapture);
    if (first != m_below.firstChanged || !std::ranges::equal(before | onCapture, after | onCapture))
        m_below = {.firstChanged = first};
    else if (m_below.count == 0)
        m_below.count = first;
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
    if (m_ground.layout)
        return {cardCorner() - m_ground.layout->image.topLeft(), m_ground.layout->canvas};
    return captureArea().marginsAdded(m_padding);
}

const QImage& CanvasPicture::picture()
{
    if (m_picture.isNull())
        drawAll();
    return m_picture;
}

void CanvasPicture::drawAll()
{
    m_below = {};
    m_marked = m_shown.capture;
    m_picture = QImage(area().size(), QImage::Format_ARGB32_Premultiplied);
    redraw(area());
}

// What changes the capture first: all that lies above it is laid on that.
void CanvasPicture::redraw(const QRegion& changed)
{
    const QRegion region = changed.rectCount() > mostPieces ? QRegion(changed.boundingRect()) : changed;
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
    return m_card->pixels == m_capture.image.rect() ? m_marked
                                                    : m_marked.copy({cardCorner(), m_ground.layout->image.size()});
}

void CanvasPicture::redrawPicture(const QRect& rect)
{
    const QRect inPicture = rect.translated(-area().topLeft());
    if (m_below.count > 0)
        drawBelow(rect);
    QPainter painter(&m_picture);
    painter.setClipRect(inPicture);
    if (m_below.count > 0) {
        painter.setCompositionMode(QPainter::CompositionMode_Source);
        painter.drawImage(inPicture.topLeft(), m_below.picture, inPicture);
        painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    } else {
        drawGround(painter, inPicture);
    }
    drawAbove(painter, rect, std::span(m_document.marks).subspan(m_below.count));
}

// In tiles, for what is dragged soon comes by again.
void CanvasPicture::drawBelow(const QRect& rect)
{
    if (m_below.picture.isNull())
        m_below.picture = QImage(m_picture.size(), m_picture.format());
    const QPoint first(rect.left() & -tile, rect.top() & -tile);
    for (int y = first.y(); y <= rect.bottom(); y += tile)
        for (int x = first.x(); x <= rect.right(); x += tile) {
            const QRect place = QRect(x, y, tile, tile) & area();
            if (m_below.drawn.contains(place))
                continue;
            QPainter painter(&m_below.picture);
            painter.setClipRect(place.translated(-area().topLeft()));
            drawGround(painter, place.translated(-area().topLeft()));
            drawAbove(painter, place, std::span(m_document.marks).first(m_below.count));
            m_below.drawn += place;
        }
}

// `rect`: of the picture.
void CanvasPicture::drawGround(QPainter& painter, const QRect& rect) const
{
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    if (m_ground.layout) {
        painter.drawImage(0, 0, m_ground.picture);
        painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
        EditorBackdropRenderer::drawCapture(painter, *m_ground.layout, cardPixels());
        return;
    }
    painter.fillRect(rect, Qt::transparent);
    painter.drawImage(-area().topLeft(), m_marked);
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
}

void CanvasPicture::drawAbove(QPainter& painter, const QRect& rect, std::span<const Annotation> marks)
{
    painter.setTransform(captureTransform(-area().topLeft(), m_shown.size().height()));
    AnnotationDrawing::drawAbove(painter, marks,
                                 {.scale = scale(),
                                  .fullRect = QRectF({}, QSizeF(m_shown.size())),
                                  .culledTo = inTarget(rect),
                                  .reading = {m_measureUnit, m_capture.scale},
                                  .sprites = &m_sprites});
}

} // namespace Kovrel
