#pragma once

#include "platform/plugins/FileOpener.h"

namespace Kovrel {

// The programs that desktop entries and MIME associations tell, by GIO, which knows every desktop's files for them.
class GioFileOpener : public FileOpener {
public:
    std::vector<FileProgram> openers(const QString& fileName) const override;
    Outcome open(const QString& path, const std::optional<QString>& programID) const override;
    Outcome prefer(const QString& fileName, const QString& programID) const override;
};

} // namespace Kovrel
