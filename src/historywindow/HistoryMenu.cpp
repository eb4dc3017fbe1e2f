#include "historywindow/HistoryMenu.h"

#include <QAction>
#include <QMenu>
#include <QWidget>
#include <QWindow>

#include <algorithm>

namespace Kovrel {

HistoryMenu::HistoryMenu(QWidget& window, HistoryActions& actions, CaptureHistoryStore& store, Look look)
    : m_window(window), m_actions(actions), m_store(store), m_look(std::move(look))
{
    addCommands();
    refresh();
}

QAction* HistoryMenu::add(const QString& title, const QKeySequence& keys, Needs needs,
                          std::function<void(const QList<QUuid>&)> work)
{
    auto* action = new QAction(title, this);
    action->setShortcut(keys);
    connect(action, &QAction::triggered, this, [this, work = std::move(work)] {
        if (const QList<QUuid> ids = m_look().ids; !ids.isEmpty())
            work(ids);
    });
    m_window.addAction(action);
    m_commands.emplace_back(action, needs);
    return action;
}

void HistoryMenu::addCommands()
{
    if (m_actions.canEdit())
        add(tr("Edit"), QKeySequence(Qt::CTRL | Qt::Key_E), Needs::one,
            [this](const auto& ids) { m_actions.edit(ids.front()); });
    if (m_actions.canReopen())
        add(tr("Show as Card"), QKeySequence(Qt::CTRL | Qt::Key_R), Needs::some,
            [this](const auto& ids) { m_actions.reopen(ids); });
    if (m_actions.canPin())
        add(tr("Pin to Screen"), QKeySequence(Qt::CTRL | Qt::Key_P), Needs::some,
            [this](const auto& ids) { m_actions.pin(ids); });
    add(tr("Copy"), QKeySequence::Copy, Needs::one, [this](const auto& ids) { m_actions.copy(ids.front()); });
    add(tr("Copy Text"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_C), Needs::one,
        [this](const auto& ids) { m_actions.copyText(ids.front()); });
    add(tr("Save"), QKeySequence::Save, Needs::some, [this](const auto& ids) { m_actions.save(ids); });
    add(tr("Save As\u2026"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S), Needs::one,
        [this](const auto& ids) { m_actions.saveAs(ids.front(), m_window.window()->windowHandle()); });
    add(tr("Show in Files"), QKeySequence(Qt::CTRL | Qt::Key_Return), Needs::one,
        [this](const auto& ids) { m_actions.reveal(ids.front()); });
    add(tr("Rename"), {}, Needs::one, [this](const auto&) { Q_EMIT renameWanted(); });
    add(tr("Delete"), QKeySequence::Delete, Needs::some, [this](const auto& ids) { remove(ids); });
    m_undo = new QAction(tr("Undo"), this);
    m_undo->setShortcut(QKeySequence::Undo);
    connect(m_undo, &QAction::triggered, this, &HistoryMenu::undo);
    m_window.addAction(m_undo);
}

void HistoryMenu::refresh()
{
    const qsizetype count = m_look().ids.size();
    for (const auto& [action, needs] : m_commands)
        action->setEnabled(needs == Needs::one ? count == 1 : count > 0);
    m_undo->setEnabled(m_store.canUndoRemoval());
}

void HistoryMenu::popup(const QPoint& globalPosition)
{
    refresh();
    auto* menu = new QMenu(&m_window);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (const auto& [action, needs] : m_commands)
        menu->addAction(action);
    menu->addSeparator();
    fillLists(*menu);
    menu->popup(globalPosition);
}

void HistoryMenu::fillLists(QMenu& menu)
{
    const Situation now = m_look();
    QMenu* lists = menu.addMenu(tr("Move to List"));
    const auto move = [this, ids = now.ids](QUuid list) { m_store.moveToList({ids.begin(), ids.end()}, list); };
    for (const HistoryList& list : m_store.lists())
        lists->addAction(list.name, this, [move, id = list.id] { move(id); });
    if (!m_store.lists().empty())
        lists->addSeparator();
    lists->addAction(tr("New List"), this,
                     [this, move] { move(m_store.createList(m_store.defaultName(), m_store.nextColor())); });
    lists->setEnabled(!now.ids.isEmpty());
    if (!now.list || now.ids.isEmpty())
        return;
    const QSet<QUuid> ids(now.ids.begin(), now.ids.end());
    menu.addAction(tr("Remove from List"), this, [this, ids, list = *now.list] { m_store.removeFromList(list, ids); });
    const auto isOnlyListed = [this](const QUuid& id) {
        const HistoryEntry* entry = m_store.entry(id);
        return entry && !entry->isInTimeline();
    };
    if (std::ranges::any_of(now.ids, isOnlyListed))
        menu.addAction(tr("Restore to the Timeline"), this, [this, ids] { m_store.restoreToTimeline(ids); });
}

// In the timeline what is filed only leaves it; in its list it goes for good.
void HistoryMenu::remove(const QList<QUuid>& ids)
{
    const QSet<QUuid> set(ids.begin(), ids.end());
    if (m_look().list)
        m_store.remove(set);
    else
        m_store.deleteKeepingFiled(set);
    refresh();
    Q_EMIT removed(int(ids.size()));
}

void HistoryMenu::undo()
{
    m_store.undoRemoval();
    refresh();
    Q_EMIT undone();
}

} // namespace Kovrel
