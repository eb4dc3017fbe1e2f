#pragma once

#include <QDBusConnection>
#include <QStringList>

#include <optional>
#include <vector>

namespace Kovrel::Testing {

class UserSession;

// What a screen reader knows of the programs of a session, and the service that tells it.
class ScreenReader {
public:
    // Before the programs start.
    explicit ScreenReader(UserSession& session);
    ~ScreenReader();
    ScreenReader(const ScreenReader&) = delete;
    ScreenReader& operator=(const ScreenReader&) = delete;

    struct Item {
        QString service;
        QString path;
        QString role = {};
        QString name = {};
        QString parent = {}; // its path

        bool operator==(const Item&) const = default;
    };

    enum State { active = 1, checked = 4, enabled = 8, focusable = 11, focused = 12, showing = 25, checkable = 41 };

    // The window with this title; no value while there is none.
    std::optional<Item> window(const QString& title) const;
    // Everything in it that is shown, can be used, and takes the keyboard.
    std::vector<Item> controls(const Item& window) const;

    bool is(const Item& item, State state) const;

private:
    std::vector<Item> children(const Item& item) const;
    QVariant call(const Item& item, const char* interface, const char* method,
                  const QVariantList& arguments = {}) const;
    void collect(const Item& item, std::vector<Item>& into) const;

    QDBusConnection m_bus{QString()}; // of accessibility
    uint m_daemon = 0;                // its process
};

} // namespace Kovrel::Testing
