#pragma once

#include "history/HistoryEdit.h"
#include "imaging/QuarterTurn.h"
#include "model/HistoryEntry.h"
#include "model/MeasureUnit.h"

namespace Kovrel {

// A capture that is turned by 90 degrees, which is an edit: its marks turn with it, and its backdrop is drawn anew
// around it. Any thread but the main one.
namespace HistoryTurn {

struct Capture {
    HistoryEntry entry;
    QImage base;
    std::vector<Annotation> annotations = {};
    EditorBackdrop backdrop = EditorBackdrop::none;
    MeasureUnit measureUnit = MeasureUnit::pixels;
};

// Its picture is null where memory is short.
HistoryEdit edit(const Capture& capture, QuarterTurn turn);

} // namespace HistoryTurn

} // namespace Kovrel
