#pragma once

#include "platform/Observers.h"

#include <QDBusServiceWatcher>
#include <QDBusVariant>
#include <QObject>

#include <optional>

namespace Kovrel {

// What the desktop's portal on the session bus says of light and dark. The portal is asked at once, and whenever it
// starts anew. Main thread.
class PortalColorScheme : public QObject {
    Q_OBJECT

public:
    PortalColorScheme();

    // None where there is no portal, and where the user has no preference.
    std::optional<bool> isDark() const { return m_isDark; }

    Subscription onChange(std::function<void()> callback) { return m_observers.add(std::move(callback)); }

private Q_SLOTS:
    void settingChanged(const QString& group, const QString& key, const QDBusVariant& value);

private:
    void ask();
    void take(const QVariant& value);

    QDBusServiceWatcher m_portal;
    Observers<> m_observers;
    std::optional<bool> m_isDark;
};

} // namespace Kovrel
