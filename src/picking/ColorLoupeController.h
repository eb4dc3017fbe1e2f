#pragma once

#include "model/ColorPick.h"
#include "picking/LoupeSession.h"
#include "picking/ScreenTurn.h"

#include <memory>

namespace Kovrel {

class ColorSampler;

// The colour loupe: one session at a time, from freezing the displays over showing to idle. A capture ends it, and it
// ends a selection. Main thread.
class ColorLoupeController {
public:
    using Completion = ColorCompletion;

    struct Services {
        AimSession::Platform platform;
        ScreenPixels& pixels;
        ColorSampler& sampler;
        const Ports& ports;
    };

    explicit ColorLoupeController(Services services);
    ~ColorLoupeController();
    ColorLoupeController(const ColorLoupeController&) = delete;
    ColorLoupeController& operator=(const ColorLoupeController&) = delete;

    // As the port `ColorPicking` has them.
    void pick(Completion completion);
    bool abandon();

    // At a global point; where there is no frozen pixel it does nothing.
    void pickAt(Point point);
    // Closes the loupe and whatever else lets the user pick. Nobody is told.
    void tearDown();
    // Closes the loupe; the desktop's own sampler answers in its place.
    void fallBackToSystemSampler();

    // Freezing or showing.
    bool isPicking() const { return m_completion != nullptr; }

    // In which the colour that was picked last was shown.
    ColorNotation notation() const { return m_notation; }

private:
    void freeze();
    void cancelled(const QString& failure);
    void finish(const PickedColor& hex);

    Services m_services;
    Completion m_completion; // none: idle
    std::unique_ptr<LoupeSession> m_session;
    ScreenTurn m_freezing;
    ColorNotation m_notation = ColorNotation::hex;
};

} // namespace Kovrel
