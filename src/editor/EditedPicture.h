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

} // namespace EditedPicture

} // namespace Kovrel
