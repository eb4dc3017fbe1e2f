#pragma once

#include "app/foundation/Feature.h"
#include "app/foundation/Foundation.h"
#include "ports/Ports.h"
#include "tray/TrayMenu.h"

#include <memory>

namespace Kovrel {

// The item in the tray and its menu.
class TrayFeature : public Feature {
public:
    TrayFeature(Foundation& foundation, Ports& ports);

    void start(const Launch& launch) override;

private:
    TrayMenu::Handlers handlers();
    void helpWithoutTray();

    Foundation& m_foundation;
    const Ports& m_ports;
    std::unique_ptr<TrayMenu> m_menu; // from `start` on
};

} // namespace Kovrel
