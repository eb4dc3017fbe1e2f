#pragma once

#include "historywindow/grid/HistoryModel.h"
#include "historywindow/grid/ThumbnailFeed.h"

#include <QListView>

namespace Kovrel {

// The captures as thumbnails, in a grid or in one row. Only the pictures in view are read, those in its middle first,
// and then the pages before and behind it. Main thread.
class HistoryGrid : public QListView {
    Q_OBJECT

public:
    enum class Shape { grid, row };

    HistoryGrid(Shape shape, HistoryModel& model, MainLoop& loop, Workers& workers, ThumbnailFeed::Read read);

    // In the order in which they are listed.
    QList<QUuid> selectedIds() const;
    QUuid currentId() const;
    void select(QUuid id);
    void selectFirst();
    // Where nothing is selected, the capture at the keyboard's place is, or else the first.
    void selectSomething();

    // Its file is another one now.
    void forgetThumbnail(QUuid id);

    // Whether every picture in view is there.
    bool isComplete() const;

Q_SIGNALS:
    void selectionMoved();
    void opened(QUuid id);
    // A drag may begin: the files of these captures are wanted.
    void dragExpected(const QList<QUuid>& ids);

protected:
    bool event(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void mousePressEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void takeLook();
    void wantPictures();
    void showPicture(QUuid id);
    int usableWidth() const;
    int columns() const;
    QPair<int, int> rowsInView() const; // from the first to before the last
    std::vector<QUuid> inOrderOfUrgency() const;

    Shape m_shape;
    HistoryModel& m_model;
    ThumbnailFeed m_thumbnails;
    bool m_goesDown = true; // as it was scrolled last
};

} // namespace Kovrel
