#include "platform/appearance/PortalColorScheme.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

namespace Kovrel {

namespace {

constexpr const char* service = "org.freedesktop.portal.Desktop";
constexpr const char* folder = "/org/freedesktop/portal/desktop";
constexpr const char* settings = "org.freedesktop.portal.Settings";
constexpr const char* appearance = "org.freedesktop.appearance";
constexpr const char* scheme = "color-scheme";
constexpr uint dark = 1; // as the portal counts; any other number is no preference
constexpr uint light = 2;

// Portals wrap the value once or twice.
QVariant unwrapped(QVariant value)
{
    while (value.canConvert<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
    return value;
}

std::optional<bool> isDark(const QVariant& value)
{
    const uint number = unwrapped(value).toUInt();
    return number == dark || number == light ? std::optional(number == dark) : std::nullopt;
}

} // namespace

PortalColorScheme::PortalColorScheme()
    : m_portal(service, QDBusConnection::sessionBus(), QDBusServiceWatcher::WatchForRegistration)
{
    qRegisterMetaType<QDBusVariant>(); // the bus finds the slot by the names of its types
    connect(&m_portal, &QDBusServiceWatcher::serviceRegistered, this, &PortalColorScheme::ask);
    QDBusConnection::sessionBus().connect({}, folder, settings, "SettingChanged", this,
                                          SLOT(settingChanged(QString, QString, QDBusVariant)));
    ask();
}

void PortalColorScheme::ask()
{
    QDBusMessage call = QDBusMessage::createMethodCall(service, folder, settings, "Read");
    call << QString(appearance) << QString(scheme);
    auto* const watcher = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(call), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
        const QDBusPendingReply<QDBusVariant> reply = *watcher;
        if (reply.isValid())
            take(QVariant::fromValue(reply.value()));
        watcher->deleteLater();
    });
}

void PortalColorScheme::settingChanged(const QString& group, const QString& key, const QDBusVariant& value)
{
    if (group == appearance && key == scheme)
        take(QVariant::fromValue(value));
}

void PortalColorScheme::take(const QVariant& value)
{
    const auto isDark = Kovrel::isDark(value);
    if (std::exchange(m_isDark, isDark) != isDark)
        m_observers.notify();
}

} // namespace Kovrel
