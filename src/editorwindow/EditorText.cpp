#include "editorwindow/EditorText.h"

#include "editorwindow/canvas/AnnotationCanvasView.h"
#include "editorwindow/find/FindBar.h"

namespace Kovrel {

EditorText::EditorText(EditorServices& services, EditorSession& session, AnnotationCanvasView& canvas)
    : m_services(services),
      m_session(session),
      m_canvas(canvas),
      m_lines(services, session.capture()),
      m_live(services, session.capture(), m_lines, canvas),
      m_bar(new FindBar(session, services.preferences)),
      m_changes(m_lines.onChange([this] { takeLines(); }))
{
    m_bar->hide();
    connect(m_bar, &FindBar::changed, this, &EditorText::showFound);
    connect(m_bar, &FindBar::closed, this, &EditorText::closeFind);
    connect(&m_live, &EditorLiveText::changed, this, &EditorText::selectingChanged);
    canvas.pointing().setLineHeightAt([this](Point at) {
        const bool isWanted = m_services.preferences.get(Settings::highlighterAutoSize);
        return isWanted ? m_lines.heightAt(at) : std::nullopt;
    });
}

void EditorText::follow()
{
    if (m_session.tool() == EditorTool::highlighter && m_services.preferences.get(Settings::highlighterAutoSize))
        m_lines.expect(QualityOfService::utility);
    if (m_session.tool() != EditorTool::select)
        m_live.setOn(false);
}

void EditorText::setSelecting(bool isSelecting)
{
    if (isSelecting) {
        m_canvas.stopWriting();
        m_session.setTool(EditorTool::select);
        m_session.select({});
    }
    m_live.setOn(isSelecting);
}

// --- Finding

void EditorText::openFind()
{
    m_canvas.stopWriting();
    if (m_session.tool() == EditorTool::crop)
        m_session.setTool(EditorTool::select);
    m_bar->open();
    m_lines.expect(QualityOfService::userInitiated);
    takeLines();
}

void EditorText::closeFind()
{
    m_bar->hide();
    m_canvas.setFocus();
    showFound();
}

void EditorText::takeLines()
{
    if (m_bar->isHidden())
        return;
    const auto state = m_lines.state();
    m_bar->setText(state == CaptureLines::State::there    ? FindBar::Text::there
                   : state == CaptureLines::State::failed ? FindBar::Text::failed
                                                          : FindBar::Text::awaited,
                   m_lines.lines());
}

void EditorText::showFound()
{
    if (m_bar->isHidden())
        return m_canvas.setFound({}, {});
    std::vector<Rect> boxes;
    for (const auto& hit : m_bar->find().hits())
        boxes.insert(boxes.end(), hit.boxes.begin(), hit.boxes.end());
    const auto current = m_bar->find().current();
    m_canvas.setFound(std::move(boxes), current ? m_bar->find().hits()[*current].boxes : std::vector<Rect>());
}

} // namespace Kovrel
