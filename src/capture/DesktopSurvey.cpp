#include "capture/DesktopSurvey.h"

#include "capture/SourceAppResolver.h"
#include "platform/Displays.h"
#include "platform/Pointer.h"

#include <QCoreApplication>

namespace Kovrel {

DesktopSurvey::DesktopSurvey(CaptureServices& services) : m_services(services), m_scope(services.loop, services.workers)
{
}

QCoro::Task<std::optional<Display>> DesktopSurvey::screenUnderMouse()
{
    using Position = std::optional<PointerPosition>;
    const Position pointer = co_await m_scope.reply<Position>([this](auto done) { m_services.pointer.position(done); });
    const DisplayList displays = m_services.displays.all();
    const Display* display = pointer ? displayWithID(displays, pointer->displayID) : nullptr;
    if (!display)
        display = primaryDisplay(displays);
    co_return display ? std::optional(*display) : std::nullopt;
}

Wait<std::optional<std::vector<WindowInfo>>> DesktopSurvey::windows()
{
    return m_scope.reply<std::optional<std::vector<WindowInfo>>>([this](auto done) { m_services.windows.list(done); });
}

QCoro::Task<std::optional<SourceApp>> DesktopSurvey::sourceAppUnder(QRect rootPixels)
{
    const auto list = co_await windows();
    if (!list)
        co_return std::nullopt;
    co_return SourceAppResolver::resolve(*list, rootPixels, QCoreApplication::applicationPid());
}

} // namespace Kovrel
