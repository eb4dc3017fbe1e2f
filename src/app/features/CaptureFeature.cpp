#include "app/features/CaptureFeature.h"

#include "app/commands/CaptureCommand.h"
#include "app/foundation/AppPaths.h"
#include "platform/session/DesktopSession.h"
#include "ports/AccountStatus.h"
#include "ports/ColorPicking.h"
#include "settings/pages/CapturePage.h"

#include <QCoreApplication>

namespace Kovrel {

namespace {

bool mayRecordScreen()
{
    return DesktopSession::obstacle().isEmpty();
}

} // namespace

CaptureFeature::CaptureFeature(Foundation& foundation, Ports& ports)
    : m_foundation(foundation),
      m_ports(ports),
      m_backdrop(foundation.loop, foundation.workers, foundation.desktop->picture(), foundation.desktop->displays(),
                 foundation.preferences),
      m_nativeCapture({foundation.loop, foundation.workers, foundation.trace, foundation.desktop->pixels(),
                       foundation.desktop->windows(), foundation.desktop->displays(), foundation.desktop->tools()},
                      {AppPaths::screenshotTool(), AppPaths::temporaryFolder()}),
      m_overlay({foundation.loop, foundation.preferences, foundation.trace, foundation.desktop->displays(),
                 foundation.desktop->pointer(), foundation.desktop->windows(), foundation.desktop->keys(),
                 foundation.desktop->lock(), foundation.desktop->overlay()}),
      m_grabber(foundation.loop, foundation.workers, foundation.desktop->windows()),
      m_coordinator(services())
{
    ports.captures.offer(m_coordinator);
}

CaptureServices CaptureFeature::services()
{
    return {
        .loop = m_foundation.loop,
        .workers = m_foundation.workers,
        .preferences = m_foundation.preferences,
        .trace = m_foundation.trace,
        .displays = m_foundation.desktop->displays(),
        .pointer = m_foundation.desktop->pointer(),
        .pixels = m_foundation.desktop->pixels(),
        .windows = m_foundation.desktop->windows(),
        .keys = m_foundation.desktop->keys(),
        .engine = m_nativeCapture,
        .overlay = m_overlay,
        .grabber = m_grabber,
        .backdrop = m_backdrop,
        .mayRecordScreen = mayRecordScreen,
        .ports = m_ports,
    };
}

void CaptureFeature::prewarm()
{
    m_overlay.prewarm();
    m_heldModifiers = m_foundation.desktop->keys().onModifiersHeld([this] { m_overlay.expectSession(); });
}

std::vector<CommandHandler> CaptureFeature::commands()
{
    return {
        {.command = "capture",
         .run = [this](const Invocation& invocation, const Reply<CommandAnswer>& reply) { capture(invocation, reply); },
         .cancel = [this](quint64 requestID) { m_coordinator.cancel(requestID); },
         .isAvailable = [this] { return canCapture(); }}};
}

bool CaptureFeature::canCapture() const
{
    return (!m_ports.account || m_ports.account->isSignedIn()) && mayRecordScreen();
}

void CaptureFeature::capture(const Invocation& invocation, const Reply<CommandAnswer>& reply)
{
    m_foundation.trace.begin();
    const auto start = [this, invocation, reply] {
        CaptureRequest request = CaptureCommand::request(invocation.command, reply, DesktopSession::obstacle());
        request.id = invocation.requestID;
        request.isScripted = invocation.requestID != 0;
        request.options.waitsForRepaint = invocation.isFromMenu;
        m_coordinator.capture(std::move(request));
    };
    if (m_ports.account)
        m_ports.account->whenKnown(start);
    else
        start();
}

std::vector<SettingsPage> CaptureFeature::settingsPages()
{
    return {CapturePage::make(m_foundation.preferences, ColorPicking::offeredBy(m_ports.colorPicking))};
}

std::unique_ptr<Feature> makeCaptureFeature(Foundation& foundation, Ports& ports)
{
    return std::make_unique<CaptureFeature>(foundation, ports);
}

} // namespace Kovrel
