#include "settings/SettingsWindow.h"

#include "settings/RemarkLine.h"
#include "settings/SettingsPageView.h"
#include "settings/SettingsSidebar.h"
#include "ui/Label.h"
#include "ui/Notice.h"
#include "ui/controls/ScrollColumn.h"
#include "ui/tokens/Metrics.h"
#include "ui/tokens/Typography.h"

#include <QHBoxLayout>
#include <QIcon>
#include <QKeyEvent>

namespace Kovrel {

namespace {

constexpr QSize usualSize(880, 640);

std::vector<SettingsTab> tabsOf(const SettingsCatalog& catalog)
{
    std::vector<SettingsTab> tabs;
    for (const SettingsPage& page : catalog.pages())
        tabs.push_back(page.tab);
    return tabs;
}

// A widget with room around it, both hidden at first.
QWidget* placed(QWidget* widget, const QMargins& room)
{
    auto* const place = new QWidget;
    auto* const layout = new QVBoxLayout(place);
    layout->setContentsMargins(room);
    layout->addWidget(widget);
    place->hide();
    return place;
}

} // namespace

SettingsWindow::SettingsWindow(Preferences& preferences, const std::vector<SettingsPage>& pages)
    : m_preferences(preferences), m_catalog(pages)
{
    setWindowTitle(tr("Kovrel Settings"));
    setWindowIcon(QIcon(":/com.kovrel.Kovrel.svg"));
    m_sidebar = new SettingsSidebar(tabsOf(m_catalog));
    m_notice = new Notice;
    m_area = new ScrollColumn;
    m_foot = new RemarkLine;
    m_noticePlace = placed(m_notice, {Spacing::window, Spacing::window, Spacing::window, 0});
    m_footPlace = placed(m_foot, {Spacing::window, Spacing::small, Spacing::window, Spacing::medium});
    auto* const content = new QVBoxLayout;
    content->setSpacing(0);
    content->addWidget(m_noticePlace);
    content->addWidget(m_area, 1);
    content->addWidget(m_footPlace);
    auto* const layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_sidebar);
    layout->addLayout(content, 1);
    connect(m_sidebar, &SettingsSidebar::tabChosen, this, &SettingsWindow::showTab);
    connect(m_sidebar, &SettingsSidebar::searched, this, &SettingsWindow::search);
    connect(m_sidebar, &SettingsSidebar::committed, this, [this] {
        if (m_view)
            m_view->takeFocus();
    });
    m_changes = m_preferences.defaults().onChange([this](const QString&) { refresh(); });
    m_writes = m_preferences.defaults().onWrite([this] { showLastWrite(); });
    showLastWrite();
    placeWherePointerIs((QSizeF(usualSize) * Typography::scale()).toSize());
}

void SettingsWindow::present(std::optional<SettingsTab> tab)
{
    const SettingsTab wanted = tab ? *tab : lastTab().value_or(SettingsTab::general);
    if (m_catalog.page(wanted)) {
        m_sidebar->select(wanted);
        showTab(wanted);
    }
    comeForward();
    m_sidebar->focusSearch();
}

std::optional<SettingsTab> SettingsWindow::lastTab() const
{
    const auto tab = fromRawString<SettingsTab>(m_preferences.get(Settings::settingsSelectedTab));
    return tab && m_catalog.page(*tab) ? tab : std::nullopt;
}

void SettingsWindow::showNotice(const QString& text, bool isWarning)
{
    m_notice->show(isWarning ? Notice::Kind::warning : Notice::Kind::information, text);
    m_noticePlace->show();
}

void SettingsWindow::showLastWrite()
{
    const UserDefaults::Stored& write = m_preferences.defaults().lastWrite();
    m_foot->setRemark({write ? QString() : tr("Changes hold only until Kovrel quits: %1").arg(write.error()), true});
    m_footPlace->setVisible(!write);
}

// Ends a search, which shows the tab by itself.
void SettingsWindow::showTab(SettingsTab tab)
{
    const bool isShown = m_view && tab == m_tab;
    m_tab = tab;
    if (!m_sidebar->clearSearch() && !isShown)
        showPage();
    if (m_preferences.get(Settings::settingsSelectedTab) != rawString(tab))
        m_preferences.set(Settings::settingsSelectedTab, rawString(tab));
}

void SettingsWindow::showPage()
{
    m_noticePlace->hide();
    show(new SettingsPageView({*m_catalog.page(m_tab)}, SettingsPageView::Kind::tab));
}

void SettingsWindow::search(const QString& query)
{
    if (query.trimmed().isEmpty()) {
        showPage();
        return;
    }
    const auto found = m_catalog.matching(query);
    if (!found.empty()) {
        show(new SettingsPageView(found, SettingsPageView::Kind::found));
        return;
    }
    m_view = nullptr;
    m_area->setContent(makeEmptyResult(query));
}

void SettingsWindow::show(SettingsPageView* view)
{
    m_view = view;
    m_area->setContent(view);
}

QWidget* SettingsWindow::makeEmptyResult(const QString& query) const
{
    auto* const label = new Label(TextStyle::body, Label::Role::secondary);
    label->setText(tr("No setting is called “%1”.").arg(query.trimmed()));
    label->setAlignment(Qt::AlignHCenter);
    label->setContentsMargins(Spacing::window, 3 * Spacing::window, Spacing::window, Spacing::window);
    return label;
}

void SettingsWindow::refresh()
{
    if (m_view)
        m_view->refresh();
}

// Ends a search, then the window.
void SettingsWindow::keyPressEvent(QKeyEvent* event)
{
    if (event->matches(QKeySequence::Find))
        m_sidebar->focusSearch();
    else if (event->key() != Qt::Key_Escape && !event->matches(QKeySequence::Close))
        AppWindow::keyPressEvent(event);
    else if (event->key() != Qt::Key_Escape || !m_sidebar->clearSearch())
        close();
}

} // namespace Kovrel
