#pragma once

#include "platform/Lifeline.h"
#include "ports/Ports.h"

#include <functional>
#include <memory>

namespace Kovrel {

class ScreenPixels;

// The wait until the screen can be frozen: a selection that shows is closed, one that is still to come, or is being
// finished, is waited for, and what has just gone, as a menu, must not be in the frozen picture. Main thread.
class ScreenTurn {
public:
    ScreenTurn(ScreenPixels& pixels, const Ports& ports) : m_pixels(pixels), m_ports(ports) {}

    // One wait at a time; a new one takes the place of the one before.
    void await(std::function<void()> start);

    void cancel() { m_waiting.reset(); }

private:
    ScreenPixels& m_pixels;
    const Ports& m_ports;
    std::unique_ptr<Lifeline> m_waiting;
};

} // namespace Kovrel
