#pragma once

#include "picking/ScreenTurn.h"
#include "picking/measure/MeasureSession.h"

#include <expected>

namespace Kovrel {

// Measuring on the screen: one session at a time. A capture ends it, and it ends a selection. Main thread.
class MeasureController {
public:
    // "128 × 40"; else why nothing was measured, in the words that follow a colon: empty when nobody wanted to.
    using Outcome = std::expected<QString, QString>;
    using Completion = std::function<void(const Outcome&)>;

    struct Services {
        MeasureSession::Platform platform;
        ScreenPixels& pixels;
        const Ports& ports;
    };

    explicit MeasureController(Services services);
    ~MeasureController();
    MeasureController(const MeasureController&) = delete;
    MeasureController& operator=(const MeasureController&) = delete;

    // The completion is called once, never inside this call. A measuring that is under way ends.
    void measure(Completion completion);
    // Ends it without a reading. Answers whether the screen changes by that.
    bool abandon();

    // Freezing or showing.
    bool isMeasuring() const { return m_completion != nullptr; }

private:
    void freeze();
    void finish(const Outcome& outcome);

    Services m_services;
    Completion m_completion; // none: idle
    std::unique_ptr<MeasureSession> m_session;
    ScreenTurn m_freezing;
};

} // namespace Kovrel
