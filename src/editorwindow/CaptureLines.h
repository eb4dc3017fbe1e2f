#pragma once

#include "editor/document/EditorCapture.h"
#include "editorwindow/EditorServices.h"
#include "model/OCRResult.h"
#include "platform/Lifeline.h"
#include "platform/Observers.h"
#include "platform/Workers.h"

#include <stop_token>

namespace Kovrel {

// The lines of text in a capture, once somebody has asked for them and they have been read. Main thread.
class CaptureLines {
public:
    enum class State { unasked, awaited, there, failed };

    // Both outlive it.
    CaptureLines(EditorServices& services, const EditorCapture& capture) : m_services(services), m_capture(capture) {}

    ~CaptureLines() { m_stop.request_stop(); }

    CaptureLines(const CaptureLines&) = delete;
    CaptureLines& operator=(const CaptureLines&) = delete;

    // Has them read, once; after a failure once more.
    void expect(QualityOfService qos);

    State state() const { return m_state; }

    const std::vector<OCRLine>& lines() const { return m_lines; }

    Subscription onChange(std::function<void()> observer) { return m_observers.add(std::move(observer)); }

    // Of the line at a place of the capture, in image points; nothing where none is known.
    std::optional<double> heightAt(Point at) const;

private:
    void take(const OCROutcome& outcome);

    EditorServices& m_services;
    const EditorCapture& m_capture;
    State m_state = State::unasked;
    std::vector<OCRLine> m_lines;
    std::stop_source m_stop;
    Observers<> m_observers;
    Lifeline m_lifeline;
};

} // namespace Kovrel
