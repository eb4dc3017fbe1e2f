#include "editor/AnnotationFlattener.h"

#include "editor/AnnotationDrawing.h"
#include "editor/AnnotationExtent.h"
#include "editor/RedactionSources.h"

#include <QColorSpace>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace Kovrel {

using AnnotationFlattener::Input;

namespace {

constexpr double least = 0.0001;
constexpr int mostPadding = 8;

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

// The capture on its matte, in the middle of what it is padded with.
QImage paddedCapture(const Input& input, const QMargins& padding)
{
    const bool isOpaque = !input.base.hasAlphaChannel() && padding.isNull();
    const QSize size = input.base.size().grownBy(padding);
    QImage picture(size, isOpaque ? QImage::Format_RGB32 : QImage::Format_ARGB32_Premultiplied);
    if (picture.isNull())
        return {};
    const QPoint origin(padding.left(), padding.top());
    if (!isOpaque)
        picture.fill(Qt::transparent);
    QPainter painter(&picture);
    if (input.matte)
        painter.fillRect(QRect(origin, input.base.size()), *input.matte);
    painter.setCompositionMode(isOpaque ? QPainter::CompositionMode_Source : QPainter::CompositionMode_SourceOver);
    painter.drawImage(origin, input.base);
    return picture;
}

// From pixels, y down, to target points with the origin at the lower left of the capture, y up.
QTransform captureTransform(QPoint captureOrigin, int captureHeight)
{
    return QTransform(1, 0, 0, -1, captureOrigin.x(), captureOrigin.y() + captureHeight);
}

AnnotationDrawing::Scene sceneOf(const Input& input)
{
    const QRectF full(QPointF(), input.base.size());
    AnnotationDrawing::Scene scene{.scale = input.exportScale,
                                   .blurredFull = input.blurredFull,
                                   .pixelatedFull = input.pixelatedFull,
                                   .fullRect = full,
                                   .shadeRegion = {full},
                                   .reading = {input.measureUnit, input.exportScale}};
    if (scene.blurredFull.isNull() && has(input.annotations, Annotation::Kind::blur))
        scene.blurredFull = RedactionSources::blurred(input.base, input.exportScale);
    if (scene.pixelatedFull.isNull() && has(input.annotations, Annotation::Kind::pixelate))
        scene.pixelatedFull = RedactionSources::pixelated(input.base, input.exportScale);
    return scene;
}

} // namespace

QMargins AnnotationFlattener::exportPadding(const std::vector<Annotation>& annotations, QSize pixels,
                                            double exportScale)
{
    const double scale = std::max(exportScale, least);
    const QRectF image(QPointF(), pixels);
    QRectF covered = image;
    for (const Annotation& mark : annotations)
        if (reachesOver(mark))
            if (const QRectF extent = AnnotationExtent::rotatedVisualExtent(mark, scale); !extent.isNull())
                covered |= extent.adjusted(-1, -1, 1, 1);
    const auto padding = [](double overhang) {
        return int(std::ceil(std::clamp<double>(overhang - 1, 0, mostPadding)));
    };
    return {padding(image.left() - covered.left()), padding(covered.bottom() - image.bottom()),
            padding(covered.right() - image.right()), padding(image.top() - covered.top())};
}

QImage AnnotationFlattener::render(const Input& input)
{
    if (input.base.isNull())
        return {};
    const QMargins padding = exportPadding(input.annotations, input.base.size(), input.exportScale);
    QImage picture = paddedCapture(input, padding);
    if (picture.isNull())
        return {};
    QPainter painter(&picture);
    painter.setTransform(captureTransform({padding.left(), padding.top()}, input.base.height()));
    AnnotationDrawing::drawAll(painter, input.annotations, sceneOf(input));
    painter.end();
    picture.setColorSpace(input.base.colorSpace());
    picture.setDotsPerMeterX(input.base.dotsPerMeterX());
    picture.setDotsPerMeterY(input.base.dotsPerMeterY());
    return picture;
}

} // namespace Kovrel
