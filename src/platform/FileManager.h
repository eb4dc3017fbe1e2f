#pragma once

#include <QString>

namespace Kovrel {

// The desktop's file manager. Fire and forget; a missing file manager is logged.
class FileManager {
public:
    virtual ~FileManager() = default;
    virtual void reveal(const QString& path) = 0;
};

} // namespace Kovrel
