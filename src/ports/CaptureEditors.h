#pragma once

#include "model/CaptureResult.h"

#include <QStringList>

namespace Kovrel {

// The windows in which captures are edited. Main thread.
class CaptureEditors {
public:
    virtual ~CaptureEditors() = default;

    virtual void open(CaptureResult result) = 0;
    // Absolute paths.
    virtual void openFiles(const QStringList& paths) = 0;
};

} // namespace Kovrel
