#pragma once

#include "capture/CaptureServices.h"
#include "model/SourceApp.h"
#include "platform/Display.h"
#include "platform/Scope.h"
#include "platform/Windows.h"

namespace Kovrel {

// What a capture wants to know of the desktop around it. Main thread.
class DesktopSurvey {
public:
    explicit DesktopSurvey(CaptureServices& services);

    // The display under the pointer, the primary one where the desktop does not tell; none without displays.
    QCoro::Task<std::optional<Display>> screenUnderMouse();
    QCoro::Task<std::optional<SourceApp>> sourceAppUnder(QRect rootPixels);

private:
    Wait<std::optional<std::vector<WindowInfo>>> windows();

    CaptureServices& m_services;
    Scope m_scope;
};

} // namespace Kovrel
