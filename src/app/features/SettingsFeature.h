#pragma once

#include "app/foundation/Feature.h"
#include "app/foundation/Foundation.h"
#include "platform/Lifeline.h"
#include "platform/LoginItem.h"
#include "ports/Ports.h"
#include "settings/SettingsShortcut.h"
#include "settings/SettingsWindow.h"

#include <QCoreApplication>
#include <QPointer>

namespace Kovrel {

// The window in which everything is set; what belongs to no other capability is here.
class SettingsFeature : public Feature {
    Q_DECLARE_TR_FUNCTIONS(Kovrel::SettingsFeature)

public:
    SettingsFeature(Foundation& foundation, Ports& ports);
    ~SettingsFeature() override;
    SettingsFeature(const SettingsFeature&) = delete;
    SettingsFeature& operator=(const SettingsFeature&) = delete;

    std::vector<CommandHandler> commands() override;
    std::vector<SettingsPage> settingsPages() override;
    void start(const Launch& launch) override;

private:
    // As far as it is known: what is on the disk is asked for when it is to be seen.
    struct Login {
        bool isOn = false;
        QString failure = {};
    };

    void show(std::optional<SettingsTab> tab);
    SettingBinding loginBinding();
    void readLogin();
    void setLogin(bool isOn);
    void landLogin(const Login& login);
    void exportTo(QWindow* parent);
    void importFrom(QWindow* parent);
    void write(const QString& path);
    void read(const QString& path);
    void tell(const QString& text, bool isWarning);

    Foundation& m_foundation;
    const Ports& m_ports;
    Login m_login;
    Observers<> m_loginChanges;
    QPointer<SettingsWindow> m_window;            // while it is open; then it deletes itself
    std::unique_ptr<SettingsShortcut> m_shortcut; // from `start` on
    Lifeline m_lifeline;
};

} // namespace Kovrel
