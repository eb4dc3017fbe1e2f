#include "app/features/PreferencesFeature.h"

#include "app/commands/PreferencesCommand.h"
#include "ports/HotkeyStatus.h"

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
                 const QStringList operands = operandsOf(invocation.command);
                 PreferencesCommand::run(m_foundation.defaults, operands,
                                         [this, operands, reply](CommandAnswer answer) {
                                             reply(withRefusal(std::move(answer), operands));
                                         });
             }}};
}

// A hotkey that is stored but can't be had is told to whoever sets it.
CommandAnswer PreferencesFeature::withRefusal(CommandAnswer answer, const QStringList& operands) const
{
    if (answer.exitCode != CommandLine::done || operands.front() != "set" || !m_ports.hotkeys)
        return answer;
    if (const auto refusal = m_ports.hotkeys->refusal(operands[1]))
        answer = {.exitCode = CommandLine::failed, .error = *refusal};
    return answer;
}

std::unique_ptr<Feature> makePreferencesFeature(Foundation& foundation, Ports& ports)
{
    return std::make_unique<PreferencesFeature>(foundation, ports);
}

} // namespace Kovrel
