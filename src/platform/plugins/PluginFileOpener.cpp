#include "platform/plugins/PluginFileOpener.h"

#include "platform/plugins/Plugins.h"

namespace Kovrel {

namespace {

std::expected<const FileOpener*, QString> opener()
{
    const auto function = Plugins::find("files", "kovrelFileOpener");
    if (!function)
        return std::unexpected(function.error());
    return reinterpret_cast<PluginFileOpener::Function>(*function)();
}

} // namespace

std::vector<FileProgram> PluginFileOpener::openers(const QString& fileName) const
{
    const auto loaded = opener();
    return loaded ? (*loaded)->openers(fileName) : std::vector<FileProgram>();
}

FileOpener::Outcome PluginFileOpener::open(const QString& path, const std::optional<QString>& programID) const
{
    const auto loaded = opener();
    return loaded ? (*loaded)->open(path, programID) : Outcome(std::unexpected(loaded.error()));
}

FileOpener::Outcome PluginFileOpener::prefer(const QString& fileName, const QString& programID) const
{
    const auto loaded = opener();
    return loaded ? (*loaded)->prefer(fileName, programID) : Outcome(std::unexpected(loaded.error()));
}

} // namespace Kovrel
