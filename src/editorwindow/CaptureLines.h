#pragma once

#include "editor/document/EditorCapture.h"
#include "editorwindow/EditorServices.h"
#include "model/OCRResult.h"
#include "platform/Lifeline.h"

#include <stop_token>

namespace Kovrel {

// The lines of text in a capture, once somebody has asked for them and they have been read. Main thread.
class CaptureLines {
public:
    // Both outlive it.
    CaptureLines(EditorServices& services, const EditorCapture& capture) : m_services(services), m_capture(capture) {}

    ~CaptureLines() { m_stop.request_stop(); }

    CaptureLines(const CaptureLines&) = delete;
    CaptureLines& operator=(const CaptureLines&) = delete;

    // Has them read, once.
    void expect();

    // Of the line at a place of the capture, in image points; nothing where none is known.
    std::optional<double> heightAt(Point at) const;

private:
    EditorServices& m_services;
    const EditorCapture& m_capture;
    bool m_isExpected = false;
    std::vector<OCRLine> m_lines;
    std::stop_source m_stop;
    Lifeline m_lifeline;
};

} // namespace Kovrel
