#pragma once

#include "app/foundation/Feature.h"
#include "app/foundation/Foundation.h"
#include "ports/Ports.h"

#include <memory>
#include <span>
#include <vector>

namespace Kovrel {

// One capability and how it is made.
struct FeatureEntry {
    const char* name;
    bool needsDesktop;
    std::unique_ptr<Feature> (*make)(Foundation& foundation, Ports& ports);
};

namespace FeatureList {

// Those of Features.def, in that order.
std::span<const FeatureEntry> all();

// Makes them, as far as the foundation has what they need.
std::vector<std::unique_ptr<Feature>> make(std::span<const FeatureEntry> entries, Foundation& foundation, Ports& ports);

} // namespace FeatureList

} // namespace Kovrel
