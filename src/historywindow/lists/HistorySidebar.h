#pragma once

#include "historywindow/lists/ListsModel.h"

#include <QWidget>

class QKeyEvent;
class QListView;
class QMenu;

namespace Kovrel {

// The side of the window: the timeline and the lists, and what can be done with lists. Main thread.
class HistorySidebar : public QWidget {
    Q_OBJECT

public:
    HistorySidebar();

    void set(ListsModel::Timeline timeline, std::vector<HistoryList> lists);
    // None: the timeline.
    void select(std::optional<QUuid> list);
    std::optional<QUuid> selected() const;
    void rename(QUuid list);

    ListsModel& model() { return m_model; }

Q_SIGNALS:
    void listSelected();
    void newListWanted();
    void colorChosen(QUuid list, const QString& hex);
    void listDeleted(QUuid list);
    // By the keyboard, which is quickly done where a capture was meant.
    void listDeletionWanted(QUuid list);
    // All that is in no list.
    void clearingWanted();
    void turningOffWanted();
    void settingsWanted();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool takeKey(QKeyEvent& event);
    void showMenu(const QPoint& position);
    void fillTimelineMenu(QMenu& menu);
    void fillListMenu(QMenu& menu, QUuid list);

    ListsModel m_model;
    QListView* m_view;
};

} // namespace Kovrel
