#include "platform/plugins/PluginCodeReader.h"
#include "platform/recognisers/codes/ZbarReader.h"
#include "platform/recognisers/codes/ZxingReader.h"

#include <exception>

namespace Kovrel {

namespace {

class CodesPlugin : public CodeReader {
public:
    Outcome read(const QImage& grey, Engine engine) const override
    {
        if (grey.isNull())
            return {};
        try {
            return engine == Engine::zxing ? ZxingReader::read(grey) : ZbarReader::read(grey);
        } catch (const std::exception& error) {
            return std::unexpected("Codes can't be looked for: " + QString::fromLocal8Bit(error.what()));
        }
    }
};

} // namespace

} // namespace Kovrel

extern "C" __attribute__((visibility("default"))) const Kovrel::CodeReader* kovrelCodeReader()
{
    static const Kovrel::CodesPlugin reader;
    return &reader;
}
