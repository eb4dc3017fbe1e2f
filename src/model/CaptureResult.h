#pragma once

#include "model/CaptureMode.h"
#include "model/CaptureSubject.h"
#include "model/SourceApp.h"

#include <QDateTime>
#include <QImage>
#include <QUuid>

#include <optional>

namespace Kovrel {

// One finished capture.
struct CaptureResult {
    QUuid id;     // new for every capture
    QImage image; // device pixels, device pixel ratio 1
    CaptureMode mode = CaptureMode::area;
    std::optional<quint32> displayID;
    QDateTime date;
    double pixelScale = 2.0; // device pixels per point of the source display
    std::optional<SourceApp> sourceApp;
    std::optional<CaptureSubject> subject; // window captures only

    // The same capture with other pixels, as when a window is set on a backdrop.
    CaptureResult replacing(QImage newImage, std::optional<CaptureSubject> newSubject) const
    {
        CaptureResult copy = *this;
        copy.image = std::move(newImage);
        copy.subject = newSubject;
        return copy;
    }
};

} // namespace Kovrel
