#include "settings/SettingsSidebar.h"

#include "settings/TabButton.h"
#include "ui/controls/ExclusiveFocus.h"
#include "ui/controls/LineField.h"
#include "ui/tokens/Metrics.h"
#include "ui/tokens/ReadingSide.h"
#include "ui/tokens/Typography.h"

#include <QVBoxLayout>

namespace Kovrel {

namespace {

constexpr int usualWidth = 200;

} // namespace

SettingsSidebar::SettingsSidebar(const std::vector<SettingsTab>& tabs) : m_search(new LineField)
{
    m_search->setPlaceholderText(tr("Search settings"));
    m_search->setAccessibleName(tr("Search settings"));
    m_search->setClearButtonEnabled(true);
    connect(m_search, &QLineEdit::textChanged, this, &SettingsSidebar::searched);
    connect(m_search, &QLineEdit::returnPressed, this, &SettingsSidebar::committed);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(ReadingSide::margins({Spacing::medium, Spacing::large, 0, Spacing::large}));
    layout->setSpacing(Spacing::tight);
    layout->addWidget(m_search);
    layout->addSpacing(Spacing::medium);
    auto* const group = new QButtonGroup(this);
    ExclusiveFocus::follow(*group);
    for (const SettingsTab tab : tabs) {
        auto* const button = new TabButton(SettingsTabs::symbol(tab), SettingsTabs::title(tab));
        connect(button, &QPushButton::clicked, this, [this, tab] { Q_EMIT tabChosen(tab); });
        group->addButton(button);
        layout->addWidget(button);
        m_tabs[tab] = button;
    }
    layout->addStretch();
    setFixedWidth(int(usualWidth * Typography::scale()));
}

void SettingsSidebar::select(SettingsTab tab)
{
    m_tabs.at(tab)->setChecked(true);
}

void SettingsSidebar::focusSearch()
{
    m_search->setFocus(Qt::ShortcutFocusReason);
    m_search->selectAll();
}

bool SettingsSidebar::clearSearch()
{
    const bool wasSearched = !m_search->text().isEmpty();
    m_search->clear();
    return wasSearched;
}

} // namespace Kovrel
