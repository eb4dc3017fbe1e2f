#include "pins/PinFiles.h"

#include "platform/Guarded.h"
#include "ports/CaptureHistory.h"

#include <QLoggingCategory>

namespace Kovrel {

namespace {

Q_LOGGING_CATEGORY(log, "com.kovrel.pins")

} // namespace

PinFiles::PinFiles(PinServices services, PinController& pins)
    : m_services(services), m_pins(pins), m_scope(services.loop, services.workers)
{
}

void PinFiles::pin(const QString& path, Reply<Problem> reply)
{
    Scope::start(pinNow(path, std::move(reply)), "Pinning a file");
}

QCoro::Task<> PinFiles::pinNow(QString path, Reply<Problem> reply)
{
    const Decoded picture =
        co_await m_scope.onWorker(Lane::utility, Guarded::orReason([path] { return ImageCodec::decodeFile(path); }));
    if (!picture) {
        reply(picture.error().message);
        co_return;
    }
    const auto pointer = co_await m_scope.reply<std::optional<PointerPosition>>(
        [this](auto done) { m_services.pointer.position(std::move(done)); });
    const std::optional<Display> display = displayOf(pointer);
    if (!display) {
        reply(PinController::tr("There is no display to pin to"));
        co_return;
    }
    const CaptureResult result = resultOf(*picture, *display);
    record(result);
    m_pins.pin(result);
    reply({});
}

std::optional<Display> PinFiles::displayOf(const std::optional<PointerPosition>& pointer) const
{
    const DisplayList displays = m_services.displays.all();
    const Display* display = pointer ? displayWithID(displays, pointer->displayID) : primaryDisplay(displays);
    return display ? std::optional(*display) : std::nullopt;
}

// At actual size a pixel of the file is one of the display.
CaptureResult PinFiles::resultOf(QImage image, const Display& display) const
{
    return {.id = QUuid::createUuid(),
            .image = std::move(image),
            .mode = CaptureMode::area,
            .displayID = display.id,
            .date = m_services.loop.date(),
            .pixelScale = display.scale};
}

void PinFiles::record(const CaptureResult& result) const
{
    const Ports& ports = m_services.ports;
    if (!ports.history || !ports.history->isRecording())
        return;
    ports.history->record(result, nullptr, std::make_shared<EncodedPng>(result.image))
        ->whenDone([](const RecordOutcome& outcome) {
            if (!outcome)
                qCWarning(log, "The pinned picture was not recorded: %s", qUtf8Printable(outcome.error()));
        });
}

} // namespace Kovrel
