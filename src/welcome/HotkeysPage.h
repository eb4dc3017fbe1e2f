#pragma once

#include "commandline/CommandTable.h"
#include "preferences/Preferences.h"
#include "welcome/FirstRunPage.h"

#include <functional>

namespace Kovrel {

class KeyCaps;
class Label;
class Notice;

// The hotkeys as they are on this computer, what of them others have, and what the desktop lends.
class HotkeysPage : public FirstRunPage {
    Q_OBJECT

public:
    struct Services {
        Preferences& preferences;
        std::function<bool(const MenuEntry&)> isOffered;
        std::function<std::optional<QString>(const QString& setting)> refusal;
        std::function<QStringList()> borrowedKeys;
        std::function<void()> changeKeys;
    };

    explicit HotkeysPage(Services services);

    void refresh();

private:
    struct Row {
        MenuEntry entry;
        Label* title;
        KeyCaps* keys;
    };

    QWidget* makeRows();
    void refreshNotices();
    QStringList refusals() const;

    Services m_services;
    std::vector<Row> m_rows;
    Notice* m_refused;
    Notice* m_borrowed;
};

} // namespace Kovrel
