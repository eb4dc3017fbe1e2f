#pragma once

#include "app/foundation/Feature.h"
#include "app/foundation/Foundation.h"
#include "ports/Ports.h"
#include "sounds/CaptureSounds.h"

namespace Kovrel {

// What is heard of captures.
class SoundsFeature : public Feature {
public:
    SoundsFeature(Foundation& foundation, Ports& ports);
    std::vector<SettingsPage> settingsPages() override;

private:
    Preferences& m_preferences;
    CaptureSounds m_sounds;
};

} // namespace Kovrel
