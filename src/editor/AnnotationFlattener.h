#pragma once

#include "editor/backdrop/BackdropMargins.h"
#include "editor/backdrop/EditorBackdrop.h"
#include "editor/backdrop/EditorBackdropRenderer.h"
#include "editor/marks/Annotation.h"
#include "editor/marks/MeasureInk.h"
#include "model/CaptureSubject.h"

#include <QImage>
#include <QMargins>

namespace Kovrel {

// Makes the final picture of an edited capture. Any thread but the main one.
//
// The order, from below: the matte, the capture, blurred and pixelated places, blackouts, highlighters, the shade
// around spotlights, all other marks; on a backdrop its fill, shadow and frame come first, and the capture with all
// that changes it is clipped to its rounded corners. The canvas of the editor draws the same in the same order.
namespace AnnotationFlattener {

struct Input {
    QImage base; // the capture
    std::vector<Annotation> annotations;
    double exportScale = 1;  // pixels of an image point
    QImage blurredFull = {}; // as RedactionSources makes them; made here where they are needed and null
    QImage pixelatedFull = {};
    std::optional<QColor> matte = {}; // laid under what is transparent in the capture
    EditorBackdrop backdrop = EditorBackdrop::none;
    std::optional<CaptureSubject> subject = {}; // pixels of the capture; read from its alpha where there is none
    BackdropMargins margins = {};               // pixels of the capture, as measured on it
    MeasureUnit measureUnit = MeasureUnit::pixels;
    bool grows = true; // where marks stick out; what was cropped ends where it was cropped
};

// By how many pixels the picture grows on each side so that marks which stick out a little stay whole: as many as 8
// image points are at most, so that the same marks stay whole at every scale.
// Redactions and spotlights change the capture and don't reach over it. On a backdrop the picture does not grow.
QMargins exportPadding(const std::vector<Annotation>& annotations, QSize pixels, double exportScale,
                       MeasureUnit measureUnit = MeasureUnit::pixels);

// The finished picture, with the capture's colour profile and density. A null picture when the capture is null, the
// canvas would be too large or memory is short. The renderer keeps what it has prepared for the next time.
QImage render(const Input& input, EditorBackdropRenderer& renderer);

} // namespace AnnotationFlattener

} // namespace Kovrel
