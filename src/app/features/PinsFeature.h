#pragma once

#include "app/foundation/Feature.h"
#include "app/foundation/Foundation.h"
#include "pins/PinFiles.h"

namespace Kovrel {

// Captures and pictures that float above all windows.
class PinsFeature : public Feature {
public:
    PinsFeature(Foundation& foundation, Ports& ports);
    std::vector<CommandHandler> commands() override;
    void start(const Launch& launch) override;

private:
    void pinFile(const Command& command, const Reply<CommandAnswer>& reply);

    PinController m_pins;
    PinFiles m_files;
};

} // namespace Kovrel
