#include "editor/EditedPicture.h"

#include "editor/AnnotationFlattener.h"
#include "editor/OwnBackdropPicture.h"
#include "editor/crop/CropSizes.h"
#include "editor/document/CroppedCapture.h"
#include "editor/marks/RedactionSources.h"
#include "imaging/Resampling.h"

#include <algorithm>

namespace Kovrel {

namespace {

bool has(const EditorDocument& document, Annotation::Kind kind)
{
    return std::ranges::find(document.marks, kind, &Annotation::kind) != document.marks.end();
}

// Of the whole capture, so that a crop changes nothing of what a redaction looks like.
QImage cut(const QImage& source, const EditorCapture& capture, const EditorDocument& document)
{
    return source.isNull() ? source : source.copy(CroppedCapture::pixels(capture, document.composition));
}

QImage atOutputSize(const QImage& picture, const CropOutputSize& choice, QSize capture)
{
    return Resampling::resampledExactly(picture, EditedPicture::outputSize(picture.size(), choice, capture))
        .value_or(QImage());
}

// Without a backdrop the whole is drawn and then cut, so that every pixel is as it was before the crop.
QImage onNothing(AnnotationFlattener::Input input, const EditorCapture& capture, const EditorDocument& document)
{
    input.grows = !document.composition.crop;
    EditorBackdropRenderer renderer;
    const QImage picture = AnnotationFlattener::render(input, renderer);
    return input.grows ? picture : picture.copy(CroppedCapture::pixels(capture, document.composition));
}

QImage onBackdrop(AnnotationFlattener::Input input, const EditorCapture& capture, const EditorDocument& document)
{
    const auto source = [&](Annotation::Kind kind, const QImage& made, QImage (*make)(const QImage&, double)) {
        const bool isMadeHere = made.isNull() && document.composition.crop && has(document, kind);
        return cut(isMadeHere ? make(capture.image, capture.scale) : made, capture, document);
    };
    input.blurredFull = source(Annotation::Kind::blur, input.blurredFull, RedactionSources::blurred);
    input.pixelatedFull = source(Annotation::Kind::pixelate, input.pixelatedFull, RedactionSources::pixelated);
    const CroppedCapture cropped = CroppedCapture::of(capture, document);
    input.base = cropped.capture.image;
    input.annotations = cropped.document.marks;
    input.subject = cropped.capture.subject;
    input.margins = BackdropMargins::measured(input.base);
    EditorBackdropRenderer renderer;
    if (const auto own = OwnBackdropPicture::read(input.backdrop.fill); own && *own)
        renderer.setPicture(input.backdrop.fill.value, **own);
    return AnnotationFlattener::render(input, renderer);
}

} // namespace

// Reductions and typed sizes are those of the capture; a backdrop around it is reduced with it.
QSize EditedPicture::outputSize(QSize picture, const CropOutputSize& choice, QSize capture)
{
    const QSize wanted = CropSizes::pixels(choice, capture);
    if (wanted == capture)
        return picture;
    const QSize to(qRound(double(picture.width()) * wanted.width() / capture.width()),
                   qRound(double(picture.height()) * wanted.height() / capture.height()));
    return to.expandedTo({1, 1});
}

QImage EditedPicture::rendered(const EditorCapture& capture, const EditorDocument& document, MeasureUnit measureUnit,
                               const QImage& blurred, const QImage& pixelated)
{
    const AnnotationFlattener::Input input{.base = capture.image,
                                           .annotations = document.marks,
                                           .exportScale = capture.scale,
                                           .blurredFull = blurred,
                                           .pixelatedFull = pixelated,
                                           .backdrop = document.composition.backdrop,
                                           .subject = capture.subject,
                                           .measureUnit = measureUnit};
    const QImage picture =
        input.backdrop.isNone() ? onNothing(input, capture, document) : onBackdrop(input, capture, document);
    return atOutputSize(picture, document.composition.outputSize,
                        CroppedCapture::pixels(capture, document.composition).size());
}

} // namespace Kovrel
