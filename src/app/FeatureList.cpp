#include "app/FeatureList.h"

namespace Kovrel {

#define FEATURE(name, needs) std::unique_ptr<Feature> make##name##Feature(Foundation& foundation, Ports& ports);
#include "app/features/Features.def"
#undef FEATURE

namespace {

enum Needs { nothing, desktop };

constexpr FeatureEntry list[] = {
#define FEATURE(name, needs) {#name, (needs) == desktop, make##name##Feature},
#include "app/features/Features.def"
#undef FEATURE
};

} // namespace

std::span<const FeatureEntry> FeatureList::all()
{
    return list;
}

std::vector<std::unique_ptr<Feature>> FeatureList::make(std::span<const FeatureEntry> entries, Foundation& foundation,
                                                        Ports& ports)
{
    std::vector<std::unique_ptr<Feature>> features;
    for (const FeatureEntry& entry : entries)
        if (foundation.desktop || !entry.needsDesktop)
            features.push_back(entry.make(foundation, ports));
    return features;
}

} // namespace Kovrel
