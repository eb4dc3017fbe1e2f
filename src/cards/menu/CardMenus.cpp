#include "cards/menu/CardMenus.h"

#include <QMimeDatabase>

namespace Kovrel {

namespace {

// What other programs get of a card that was not saved is a PNG.
QString mimeTypeOf(const PiledCard& card)
{
    const QString file = card.savedPath.value_or(card.dragFile.value_or("capture.png"));
    return QMimeDatabase().mimeTypeForFile(file, QMimeDatabase::MatchExtension).name();
}

} // namespace

CardMenus::CardMenus(QuickAccessController& controller, FilePrograms& programs, KeysOf keysOf)
    : m_controller(controller), m_programs(programs), m_fileActions(programs), m_keysOf(std::move(keysOf))
{
    m_controller.setElsewhere(m_lifeline.guard([this](CardQuickAction action, QUuid card) {
        hand(card, [this, action](const QString& path) { m_fileActions.perform(action, path); });
    }));
}

bool CardMenus::canPerform(CardQuickAction action) const
{
    const bool isOfFiles = action == CardQuickAction::quickLook || action == CardQuickAction::openWith ||
                           action == CardQuickAction::openInMail;
    return isOfFiles ? m_fileActions.canPerform(action) : m_controller.canPerform(action);
}

void CardMenus::hand(QUuid card, std::function<void(const QString& path)> over)
{
    m_controller.file(card, m_lifeline.guard([over = std::move(over)](const std::optional<QString>& path) {
        if (path)
            over(*path);
    }));
}

void CardMenus::open(QUuid card, QPoint position)
{
    const PiledCard* piled = m_controller.card(card);
    if (!piled)
        return;
    auto* menu = new CardQuickActionsMenu({.canPerform = [this](CardQuickAction action) { return canPerform(action); },
                                           .keysOf = m_keysOf,
                                           .isSaved = piled->savedPath.has_value(),
                                           .mimeType = mimeTypeOf(*piled)},
                                          m_programs);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    QObject::connect(menu, &CardQuickActionsMenu::chosen, menu,
                     [this, card](CardQuickAction action) { m_controller.perform(action, card); });
    QObject::connect(menu, &CardQuickActionsMenu::openWithChosen, menu, [this, card](const QString& program) {
        hand(card, [this, program](const QString& path) { m_fileActions.openWith(program, path); });
    });
    QObject::connect(menu, &QMenu::aboutToHide, menu, [this, card] { m_controller.quickActionsMenuClosed(card); });
    m_controller.quickActionsMenuOpened(card);
    menu->popup(position);
}

} // namespace Kovrel
