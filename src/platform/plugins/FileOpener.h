#pragma once

#include "platform/FilePrograms.h"

#include <expected>
#include <vector>

namespace Kovrel {

// What `FilePrograms` is made of: waits for files and programs, so never on the main thread. One thread at a time.
class FileOpener {
public:
    virtual ~FileOpener() = default;

    using Outcome = std::expected<void, QString>; // the failure is one line, for the log

    // As `FilePrograms::openers`.
    virtual std::vector<FileProgram> openers(const QString& fileName) const = 0;
    // With a program, or the one that the user prefers for such files.
    virtual Outcome open(const QString& path, const std::optional<QString>& programID) const = 0;
    // As `FilePrograms::prefer`.
    virtual Outcome prefer(const QString& fileName, const QString& programID) const = 0;
};

} // namespace Kovrel
