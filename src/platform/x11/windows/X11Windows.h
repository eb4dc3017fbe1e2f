#pragma once

#include "platform/Displays.h"
#include "platform/MainLoop.h"
#include "platform/Windows.h"
#include "platform/Workers.h"
#include "platform/x11/X11ImageReader.h"
#include "platform/x11/windows/ApplicationNames.h"

namespace Kovrel {

// The windows of an X server, listed and read on the capture lane.
class X11Windows : public Windows {
public:
    // The reader is used on the capture lane only. Displays outlive every reply.
    X11Windows(MainLoop& loop, Workers& workers, std::shared_ptr<X11ImageReader> reader, const Displays& displays,
               ApplicationNames names = ApplicationNames());

    void list(Reply<std::optional<std::vector<WindowInfo>>> reply) override;
    void grab(quint32 windowID, Reply<GrabbedImage> reply) override;

private:
    MainLoop& m_loop;
    Workers& m_workers;
    std::shared_ptr<X11ImageReader> m_reader;
    const Displays& m_displays;
    std::shared_ptr<ApplicationNames> m_names; // used on the capture lane only
};

} // namespace Kovrel
