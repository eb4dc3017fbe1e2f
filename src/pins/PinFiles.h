#pragma once

#include "pins/PinController.h"
#include "platform/ImageCodec.h"
#include "platform/Scope.h"

namespace Kovrel {

// Pins pictures that are files, and records them as captures. Main thread.
class PinFiles {
public:
    // Why it is not pinned, in one line; nothing: it is.
    using Problem = std::optional<QString>;

    // `pins` outlives it.
    PinFiles(PinServices services, PinController& pins);

    // On the display under the pointer.
    void pin(const QString& path, Reply<Problem> reply);

private:
    using Decoded = std::expected<QImage, ImageCodec::Failure>;

    QCoro::Task<> pinNow(QString path, Reply<Problem> reply);
    CaptureResult resultOf(QImage image, const Display& display) const;
    std::optional<Display> displayOf(const std::optional<PointerPosition>& pointer) const;
    void record(const CaptureResult& result) const;

    PinServices m_services;
    PinController& m_pins;
    Scope m_scope;
};

} // namespace Kovrel
