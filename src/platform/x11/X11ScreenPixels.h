#pragma once

#include "platform/MainLoop.h"
#include "platform/ScreenPixels.h"
#include "platform/Workers.h"
#include "platform/x11/X11Screen.h"

namespace Kovrel {

// The screen of an X server, read on the capture lane. Images share the reader's memory until their last copy goes.
class X11ScreenPixels : public ScreenPixels {
public:
    // The reader is used on the capture lane only; others that work there may share it.
    X11ScreenPixels(MainLoop& loop, Workers& workers, std::shared_ptr<X11ImageReader> reader);

    void grab(QRect rootPixels, PointerOption pointer, Reply<GrabbedImage> reply) override;
    void whenRepainted(Reply<bool> reply) override;

private:
    MainLoop& m_loop;
    Workers& m_workers;
    std::shared_ptr<X11ImageReader> m_reader;
};

} // namespace Kovrel
