#include "app/features/AnnotatingFeature.h"

#include "app/commands/AnnotateCommand.h"
#include "app/foundation/CommandJob.h"

namespace Kovrel {

std::vector<CommandHandler> AnnotatingFeature::commands()
{
    return {{.command = "annotate", .run = [this](const Invocation& invocation, const Reply<CommandAnswer>& reply) {
                 const auto settings = AnnotateCommand::settings(m_foundation.preferences);
                 CommandJob::run(
                     m_foundation, Lane::utility,
                     [command = invocation.command, settings] { return AnnotateCommand::run(command, settings); },
                     reply);
             }}};
}

std::unique_ptr<Feature> makeAnnotatingFeature(Foundation& foundation, Ports& ports)
{
    return std::make_unique<AnnotatingFeature>(foundation, ports);
}

} // namespace Kovrel
