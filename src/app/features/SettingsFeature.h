#pragma once

#include "app/foundation/Feature.h"
#include "app/foundation/Foundation.h"
#include "app/foundation/LoginSwitch.h"
#include "platform/Lifeline.h"
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
    void show(std::optional<SettingsTab> tab);
    void exportTo(QWindow* parent);
    void importFrom(QWindow* parent);
    void write(const QString& path);
    void read(const QString& path);
    void tell(const QString& text, bool isWarning);

    Foundation& m_foundation;
    const Ports& m_ports;
    LoginSwitch m_login;
    QPointer<SettingsWindow> m_window;            // while it is open; then it deletes itself
    std::unique_ptr<SettingsShortcut> m_shortcut; // from `start` on
    Lifeline m_lifeline;
};

} // namespace Kovrel
