#pragma once

#include "platform/DesktopStills.h"
#include "platform/x11/X11ImageReader.h"

namespace Kovrel {

// The pixels of an X server, taken on the calling thread.
class X11Stills : public DesktopStills {
public:
    explicit X11Stills(std::shared_ptr<X11Connection> connection);

    DisplayList displays(const ScaleLookup& scaleOf) override;
    GrabbedImage grab(QRect rootPixels, ScreenPixels::PointerOption pointer) override;
    GrabbedImage grabWindow(quint32 windowID) override;
    std::expected<quint32, PickFailure> pickWindow() override;

private:
    std::shared_ptr<X11ImageReader> m_reader;
};

} // namespace Kovrel
