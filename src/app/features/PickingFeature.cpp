#include "app/features/PickingFeature.h"

#include "app/commands/ColorCommand.h"
#include "app/commands/MeasureCommand.h"
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

constexpr int swatchSide = 48;     // pixels
constexpr double failureDwell = 6; // seconds

AimSession::Platform aimOf(Foundation& foundation)
{
    Desktop& desktop = *foundation.desktop;
    return {{foundation.loop, desktop.displays(), desktop.keys(), desktop.lock(), desktop.overlay()},
            desktop.pointer()};
}

ColorLoupeController::Services loupeServices(Foundation& foundation, const Ports& ports)
{
    Desktop& desktop = *foundation.desktop;
    return {aimOf(foundation), desktop.pixels(), desktop.colorSampler(), ports};
}

MeasureController::Services measureServices(Foundation& foundation, const Ports& ports)
{
    return {{aimOf(foundation), foundation.workers, foundation.preferences}, foundation.desktop->pixels(), ports};
}

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(PickingFeature)
};

ToastContent colorCopied(const QString& text, const QString& hex)
{
    QImage swatch(swatchSide, swatchSide, QImage::Format_RGB32);
    swatch.fill(QColor(hex));
    return {.message = text, .subtitle = Texts::tr("Colour copied"), .copied = true, .image = swatch};
}

ToastContent readingCopied(const QString& reading)
{
    return {.message = reading, .subtitle = Texts::tr("Size copied"), .icon = "ruler", .copied = true};
}

ToastContent failure(const QString& message, const QString& reason)
{
    return {.message = message, .subtitle = reason, .icon = "exclamationmark.triangle", .dwell = failureDwell};
}

CommandAnswer answerOf(const MeasureController::Outcome& reading)
{
    if (reading)
        return {.output = *reading + '\n'};
    if (reading.error().isEmpty())
        return {.exitCode = CommandLine::nothingThere, .error = "nothing was measured"};
    return {.exitCode = CommandLine::failed, .error = "the screen can't be measured: " + reading.error()};
}

} // namespace

PickingFeature::PickingFeature(Foundation& foundation, Ports& ports) : m_foundation(foundation), m_ports(ports)
{
    if (!foundation.desktop)
        return;
    m_screen.reset(new OnScreen{ColorLoupeController(loupeServices(foundation, ports)),
                                MeasureController(measureServices(foundation, ports))});
    ports.colorPicking.offer(*this);
}

// --- Commands

std::vector<CommandHandler> PickingFeature::commands()
{
    std::vector<CommandHandler> handlers{ofFile("color", ColorCommand::run), ofFile("measure", MeasureCommand::run)};
    if (m_screen)
        handlers.push_back(
            {.command = "pick-color", .run = [this](const Invocation& invocation, const Reply<CommandAnswer>& reply) {
                 onScreen(invocation, reply);
             }});
    for (CommandHandler& handler : handlers) {
        handler.cancel = [this](quint64 requestID) { cancel(requestID); };
        handler.isAvailable = [this] { return !m_ports.account || m_ports.account->isSignedIn(); };
    }
    return handlers;
}

// Without a file it is the screen that is meant.
CommandHandler PickingFeature::ofFile(const char* command, CommandAnswer (*run)(const Command&))
{
    return {.command = command, .run = [this, run](const Invocation& invocation, const Reply<CommandAnswer>& reply) {
                if (invocation.command.operands.empty())
                    onScreen(invocation, reply);
                else
                    CommandJob::run(
                        m_foundation, Lane::utility, [run, given = invocation.command] { return run(given); }, reply);
            }};
}

void PickingFeature::onScreen(const Invocation& invocation, const Reply<CommandAnswer>& reply)
{
    const auto start = [this, invocation, reply] {
        if (isUnderWay(invocation)) // a key that is pressed again changes nothing
            reply({});
        else if (m_ports.captures && !m_ports.captures->ensureScreenAccess())
            reply({.exitCode = CommandLine::refused});
        else
            begin(invocation, reply);
    };
    if (m_ports.account)
        m_ports.account->whenKnown(start);
    else
        start();
}

bool PickingFeature::isUnderWay(const Invocation& invocation) const
{
    if (invocation.requestID != 0)
        return false;
    return invocation.command.name == "measure" ? m_screen->measuring.isMeasuring() : m_screen->loupe.isPicking();
}

void PickingFeature::begin(const Invocation& invocation, const Reply<CommandAnswer>& reply)
{
    abandon();
    m_requestID = invocation.requestID;
    if (invocation.command.name == "measure") {
        measure(reply);
    } else if (m_requestID != 0) {
        pickColor(invocation.command, reply);
    } else {
        reply({});
        copyPickedColor();
    }
}

void PickingFeature::cancel(quint64 requestID)
{
    if (m_screen && m_requestID == requestID)
        abandon();
}

// --- Colours

void PickingFeature::pick(Completion completion)
{
    abandon();
    m_requestID = 0;
    m_screen->loupe.pick(std::move(completion));
}

bool PickingFeature::abandon()
{
    const bool loupeGoes = m_screen->loupe.abandon();
    return m_screen->measuring.abandon() || loupeGoes;
}

// Whoever sent a command gets the colour as its answer.
void PickingFeature::pickColor(const Command& command, const Reply<CommandAnswer>& reply)
{
    m_screen->loupe.pick([command, reply](const PickedColor& hex) { reply(ColorCommand::answer(command, hex)); });
}

void PickingFeature::copyPickedColor()
{
    ScreenColorPicker picker({
        .pick = [this](ColorCompletion completion) { m_screen->loupe.pick(std::move(completion)); },
        .text = [this](const QString& hex) { return ColorText::of(hex, m_screen->loupe.notation()); },
        .copy = [this](const QString& text) { copy(text); },
        .confirm = [this](const QString& text, const QString& hex) { present(colorCopied(text, hex)); },
        .fail = [this](const QString& reason) { present(failure(Texts::tr("No colour can be picked"), reason)); },
    });
    picker.run();
}

// --- Lengths

void PickingFeature::measure(const Reply<CommandAnswer>& reply)
{
    m_screen->measuring.measure([this, reply](const MeasureController::Outcome& reading) {
        reply(answerOf(reading));
        if (reading) {
            copy(*reading);
            present(readingCopied(*reading));
        } else if (m_requestID == 0 && !reading.error().isEmpty()) {
            present(failure(Texts::tr("The screen can't be measured"), reading.error()));
        }
    });
}

// --- What was found

void PickingFeature::copy(const QString& text)
{
    m_foundation.desktop->clipboard().putText(text);
}

// Where the user looks.
void PickingFeature::present(const ToastContent& toast)
{
    const auto show = [this, toast](const std::optional<PointerPosition>& position) {
        const auto display = position ? std::optional(position->displayID) : std::nullopt;
        m_ports.toasts.tell(&Toasts::present, toast, display, true);
    };
    m_foundation.desktop->pointer().position(m_lifeline.guard(show));
}

std::unique_ptr<Feature> makePickingFeature(Foundation& foundation, Ports& ports)
{
    return std::make_unique<PickingFeature>(foundation, ports);
}

} // namespace Kovrel
