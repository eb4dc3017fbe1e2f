#pragma once

#include "app/foundation/Feature.h"
#include "app/foundation/Foundation.h"
#include "cards/ClosedCards.h"
#include "cards/QuickAccessController.h"
#include "cards/chords/CardChordActions.h"
#include "cards/menu/CardMenus.h"
#include "cards/panels/CardPanels.h"
#include "ports/Ports.h"

namespace Kovrel {

// The cards of recent captures in a corner of the screen, and the way back for those that were closed.
class CardsFeature : public Feature {
public:
    CardsFeature(Foundation& foundation, Ports& ports);

    std::vector<CommandHandler> commands() override;
    std::vector<SettingsPage> settingsPages() override;
    void start(const Launch& launch) override;
    void prewarmLater() override;

private:
    CardServices services();
    void reopen(const Reply<CommandAnswer>& reply);
    QString reopenKeys() const;
    void copyText(const QString& text);

    Foundation& m_foundation;
    Ports& m_ports;
    ClosedCards m_closed;
    CardPanels m_panels;
    QuickAccessController m_controller;
    CardChordHotkeys m_hotkeys;
    CardChordActions m_chords;
    CardMenus m_menus;
};

} // namespace Kovrel
