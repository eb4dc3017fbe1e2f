#include "historywindow/HistoryWindow.h"

#include "history/HistoryQuestions.h"
#include "historywindow/GridConnections.h"
#include "historywindow/HistoryPreview.h"
#include "historywindow/UndoBar.h"
#include "historywindow/grid/EntryTexts.h"
#include "historywindow/lists/HistorySidebar.h"
#include "historywindow/search/HistorySearchField.h"
#include "historywindow/search/SuggestionList.h"
#include "preferences/Settings.h"
#include "ui/Questions.h"
#include "ui/tokens/Metrics.h"

#include <QBoxLayout>
#include <QIcon>
#include <QKeyEvent>
#include <QShortcut>
#include <QSplitter>
#include <QStackedWidget>
#include <QTimer>

#include <algorithm>

namespace Kovrel {

namespace {

constexpr QSize usualSize(1120, 720);
constexpr int sidebarWidth = 190;
constexpr int previewWidth = 330;

// One of each section, in the order in which facets have them.
QString sectionTitle(size_t section)
{
    switch (section) {
    case 0:
        return HistoryWindow::tr("Kind");
    case 1:
        return HistoryWindow::tr("Application");
    case 2:
        return HistoryWindow::tr("List");
    default:
        return HistoryWindow::tr("Date");
    }
}

std::optional<QColor> colorOf(const HistoryFacetOptions::Option& option)
{
    return option.colorHex ? std::optional(QColor(*option.colorHex)) : std::nullopt;
}

// Translated as long as nobody has given it another name.
QString allName(const Preferences& preferences)
{
    const QString name = preferences.get(Settings::historyAllName);
    return name == "All" ? HistoryWindow::tr("All") : name;
}

} // namespace

HistoryWindow::HistoryWindow(HistoryViewServices services)
    : m_services(std::move(services)),
      m_browser(m_services.loop, m_services.workers, m_services.store, m_services.index),
      m_model(m_services.dragFile)
{
    setWindowTitle(tr("Recent Captures"));
    setWindowIcon(QIcon(":/com.kovrel.Kovrel.svg"));
    rememberSize(m_services.preferences, Settings::historyWindowSize, usualSize);
    m_search = new HistorySearchField;
    m_undoBar = new UndoBar;
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(Spacing::large, Spacing::large, Spacing::large, Spacing::large);
    layout->setSpacing(Spacing::medium);
    layout->addWidget(m_search);
    layout->addWidget(makeContent(), 1);
    layout->addWidget(m_undoBar);
    m_suggestions = new SuggestionList(this);
    m_menu = new HistoryMenu(*this, m_services.actions, m_services.store, [this] { return situation(); });
    m_menu->setParent(this);
    connectSearch();
    connectLists();
    connectGrid();
    m_changes = m_browser.onChange([this] { refresh(); });
    m_pictureChanges = m_services.store.onPictureChange([this](QUuid id) {
        m_grid->forgetThumbnail(id);
        m_preview->forget(id);
    });
    refresh();
}

QWidget* HistoryWindow::makeContent()
{
    m_sidebar = new HistorySidebar;
    m_grid = new HistoryGrid(HistoryGrid::Shape::grid, m_model, m_services.loop, m_services.workers,
                             m_services.readThumbnail);
    m_empty = new EmptyState;
    m_center = new QStackedWidget;
    m_center->addWidget(m_grid);
    m_center->addWidget(m_empty);
    m_preview = makePreview();
    auto* content = new QSplitter;
    content->setChildrenCollapsible(false);
    content->setHandleWidth(Spacing::medium);
    for (QWidget* part : std::initializer_list<QWidget*>{m_sidebar, m_center, m_preview})
        content->addWidget(part);
    content->setStretchFactor(1, 1);
    content->setSizes({sidebarWidth, usualSize.width() - sidebarWidth - previewWidth, previewWidth});
    return content;
}

HistoryPreview* HistoryWindow::makePreview()
{
    HistoryActions& actions = m_services.actions;
    return new HistoryPreview(
        {.loop = m_services.loop,
         .workers = m_services.workers,
         .preferences = m_services.preferences,
         .read = m_services.readPicture,
         .readText = [&actions](QUuid id, Reply<OCROutcome> reply) { actions.readText(id, std::move(reply)); },
         .doors = {.copy = [&actions](const QString& text) { actions.copyPart(text); },
                   .open = [&actions](const QUrl& target) { actions.openLink(target); }}});
}

void HistoryWindow::present()
{
    if (!isVisible())
        m_grid->selectFirst();
    showNormal();
    raise();
    activateWindow();
    m_search->takeFocus();
}

// --- Wiring

void HistoryWindow::connectSearch()
{
    connect(m_search, &HistorySearchField::textChanged, this, [this](const QString& text) { m_browser.setText(text); });
    connect(m_search, &HistorySearchField::chipRemoved, this, [this](int index) {
        m_browser.removeFilter(HistoryFacet(m_browser.suggestions().filter().facets()[size_t(index)]));
    });
    connect(m_search, &HistorySearchField::lastChipRemoved, this, [this] { m_browser.removeLastFilter(); });
    connect(m_search, &HistorySearchField::highlightMoved, this, [this](int step) {
        if (m_suggestions->isVisible())
            m_browser.moveHighlight(step);
        else if (step > 0)
            m_grid->setFocus();
    });
    connect(m_search, &HistorySearchField::committed, this, [this] {
        if (!m_browser.commitHighlight())
            m_grid->setFocus();
    });
    connect(m_search, &HistorySearchField::escaped, this, &HistoryWindow::escape);
    connect(m_suggestions, &SuggestionList::chosen, this,
            [this](int row) { m_browser.choose(HistoryFacet(m_browser.suggestions().rows()[size_t(row)].facet)); });
    connect(new QShortcut(QKeySequence::Find, this), &QShortcut::activated, m_search, &HistorySearchField::takeFocus);
}

void HistoryWindow::connectLists()
{
    CaptureHistoryStore& store = m_services.store;
    const ListsModel& lists = m_sidebar->model();
    connect(m_sidebar, &HistorySidebar::listSelected, this, [this] { m_browser.setList(m_sidebar->selected()); });
    connect(m_sidebar, &HistorySidebar::newListWanted, this, &HistoryWindow::createList);
    connect(m_sidebar, &HistorySidebar::colorChosen, this,
            [&store](QUuid list, const QString& hex) { store.setListColor(list, hex); });
    connect(m_sidebar, &HistorySidebar::clearingWanted, this, &HistoryWindow::askBeforeClearing);
    connect(m_sidebar, &HistorySidebar::turningOffWanted, this, &HistoryWindow::askBeforeTurningOff);
    connect(m_sidebar, &HistorySidebar::settingsWanted, this, [this] { m_services.openSettings(); });
    connect(m_sidebar, &HistorySidebar::listDeleted, this, [&store](QUuid list) { store.deleteList(list); });
    connect(m_sidebar, &HistorySidebar::listDeletionWanted, this, &HistoryWindow::askBeforeDeletingList);
    connect(&lists, &ListsModel::listRenamed, this,
            [&store](QUuid list, const QString& name) { store.renameList(list, name); });
    connect(&lists, &ListsModel::listMoved, this,
            [&store](QUuid list, int position) { store.moveList(list, position); });
    connect(&lists, &ListsModel::capturesFiled, this, [&store](const QList<QUuid>& captures, QUuid list) {
        store.moveToList({captures.begin(), captures.end()}, list);
    });
    connect(&lists, &ListsModel::capturesRestored, this,
            [&store](const QList<QUuid>& captures) { store.restoreToTimeline({captures.begin(), captures.end()}); });
}

void HistoryWindow::connectGrid()
{
    connect(m_grid, &HistoryGrid::selectionMoved, this, &HistoryWindow::showSelected);
    connect(m_grid, &HistoryGrid::opened, this, [this](QUuid id) { m_services.actions.open(id); });
    GridConnections::connect(*m_grid, m_model, *m_menu, m_services);
    connect(m_menu, &HistoryMenu::removed, this, &HistoryWindow::tellRemoved);
    connect(m_menu, &HistoryMenu::undone, m_undoBar, &QWidget::hide);
    connect(m_undoBar, &UndoBar::undone, this, [this] {
        m_services.store.undoRemoval();
        m_undoBar->hide();
    });
}

// --- What is shown

void HistoryWindow::refresh()
{
    refreshLists();
    m_model.setEntries(m_browser.shown());
    m_grid->selectSomething();
    refreshCenter();
    refreshSearch();
    showSelected();
    if (!m_services.store.canUndoRemoval())
        m_undoBar->hide();
}

void HistoryWindow::refreshLists()
{
    const ListsModel::Timeline timeline{
        .name = allName(m_services.preferences),
        .count = int(std::ranges::count_if(m_services.store.entries(), &HistoryEntry::isInTimeline))};
    m_sidebar->set(timeline, m_services.store.lists());
    m_sidebar->select(m_browser.list());
}

void HistoryWindow::refreshSearch()
{
    std::vector<HistorySearchField::Chip> chips;
    for (const HistoryFacet& facet : m_browser.suggestions().filter().facets()) {
        const auto option = m_browser.option(facet);
        chips.push_back({option.title, colorOf(option)});
    }
    m_search->setChips(chips);
    m_search->setText(m_browser.suggestions().text());
    showSuggestions();
}

// Only while somebody types: what is found is below.
void HistoryWindow::showSuggestions()
{
    std::vector<SearchSuggestion> rows;
    const auto& suggestions = m_browser.suggestions();
    if (!suggestions.text().isEmpty() && m_search->isAncestorOf(focusWidget()))
        for (const auto& option : suggestions.rows())
            rows.push_back({.section = sectionTitle(option.facet.section()),
                            .title = option.title,
                            .count = option.count,
                            .color = colorOf(option),
                            .isHighlighted = suggestions.highlight() == rows.size()});
    m_suggestions->show(std::move(rows), m_search->geometry());
}

void HistoryWindow::refreshCenter()
{
    const bool isEmpty = m_browser.isEmpty();
    if (isEmpty)
        m_empty->set(emptyState());
    m_preview->setVisible(!isEmpty);
    m_center->setCurrentWidget(isEmpty ? static_cast<QWidget*>(m_empty) : m_grid);
}

EmptyState::Content HistoryWindow::emptyState()
{
    if (m_browser.isNarrowed())
        return {.symbol = "magnifyingglass",
                .title = tr("Nothing Found"),
                .advice = tr("Applications, file names, kinds and the words in captures are searched. Try fewer or "
                             "shorter words."),
                .button = tr("Clear Search"),
                .action = [this] { m_browser.clear(); }};
    if (m_browser.list())
        return {.symbol = "folder",
                .title = tr("An Empty List"),
                .advice = tr("Drag captures here to keep them, whatever else is deleted.")};
    if (!m_services.preferences.get(Settings::historyEnabled))
        return {.symbol = "clock",
                .title = tr("History Is Off"),
                .advice = tr("New captures are not kept here."),
                .button = tr("Turn On History"),
                .action = [this] {
                    m_services.preferences.set(Settings::historyEnabled, true);
                    refresh();
                }};
    const QString keys = m_services.captureKeys();
    return {.symbol = "photo",
            .title = tr("No Captures Yet"),
            .advice = keys.isEmpty() ? tr("Whatever you capture is kept here, to be found again.")
                                     : tr("Press %1 to capture an area. Whatever you capture is kept here, to be "
                                          "found again.")
                                           .arg(keys)};
}

void HistoryWindow::showSelected()
{
    m_menu->refresh();
    const QList<QUuid> ids = m_grid->selectedIds();
    if (ids.size() != 1) {
        m_preview->show({}, {.title = ids.isEmpty() ? QString() : tr("%n captures selected", nullptr, int(ids.size()))},
                        {});
        return;
    }
    const HistoryEntry& entry = m_model.entry(m_model.row(ids.front()));
    const auto list = std::ranges::find_if(m_services.store.lists(), [&](const HistoryList& candidate) {
        return std::ranges::find(candidate.entryIDs, entry.id) != candidate.entryIDs.end();
    });
    m_preview->show(entry.id,
                    {.title = EntryTexts::title(entry),
                     .shape = QSize(entry.pixelWidth.value_or(0), entry.pixelHeight.value_or(0)),
                     .rows = {{tr("Kind"), HistorySearch::label(entry.mode).value_or(QString())},
                              {tr("Application"), entry.sourceAppName.value_or(QString())},
                              {tr("Date"), EntryTexts::fullDate(entry.date, QLocale())},
                              {tr("Size"), EntryTexts::size(entry)},
                              {tr("File"), entry.savedPath.value_or(QString())},
                              {tr("List"), list == m_services.store.lists().end() ? QString() : list->name}}},
                    m_browser.hits(entry.id));
}

HistoryMenu::Situation HistoryWindow::situation() const
{
    return {.ids = m_grid->selectedIds(), .list = m_browser.list()};
}

// --- What is done

void HistoryWindow::createList()
{
    CaptureHistoryStore& store = m_services.store;
    const QUuid list = store.createList(store.defaultName(), store.nextColor());
    refreshLists();
    m_sidebar->rename(list);
}

void HistoryWindow::askBeforeClearing()
{
    Questions::ask(
        *this,
        {tr("Delete all captures that are in no list?"), HistoryQuestions::clearUnfiledExplanation(), tr("Delete")},
        [this] { m_services.store.clearUnfiled(); });
}

void HistoryWindow::askBeforeDeletingList(QUuid list)
{
    CaptureHistoryStore& store = m_services.store;
    if (const HistoryList* found = store.list(list))
        Questions::ask(*this,
                       {tr("Delete the list \u201c%1\u201d?").arg(found->name),
                        tr("Its captures are in the timeline again, which keeps the newest only."), tr("Delete")},
                       [&store, list] { store.deleteList(list); });
}

// The store follows the setting.
void HistoryWindow::askBeforeTurningOff()
{
    Questions::ask(*this,
                   {HistoryQuestions::turnOffQuestion(m_services.store.unsavedCount()),
                    HistoryQuestions::turnOffExplanation(), tr("Turn Off")},
                   [this] { m_services.preferences.set(Settings::historyEnabled, false); });
}

void HistoryWindow::tellRemoved(int count)
{
    m_undoBar->show(tr("%n captures deleted", nullptr, count));
    // A coarse timer could come before the store's own.
    constexpr auto afterwards = CaptureHistoryStore::undoTime + std::chrono::milliseconds(200);
    QTimer::singleShot(afterwards, Qt::PreciseTimer, m_undoBar, [this] {
        if (!m_services.store.canUndoRemoval())
            m_undoBar->hide();
    });
}

// Ends what is typed, then the search, then the window.
void HistoryWindow::escape()
{
    if (m_browser.isNarrowed() || !m_search->text().isEmpty())
        m_browser.clear();
    else
        close();
}

void HistoryWindow::showEvent(QShowEvent* event)
{
    m_browser.setShown(true);
    AppWindow::showEvent(event);
}

void HistoryWindow::hideEvent(QHideEvent* event)
{
    AppWindow::hideEvent(event);
    m_browser.setShown(false);
}

void HistoryWindow::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape)
        escape();
    else
        AppWindow::keyPressEvent(event);
}

void HistoryWindow::resizeEvent(QResizeEvent* event)
{
    AppWindow::resizeEvent(event);
    showSuggestions();
}

} // namespace Kovrel
