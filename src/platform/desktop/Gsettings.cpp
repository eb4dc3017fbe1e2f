#include "platform/desktop/Gsettings.h"

#include "platform/processes/ProgramOutput.h"

namespace Kovrel {

namespace {

constexpr auto patience = std::chrono::seconds(5);

} // namespace

std::optional<QString> Gsettings::run(const QStringList& arguments)
{
    const auto output = ProgramOutput::of("gsettings", arguments, patience);
    return output ? std::optional(QString::fromUtf8(*output)) : std::nullopt;
}

} // namespace Kovrel
