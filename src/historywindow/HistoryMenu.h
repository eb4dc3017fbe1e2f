#pragma once

#include "historywindow/HistoryActions.h"

#include <QObject>

class QAction;
class QMenu;
class QWidget;

namespace Kovrel {

// The commands for the captures that are selected, as a menu and by their keys. Main thread.
class HistoryMenu : public QObject {
    Q_OBJECT

public:
    // What is selected, and the list that is looked at.
    struct Situation {
        QList<QUuid> ids;
        std::optional<QUuid> list;
    };

    using Look = std::function<Situation()>;

    // The keys work in `window`.
    HistoryMenu(QWidget& window, HistoryActions& actions, CaptureHistoryStore& store, Look look);

    // The selection has changed.
    void refresh();
    void popup(const QPoint& globalPosition);

Q_SIGNALS:
    void renameWanted();
    // These were taken out of what is looked at, which can be undone.
    void removed(int count);
    void undone();

private:
    enum class Needs { one, some };

    QAction* add(const QString& title, const QKeySequence& keys, Needs needs,
                 std::function<void(const QList<QUuid>&)> work);
    void addCommands();
    void fillLists(QMenu& menu);
    void remove(const QList<QUuid>& ids);
    void undo();

    QWidget& m_window;
    HistoryActions& m_actions;
    CaptureHistoryStore& m_store;
    Look m_look;
    std::vector<std::pair<QAction*, Needs>> m_commands;
    QAction* m_undo = nullptr;
};

} // namespace Kovrel
