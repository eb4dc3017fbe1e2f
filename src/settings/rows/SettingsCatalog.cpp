#include "settings/rows/SettingsCatalog.h"

#include "model/text/TextFolding.h"

#include <algorithm>

namespace Kovrel {

namespace {

bool containsAll(const QString& text, const QStringList& words)
{
    const QString folded = TextFolding::comparable(text);
    return std::ranges::all_of(words, [&](const QString& word) { return folded.contains(word); });
}

SettingGroup matchingRows(const SettingGroup& group, const QString& above, const QStringList& words)
{
    SettingGroup found{.title = group.title, .rows = {}};
    for (const SettingRow& row : group.rows)
        if (containsAll(QStringList{above, group.title, row.label, row.hint, row.keywords}.join('\n'), words))
            found.rows.push_back(row);
    return found;
}

} // namespace

SettingsCatalog::SettingsCatalog(const std::vector<SettingsPage>& pages)
{
    for (const auto& [tab, text] : RawStrings<SettingsTab>::table) {
        SettingsPage merged{.tab = tab, .groups = {}};
        for (const SettingsPage& page : pages)
            if (page.tab == tab)
                merged.groups.insert(merged.groups.end(), page.groups.begin(), page.groups.end());
        std::erase_if(merged.groups, [](const SettingGroup& group) { return group.rows.empty(); });
        if (!merged.groups.empty())
            m_pages.push_back(std::move(merged));
    }
}

const SettingsPage* SettingsCatalog::page(SettingsTab tab) const
{
    const auto found = std::ranges::find(m_pages, tab, &SettingsPage::tab);
    return found == m_pages.end() ? nullptr : &*found;
}

std::vector<SettingsPage> SettingsCatalog::matching(const QString& query) const
{
    const QStringList words = TextFolding::comparable(query).simplified().split(' ', Qt::SkipEmptyParts);
    std::vector<SettingsPage> found;
    if (words.isEmpty())
        return found;
    for (const SettingsPage& page : m_pages) {
        SettingsPage matches{.tab = page.tab, .groups = {}};
        for (const SettingGroup& group : page.groups)
            if (SettingGroup rows = matchingRows(group, SettingsTabs::title(page.tab), words); !rows.rows.empty())
                matches.groups.push_back(std::move(rows));
        if (!matches.groups.empty())
            found.push_back(std::move(matches));
    }
    return found;
}

} // namespace Kovrel
