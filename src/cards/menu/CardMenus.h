#pragma once

#include "cards/QuickAccessController.h"
#include "cards/menu/CardFileActions.h"
#include "cards/menu/CardQuickActionsMenu.h"

namespace Kovrel {

// Opens the menus of cards, and sees to it that what is chosen is done. Main thread.
class CardMenus {
public:
    using KeysOf = std::function<std::optional<KeyCombo>(CardQuickAction)>;

    // The controller and the programs outlive it.
    CardMenus(QuickAccessController& controller, FilePrograms& programs, KeysOf keysOf);

    // At a point of the toolkit.
    void open(QUuid card, QPoint position);

private:
    bool canPerform(CardQuickAction action) const;
    void hand(QUuid card, std::function<void(const QString& path)> over);

    QuickAccessController& m_controller;
    FilePrograms& m_programs;
    CardFileActions m_fileActions;
    KeysOf m_keysOf;
    Lifeline m_lifeline;
};

} // namespace Kovrel
