#pragma once

#include "platform/Reply.h"

#include <QString>
#include <QUuid>

#include <optional>

namespace Kovrel {

// The files of captures that are handed to other programs, under the names that people read. Main thread; files are
// made elsewhere.
class CaptureFiles {
public:
    virtual ~CaptureFiles() = default;

    // The capture as it looks; nothing when it is not kept, or no place for the file.
    virtual void file(QUuid id, Reply<std::optional<QString>> reply) = 0;
};

} // namespace Kovrel
