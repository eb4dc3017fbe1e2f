#pragma once

#include "platform/plugins/FileOpener.h"

namespace Kovrel {

// The opener of the plugin "files", which is loaded when it is first used.
class PluginFileOpener : public FileOpener {
public:
    std::vector<FileProgram> openers(const QString& fileName) const override;
    Outcome open(const QString& path, const std::optional<QString>& programID) const override;
    Outcome prefer(const QString& fileName, const QString& programID) const override;

    // What the plugin exports, as `kovrelFileOpener`: an object that lives as long as the program.
    using Function = const FileOpener* (*)();
};

} // namespace Kovrel
