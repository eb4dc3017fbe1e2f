#pragma once

#include "historywindow/EmptyState.h"
#include "historywindow/HistoryBrowser.h"
#include "historywindow/HistoryMenu.h"
#include "historywindow/HistoryViewServices.h"
#include "historywindow/grid/HistoryGrid.h"
#include "ui/AppWindow.h"

class QStackedWidget;

namespace Kovrel {

class HistoryPreview;
class HistorySearchField;
class HistorySidebar;
class SuggestionList;
class UndoBar;

// "Recent Captures": every capture that is kept, to be found again. Main thread.
class HistoryWindow : public AppWindow {
    Q_OBJECT

public:
    explicit HistoryWindow(HistoryViewServices services);

    // Comes to the front; what was searched for is there as it was.
    void present();

    HistoryGrid& grid() { return *m_grid; }

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    QWidget* makeContent();
    HistoryPreview* makePreview();
    void connectSearch();
    void connectLists();
    void connectGrid();
    void refresh();
    void refreshSearch();
    void refreshLists();
    void refreshCenter();
    void showSuggestions();
    void showSelected();
    void escape();
    void createList();
    void askBeforeClearing();
    void askBeforeDeletingList(QUuid list);
    void askBeforeTurningOff();
    void tellRemoved(int count);
    EmptyState::Content emptyState();
    HistoryMenu::Situation situation() const;

    HistoryViewServices m_services;
    HistoryBrowser m_browser;
    HistoryModel m_model;
    HistorySearchField* m_search;
    SuggestionList* m_suggestions;
    HistorySidebar* m_sidebar;
    QStackedWidget* m_center;
    HistoryGrid* m_grid;
    EmptyState* m_empty;
    HistoryPreview* m_preview;
    UndoBar* m_undoBar;
    HistoryMenu* m_menu;
    Subscription m_changes;
    Subscription m_pictureChanges;
};

} // namespace Kovrel
