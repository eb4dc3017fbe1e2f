#pragma once

#include "app/foundation/Feature.h"
#include "app/foundation/Foundation.h"
#include "ports/Ports.h"

namespace Kovrel {

// The settings, on the command line.
class PreferencesFeature : public Feature {
public:
    PreferencesFeature(Foundation& foundation, Ports&) : m_foundation(foundation) {}

    std::vector<CommandHandler> commands() override;

private:
    Foundation& m_foundation;
};

} // namespace Kovrel
