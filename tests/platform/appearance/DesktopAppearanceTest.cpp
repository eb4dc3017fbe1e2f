#include "platform/appearance/DesktopAppearance.h"
#include "tests/support/EventLoop.h"
#include "tests/support/SettingsManager.h"
#include "tests/support/TestBus.h"
#include "tests/support/VirtualDisplay.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>

#include <gtest/gtest.h>

namespace Kovrel {

using Testing::waitFor;

// Stands on the bus as the desktop's portal.
class SettingsPortal : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

public:
    SettingsPortal(const QString& address, uint scheme)
        : m_bus(QDBusConnection::connectToBus(address, "portal")), m_scheme(scheme)
    {
        m_bus.registerObject(folder, this, QDBusConnection::ExportAllSlots);
        m_bus.registerService(name);
    }

    ~SettingsPortal() override
    {
        m_bus.unregisterService(name);
        QDBusConnection::disconnectFromBus("portal");
    }

    void change(const QString& group, const QString& key, uint value)
    {
        QDBusMessage signal = QDBusMessage::createSignal(folder, "org.freedesktop.portal.Settings", "SettingChanged");
        signal << group << key << QVariant::fromValue(QDBusVariant(value));
        m_bus.send(signal);
    }

    void changeScheme(uint scheme)
    {
        m_scheme = scheme;
        change("org.freedesktop.appearance", "color-scheme", scheme);
    }

public Q_SLOTS:

    QDBusVariant Read(const QString& group, const QString& key)
    {
        const bool isKnown = group == "org.freedesktop.appearance" && key == "color-scheme";
        return QDBusVariant(QVariant::fromValue(QDBusVariant(isKnown ? m_scheme : 99)));
    }

private:
    static constexpr const char* name = "org.freedesktop.portal.Desktop";
    static constexpr const char* folder = "/org/freedesktop/portal/desktop";

    QDBusConnection m_bus;
    uint m_scheme;
};

namespace {

constexpr uint noPreference = 0;
constexpr uint dark = 1;
constexpr uint light = 2;

// One bus for all: the toolkit connects to the session's only once.
Testing::TestBus& bus()
{
    static Testing::TestBus bus;
    return bus;
}

struct DesktopAppearanceTest : testing::Test {
    Testing::VirtualDisplay server{{400, 300}};
    QString address = bus().address();

    std::unique_ptr<DesktopAppearance> open() const
    {
        return std::make_unique<DesktopAppearance>(std::make_unique<X11Connection>(server.name()));
    }
};

} // namespace

TEST_F(DesktopAppearanceTest, NothingIsSaidWithoutPortalAndManager)
{
    EXPECT_EQ(open()->isDark(), std::nullopt);
}

TEST_F(DesktopAppearanceTest, TheThemesNameTellsAtTheStartAndLater)
{
    Testing::SettingsManager manager(server.name());
    manager.setTheme("Adwaita-dark");
    const auto appearance = open();
    EXPECT_EQ(appearance->isDark(), true);
    manager.setTheme("Adwaita");
    EXPECT_TRUE(waitFor([&] { return appearance->isDark() == false; }));
    manager.setTheme("Mint-Y-Dark-Aqua");
    EXPECT_TRUE(waitFor([&] { return appearance->isDark() == true; }));
    manager.setTheme("Arc-Darker"); // only its title bars are
    EXPECT_TRUE(waitFor([&] { return appearance->isDark() == false; }));
}

TEST_F(DesktopAppearanceTest, AManagerThatComesLateIsHeard)
{
    const auto appearance = open();
    Testing::SettingsManager manager(server.name());
    manager.setTheme("Greybird-dark");
    EXPECT_TRUE(waitFor([&] { return appearance->isDark() == true; }));
}

TEST_F(DesktopAppearanceTest, SettingsThatAreCutOffAreLeftOut)
{
    Testing::SettingsManager manager(server.name());
    manager.setTheme("Adwaita-dark");
    const QByteArray whole = manager.settings();
    const auto appearance = open();
    for (qsizetype length = 0; length < whole.size(); ++length) {
        manager.set(whole.first(length));
        EXPECT_TRUE(waitFor([&] { return appearance->isDark() == false; })) << length;
        manager.set(whole);
        EXPECT_TRUE(waitFor([&] { return appearance->isDark() == true; })) << length;
    }
}

TEST_F(DesktopAppearanceTest, ThePortalHasTheLastWord)
{
    Testing::SettingsManager manager(server.name());
    manager.setTheme("Adwaita");
    SettingsPortal portal(address, dark);
    const auto appearance = open();
    EXPECT_TRUE(waitFor([&] { return appearance->isDark() == true; }));
    portal.change("org.gnome.desktop.interface", "color-scheme", light);
    portal.changeScheme(noPreference);
    EXPECT_TRUE(waitFor([&] { return appearance->isDark() == false; }));
    manager.setTheme("Adwaita-dark");
    EXPECT_TRUE(waitFor([&] { return appearance->isDark() == true; }));
    portal.changeScheme(light);
    EXPECT_TRUE(waitFor([&] { return appearance->isDark() == false; }));
}

TEST_F(DesktopAppearanceTest, APortalThatStartsLateIsAsked)
{
    const auto appearance = open();
    SettingsPortal portal(address, dark);
    EXPECT_TRUE(waitFor([&] { return appearance->isDark() == true; }));
}

} // namespace Kovrel

#include "DesktopAppearanceTest.moc"
