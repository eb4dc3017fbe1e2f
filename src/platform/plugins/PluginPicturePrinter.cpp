#include "platform/plugins/PluginPicturePrinter.h"

#include "platform/MainLoop.h"
#include "platform/plugins/Plugins.h"

namespace Kovrel {

void PluginPicturePrinter::print(const QImage& picture, const QString& title, QWindow* parent, Reply<Outcome> reply)
{
    if (const Outcome loaded = load())
        m_printer->print(picture, title, parent, std::move(reply));
    else
        m_loop.post([reply = std::move(reply), loaded] { reply(loaded); });
}

PicturePrinter::Outcome PluginPicturePrinter::load()
{
    if (m_printer)
        return {};
    const auto function = Plugins::find("printing", "kovrelMakePicturePrinter");
    if (!function)
        return std::unexpected(function.error());
    m_printer.reset(reinterpret_cast<Factory>(*function)(m_loop, m_workers));
    return {};
}

} // namespace Kovrel
