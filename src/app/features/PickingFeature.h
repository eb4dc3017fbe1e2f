#pragma once

#include "app/foundation/Feature.h"
#include "app/foundation/Foundation.h"
#include "picking/ColorLoupeController.h"
#include "ports/Ports.h"

#include <memory>

namespace Kovrel {

// Colours of the screen and of pictures.
class PickingFeature : public Feature {
public:
    PickingFeature(Foundation& foundation, Ports& ports);

    std::vector<CommandHandler> commands() override;

private:
    void pickColor(const Invocation& invocation, const Reply<CommandAnswer>& reply);
    void pickColorFor(const Invocation& invocation, const Reply<CommandAnswer>& reply);
    void copyPickedColor(const Reply<CommandAnswer>& reply);
    void cancel(quint64 requestID);
    void confirmColor(const QString& text, const QString& hex);

    Foundation& m_foundation;
    const Ports& m_ports;
    std::unique_ptr<ColorLoupeController> m_loupe; // none without a desktop
    quint64 m_requestID = 0;                       // of the command that waits for a colour
    Lifeline m_lifeline;
};

} // namespace Kovrel
