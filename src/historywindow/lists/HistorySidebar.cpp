#include "historywindow/lists/HistorySidebar.h"

#include "historywindow/lists/ListsDelegate.h"
#include "ui/Label.h"
#include "ui/controls/RowButton.h"
#include "ui/tokens/Metrics.h"

#include <QBoxLayout>
#include <QKeyEvent>
#include <QListView>
#include <QMenu>
#include <QPainter>

namespace Kovrel {

namespace {

QIcon dot(const QString& hex)
{
    constexpr int side = 32;
    QPixmap picture(side, side);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(hex));
    painter.drawEllipse(picture.rect().adjusted(4, 4, -4, -4));
    return picture;
}

} // namespace

HistorySidebar::HistorySidebar()
{
    m_view = new QListView;
    m_view->setModel(&m_model);
    m_view->setItemDelegate(new ListsDelegate(m_view));
    m_view->setFrameShape(QFrame::NoFrame);
    m_view->viewport()->setAutoFillBackground(false);
    m_view->setMouseTracking(true);
    m_view->setDragDropMode(QListView::DragDrop);
    m_view->setEditTriggers(QListView::EditKeyPressed | QListView::DoubleClicked);
    m_view->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_view->setContextMenuPolicy(Qt::CustomContextMenu);
    m_view->setAccessibleName(tr("Lists"));
    m_view->installEventFilter(this);
    connect(m_view, &QListView::customContextMenuRequested, this, &HistorySidebar::showMenu);
    connect(m_view->selectionModel(), &QItemSelectionModel::currentChanged, this, &HistorySidebar::listSelected);

    auto* newList = new RowButton(tr("New List"));
    connect(newList, &QPushButton::clicked, this, &HistorySidebar::newListWanted);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(Spacing::small);
    layout->addWidget(m_view, 1);
    layout->addWidget(newList);
}

void HistorySidebar::set(ListsModel::Timeline timeline, std::vector<HistoryList> lists)
{
    const auto before = selected();
    {
        const QSignalBlocker silent(m_view->selectionModel());
        m_model.set(std::move(timeline), std::move(lists));
        m_view->setCurrentIndex(m_model.index(m_model.row(before)));
    }
    m_view->viewport()->update();
    if (selected() != before)
        Q_EMIT listSelected();
}

void HistorySidebar::select(std::optional<QUuid> list)
{
    m_view->setCurrentIndex(m_model.index(m_model.row(list)));
}

std::optional<QUuid> HistorySidebar::selected() const
{
    return m_model.listAt(m_view->currentIndex().row());
}

void HistorySidebar::rename(QUuid list)
{
    m_view->setFocus();
    m_view->edit(m_model.index(m_model.row(list)));
}

// Where the window has a shortcut for the same key, it asks first whether somebody else takes it.
bool HistorySidebar::eventFilter(QObject* watched, QEvent* event)
{
    const bool isKey = event->type() == QEvent::ShortcutOverride || event->type() == QEvent::KeyPress;
    return (isKey && takeKey(static_cast<QKeyEvent&>(*event))) || QWidget::eventFilter(watched, event);
}

// What is selected beside the lists is not meant while they have the focus.
bool HistorySidebar::takeKey(QKeyEvent& event)
{
    if (!event.matches(QKeySequence::Delete))
        return false;
    event.accept();
    if (const auto list = selected(); list && event.type() == QEvent::KeyPress)
        Q_EMIT listDeletionWanted(*list);
    return true;
}

void HistorySidebar::showMenu(const QPoint& position)
{
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    if (const auto list = m_model.listAt(m_view->indexAt(position).row()))
        fillListMenu(*menu, *list);
    else
        fillTimelineMenu(*menu);
    menu->popup(m_view->viewport()->mapToGlobal(position));
}

void HistorySidebar::fillTimelineMenu(QMenu& menu)
{
    menu.addAction(tr("New List"), this, &HistorySidebar::newListWanted);
    menu.addSeparator();
    menu.addAction(tr("Delete All That Is in No List\u2026"), this, &HistorySidebar::clearingWanted);
    menu.addAction(tr("Turn Off History\u2026"), this, &HistorySidebar::turningOffWanted);
    menu.addAction(tr("History Settings\u2026"), this, &HistorySidebar::settingsWanted);
}

void HistorySidebar::fillListMenu(QMenu& menu, QUuid list)
{
    menu.addAction(tr("Rename"), this, [this, list] { rename(list); });
    QMenu* colors = menu.addMenu(tr("Color"));
    for (const auto& [name, hex] : HistoryList::palette)
        colors->addAction(dot(hex), QCoreApplication::translate("HistoryList", name), this,
                          [this, list, hex] { Q_EMIT colorChosen(list, hex); });
    menu.addSeparator();
    menu.addAction(tr("Delete List"), this, [this, list] { Q_EMIT listDeleted(list); });
}

} // namespace Kovrel
