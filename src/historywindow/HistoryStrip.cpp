#include "historywindow/HistoryStrip.h"

#include "historywindow/GridConnections.h"
#include "historywindow/grid/HistoryDelegate.h"
#include "historywindow/search/HistorySearchField.h"
#include "ui/Label.h"
#include "ui/tokens/Metrics.h"

#include <QApplication>
#include <QBoxLayout>
#include <QIcon>
#include <QKeyEvent>
#include <QScreen>
#include <QScrollBar>
#include <QShortcut>

namespace Kovrel {

namespace {

constexpr int searchWidth = 460;

} // namespace

HistoryStrip::HistoryStrip(HistoryViewServices services)
    : m_services(std::move(services)),
      m_browser(m_services.loop, m_services.workers, m_services.store, m_services.index),
      m_model(m_services.dragFile)
{
    // A tool stands in no task bar.
    setWindowFlags(Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
    setWindowTitle(tr("Recent Captures"));
    setWindowIcon(QIcon(":/com.kovrel.Kovrel.svg"));
    m_search = new HistorySearchField;
    m_search->setFixedWidth(searchWidth);
    m_nothing = new Label(TextStyle::body, Label::Role::secondary);
    m_nothing->setAlignment(Qt::AlignCenter);
    m_row = new HistoryGrid(HistoryGrid::Shape::row, m_model, m_services.loop, m_services.workers,
                            m_services.readThumbnail);
    m_menu = new HistoryMenu(*this, m_services.actions, m_services.store,
                             [this] { return HistoryMenu::Situation{.ids = m_row->selectedIds(), .list = {}}; });
    m_menu->setParent(this);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(Spacing::large, Spacing::small, Spacing::large, 0);
    layout->setSpacing(Spacing::tight);
    layout->addWidget(m_search, 0, Qt::AlignHCenter);
    layout->addWidget(m_nothing, 1);
    layout->addWidget(m_row, 1);
    connectParts();
    setFixedHeight(Spacing::small + m_search->sizeHint().height() + Spacing::tight +
                   HistoryDelegate::cellSize().height() + m_row->horizontalScrollBar()->sizeHint().height());
    m_changes = m_browser.onChange([this] { refresh(); });
    m_pictureChanges = m_services.store.onPictureChange([this](QUuid id) { m_row->forgetThumbnail(id); });
    refresh();
}

void HistoryStrip::connectParts()
{
    connect(m_search, &HistorySearchField::textChanged, this, [this](const QString& text) { m_browser.setText(text); });
    connect(m_search, &HistorySearchField::escaped, this, &HistoryStrip::escape);
    connect(m_search, &HistorySearchField::committed, this, [this] { m_row->setFocus(); });
    connect(m_search, &HistorySearchField::highlightMoved, this, [this] { m_row->setFocus(); });
    connect(new QShortcut(QKeySequence::Find, this), &QShortcut::activated, m_search, &HistorySearchField::takeFocus);
    connect(m_row, &HistoryGrid::selectionMoved, m_menu, &HistoryMenu::refresh);
    connect(m_row, &HistoryGrid::opened, this, [this](QUuid id) {
        m_services.actions.open(id);
        hide();
    });
    GridConnections::connect(*m_row, m_model, *m_menu, m_services);
}

void HistoryStrip::refresh()
{
    m_model.setEntries(m_browser.shown());
    m_row->selectSomething();
    const bool isEmpty = m_browser.isEmpty();
    m_nothing->setText(m_browser.isNarrowed() ? tr("Nothing found") : tr("Whatever you capture is kept here."));
    m_nothing->setVisible(isEmpty);
    m_row->setVisible(!isEmpty);
}

void HistoryStrip::presentOn(const Display& display)
{
    for (QScreen* screen : QApplication::screens()) {
        if (screen->name() != display.name)
            continue;
        const QRect area = screen->availableGeometry();
        setScreen(screen);
        setGeometry(area.left(), area.bottom() + 1 - height(), area.width(), height());
    }
    show();
    raise();
    activateWindow();
    m_search->takeFocus();
}

void HistoryStrip::escape()
{
    if (m_search->text().isEmpty())
        hide();
    else
        m_search->setText({});
}

void HistoryStrip::changeEvent(QEvent* event)
{
    AppWindow::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && !isActiveWindow() && !QApplication::activePopupWidget())
        hide();
}

void HistoryStrip::showEvent(QShowEvent* event)
{
    m_browser.setShown(true);
    AppWindow::showEvent(event);
}

void HistoryStrip::hideEvent(QHideEvent* event)
{
    AppWindow::hideEvent(event);
    m_browser.setShown(false);
}

void HistoryStrip::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape)
        escape();
    else
        AppWindow::keyPressEvent(event);
}

} // namespace Kovrel
