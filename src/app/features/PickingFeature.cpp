#include "app/features/PickingFeature.h"

#include "app/commands/ColorCommand.h"
#include "app/foundation/CommandJob.h"
#include "picking/ColorText.h"
#include "picking/ScreenColorPicker.h"
#include "platform/Clipboard.h"
#include "platform/Pointer.h"
#include "ports/AccountStatus.h"
#include "ports/Captures.h"
#include "ports/Toasts.h"

#include <QCoreApplication>

namespace Kovrel {

namespace {

constexpr int swatchSide = 48; // pixels

ColorLoupeController::Services servicesOf(Foundation& foundation, const Ports& ports)
{
    Desktop& desktop = *foundation.desktop;
    return {.platform = {{foundation.loop, desktop.displays(), desktop.keys(), desktop.lock(), desktop.overlay()},
                         desktop.pointer()},
            .pixels = desktop.pixels(),
            .sampler = desktop.colorSampler(),
            .ports = ports};
}

ToastContent colorCopied(const QString& text, const QString& hex)
{
    QImage swatch(swatchSide, swatchSide, QImage::Format_RGB32);
    swatch.fill(QColor(hex));
    return {.message = text,
            .subtitle = QCoreApplication::translate("PickingFeature", "Colour copied"),
            .copied = true,
            .image = swatch};
}

} // namespace

PickingFeature::PickingFeature(Foundation& foundation, Ports& ports) : m_foundation(foundation), m_ports(ports)
{
    if (!foundation.desktop)
        return;
    m_loupe = std::make_unique<ColorLoupeController>(servicesOf(foundation, ports));
    ports.colorPicking.offer(*m_loupe);
}

std::vector<CommandHandler> PickingFeature::commands()
{
    std::vector<CommandHandler> handlers{
        {.command = "color", .run = [this](const Invocation& invocation, const Reply<CommandAnswer>& reply) {
             CommandJob::run(
                 m_foundation, Lane::utility, [command = invocation.command] { return ColorCommand::run(command); },
                 reply);
         }}};
    if (m_loupe)
        handlers.push_back({.command = "pick-color",
                            .run = [this](const Invocation& invocation,
                                          const Reply<CommandAnswer>& reply) { pickColor(invocation, reply); },
                            .cancel = [this](quint64 requestID) { cancel(requestID); },
                            .isAvailable = [this] { return !m_ports.account || m_ports.account->isSignedIn(); }});
    return handlers;
}

void PickingFeature::pickColor(const Invocation& invocation, const Reply<CommandAnswer>& reply)
{
    const auto start = [this, invocation, reply] {
        // A key that is pressed again changes nothing.
        if (invocation.requestID == 0 && m_loupe->isPicking())
            reply({});
        else if (m_ports.captures && !m_ports.captures->ensureScreenAccess())
            reply({.exitCode = CommandLine::refused});
        else if (invocation.requestID != 0)
            pickColorFor(invocation, reply);
        else
            copyPickedColor(reply);
    };
    if (m_ports.account)
        m_ports.account->whenKnown(start);
    else
        start();
}

// Whoever sent a command gets the colour as its answer.
void PickingFeature::pickColorFor(const Invocation& invocation, const Reply<CommandAnswer>& reply)
{
    m_loupe->pick([command = invocation.command, reply](const std::optional<QString>& hex) {
        reply(ColorCommand::answer(command, hex));
    });
    m_requestID = invocation.requestID;
}

void PickingFeature::copyPickedColor(const Reply<CommandAnswer>& reply)
{
    reply({});
    m_requestID = 0;
    ScreenColorPicker picker({
        .pick = [this](ColorPicking::Completion completion) { m_loupe->pick(std::move(completion)); },
        .text = [this](const QString& hex) { return ColorText::of(hex, m_loupe->notation()); },
        .copy = [this](const QString& text) { m_foundation.desktop->clipboard().putText(text); },
        .confirm = [this](const QString& text, const QString& hex) { confirmColor(text, hex); },
    });
    picker.run();
}

void PickingFeature::cancel(quint64 requestID)
{
    if (m_requestID == requestID && m_loupe)
        m_loupe->abandon();
}

// Where the user looks.
void PickingFeature::confirmColor(const QString& text, const QString& hex)
{
    const auto present = [this, toast = colorCopied(text, hex)](const std::optional<PointerPosition>& position) {
        const auto display = position ? std::optional(position->displayID) : std::nullopt;
        m_ports.toasts.tell(&Toasts::present, toast, display, true);
    };
    m_foundation.desktop->pointer().position(m_lifeline.guard(present));
}

std::unique_ptr<Feature> makePickingFeature(Foundation& foundation, Ports& ports)
{
    return std::make_unique<PickingFeature>(foundation, ports);
}

} // namespace Kovrel
