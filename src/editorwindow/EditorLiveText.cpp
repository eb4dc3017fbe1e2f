#include "editorwindow/EditorLiveText.h"

#include "editorwindow/EditorToasts.h"
#include "editorwindow/canvas/AnnotationCanvasView.h"
#include "ports/CaptureDelivery.h"
#include "ports/TextReader.h"

namespace Kovrel {

EditorLiveText::EditorLiveText(EditorServices& services, const EditorCapture& capture, CaptureLines& lines,
                               AnnotationCanvasView& canvas)
    : m_services(services),
      m_capture(capture),
      m_lines(lines),
      m_canvas(canvas),
      m_layer(new LiveTextLayer(canvas, services.preferences, doors())),
      m_changes(lines.onChange([this] { take(); }))
{
    m_layer->setShaded(true);
    connect(&canvas, &AnnotationCanvasView::zoomChanged, this, &EditorLiveText::place);
}

void EditorLiveText::setOn(bool isOn)
{
    if (std::exchange(m_isOn, isOn) == isOn)
        return;
    if (isOn) {
        readCodes();
        m_lines.expect(QualityOfService::userInitiated);
        take();
    } else {
        m_layer->clear();
        m_canvas.setFocus();
    }
    Q_EMIT changed();
}

void EditorLiveText::readCodes()
{
    const auto& reader = m_services.ports.textReader;
    if (m_codesState != Codes::unasked || !reader)
        return;
    m_codesState = Codes::awaited;
    reader->readCodes(m_capture.image, m_lifeline.guard([this](const std::optional<std::vector<QRCode>>& codes) {
        m_codesState = Codes::known;
        m_codes = codes.value_or(std::vector<QRCode>());
        take();
    }));
}

void EditorLiveText::take()
{
    const auto state = m_lines.state();
    if (!m_isOn || state == CaptureLines::State::awaited)
        return;
    const bool isEmpty = m_lines.lines().empty() && m_codes.empty();
    if (isEmpty && m_codesState == Codes::awaited)
        return;
    if (isEmpty) {
        EditorToasts::warn(m_services.ports, tr("No text found in the capture"));
        return setOn(false);
    }
    m_layer->setReading({.lines = m_lines.lines()}, m_codes, m_capture.image.size());
    place();
    m_layer->setFocus();
}

// From the capture's pixels, y down, to the canvas.
void EditorLiveText::place()
{
    const Rect canvas = m_capture.canvas();
    const QPointF upperLeft = m_canvas.widgetPoint({canvas.minX(), canvas.maxY()});
    const QPointF lowerRight = m_canvas.widgetPoint({canvas.maxX(), canvas.minY()});
    const QPointF size = lowerRight - upperLeft;
    m_layer->setPlacement(QTransform()
                              .translate(upperLeft.x(), upperLeft.y())
                              .scale(size.x() / m_capture.image.width(), size.y() / m_capture.image.height()));
}

LiveTextLayer::Doors EditorLiveText::doors() const
{
    const Ports& ports = m_services.ports;
    return {.copy =
                [&ports](const QString& text) {
                    ports.delivery.tell(&CaptureDelivery::copyText, text);
                    EditorToasts::sayCopied(ports, tr("Text copied"));
                },
            .open = [&ports](const QUrl& target) { ports.delivery.tell(&CaptureDelivery::openLink, target); }};
}

} // namespace Kovrel
