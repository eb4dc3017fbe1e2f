#pragma once

#include "model/CaptureMode.h"
#include "model/CaptureSubject.h"
#include "model/RawStrings.h"

#include <QDateTime>
#include <QString>
#include <QUuid>

#include <optional>

namespace Kovrel {

// The record of one capture.
struct HistoryEntry {
    QUuid id;       // also the stem of every file of the entry
    QDateTime date; // in UTC, since local time costs a look at the time zone each time: made local before it is shown
    // As a raw string: a mode that a newer program wrote is kept as it is.
    QString mode = rawString(CaptureMode::area);
    double pixelScale = 1.0;               // device pixels per point of the screen it came from
    std::optional<QString> savedPath;      // absent while the user has no file of it
    std::optional<QString> title;          // what the user calls it
    std::optional<QString> sourceBundleID; // `SourceApp::identifier`
    std::optional<QString> sourceAppName;
    std::optional<int> pixelWidth; // of the base image
    std::optional<int> pixelHeight;
    std::optional<bool> listOnly; // true: not in the timeline, kept since it is filed in a list
    std::optional<CaptureSubject> subject;

    bool isInTimeline() const { return !listOnly.value_or(false); }

    bool operator==(const HistoryEntry&) const = default;
};

} // namespace Kovrel
