#include "editor/AnnotationFlattener.h"

#include "editor/backdrop/AlphaSubject.h"
#include "editor/backdrop/EditorBackdropMetrics.h"
#include "editor/marks/AnnotationDrawing.h"
#include "editor/marks/AnnotationExtent.h"
#include "editor/marks/RedactionSources.h"

#include <QColorSpace>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace Kovrel {

using AnnotationFlattener::Input;

namespace {

constexpr double least = 0.0001;
constexpr double mostPadding = 8; // image points

// Redactions and spotlights change the capture and end where it ends.
bool reachesOver(const Annotation& mark)
{
    using Kind = Annotation::Kind;
    return mark.kind != Kind::blur && mark.kind != Kind::pixelate && mark.kind != Kind::blackout &&
           mark.kind != Kind::spotlight;
}

bool has(const std::vector<Annotation>& annotations, Annotation::Kind kind)
{
    return std::ranges::any_of(annotations, [kind](const Annotation& mark) { return mark.kind == kind; });
}

// In a format that can be painted on. A matte makes it opaque before anything else is done to it, so that redactions
// are made of what is seen.
QImage paintable(const QImage& base, const std::optional<QColor>& matte)
{
    if (!base.hasAlphaChannel() || !matte)
        return base.convertToFormat(base.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied
                                                           : QImage::Format_RGB32);
    QImage picture(base.size(), QImage::Format_RGB32);
    if (picture.isNull())
        return {};
    picture.fill(*matte);
    QPainter(&picture).drawImage(0, 0, base);
    return picture;
}

QImage padded(const QImage& capture, const QMargins& padding)
{
    if (padding.isNull())
        return capture;
    QImage picture(capture.size().grownBy(padding), QImage::Format_ARGB32_Premultiplied);
    if (picture.isNull())
        return {};
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.drawImage(padding.left(), padding.top(), capture);
    return picture;
}

// From pixels, y down, to target points with the origin at the lower left of the capture, y up.
QTransform captureTransform(QPoint captureOrigin, int captureHeight)
{
    return QTransform(1, 0, 0, -1, captureOrigin.x(), captureOrigin.y() + captureHeight);
}

AnnotationDrawing::Scene sceneOf(const Input& input, const QImage& capture)
{
    const QRectF full(QPointF(), capture.size());
    AnnotationDrawing::Scene scene{.scale = input.exportScale,
                                   .blurredFull = input.blurredFull,
                                   .pixelatedFull = input.pixelatedFull,
                                   .fullRect = full,
                                   .shadeRegion = {full},
                                   .reading = {input.measureUnit, input.exportScale}};
    if (scene.blurredFull.isNull() && has(input.annotations, Annotation::Kind::blur))
        scene.blurredFull = RedactionSources::blurred(capture, input.exportScale);
    if (scene.pixelatedFull.isNull() && has(input.annotations, Annotation::Kind::pixelate))
        scene.pixelatedFull = RedactionSources::pixelated(capture, input.exportScale);
    return scene;
}

QImage onNothing(const Input& input, const QImage& capture)
{
    const QMargins padding = input.grows ? AnnotationFlattener::exportPadding(input.annotations, capture.size(),
                                                                              input.exportScale, input.measureUnit)
                                         : QMargins();
    QImage picture = padded(capture, padding);
    if (picture.isNull())
        return {};
    QPainter painter(&picture);
    painter.setTransform(captureTransform({padding.left(), padding.top()}, capture.height()));
    AnnotationDrawing::drawAll(painter, input.annotations, sceneOf(input, capture));
    return picture;
}

QImage onBackdrop(const Input& input, QImage capture, EditorBackdropRenderer& renderer)
{
    const auto subject = input.subject ? input.subject : AlphaSubject::measured(capture);
    const auto layout = EditorBackdropMetrics::layout(capture.size(), input.exportScale, input.exportScale,
                                                      input.backdrop, subject, input.margins);
    QImage picture = layout ? renderer.canvas(*layout, input.backdrop) : QImage();
    if (picture.isNull())
        return {};
    const AnnotationDrawing::Scene scene = sceneOf(input, capture);
    QPainter onCapture(&capture);
    onCapture.setTransform(captureTransform({}, capture.height()));
    AnnotationDrawing::drawOnCapture(onCapture, input.annotations, scene);
    onCapture.end();
    QPainter painter(&picture);
    EditorBackdropRenderer::drawCapture(painter, *layout, capture);
    painter.setTransform(captureTransform(layout->image.topLeft(), capture.height()));
    AnnotationDrawing::drawAbove(painter, input.annotations, scene);
    return picture;
}

} // namespace

QMargins AnnotationFlattener::exportPadding(const std::vector<Annotation>& annotations, QSize pixels,
                                            double exportScale, MeasureUnit measureUnit)
{
    const double scale = std::max(exportScale, least);
    const QRectF image(QPointF(), pixels);
    QRectF covered = image;
    for (const Annotation& mark : annotations)
        if (reachesOver(mark) && !image.contains(AnnotationExtent::cullBound(mark, scale)))
            if (const QRectF extent = AnnotationExtent::rotatedVisualExtent(mark, scale, {measureUnit, scale});
                !extent.isNull())
                covered |= extent;
    const auto padding = [scale](double overhang) {
        return int(std::ceil(std::clamp(overhang, 0.0, mostPadding * scale)));
    };
    return {padding(image.left() - covered.left()), padding(covered.bottom() - image.bottom()),
            padding(covered.right() - image.right()), padding(image.top() - covered.top())};
}

QImage AnnotationFlattener::render(const Input& input, EditorBackdropRenderer& renderer)
{
    const QImage capture = paintable(input.base, input.matte);
    if (capture.isNull())
        return {};
    QImage picture = input.backdrop.isNone() ? onNothing(input, capture) : onBackdrop(input, capture, renderer);
    picture.setColorSpace(input.base.colorSpace());
    picture.setDotsPerMeterX(input.base.dotsPerMeterX());
    picture.setDotsPerMeterY(input.base.dotsPerMeterY());
    return picture;
}

} // namespace Kovrel
