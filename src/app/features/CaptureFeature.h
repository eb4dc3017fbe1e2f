#pragma once

#include "app/foundation/Feature.h"
#include "app/foundation/Foundation.h"
#include "capture/CaptureCoordinator.h"
#include "capture/pixels/NativeScreenCapture.h"
#include "capture/pixels/WindowBackdropCompositor.h"
#include "capture/selection/SelectionCapture.h"
#include "capture/selection/SelectionOverlayController.h"
#include "ports/Ports.h"

namespace Kovrel {

// Captures, from the request to the finished picture.
class CaptureFeature : public Feature {
public:
    CaptureFeature(Foundation& foundation, Ports& ports);

    std::vector<CommandHandler> commands() override;
    std::vector<SettingsPage> settingsPages() override;
    void prewarm() override;

private:
    CaptureServices services();
    void capture(const Invocation& invocation, const Reply<CommandAnswer>& reply);
    bool canCapture() const;

    Foundation& m_foundation;
    const Ports& m_ports;
    WindowBackdropCompositor m_backdrop;
    NativeScreenCapture m_nativeCapture;
    SelectionOverlayController m_overlay;
    SelectionCapture m_grabber;
    CaptureCoordinator m_coordinator;
    Subscription m_heldModifiers;
};

} // namespace Kovrel
