#include "platform/PluginTextRecogniser.h"

#include "platform/Plugins.h"

namespace Kovrel {

namespace {

// The recogniser's own threads cost six times what they save. Its OpenMP library reads this once, when it is loaded;
// programs that we start shall not inherit it.
class SingleThreadedOpenMP {
public:
    SingleThreadedOpenMP()
    {
        if (!m_wasSet)
            qputenv(name, "1");
    }

    ~SingleThreadedOpenMP()
    {
        if (!m_wasSet)
            qunsetenv(name);
    }

private:
    static constexpr const char* name = "OMP_THREAD_LIMIT";
    const bool m_wasSet = qEnvironmentVariableIsSet(name);
};

} // namespace

std::expected<void, QString> PluginTextRecogniser::load()
{
    if (m_recogniser)
        return {};
    const SingleThreadedOpenMP environment;
    const auto factory = Plugins::find("text", "kovrelMakeTextRecogniser");
    if (!factory)
        return std::unexpected(factory.error());
    m_recogniser.reset(reinterpret_cast<Factory>(*factory)());
    return {};
}

TextRecogniser::Outcome PluginTextRecogniser::recognise(const QImage& picture, const Request& request)
{
    const auto loaded = load();
    return loaded ? m_recogniser->recognise(picture, request) : std::unexpected(Failure{loaded.error()});
}

} // namespace Kovrel
