#pragma once

#include "editor/backdrop/EditorBackdrop.h"
#include "editor/marks/Annotation.h"
#include "model/CaptureSubject.h"
#include "saving/EncodedPng.h"

#include <QImage>
#include <QString>
#include <QUuid>

#include <memory>
#include <optional>
#include <vector>

namespace Kovrel {

// What the editor has made of a capture.
struct HistoryEdit {
    QUuid id;
    QImage flattened; // as it looks now, with marks and backdrop
    std::vector<Annotation> annotations;
    EditorBackdrop backdrop = EditorBackdrop::none;
    std::optional<CaptureSubject> subject;
    std::optional<QString> savedPath; // as the editor knew it when it began
    std::shared_ptr<EncodedPng> png;  // of the flattened picture, where others want it too; may be null
    QImage newBase = {};              // where the capture itself was replaced, as by a crop; null: it is as it was
};

} // namespace Kovrel
