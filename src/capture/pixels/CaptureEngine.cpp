#include "capture/pixels/CaptureEngine.h"

namespace Kovrel {

CaptureEngine::CaptureEngine(MainLoop& loop, Workers& workers, const Displays& displays, Windows& windows)
    : m_displays(displays), m_windows(windows), m_scope(loop, workers)
{
}

QCoro::Task<std::expected<CaptureEngine::Content, CaptureError>> CaptureEngine::shareableContent()
{
    using List = std::optional<std::vector<WindowInfo>>;
    auto windows = co_await m_scope.reply<List>([this](Reply<List> done) { m_windows.list(std::move(done)); });
    Content content{m_displays.all(), std::move(windows).value_or(std::vector<WindowInfo>())};
    if (content.displays.empty())
        co_return std::unexpected(CaptureError::noContent);
    co_return content;
}

} // namespace Kovrel
