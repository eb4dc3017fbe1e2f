#include "editor/document/CroppedCapture.h"

#include "editor/crop/CropSizes.h"
#include "editor/geometry/MarkFrame.h"

namespace Kovrel {

namespace {

// A window that is cut into is none any more.
std::optional<CaptureSubject> cropped(const std::optional<CaptureSubject>& subject, const QRect& pixels)
{
    if (!subject)
        return std::nullopt;
    const Rect& rect = subject->rect;
    const bool isWhole = pixels.left() <= rect.minX() && pixels.top() <= rect.minY() &&
                         pixels.left() + pixels.width() >= rect.maxX() && pixels.top() + pixels.height() >= rect.maxY();
    if (!isWhole)
        return std::nullopt;
    CaptureSubject moved = *subject;
    moved.rect.x -= pixels.left();
    moved.rect.y -= pixels.top();
    return moved;
}

} // namespace

QRect CroppedCapture::pixels(const EditorCapture& capture, const EditorComposition& composition)
{
    const QRect all = capture.image.rect();
    if (!composition.crop)
        return all;
    const Rect canvas = capture.canvas();
    const QRect crop =
        CropSizes::pixelRect(*composition.crop, {canvas.width, canvas.height}, capture.scale, capture.image.size());
    return crop.isEmpty() ? all : crop;
}

CroppedCapture CroppedCapture::of(EditorCapture capture, EditorDocument document)
{
    const QRect crop = pixels(capture, document.composition);
    document.composition.crop.reset();
    if (crop == capture.image.rect())
        return {std::move(capture), std::move(document)};
    const double below = capture.image.height() - crop.top() - crop.height();
    for (Annotation& mark : document.marks)
        mark = MarkFrame::translated(std::move(mark), {-crop.left() / capture.scale, -below / capture.scale});
    capture.subject = cropped(capture.subject, crop);
    capture.image = capture.image.copy(crop);
    return {std::move(capture), std::move(document)};
}

} // namespace Kovrel
