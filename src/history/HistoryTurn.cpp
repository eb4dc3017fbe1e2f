#include "history/HistoryTurn.h"

#include "editor/AnnotationFlattener.h"
#include "editor/OwnBackdropPicture.h"
#include "editor/marks/AnnotationTurn.h"

namespace Kovrel {

namespace {

// Counted from the top-left corner, y down.
CaptureSubject turnedSubject(const CaptureSubject& subject, QSize capture, QuarterTurn turn)
{
    const Rect& rect = subject.rect;
    const Rect turned = turn == QuarterTurn::left
                            ? Rect{rect.y, capture.width() - rect.maxX(), rect.height, rect.width}
                            : Rect{capture.height() - rect.maxY(), rect.x, rect.height, rect.width};
    return {turned, subject.cornerRadius};
}

QImage flattened(const HistoryEdit& edit, const HistoryTurn::Capture& capture)
{
    if (edit.annotations.empty() && edit.backdrop.isNone())
        return edit.newBase;
    EditorBackdropRenderer renderer;
    if (const auto own = OwnBackdropPicture::read(edit.backdrop.fill); own && *own)
        renderer.setPicture(edit.backdrop.fill.value, **own);
    return AnnotationFlattener::render(
        {.base = edit.newBase,
         .annotations = edit.annotations,
         .exportScale = capture.entry.pixelScale,
         .backdrop = edit.backdrop,
         .subject = edit.subject,
         .margins = edit.backdrop.autoBalance ? BackdropMargins::measured(edit.newBase) : BackdropMargins{},
         .measureUnit = capture.measureUnit},
        renderer);
}

} // namespace

HistoryEdit HistoryTurn::edit(const Capture& capture, QuarterTurn turn)
{
    const double scale = capture.entry.pixelScale;
    const Size points{capture.base.width() / scale, capture.base.height() / scale};
    HistoryEdit edit{.id = capture.entry.id,
                     .flattened = {},
                     .annotations = {},
                     .backdrop = capture.backdrop,
                     .subject = {},
                     .savedPath = {}, // the file there shows it as it was
                     .png = {},
                     .newBase = turned(capture.base, turn)};
    for (const Annotation& mark : capture.annotations)
        edit.annotations.push_back(AnnotationTurn::turned(mark, points, turn));
    if (capture.entry.subject)
        edit.subject = turnedSubject(*capture.entry.subject, capture.base.size(), turn);
    edit.flattened = flattened(edit, capture);
    return edit;
}

} // namespace Kovrel
