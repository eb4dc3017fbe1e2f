#include "editorwindow/CaptureLines.h"

#include "ports/TextReader.h"

#include <algorithm>

namespace Kovrel {

void CaptureLines::expect(QualityOfService qos)
{
    if (m_state == State::awaited || m_state == State::there)
        return;
    const auto& reader = m_services.ports.textReader;
    m_state = reader ? State::awaited : State::failed;
    if (reader)
        reader->readText(m_capture.image, qos, false, m_stop.get_token(),
                         m_lifeline.guard([this](const OCROutcome& outcome) { take(outcome); }));
    m_observers.notify();
}

void CaptureLines::take(const OCROutcome& outcome)
{
    m_state = outcome ? State::there : State::failed;
    if (outcome)
        m_lines = outcome->lines;
    m_observers.notify();
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
