#include "tray/TrayMenu.h"

#include "hotkeys/HotkeySettings.h"
#include "ui/MenuTitle.h"

namespace Kovrel {

TrayMenu::TrayMenu(Preferences& preferences, Handlers handlers)
    : m_preferences(preferences), m_handlers(std::move(handlers)), m_item(QIcon(":/MenuBarIcon.svg"))
{
    m_cancelCountdown = m_menu.addAction(tr("Cancel Countdown"), this, [this] { m_handlers.cancelCountdown(); });
    for (const MenuEntry& entry : CommandTable::menu()) {
        if (entry.beginsGroup)
            m_menu.addSeparator();
        m_commands.emplace_back(m_menu.addAction(menuTitle(entry), this, [this, entry] { m_handlers.perform(entry); }),
                                entry);
    }
    m_menu.addSeparator();
    m_hideCards = m_menu.addAction(QString(), this, [this] { m_handlers.hideCards(!m_handlers.areCardsHidden()); });
    m_windowMenu.setTitle(tr("Windows"));
    m_menu.addMenu(&m_windowMenu);
    m_menu.addAction(tr("Open Kovrel\u2026"), this, [this] { m_handlers.openHome(); });
    m_menu.addAction(tr("Quit Kovrel"), this, [this] { m_handlers.quit(); });
    refresh();

    connect(&m_menu, &QMenu::aboutToShow, this, &TrayMenu::refresh);
    connect(&m_item, &QSystemTrayIcon::activated, this, [this](QSystemTrayIcon::ActivationReason reason) {
        if (reason == QSystemTrayIcon::Trigger)
            m_handlers.openHome();
    });
    m_item.setContextMenu(&m_menu);
    m_item.setToolTip("Kovrel");
}

void TrayMenu::refreshWindows()
{
    m_windowMenu.clear();
    for (const TitledWindows::Entry& window : m_handlers.openWindows()) {
        QAction* action =
            m_windowMenu.addAction(window.title.isEmpty() ? tr("Untitled") : window.title, this, window.focus);
        action->setCheckable(true);
        action->setChecked(window.isActive);
    }
    m_windowMenu.menuAction()->setVisible(!m_windowMenu.isEmpty());
}

void TrayMenu::refresh()
{
    refreshWindows();
    m_cancelCountdown->setVisible(m_handlers.isCountingDown());
    m_hideCards->setVisible(m_handlers.hasCards());
    m_hideCards->setText(m_handlers.areCardsHidden() ? tr("Show Cards") : tr("Temporarily Hide Cards"));
    for (const auto& [action, entry] : m_commands) {
        action->setEnabled(m_handlers.isEnabled(entry));
        // Behind a tab, as a menu shows its shortcut: a real one would only work while the menu is open.
        const auto combo = HotkeySettings::combo(m_preferences, entry);
        const QString keys = combo ? combo->title() : QKeySequence(entry.windowKeys).toString(QKeySequence::NativeText);
        action->setText(menuTitle(entry) + (keys.isEmpty() ? QString() : '\t' + keys));
    }
}

} // namespace Kovrel
