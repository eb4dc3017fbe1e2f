#pragma once

#include "platform/x11/X11DesktopPicture.h"
#include "platform/x11/X11Displays.h"
#include "platform/x11/X11KeyGrabs.h"
#include "platform/x11/X11OverlaySurfaces.h"
#include "platform/x11/X11Pointer.h"
#include "platform/x11/X11ScreenPixels.h"
#include "platform/x11/X11Windows.h"

namespace Kovrel {

// Everything that an X server gives, with the connections that it needs: one for the capture lane, and one each for
// those that listen to events on the main thread.
class X11Desktop {
public:
    X11Desktop(MainLoop& loop, Workers& workers, const X11Displays::ScaleLookup& scaleOf)
        : m_connection(std::make_shared<X11Connection>()),
          m_reader(std::make_shared<X11ImageReader>(m_connection)),
          displays(std::make_unique<X11Connection>(), scaleOf),
          keys(loop, std::make_unique<X11Connection>()),
          pixels(loop, workers, m_reader),
          pointer(loop, workers, m_connection, displays),
          windows(loop, workers, m_reader, displays),
          picture(loop, workers, m_reader, displays),
          overlay(loop, workers, displays)
    {
        m_reader->releaseWhenIdle(loop);
    }

private:
    std::shared_ptr<X11Connection> m_connection; // of the capture lane
    std::shared_ptr<X11ImageReader> m_reader;

public:
    X11Displays displays;
    X11KeyGrabs keys;
    X11ScreenPixels pixels;
    X11Pointer pointer;
    X11Windows windows;
    X11DesktopPicture picture;
    X11OverlaySurfaces overlay;
};

} // namespace Kovrel
