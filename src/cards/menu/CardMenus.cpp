#include "cards/menu/CardMenus.h"

#include "cards/menu/CardQuickActionsMenu.h"
#include "ui/MenuPlace.h"

namespace Kovrel {

namespace {

QString fileNameOf(const PiledCard& card)
{
    return card.savedPath.value_or(card.dragFile.value_or("capture.png"));
}

} // namespace

CardMenus::CardMenus(QuickAccessController& cards, FilePrograms& programs, const Port<PicturePreviews>& previews,
                     KeysOf keysOf)
    : m_cards(cards), m_programs(programs), m_previews(previews), m_keysOf(std::move(keysOf))
{
    cards.setElsewhere([this](CardQuickAction action, QUuid card) {
        withFileOf(card, [this, action](const QString& path) { handOver(action, path); });
    });
}

CardMenus::~CardMenus()
{
    m_cards.setElsewhere({});
    delete m_menu;
}

bool CardMenus::canPerform(CardQuickAction action) const
{
    return m_cards.canPerform(action) && (action != CardQuickAction::openInMail || m_programs.canMail());
}

void CardMenus::open(QUuid id, QPoint globalPosition)
{
    const PiledCard* card = m_cards.card(id);
    if (!card)
        return;
    if (m_menu)
        m_menu->close();
    auto* menu = new CardQuickActionsMenu({.canPerform = [this](CardQuickAction action) { return canPerform(action); },
                                           .keysOf = m_keysOf,
                                           .isSaved = card->savedPath.has_value(),
                                           .fileName = fileNameOf(*card)},
                                          m_programs);
    m_menu = menu;
    menu->setAttribute(Qt::WA_DeleteOnClose);
    using Menu = CardQuickActionsMenu;
    QObject::connect(menu, &Menu::aboutToShow, menu, [this, id] { m_cards.quickActionsMenuOpened(id); });
    QObject::connect(menu, &Menu::aboutToHide, menu, [this, id] { m_cards.quickActionsMenuClosed(id); });
    QObject::connect(menu, &Menu::chosen, menu, [this, id](CardQuickAction action) { m_cards.perform(action, id); });
    QObject::connect(menu, &Menu::openWithChosen, menu, [this, id](const QString& program) {
        withFileOf(id, [this, program](const QString& path) { m_programs.open(path, program); });
    });
    MenuPlace::open(*menu, globalPosition);
}

void CardMenus::handOver(CardQuickAction action, const QString& path)
{
    if (action == CardQuickAction::quickLook && m_previews)
        m_previews->show(path);
    else if (action == CardQuickAction::quickLook)
        m_programs.open(path);
    else if (action == CardQuickAction::openInMail)
        m_programs.mail(path);
}

void CardMenus::withFileOf(QUuid card, std::function<void(const QString&)> work)
{
    m_cards.file(card, m_lifeline.guard([work = std::move(work)](const std::optional<QString>& path) {
        if (path)
            work(*path);
    }));
}

} // namespace Kovrel
