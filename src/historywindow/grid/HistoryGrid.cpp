#include "historywindow/grid/HistoryGrid.h"

#include "historywindow/grid/HistoryDelegate.h"
#include "ui/LookChanges.h"

#include <QEvent>
#include <QScrollBar>
#include <QWheelEvent>

#include <algorithm>

namespace Kovrel {

HistoryGrid::HistoryGrid(Shape shape, HistoryModel& model, MainLoop& loop, Workers& workers, ThumbnailFeed::Read read)
    : m_shape(shape),
      m_model(model),
      m_thumbnails(loop, workers, std::move(read), [this](QUuid id) { showPicture(id); })
{
    setModel(&model);
    setItemDelegate(new HistoryDelegate(m_thumbnails));
    itemDelegate()->setParent(this);
    // Rows that wrap, not icons that lie about: those are laid out one by one.
    setFlow(LeftToRight);
    setWrapping(shape == Shape::grid);
    setResizeMode(Adjust);
    setUniformItemSizes(true);
    setSelectionMode(ExtendedSelection);
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollMode(ScrollPerPixel);
    if (shape == Shape::grid)
        setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    else
        setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setDragEnabled(true);
    setDragDropMode(DragOnly);
    setEditTriggers(EditKeyPressed);
    setFrameShape(NoFrame);
    setMouseTracking(true);
    viewport()->setAutoFillBackground(false);
    setAccessibleName(tr("Captures"));
    connect(this, &QListView::activated, this,
            [this](const QModelIndex& index) { Q_EMIT opened(m_model.entry(index.row()).id); });
    connect(&model, &QAbstractItemModel::layoutChanged, this, &HistoryGrid::wantPictures, Qt::QueuedConnection);
    connect(&model, &QAbstractItemModel::rowsInserted, this, &HistoryGrid::wantPictures, Qt::QueuedConnection);
    connect(&LookChanges::shared(), &LookChanges::changed, this, &HistoryGrid::takeLook);
    takeLook();
}

void HistoryGrid::takeLook()
{
    m_thumbnails.setBounds((QSizeF(HistoryDelegate::pictureSize()) * devicePixelRatioF()).toSize());
    doItemsLayout();
    wantPictures();
}

QList<QUuid> HistoryGrid::selectedIds() const
{
    QModelIndexList indexes = selectionModel()->selectedIndexes();
    std::ranges::sort(indexes, {}, &QModelIndex::row);
    QList<QUuid> ids;
    for (const QModelIndex& index : indexes)
        ids.append(m_model.entry(index.row()).id);
    return ids;
}

QUuid HistoryGrid::currentId() const
{
    return currentIndex().isValid() ? m_model.entry(currentIndex().row()).id : QUuid();
}

void HistoryGrid::select(QUuid id)
{
    if (const int row = m_model.row(id); row >= 0)
        setCurrentIndex(m_model.index(row));
}

void HistoryGrid::selectFirst()
{
    scrollToTop();
    if (m_model.rowCount() > 0)
        setCurrentIndex(m_model.index(0));
}

void HistoryGrid::selectSomething()
{
    if (selectionModel()->hasSelection() || m_model.rowCount() == 0)
        return;
    setCurrentIndex(currentIndex().isValid() ? currentIndex() : m_model.index(0));
}

// --- Pictures

// A view whose scroll bar comes and goes breaks its rows as if it were there, with what a style puts around it.
int HistoryGrid::usableWidth() const
{
    const auto metric = [this](QStyle::PixelMetric which) { return style()->pixelMetric(which, nullptr, this); };
    return maximumViewportSize().width() - metric(QStyle::PM_ScrollBarExtent) -
           metric(QStyle::PM_ScrollView_ScrollBarSpacing) - 2 * metric(QStyle::PM_DefaultFrameWidth);
}

int HistoryGrid::columns() const
{
    return std::max(1, usableWidth() / HistoryDelegate::cellSize().width());
}

QPair<int, int> HistoryGrid::rowsInView() const
{
    const QSize cell = HistoryDelegate::cellSize();
    const bool isGrid = m_shape == Shape::grid;
    const int across = isGrid ? columns() : 1;
    const int length = isGrid ? cell.height() : cell.width();
    const int from = isGrid ? verticalScrollBar()->value() : horizontalScrollBar()->value();
    const int room = isGrid ? viewport()->height() : viewport()->width();
    const int count = m_model.rowCount();
    return {std::min(from / length * across, count), std::min(((from + room - 1) / length + 1) * across, count)};
}

// What is in view from its middle outwards, then a page where it was scrolled to, then one where it came from.
std::vector<QUuid> HistoryGrid::inOrderOfUrgency() const
{
    const auto view = rowsInView();
    const int page = view.second - view.first;
    std::vector<int> rows;
    for (int row = std::max(0, view.first - page); row < std::min(m_model.rowCount(), view.second + page); ++row)
        rows.push_back(row);
    const int middle = view.first + page / 2;
    const int side = m_goesDown ? 1 : -1;
    std::ranges::sort(rows, {}, [&](int row) {
        const bool isInView = row >= view.first && row < view.second;
        const int distance = std::abs(row - middle);
        return isInView ? distance : distance + ((row - middle) * side > 0 ? page : 3 * page);
    });
    std::vector<QUuid> ids;
    ids.reserve(rows.size());
    for (const int row : rows)
        ids.push_back(m_model.entry(row).id);
    return ids;
}

void HistoryGrid::wantPictures()
{
    m_thumbnails.want(inOrderOfUrgency());
}

void HistoryGrid::forgetThumbnail(QUuid id)
{
    m_thumbnails.forget(id);
    wantPictures();
}

void HistoryGrid::showPicture(QUuid id)
{
    const auto [first, end] = rowsInView();
    for (int row = first; row < end; ++row)
        if (m_model.entry(row).id == id)
            update(m_model.index(row));
}

bool HistoryGrid::isComplete() const
{
    const auto [first, end] = rowsInView();
    for (int row = first; row < end; ++row)
        if (m_thumbnails.isExpected(m_model.entry(row).id))
            return false;
    return true;
}

// --- Events

// Another display may have another scale.
bool HistoryGrid::event(QEvent* event)
{
    const bool isDone = QListView::event(event);
    if (event->type() == QEvent::ScreenChangeInternal)
        takeLook();
    return isDone;
}

// Columns share the width.
void HistoryGrid::resizeEvent(QResizeEvent* event)
{
    const QSize cell = HistoryDelegate::cellSize();
    if (m_shape == Shape::grid)
        setGridSize({usableWidth() / columns(), cell.height()});
    QListView::resizeEvent(event);
    wantPictures();
}

void HistoryGrid::scrollContentsBy(int dx, int dy)
{
    QListView::scrollContentsBy(dx, dy);
    m_goesDown = dx + dy <= 0;
    wantPictures();
}

void HistoryGrid::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected)
{
    QListView::selectionChanged(selected, deselected);
    Q_EMIT selectionMoved();
}

void HistoryGrid::currentChanged(const QModelIndex& current, const QModelIndex& previous)
{
    QListView::currentChanged(current, previous);
    Q_EMIT selectionMoved();
}

void HistoryGrid::mousePressEvent(QMouseEvent* event)
{
    QListView::mousePressEvent(event);
    if (const QList<QUuid> ids = selectedIds(); !ids.isEmpty())
        Q_EMIT dragExpected(ids);
}

// A wheel that only goes up and down moves along a row, too.
void HistoryGrid::wheelEvent(QWheelEvent* event)
{
    if (m_shape == Shape::grid || event->angleDelta().x() != 0) {
        QListView::wheelEvent(event);
        return;
    }
    QWheelEvent along(event->position(), event->globalPosition(), event->pixelDelta().transposed(),
                      event->angleDelta().transposed(), event->buttons(), event->modifiers(), event->phase(),
                      event->inverted());
    QListView::wheelEvent(&along);
}

void HistoryGrid::changeEvent(QEvent* event)
{
    QListView::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        takeLook();
}

} // namespace Kovrel
