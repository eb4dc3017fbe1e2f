#include "app/features/CardsFeature.h"

#include "app/foundation/AppPaths.h"
#include "commandline/CommandLine.h"
#include "hotkeys/HotkeySettings.h"
#include "ports/CaptureDelivery.h"
#include "ports/Captures.h"
#include "ports/Toasts.h"
#include "settings/pages/CardsPage.h"
#include "ui/FloatingShadow.h"
#include "ui/tokens/Metrics.h"

#include <QCoreApplication>

namespace Kovrel {

namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(CardsFeature)
};

CommandAnswer answer(bool hasCome)
{
    if (hasCome)
        return {};
    return {.exitCode = CommandLine::nothingThere, .error = Texts::tr("There is no closed card that could come back")};
}

} // namespace

CardsFeature::CardsFeature(Foundation& foundation, Ports& ports)
    : m_foundation(foundation),
      m_ports(ports),
      m_panels(
          {foundation.loop, foundation.preferences, foundation.desktop->displays(), foundation.desktop->panelShapes()}),
      m_controller(services(), m_panels),
      m_hotkeys(foundation.loop, foundation.desktop->keys()),
      m_chords(m_controller, m_hotkeys),
      m_menus(m_controller, foundation.desktop->programs(), ports.previews,
              [this](CardQuickAction action) { return m_hotkeys.keysOf(action); })
{
    m_panels.setController(m_controller);
    m_panels.setMenu([this](QUuid card, QPoint position) { m_menus.open(card, position); });
    ports.cards.offer(m_controller);
    ports.ledger.offer(m_closed);
}

CardServices CardsFeature::services()
{
    return {.loop = m_foundation.loop,
            .workers = m_foundation.workers,
            .preferences = m_foundation.preferences,
            .displays = m_foundation.desktop->displays(),
            .ports = m_ports,
            .temporaryFolder = AppPaths::temporaryFolder()};
}

std::vector<CommandHandler> CardsFeature::commands()
{
    return {{.command = "reopen",
             .run = [this](const Invocation&, const Reply<CommandAnswer>& reply) { reopen(reply); },
             .isAvailable = [this] { return !m_closed.isEmpty(); }}};
}

void CardsFeature::reopen(const Reply<CommandAnswer>& reply)
{
    if (m_ports.captures)
        m_ports.captures->reopenClosed([reply](bool hasCome) { reply(answer(hasCome)); });
    else
        reply(answer(false));
}

QString CardsFeature::reopenKeys() const
{
    const MenuEntry& entry = CommandTable::entryOf(HotkeyAction::reopenClosedCapture);
    const auto keys = HotkeySettings::combo(m_foundation.preferences, entry);
    return keys ? keys->title() : QCoreApplication::translate("CommandTable", entry.label);
}

std::vector<SettingsPage> CardsFeature::settingsPages()
{
    return {CardsPage::make(m_foundation.preferences, PreviewDuration::helpText(reopenKeys()))};
}

void CardsFeature::start(const Launch&)
{
    QObject::connect(&m_panels, &CardPanels::linkWanted, &m_panels,
                     [this](const QUrl& url) { m_ports.delivery.tell(&CaptureDelivery::openLink, url); });
    QObject::connect(&m_panels, &CardPanels::textWanted, &m_panels, [this](const QString& text) { copyText(text); });
    m_controller.start();
}

void CardsFeature::prewarmLater()
{
    for (const Display& display : m_foundation.desktop->displays().all())
        FloatingShadow::prewarm(Radius::card, display.scale);
}

void CardsFeature::copyText(const QString& text)
{
    if (!m_ports.delivery)
        return;
    m_ports.delivery->copyText(text);
    m_ports.toasts.tell(
        &Toasts::present,
        ToastContent{.message = Texts::tr("Text copied"), .icon = "doc.on.clipboard.fill", .copied = true},
        std::nullopt, true);
}

std::unique_ptr<Feature> makeCardsFeature(Foundation& foundation, Ports& ports)
{
    return std::make_unique<CardsFeature>(foundation, ports);
}

} // namespace Kovrel
