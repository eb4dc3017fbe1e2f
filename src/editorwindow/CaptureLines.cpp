#include "editorwindow/CaptureLines.h"

#include "ports/TextReader.h"

#include <algorithm>

namespace Kovrel {

void CaptureLines::expect()
{
    const auto& reader = m_services.ports.textReader;
    if (std::exchange(m_isExpected, true) || !reader)
        return;
    reader->readText(m_capture.image, QualityOfService::utility, false, m_stop.get_token(),
                     m_lifeline.guard([this](const OCROutcome& outcome) {
                         if (outcome)
                             m_lines = outcome->lines;
                     }));
}

std::optional<double> CaptureLines::heightAt(Point at) const
{
    const Rect canvas = m_capture.canvas();
    const Point share{at.x / canvas.width, at.y / canvas.height};
    const auto line = std::ranges::find_if(
        m_lines, [share](const OCRLine& one) { return !one.quad && one.boundingBox.contains(share); });
    return line == m_lines.end() ? std::nullopt : std::optional(line->boundingBox.height * canvas.height);
}

} // namespace Kovrel
