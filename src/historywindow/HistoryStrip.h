#pragma once

#include "historywindow/HistoryBrowser.h"
#include "historywindow/HistoryMenu.h"
#include "historywindow/HistoryViewServices.h"
#include "historywindow/grid/HistoryGrid.h"
#include "platform/Display.h"
#include "ui/AppWindow.h"

namespace Kovrel {

class HistorySearchField;
class Label;

// The history as one row along the lower edge of a screen. It goes when something else is clicked. Main thread.
class HistoryStrip : public AppWindow {
    Q_OBJECT

public:
    explicit HistoryStrip(HistoryViewServices services);

    void presentOn(const Display& display);

protected:
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void connectParts();
    void refresh();
    void escape();

    HistoryViewServices m_services;
    HistoryBrowser m_browser;
    HistoryModel m_model;
    HistorySearchField* m_search;
    Label* m_nothing;
    HistoryGrid* m_row;
    HistoryMenu* m_menu;
    Subscription m_changes;
    Subscription m_pictureChanges;
};

} // namespace Kovrel
