#include "historywindow/GridConnections.h"

namespace Kovrel {

void GridConnections::connect(HistoryGrid& grid, HistoryModel& model, HistoryMenu& menu,
                              const HistoryViewServices& services)
{
    QObject::connect(&grid, &HistoryGrid::dragExpected, &grid, services.prepareDragFiles);
    grid.setContextMenuPolicy(Qt::CustomContextMenu);
    QObject::connect(&grid, &QWidget::customContextMenuRequested, &menu,
                     [&grid, &menu](const QPoint& place) { menu.popup(grid.viewport()->mapToGlobal(place)); });
    QObject::connect(&menu, &HistoryMenu::renameWanted, &grid, [&grid] { grid.edit(grid.currentIndex()); });
    QObject::connect(&model, &HistoryModel::titleGiven, &grid,
                     [&store = services.store](QUuid id, const QString& title) {
                         store.setTitle(id, title.isEmpty() ? std::nullopt : std::optional(title));
                     });
}

} // namespace Kovrel
