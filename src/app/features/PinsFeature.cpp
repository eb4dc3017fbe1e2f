#include "app/features/PinsFeature.h"

#include "commandline/CommandLine.h"

namespace Kovrel {

namespace {

PinServices servicesOf(Foundation& foundation, const Ports& ports)
{
    Desktop& desktop = *foundation.desktop;
    return {foundation.loop, foundation.workers, desktop.displays(), desktop.pointer(), desktop.panelShapes(), ports};
}

} // namespace

PinsFeature::PinsFeature(Foundation& foundation, Ports& ports)
    : m_pins(servicesOf(foundation, ports)), m_files(servicesOf(foundation, ports), m_pins)
{
    ports.pins.offer(m_pins);
    ports.chrome.push_back(&m_pins);
}

void PinsFeature::start(const Launch&)
{
    m_pins.start();
}

std::vector<CommandHandler> PinsFeature::commands()
{
    return {{.command = "pin", .run = [this](const Invocation& invocation, const Reply<CommandAnswer>& reply) {
                 pinFile(invocation.command, reply);
             }}};
}

void PinsFeature::pinFile(const Command& command, const Reply<CommandAnswer>& reply)
{
    m_files.pin(QString::fromStdString(command.operands.front()), [reply](const PinFiles::Problem& problem) {
        reply(problem ? CommandAnswer{.exitCode = CommandLine::failed, .error = *problem} : CommandAnswer());
    });
}

std::unique_ptr<Feature> makePinsFeature(Foundation& foundation, Ports& ports)
{
    return std::make_unique<PinsFeature>(foundation, ports);
}

} // namespace Kovrel
