#pragma once

#include "app/foundation/Feature.h"
#include "app/foundation/Foundation.h"
#include "ports/Ports.h"

namespace Kovrel {

// The settings, on the command line.
class PreferencesFeature : public Feature {
public:
    PreferencesFeature(Foundation& foundation, Ports& ports) : m_foundation(foundation), m_ports(ports) {}

    std::vector<CommandHandler> commands() override;

private:
    CommandAnswer withRefusal(CommandAnswer answer, const QStringList& operands) const;

    Foundation& m_foundation;
    const Ports& m_ports;
};

} // namespace Kovrel
