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
#include <cmath>
#include <ranges>

namespace Kovrel {

namespace {

using Kind = Annotation::Kind;
using Precision = EditorBackdropRenderer::Precision;

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

constexpr double mostSketched = 64'000; // pixels of a sketch
constexpr int mostPieces = 24;          // each costs more than its pixels: many are drawn as one
constexpr int tile = 256;               // pixels, a power of two

double sketchShare(QSize canvas)
{
    return std::min(1.0, std::sqrt(mostSketched / (double(canvas.width()) * canvas.height())));
}

QRegion inFewPieces(const QRegion& region)
{
    return region.rectCount() > mostPieces ? QRegion(region.boundingRect()) : region;
}

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
    m_picture.forgetAll();
}

void CanvasPicture::setSketched(bool isSketched)
{
    if (isSketched == std::exchange(m_ground.isSketched, isSketched) || isSketched ||
        m_document.composition.backdrop.isNone())
        return;
    takeBackdrop();
    m_picture.forget(QRegion(area()) - insideOfCard());
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
    m_shown = {.capture = atShare(m_capture.image, m_share)};
    takePadding();
    takeBackdrop();
    m_marked = {};
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
    m_ground.layout = m_document.composition.backdrop.isNone() ? std::nullopt : layoutAt(scale());
    m_ground.picture = {};
    m_below = {};
}

const QImage& CanvasPicture::groundPicture()
{
    if (m_ground.picture.isNull()) {
        const EditorBackdrop& backdrop = m_document.composition.backdrop;
        const auto small =
            m_ground.isSketched ? layoutAt(scale() * sketchShare(m_ground.layout->canvas)) : std::nullopt;
        m_ground.picture = small ? m_renderer.canvas(*small, backdrop, Precision::sketched)
                                 : m_renderer.canvas(*m_ground.layout, backdrop);
    }
    return m_ground.picture;
}

bool CanvasPicture::isOpaque() const
{
    if (m_shown.capture.hasAlphaChannel())
        return false;
    return m_ground.layout ? EditorBackdropRenderer::isOpaque(m_document.composition.backdrop.fill)
                           : m_padding.isNull();
}

std::optional<BackdropLayout> CanvasPicture::layoutAt(double scale) const
{
    return EditorBackdropMetrics::layout(m_card->pixels.size(), m_capture.scale, scale, m_document.composition.backdrop,
                                         m_card->subject, m_card->margins);
}

QRegion CanvasPicture::setDocument(const EditorDocument& document)
{
    const QRect areaBefore = area();
    const QRegion insideBefore = insideOfCard();
    const EditorComposition& was = m_document.composition;
    const bool isBackdropChanged = document.composition.backdrop != was.backdrop ||
                                   (!document.composition.backdrop.isNone() && document.composition.crop != was.crop);
    const std::vector<Annotation> before = std::exchange(m_document, document).marks;
    takePadding();
    const QRectF all = inTarget(area());
    const QRectF inPoints(all.topLeft() / scale(), all.size() / scale());
    QRegion changed = pixelsOf(MarkChanges::areas(before, m_document.marks, inPoints));
    if (isBackdropChanged) {
        takeBackdrop();
        changed += (QRegion(areaBefore) + area()) - (insideBefore & insideOfCard());
    }
    keepBelow(before);
    redraw(changed);
    return (changed & area()) + QRegion(areaBefore).xored(area());
}

QRegion CanvasPicture::insideOfCard() const
{
    if (m_shown.capture.hasAlphaChannel())
        return {};
    if (!m_ground.layout)
        return captureArea();
    const QRect image(cardCorner(), m_ground.layout->image.size());
    if (m_card->pixels == m_capture.image.rect() && image.size() != m_shown.size())
        return {};
    const QRect card = m_ground.layout->card.translated(image.topLeft() - m_ground.layout->image.topLeft());
    const int round = int(std::ceil(m_ground.layout->cardRadius));
    const QRect inside = card & image & captureArea();
    return QRegion(inside.adjusted(round, 0, -round, 0)) + inside.adjusted(0, round, 0, -round);
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

const CanvasPixels& CanvasPicture::drawn(const QRegion& needed)
{
    takeMarked();
    if (m_picture.isEmpty() && showsCaptureAlone())
        m_picture.share(m_marked);
    m_picture.setArea(area(), isOpaque());
    const QRegion missing = inFewPieces(m_picture.missing(needed));
    for (const QRect& rect : missing)
        redrawPicture(rect);
    m_picture.setDrawn(missing);
    return m_picture;
}

bool CanvasPicture::showsCaptureAlone() const
{
    return !m_ground.layout && area() == captureArea() && std::ranges::all_of(m_document.marks, isOnCapture);
}

void CanvasPicture::takeMarked()
{
    if (!m_marked.isNull())
        return;
    m_marked = m_shown.capture;
    redrawMarked(captureArea());
}

// What changes the capture first: all that lies above it is laid on that. What is not drawn yet is drawn when it is
// needed.
void CanvasPicture::redraw(const QRegion& changed)
{
    if (!m_marked.isNull())
        for (const QRect& rect : inFewPieces(changed) & captureArea())
            redrawMarked(rect);
    m_picture.forget(changed);
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

// They are made smaller once a mark shows them.
void CanvasPicture::takeRedactions()
{
    const auto take = [this](Kind kind, QImage& shown, const QImage& whole) {
        if (shown.isNull() && std::ranges::find(m_document.marks, kind, &Annotation::kind) != m_document.marks.end())
            shown = atShare(whole, m_share);
    };
    take(Kind::blur, m_shown.blurred, m_redactions.blurred);
    take(Kind::pixelate, m_shown.pixelated, m_redactions.pixelated);
}

// Without marks of the kind the pixels are the capture's own, and shared with it.
void CanvasPicture::redrawMarked(const QRect& rect)
{
    takeRedactions();
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

// Those of `m_marked`, and no copy.
QImage CanvasPicture::cardPixels() const
{
    const QRect place(cardCorner(), m_ground.layout->image.size());
    if (m_card->pixels == m_capture.image.rect() || !m_marked.rect().contains(place))
        return m_card->pixels == m_capture.image.rect() ? m_marked : m_marked.copy(place);
    const uchar* const first = m_marked.constScanLine(place.top()) + qsizetype(place.left()) * m_marked.depth() / 8;
    return {first, place.width(), place.height(), m_marked.bytesPerLine(), m_marked.format()};
}

void CanvasPicture::redrawPicture(const QRect& rect)
{
    const QRect inPicture = rect.translated(-m_picture.corner());
    if (m_below.count > 0)
        drawBelow(rect);
    QPainter painter(&m_picture.image());
    painter.setClipRect(inPicture);
    if (m_below.count > 0) {
        painter.setCompositionMode(QPainter::CompositionMode_Source);
        painter.drawImage(inPicture.topLeft(), m_below.pixels.image(), rect.translated(-m_below.pixels.corner()));
        painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    } else {
        drawGround(painter, m_picture.corner(), rect);
    }
    drawAbove(painter, m_picture.corner(), rect, std::span(m_document.marks).subspan(m_below.count));
}

// In tiles, for what is dragged soon comes by again.
void CanvasPicture::drawBelow(const QRect& rect)
{
    m_below.pixels.setArea(area(), isOpaque());
    const QPoint corner = m_below.pixels.corner();
    const QPoint first(rect.left() & -tile, rect.top() & -tile);
    for (int y = first.y(); y <= rect.bottom(); y += tile)
        for (int x = first.x(); x <= rect.right(); x += tile) {
            for (const QRect& place : m_below.pixels.missing(QRect(x, y, tile, tile))) {
                QPainter painter(&m_below.pixels.image());
                painter.setClipRect(place.translated(-corner));
                drawGround(painter, corner, place);
                drawAbove(painter, corner, place, std::span(m_document.marks).first(m_below.count));
            }
            m_below.pixels.setDrawn(QRect(x, y, tile, tile));
        }
}

// `corner`: the place of the painter's upper left pixel.
void CanvasPicture::drawGround(QPainter& painter, QPoint corner, const QRect& rect)
{
    painter.translate(-corner);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    if (m_ground.layout) {
        painter.translate(area().topLeft());
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.drawImage(QRect({}, m_ground.layout->canvas), groundPicture());
        painter.setRenderHint(QPainter::SmoothPixmapTransform, false);
        painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
        EditorBackdropRenderer::drawCapture(painter, *m_ground.layout, cardPixels());
    } else {
        painter.fillRect(rect, Qt::transparent);
        painter.drawImage(0, 0, m_marked);
        painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    }
    painter.resetTransform();
}

void CanvasPicture::drawAbove(QPainter& painter, QPoint corner, const QRect& rect, std::span<const Annotation> marks)
{
    painter.setTransform(captureTransform(-corner, m_shown.size().height()));
    AnnotationDrawing::drawAbove(painter, marks,
                                 {.scale = scale(),
                                  .fullRect = QRectF({}, QSizeF(m_shown.size())),
                                  .culledTo = inTarget(rect),
                                  .reading = {m_measureUnit, m_capture.scale},
                                  .sprites = &m_sprites});
}

} // namespace Kovrel
