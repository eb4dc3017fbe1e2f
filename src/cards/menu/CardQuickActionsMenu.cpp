#include "cards/menu/CardQuickActionsMenu.h"

#include "ui/Symbols.h"
#include "ui/tokens/Theme.h"

#include <QIcon>
#include <QPointer>

namespace Kovrel {

namespace {

struct Entry {
    CardQuickAction action;
    const char* title;
    const char* symbol;
    bool beginsGroup;
};

constexpr Entry entries[] = {
    {CardQuickAction::copy, QT_TRANSLATE_NOOP("Kovrel::CardQuickActionsMenu", "Copy"), "doc.on.doc", false},
    {CardQuickAction::save, QT_TRANSLATE_NOOP("Kovrel::CardQuickActionsMenu", "Save"), "square.and.arrow.down", false},
    {CardQuickAction::edit, QT_TRANSLATE_NOOP("Kovrel::CardQuickActionsMenu", "Edit"), "pencil", false},
    {CardQuickAction::pin, QT_TRANSLATE_NOOP("Kovrel::CardQuickActionsMenu", "Pin to Screen"), "pin", false},
    {CardQuickAction::rotateLeft, QT_TRANSLATE_NOOP("Kovrel::CardQuickActionsMenu", "Rotate Left"), "rotate.left",
     true},
    {CardQuickAction::rotateRight, QT_TRANSLATE_NOOP("Kovrel::CardQuickActionsMenu", "Rotate Right"), "rotate.right",
     false},
    {CardQuickAction::quickLook, QT_TRANSLATE_NOOP("Kovrel::CardQuickActionsMenu", "Preview"), "eye", true},
    {CardQuickAction::showInFinder, QT_TRANSLATE_NOOP("Kovrel::CardQuickActionsMenu", "Show in Files"), "folder",
     false},
    {CardQuickAction::openWith, QT_TRANSLATE_NOOP("Kovrel::CardQuickActionsMenu", "Open With"), "square.grid", false},
    {CardQuickAction::openInMail, QT_TRANSLATE_NOOP("Kovrel::CardQuickActionsMenu", "Open in Mail\u2026"), "envelope",
     false},
    {CardQuickAction::temporarilyHide, QT_TRANSLATE_NOOP("Kovrel::CardQuickActionsMenu", "Temporarily Hide"),
     "eye.slash", true},
    {CardQuickAction::close, QT_TRANSLATE_NOOP("Kovrel::CardQuickActionsMenu", "Close"), "xmark", false},
    {CardQuickAction::closeAll, QT_TRANSLATE_NOOP("Kovrel::CardQuickActionsMenu", "Close All"), "xmark.circle", false},
};

static_assert(std::ranges::equal(entries, allCardQuickActions, {}, &Entry::action));

const Entry& entryOf(CardQuickAction action)
{
    return entries[size_t(action)];
}

QString titleOf(CardQuickAction action, bool isSaved)
{
    if (action == CardQuickAction::save && isSaved)
        return CardQuickActionsMenu::tr("Saved");
    return CardQuickActionsMenu::tr(entryOf(action).title);
}

} // namespace

CardQuickActionsMenu::CardQuickActionsMenu(const Card& card, FilePrograms& programs) : m_programs(programs)
{
    setPalette(Theme::current().palette());
    for (const CardQuickAction action : allCardQuickActions) {
        if (entryOf(action).beginsGroup)
            addSeparator(); // several in a row, or at an end, are shown as one or none
        if (card.canPerform(action))
            add(action, card);
    }
}

void CardQuickActionsMenu::add(CardQuickAction action, const Card& card)
{
    if (action == CardQuickAction::openWith) {
        addOpenWith(card.fileName);
        return;
    }
    const std::optional<KeyCombo> keys = card.keysOf(action);
    const QString title = titleOf(action, card.isSaved) + (keys ? '\t' + keys->title() : QString());
    addAction(Symbols::icon(entryOf(action).symbol), title, this, [this, action] { Q_EMIT chosen(action); });
}

void CardQuickActionsMenu::addOpenWith(const QString& fileName)
{
    const Entry& entry = entryOf(CardQuickAction::openWith);
    m_openWith = addMenu(Symbols::icon(entry.symbol), titleOf(entry.action, false));
    m_openWith->setEnabled(false);
    m_programs.openers(fileName, [menu = QPointer(this)](const std::vector<FileProgram>& programs) {
        if (menu)
            menu->showPrograms(programs);
    });
}

void CardQuickActionsMenu::showPrograms(const std::vector<FileProgram>& programs)
{
    for (const FileProgram& program : programs)
        m_openWith->addAction(QIcon::fromTheme(program.iconName), program.name, this,
                              [this, id = program.id] { Q_EMIT openWithChosen(id); });
    m_openWith->setEnabled(!programs.empty());
}

} // namespace Kovrel
