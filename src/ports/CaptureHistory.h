#pragma once

#include "model/CaptureResult.h"
#include "platform/Reply.h"
#include "ports/CaptureSave.h"
#include "saving/EncodedPng.h"

#include <memory>
#include <optional>

namespace Kovrel {

// The record of all captures, as the coordinator uses it. Main thread.
class CaptureHistory {
public:
    struct Reopened {
        CaptureResult result; // as it looked last
        CaptureResult base;   // without marks and backdrop
        std::optional<QString> savedPath;
    };

    virtual ~CaptureHistory() = default;

    // Background indexing makes room for a capture.
    virtual void suspendIndexing() = 0;
    virtual void scheduleIdleIndex() = 0;

    virtual bool isRecording() const = 0;
    // Answers with the path of the history's picture once it is on disk; no value when it is not recorded.
    virtual void record(CaptureResult result, std::shared_ptr<CaptureSave> save, std::shared_ptr<EncodedPng> png,
                        Reply<std::optional<QString>> reply) = 0;
    virtual void setText(QUuid id, const QString& text) = 0;
    virtual void load(QUuid id, Reply<std::optional<Reopened>> reply) = 0;
};

} // namespace Kovrel
