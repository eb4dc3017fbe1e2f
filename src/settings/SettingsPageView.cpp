#include "settings/SettingsPageView.h"

#include "settings/SettingRowView.h"
#include "ui/Label.h"
#include "ui/controls/Card.h"
#include "ui/controls/Hairline.h"
#include "ui/controls/PlainButton.h"
#include "ui/tokens/Metrics.h"

#include <QVBoxLayout>

#include <algorithm>

namespace Kovrel {

SettingsPageView::SettingsPageView(const std::vector<SettingsPage>& pages, Kind kind)
{
    m_layout = new QVBoxLayout(this);
    m_layout->setContentsMargins(Spacing::window, Spacing::window, Spacing::window, Spacing::window);
    m_layout->setSpacing(Spacing::small);
    for (const SettingsPage& page : pages)
        addPage(page);
    if (kind == Kind::tab)
        addResetButton();
    m_layout->addStretch();
    refresh();
}

void SettingsPageView::addPage(const SettingsPage& page)
{
    auto* const title = new Label(TextStyle::headline);
    title->setText(SettingsTabs::title(page.tab));
    if (m_layout->count() > 0)
        m_layout->addSpacing(Spacing::large);
    m_layout->addWidget(title);
    for (const SettingGroup& group : page.groups)
        addGroup(group);
}

void SettingsPageView::addGroup(const SettingGroup& group)
{
    if (!group.title.isEmpty()) {
        auto* const title = new Label(TextStyle::emphasis);
        title->setText(group.title);
        m_layout->addSpacing(Spacing::small);
        m_layout->addWidget(title);
    }
    auto* const card = new Card;
    auto* const rows = new QVBoxLayout(card);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(0);
    for (const SettingRow& row : group.rows) {
        if (rows->count() > 0)
            rows->addWidget(new Hairline);
        m_rows.push_back(new SettingRowView(row));
        rows->addWidget(m_rows.back());
    }
    m_layout->addWidget(card);
    if (group.help.isEmpty())
        return;
    auto* const help = new Label(TextStyle::body, Label::Role::secondary);
    help->setText(group.help);
    m_layout->addWidget(help);
}

void SettingsPageView::addResetButton()
{
    auto* const button = new PlainButton(tr("Reset This Page"));
    connect(button, &QPushButton::clicked, this, &SettingsPageView::resetAll);
    m_resetButton = button;
    m_layout->addSpacing(Spacing::medium);
    m_layout->addWidget(button, 0, Qt::AlignLeft);
}

void SettingsPageView::resetAll()
{
    for (const SettingRowView* row : m_rows)
        if (const SettingBinding& binding = row->row().binding; binding.reset && binding.isChanged())
            binding.reset();
}

void SettingsPageView::takeFocus()
{
    for (SettingRowView* row : m_rows)
        if (row->takeFocus())
            return;
}

void SettingsPageView::refresh()
{
    for (SettingRowView* row : m_rows)
        row->refresh();
    if (m_resetButton)
        m_resetButton->setEnabled(std::ranges::any_of(m_rows, [](const SettingRowView* row) {
            const SettingBinding& binding = row->row().binding;
            return binding.reset && binding.isChanged();
        }));
}

} // namespace Kovrel
