#pragma once

#include "platform/DesktopPicture.h"
#include "platform/Displays.h"
#include "platform/MainLoop.h"
#include "platform/Workers.h"
#include "platform/x11/X11ImageReader.h"

namespace Kovrel {

// The picture behind all windows: a desktop window's, which lies over the root window's, or else the root window's.
class X11DesktopPicture : public DesktopPicture {
public:
    // The reader is used on the capture lane only.
    X11DesktopPicture(MainLoop& loop, Workers& workers, std::shared_ptr<X11ImageReader> reader,
                      const Displays& displays);

    void grab(quint32 displayID, int maxPixelSize, Reply<std::optional<QImage>> reply) override;

private:
    MainLoop& m_loop;
    Workers& m_workers;
    std::shared_ptr<X11ImageReader> m_reader;
    const Displays& m_displays;
};

} // namespace Kovrel
