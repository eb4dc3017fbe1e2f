#include "app/features/PreferencesFeature.h"

#include "app/commands/PreferencesCommand.h"

namespace Kovrel {

namespace {

QStringList operandsOf(const Command& command)
{
    QStringList operands;
    for (const std::string& operand : command.operands)
        operands << QString::fromStdString(operand);
    return operands;
}

} // namespace

std::vector<CommandHandler> PreferencesFeature::commands()
{
    return {{.command = "preferences", .run = [this](const Invocation& invocation, const Reply<CommandAnswer>& reply) {
                 reply(PreferencesCommand::run(m_foundation.defaults, operandsOf(invocation.command)));
             }}};
}

std::unique_ptr<Feature> makePreferencesFeature(Foundation& foundation, Ports& ports)
{
    return std::make_unique<PreferencesFeature>(foundation, ports);
}

} // namespace Kovrel
