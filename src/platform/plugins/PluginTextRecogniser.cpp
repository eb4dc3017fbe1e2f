#include "platform/plugins/PluginTextRecogniser.h"

#include "platform/plugins/Plugins.h"

namespace Kovrel {

std::expected<void, QString> PluginTextRecogniser::load()
{
    if (m_recogniser)
        return {};
    const auto factory = Plugins::find("text", "kovrelMakeTextRecogniser");
    if (!factory)
        return std::unexpected(factory.error());
    m_recogniser.reset(reinterpret_cast<Factory>(*factory)());
    return {};
}

TextRecogniser::Outcome PluginTextRecogniser::recognise(const QImage& picture, const Request& request)
{
    const auto loaded = load();
    return loaded ? m_recogniser->recognise(picture, request)
                  : std::unexpected(Failure{loaded.error(), Failure::Reason::notInstalled});
}

QStringList PluginTextRecogniser::installedLanguages()
{
    return load() ? m_recogniser->installedLanguages() : QStringList();
}

QDateTime PluginTextRecogniser::modelsChanged(const QStringList& languages)
{
    return load() ? m_recogniser->modelsChanged(languages) : QDateTime();
}

void PluginTextRecogniser::releaseMemory()
{
    if (m_recogniser)
        m_recogniser->releaseMemory();
}

} // namespace Kovrel
