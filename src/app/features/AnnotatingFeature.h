#pragma once

#include "app/foundation/Feature.h"
#include "app/foundation/Foundation.h"
#include "ports/Ports.h"

namespace Kovrel {

// Marks and backdrops on pictures, on the command line.
class AnnotatingFeature : public Feature {
public:
    AnnotatingFeature(Foundation& foundation, Ports&) : m_foundation(foundation) {}

    std::vector<CommandHandler> commands() override;

private:
    Foundation& m_foundation;
};

} // namespace Kovrel
