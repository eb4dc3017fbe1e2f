#include "app/features/SettingsFeature.h"

#include "platform/FilePanel.h"
#include "platform/ReplyFromWorker.h"
#include "ports/Captures.h"
#include "ports/SettingsPages.h"
#include "settings/pages/GeneralPage.h"
#include "settings/transfer/SettingsTransfer.h"

#include <QDir>

namespace Kovrel {

SettingsFeature::SettingsFeature(Foundation& foundation, Ports& ports)
    : m_foundation(foundation), m_ports(ports), m_login(foundation)
{
}

SettingsFeature::~SettingsFeature()
{
    delete m_window;
}

std::vector<CommandHandler> SettingsFeature::commands()
{
    return {{.command = "settings", .run = [this](const Invocation& invocation, const Reply<CommandAnswer>& reply) {
                 const auto& operands = invocation.command.operands;
                 show(operands.empty() ? std::nullopt
                                       : fromRawString<SettingsTab>(QString::fromStdString(operands.front())));
                 reply({});
             }}};
}

void SettingsFeature::start(const Launch&)
{
    m_shortcut = std::make_unique<SettingsShortcut>([this] { show(std::nullopt); });
}

// Made anew each time: what there is to choose from may have changed.
void SettingsFeature::show(std::optional<SettingsTab> tab)
{
    const auto present = [this, tab] {
        if (!m_window || !m_window->isVisible()) {
            m_login.read();
            m_window = new SettingsWindow(m_foundation.preferences, m_ports.settings->settingsPages());
            m_window->setAttribute(Qt::WA_DeleteOnClose);
        }
        m_window->present(tab);
    };
    if (m_ports.captures)
        m_ports.captures->whenForegroundIsFree(present);
    else
        present();
}

std::vector<SettingsPage> SettingsFeature::settingsPages()
{
    return {GeneralPage::make(m_foundation.preferences,
                              {.loginItem = m_login.binding(),
                               .loginRemark = [this](const Reply<SettingRemark>& reply) { reply(m_login.remark()); },
                               .exportSettings = [this](QWindow* parent) { exportTo(parent); },
                               .importSettings = [this](QWindow* parent) { importFrom(parent); }})};
}

// --- The settings as a file

void SettingsFeature::exportTo(QWindow* parent)
{
    m_foundation.desktop->filePanel().ask(QDir::home().filePath(tr("Kovrel settings") + ".json"), parent,
                                          m_lifeline.guard([this](const std::optional<QString>& path) {
                                              if (path)
                                                  write(*path);
                                          }));
}

void SettingsFeature::write(const QString& path)
{
    using Written = std::expected<void, QString>;
    replyFromWorker<Written>(
        m_foundation.loop, m_foundation.workers, Lane::utility,
        [path, json = SettingsTransfer::toJson(m_foundation.defaults)]() noexcept {
            return SettingsTransfer::write(path, json);
        },
        m_lifeline.guard([this, path](const Written& written) {
            tell(written ? tr("The settings were exported to %1.").arg(path)
                         : tr("The settings could not be exported: %1").arg(written.error()),
                 !written);
        }));
}

void SettingsFeature::importFrom(QWindow* parent)
{
    m_foundation.desktop->filePanel().askForFile(tr("Settings (*.json)"), parent,
                                                 m_lifeline.guard([this](const std::optional<QString>& path) {
                                                     if (path)
                                                         read(*path);
                                                 }));
}

void SettingsFeature::read(const QString& path)
{
    using Read = std::expected<SettingsTransfer::Content, QString>;
    replyFromWorker<Read>(
        m_foundation.loop, m_foundation.workers, Lane::utility,
        [path]() noexcept { return SettingsTransfer::read(path); }, m_lifeline.guard([this](const Read& content) {
            if (!content) {
                tell(tr("Nothing was imported: %1").arg(content.error()), true);
                return;
            }
            SettingsTransfer::apply(*content, m_foundation.defaults);
            tell(content->unknown.isEmpty()
                     ? tr("The settings were imported.")
                     : tr("The settings were imported, but for what this version does not know: %1")
                           .arg(content->unknown.join(", ")),
                 false);
        }));
}

void SettingsFeature::tell(const QString& text, bool isWarning)
{
    if (m_window)
        m_window->showNotice(text, isWarning);
}

std::unique_ptr<Feature> makeSettingsFeature(Foundation& foundation, Ports& ports)
{
    return std::make_unique<SettingsFeature>(foundation, ports);
}

} // namespace Kovrel
