#pragma once

#include "platform/DesktopPicture.h"
#include "platform/Displays.h"
#include "platform/MainLoop.h"
#include "platform/Workers.h"
#include "platform/x11/X11ImageReader.h"

namespace Kovrel {

// The picture behind all windows: the one in the desktop's settings, or else the root window's, or that of a desktop
// window, on which there may be icons.
class X11DesktopPicture : public DesktopPicture {
public:
    // Called on a worker, for one display of all; no value where the settings tell none.
    using FromSettings = std::function<std::optional<QImage>(const Display& display, const DisplayList& all)>;

    // The reader is used on the capture lane only.
    X11DesktopPicture(MainLoop& loop, Workers& workers, std::shared_ptr<X11ImageReader> reader,
                      const Displays& displays, FromSettings fromSettings);

    void grab(quint32 displayID, int maxPixelSize, Reply<std::optional<QImage>> reply) override;

private:
    MainLoop& m_loop;
    Workers& m_workers;
    std::shared_ptr<X11ImageReader> m_reader;
    const Displays& m_displays;
    FromSettings m_fromSettings;
};

} // namespace Kovrel
