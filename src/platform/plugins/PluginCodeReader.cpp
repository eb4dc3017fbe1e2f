#include "platform/plugins/PluginCodeReader.h"

#include "platform/plugins/Plugins.h"

namespace Kovrel {

CodeReader::Outcome PluginCodeReader::read(const QImage& grey, Engine engine) const
{
    static const auto function = Plugins::find("codes", "kovrelCodeReader");
    if (!function)
        return std::unexpected(function.error());
    return reinterpret_cast<Function>(*function)()->read(grey, engine);
}

} // namespace Kovrel
