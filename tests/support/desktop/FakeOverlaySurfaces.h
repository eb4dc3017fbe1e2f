#pragma once

#include "platform/OverlaySurfaces.h"
#include "tests/support/desktop/FakeDisplays.h"
#include "tests/support/desktop/FakeScreenPixels.h"

namespace Kovrel::Testing {

// Surfaces that show nothing, over which the test moves the pointer by calling the handlers.
class FakeOverlaySurfaces : public OverlaySurfaces {
public:
    FakeOverlaySurfaces(MainLoop& loop, const FakeDisplays& displays, const FakeScreenPixels& pixels)
        : answers(loop), m_displays(displays), m_pixels(pixels)
    {
    }

    bool isRefused = false;
    bool isPointerHeld = false; // by another program, as one with an open menu
    bool letsPointerGo = true;
    FakeAnswers answers;

    // What was asked for.
    Opening opening;
    Handlers handlers; // none while it is closed
    QPoint pointer;
    int expected = 0;
    int cursors = 0;
    int raises = 0;

    void prewarm() override {}

    void expectOpening() override { ++expected; }

    void open(Opening given, Handlers givenHandlers, Reply<Outcome> reply) override
    {
        opening = std::move(given);
        handlers = std::move(givenHandlers);
        answers.give(std::move(reply), [this]() -> Outcome {
            if (isRefused)
                return std::unexpected("the desktop does not give its pixels");
            return opened();
        });
    }

    void takePointer(Reply<bool> reply) override
    {
        answers.give(std::move(reply), [this] { return letsPointerGo; });
    }

    void reveal(const QRect&) override {}

    void shade(const QRect&) override {}

    void put(QPoint, const QImage&) override {}

    void setCursor(std::function<OverlayCursor(const Display&)>) override { ++cursors; }

    void movePointer(QPoint rootPixel) override { pointer = rootPixel; }

    void raise() override { ++raises; }

    void close() override { handlers = {}; }

private:
    Opened opened() const
    {
        Opened opened{isPointerHeld ? Ground::frozen : opening.ground, {}, isPointerHeld};
        for (const Display& display : m_displays.displays)
            opened.screens.push_back({display.id, display.pixelRect, screen(display.pixelRect)});
        return opened;
    }

    // Black where the test has given no pixels.
    QImage screen(const QRect& rootPixels) const
    {
        QImage black(rootPixels.size(), QImage::Format_RGB32);
        black.fill(Qt::black);
        return m_pixels.part(rootPixels).value_or(black);
    }

    const FakeDisplays& m_displays;
    const FakeScreenPixels& m_pixels;
};

} // namespace Kovrel::Testing
