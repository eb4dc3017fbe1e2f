#pragma once

#include "capture/CaptureServices.h"
#include "capture/pixels/WindowBackdrop.h"
#include "platform/Display.h"
#include "platform/Scope.h"

namespace Kovrel {

// Sets picked windows on the backdrop that the user chose, with the desktop picture fetched while the user still aims.
// Main thread.
class WindowComposition {
public:
    explicit WindowComposition(CaptureServices& services);

    // Starts fetching the display's desktop picture, when it will be wanted and none is on its way.
    void prewarm(const Display& display);
    // No window was picked: a picture that stayed would grow old, and hold memory.
    void forgetPrewarm();
    QCoro::Task<ComposedCapture> compose(QImage window, std::optional<quint32> displayID);

private:
    using Wallpaper = Wait<std::optional<QImage>>;

    Wallpaper fetch(quint32 displayID, int maxPixelSize);

    CaptureServices& m_services;
    std::optional<Wallpaper> m_prewarm;
    std::optional<quint32> m_prewarmedDisplayID;
    Scope m_scope;
};

} // namespace Kovrel
