#pragma once

#include "editor/document/EditorCapture.h"
#include "editor/document/EditorDocument.h"
#include "model/MeasureUnit.h"

#include <QImage>

namespace Kovrel {

// The finished picture of an edited capture. Any thread but the main one.
namespace EditedPicture {

// Marks, crop, backdrop and output size carried out. `blurred` and `pixelated` as RedactionSources makes them of the
// whole capture, or null, and then they are made here. Null where memory is short or the picture would be too large.
QImage rendered(const EditorCapture& capture, const EditorDocument& document, MeasureUnit measureUnit,
                const QImage& blurred = {}, const QImage& pixelated = {});

// How large the file is for a choice, where it is `picture` without one and `capture` is what the crop leaves. Pixels.
QSize outputSize(QSize picture, const CropOutputSize& choice, QSize capture);

} // namespace EditedPicture

} // namespace Kovrel
