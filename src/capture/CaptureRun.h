#pragma once

#include "capture/CaptureRequest.h"

namespace Kovrel {

// One capture from its start to its end, shared by the steps of its flow.
struct CaptureRun {
    int generation = 0;
    CaptureMode mode = CaptureMode::area;
    CaptureOptions options;
    CaptureReply reply;
    quint64 requestID = 0;
    bool hasEndedSelection = false;
    bool isCancelled = false; // before there was an overlay or a countdown to end

    void fail(const QString& message) { reply.give({.kind = CaptureOutcome::Kind::failed, .message = message}); }
};

} // namespace Kovrel
