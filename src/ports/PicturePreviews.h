#pragma once

#include <QString>

namespace Kovrel {

// Windows in which a picture is looked at. Main thread.
class PicturePreviews {
public:
    virtual ~PicturePreviews() = default;

    // A file that may go right after it was read. What can't be read is shown by nobody, and logged.
    virtual void show(const QString& path) = 0;
};

} // namespace Kovrel
