#pragma once

#include "imaging/QuarterTurn.h"
#include "model/CaptureResult.h"
#include "model/OCRResult.h"
#include "model/QRCode.h"
#include "platform/Observers.h"
#include "platform/Reply.h"
#include "ports/CaptureSave.h"
#include "saving/EncodedPng.h"

#include <memory>
#include <optional>
#include <vector>

namespace Kovrel {

// The path of the history's picture, or why there is none.
using RecordOutcome = std::expected<QString, QString>;

// The recording of one capture. Once it is done and has not failed, the capture's pixels can be let go: the history
// has them.
using CaptureRecording = Ongoing<RecordOutcome>;

// The record of all captures, as other parts use it. Main thread.
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
    // Only while it is recording. `save` is the one that is under way, null without one.
    virtual std::shared_ptr<CaptureRecording> record(CaptureResult result, std::shared_ptr<CaptureSave> save,
                                                     std::shared_ptr<EncodedPng> png) = 0;
    // What was read in a capture, so that nobody has to read it again.
    virtual void setReading(QUuid id, OCRResult text, std::vector<QRCode> codes) = 0;
    virtual void load(QUuid id, Reply<std::optional<Reopened>> reply) = 0;

    // Where the user has a file of it; nothing where that has gone.
    virtual void setSavedPath(QUuid id, std::optional<QString> path) = 0;
    // As an edit: marks and backdrop turn with the picture. False when that failed.
    virtual void rotate(QUuid id, QuarterTurn turn, Reply<bool> done) = 0;

    // A capture's files are about to go, for whoever holds them.
    virtual Subscription onForget(std::function<void(QUuid)> observer) = 0;
    // A capture looks different: it was edited.
    virtual Subscription onPictureChange(std::function<void(QUuid)> observer) = 0;
};

} // namespace Kovrel
