#pragma once

#include "model/OCRResult.h"

#include <QSet>
#include <QUuid>

namespace Kovrel {

// What finds captures by their words, as the history sees it. Main thread.
class HistoryIndexing {
public:
    virtual ~HistoryIndexing() = default;

    // What was read in a capture, codes included.
    virtual void set(QUuid id, const OCRResult& text) = 0;
    // The capture was deleted, or looks different from now on: its words are forgotten.
    virtual void remove(QUuid id) = 0;
    // These captures are all there are.
    virtual void retain(const QSet<QUuid>& ids) = 0;

    // Work in the background makes room for a capture, and goes on when the machine is idle.
    virtual void suspend() = 0;
    virtual void scheduleWhenIdle() = 0;
};

} // namespace Kovrel
