#pragma once

#include "editorwindow/CaptureLines.h"
#include "livetext/layer/LiveTextLayer.h"
#include "platform/Scope.h"

#include <QCoreApplication>
#include <QObject>

namespace Kovrel {

class AnnotationCanvasView;

// While it is on, the text of the capture on the canvas can be selected as in a document. Main thread.
class EditorLiveText : public QObject {
    Q_OBJECT

public:
    // All of them outlive it.
    EditorLiveText(EditorServices& services, const EditorCapture& capture, CaptureLines& lines,
                   AnnotationCanvasView& canvas);

    bool isOn() const { return m_isOn; }

    void setOn(bool isOn);
    // The canvas shows another part, or the same one larger.
    void place();

Q_SIGNALS:
    // Also without anybody's wish: where no text was found.
    void changed();

private:
    void readCodes();
    void take();
    LiveTextLayer::Doors doors() const;

    EditorServices& m_services;
    const EditorCapture& m_capture;
    CaptureLines& m_lines;
    AnnotationCanvasView& m_canvas;
    LiveTextLayer* m_layer;
    enum class Codes { unasked, awaited, known };

    Codes m_codesState = Codes::unasked;
    std::vector<QRCode> m_codes;
    bool m_isOn = false;
    Subscription m_changes;
    Lifeline m_lifeline;
};

} // namespace Kovrel
