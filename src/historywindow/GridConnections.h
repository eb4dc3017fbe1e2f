#pragma once

#include "historywindow/HistoryMenu.h"
#include "historywindow/HistoryViewServices.h"
#include "historywindow/grid/HistoryGrid.h"
#include "historywindow/grid/HistoryModel.h"

namespace Kovrel {

// What a grid of captures does wherever it stands. Main thread.
namespace GridConnections {

// Its captures are dragged out as files, renamed in their place, and have the menu. All of it lives as long as the
// grid.
void connect(HistoryGrid& grid, HistoryModel& model, HistoryMenu& menu, const HistoryViewServices& services);

} // namespace GridConnections

} // namespace Kovrel
