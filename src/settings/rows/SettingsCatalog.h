#pragma once

#include "settings/rows/SettingsPage.h"

namespace Kovrel {

// All that the settings window can show. Main thread.
class SettingsCatalog {
public:
    // Pages of the same tab become one.
    explicit SettingsCatalog(const std::vector<SettingsPage>& pages);

    // In the order of the tabs; those without a row are left out.
    const std::vector<SettingsPage>& pages() const { return m_pages; }

    // Null where the tab has nothing to show.
    const SettingsPage* page(SettingsTab tab) const;

    // The rows in which each word of the query occurs, in what is read of them, in their keywords or in what stands
    // above them. Neither case nor accents count. A query without a word finds nothing.
    std::vector<SettingsPage> matching(const QString& query) const;

private:
    std::vector<SettingsPage> m_pages;
};

} // namespace Kovrel
