#include "editor/session/EditorSession.h"

#include "editor/geometry/MarkFrame.h"

#include <algorithm>

namespace Kovrel {

namespace {

using Kind = Annotation::Kind;

constexpr Size duplicateShift{12, -12};

// A gap is closed.
void renumber(std::vector<Annotation>& marks, const std::vector<Annotation>& removed)
{
    for (Annotation& mark : marks)
        if (mark.kind == Kind::step)
            mark.stepNumber -= std::ranges::count_if(removed, [&mark](const Annotation& gone) {
                return gone.kind == Kind::step && gone.stepNumber < mark.stepNumber;
            });
}

// One place up; what is above goes down. Several move together.
void moveUp(std::vector<Annotation>& marks, const std::function<bool(const Annotation&)>& isMoved)
{
    for (size_t index = marks.size(); index-- > 1;)
        if (isMoved(marks[index - 1]) && !isMoved(marks[index]))
            std::swap(marks[index - 1], marks[index]);
}

void moveDown(std::vector<Annotation>& marks, const std::function<bool(const Annotation&)>& isMoved)
{
    for (size_t index = 0; index + 1 < marks.size(); ++index)
        if (isMoved(marks[index + 1]) && !isMoved(marks[index]))
            std::swap(marks[index], marks[index + 1]);
}

// The selected ones to the end of the list, or to its beginning. Both groups keep their order.
void gather(std::vector<Annotation>& marks, const std::function<bool(const Annotation&)>& isLast)
{
    std::vector<Annotation> last;
    std::ranges::copy_if(marks, std::back_inserter(last), isLast);
    std::erase_if(marks, isLast);
    marks.insert(marks.end(), last.begin(), last.end());
}

} // namespace

EditorSession::EditorSession(EditorCapture capture, EditorDocument document, Preferences& preferences)
    : m_capture(std::move(capture)),
      m_document(std::move(document)),
      m_tool(preferences.get(Settings::lastEditorTool)),
      m_preferences(preferences),
      m_styles(preferences)
{
}

// --- Steps

void EditorSession::setDocument(EditorDocument next)
{
    m_document = std::move(next);
    std::erase_if(m_selection, [this](QUuid id) { return !m_document.mark(id); });
    m_observers.notify();
}

void EditorSession::change(EditorDocument next, const QString& key)
{
    dropPreview();
    m_undo.record(m_document, next, key);
    setDocument(std::move(next));
}

void EditorSession::preview(EditorDocument next)
{
    if (!m_beforePreview)
        m_beforePreview = m_document;
    setDocument(std::move(next));
}

void EditorSession::keepPreview()
{
    if (!m_beforePreview)
        return;
    m_undo.record(*std::exchange(m_beforePreview, std::nullopt), m_document);
    m_observers.notify();
}

void EditorSession::dropPreview()
{
    if (m_beforePreview)
        setDocument(*std::exchange(m_beforePreview, std::nullopt));
}

void EditorSession::undo()
{
    dropPreview();
    if (canUndo())
        setDocument(m_undo.undone(m_document));
}

void EditorSession::redo()
{
    dropPreview();
    if (canRedo())
        setDocument(m_undo.redone(m_document));
}

// --- What is selected

bool EditorSession::isSelected(QUuid id) const
{
    return std::ranges::find(m_selection, id) != m_selection.end();
}

void EditorSession::select(std::vector<QUuid> ids)
{
    std::vector<QUuid> inOrder;
    for (const Annotation& mark : m_document.marks)
        if (std::ranges::find(ids, mark.id) != ids.end())
            inOrder.push_back(mark.id);
    if (inOrder == m_selection)
        return;
    m_selection = std::move(inOrder);
    m_undo.seal();
    m_observers.notify();
}

void EditorSession::selectAll()
{
    std::vector<QUuid> ids;
    std::ranges::transform(m_document.marks, std::back_inserter(ids), &Annotation::id);
    select(std::move(ids));
}

std::vector<Annotation> EditorSession::selectedMarks() const
{
    std::vector<Annotation> marks;
    for (const QUuid id : m_selection)
        if (const Annotation* const mark = m_document.mark(id))
            marks.push_back(*mark);
    return marks;
}

// --- The tool and its style

void EditorSession::setTool(EditorTool tool)
{
    dropPreview();
    m_undo.seal();
    const auto kind = kindOf(tool);
    const auto marks = selectedMarks();
    const bool isOfTool = std::ranges::all_of(marks, [kind](const Annotation& mark) { return mark.kind == kind; });
    if (tool != EditorTool::select && !isOfTool)
        m_selection.clear();
    m_tool = tool;
    m_preferences.set(Settings::lastEditorTool, tool);
    if (const auto redact = fromRawString<RedactTool>(rawString(tool)))
        m_preferences.set(Settings::redactTool, *redact);
    m_observers.notify();
}

MarkStyle EditorSession::style() const
{
    const std::vector<Annotation> marks = selectedMarks();
    if (marks.empty())
        return m_styles.of(m_tool);
    MarkStyle style = MarkStyle::of(marks.front());
    for (const Annotation& mark : marks)
        style = style.common(MarkStyle::of(mark));
    return style;
}

void EditorSession::setStyle(const MarkStyle& style)
{
    const std::vector<Annotation> marks = selectedMarks();
    if (marks.empty())
        m_styles.set(m_tool, style);
    for (const Annotation& mark : marks)
        if (const auto tool = kindOf(m_tool) == mark.kind ? m_tool : editorToolStyling(mark.kind))
            m_styles.set(*tool, MarkStyle::onlyOf(mark.kind, style));
    changeSelected([&style](Annotation mark) { return style.applied(std::move(mark)); }, "style");
}

// --- Commands

void EditorSession::changeSelected(const std::function<Annotation(Annotation)>& changed, const QString& key)
{
    EditorDocument next = m_document;
    for (const QUuid id : m_selection)
        if (Annotation* const mark = next.mark(id))
            *mark = changed(std::move(*mark));
    // What is being written in a label goes on in its new style.
    m_beforePreview ? preview(std::move(next)) : change(std::move(next), key);
}

void EditorSession::moveBy(Size shift, const QString& key)
{
    changeSelected([shift](Annotation mark) { return MarkFrame::translated(std::move(mark), shift); }, key);
}

void EditorSession::removeSelected()
{
    EditorDocument next = m_document;
    const std::vector<Annotation> removed = selectedMarks();
    std::erase_if(next.marks, [this](const Annotation& mark) { return isSelected(mark.id); });
    renumber(next.marks, removed);
    change(std::move(next));
}

void EditorSession::duplicateSelected()
{
    paste(selectedMarks(), duplicateShift);
}

void EditorSession::bring(Layer layer)
{
    EditorDocument next = m_document;
    const auto isMoved = [this](const Annotation& mark) { return isSelected(mark.id); };
    switch (layer) {
    case Layer::front:
        gather(next.marks, isMoved);
        break;
    case Layer::forward:
        moveUp(next.marks, isMoved);
        break;
    case Layer::backward:
        moveDown(next.marks, isMoved);
        break;
    case Layer::back:
        gather(next.marks, [&isMoved](const Annotation& mark) { return !isMoved(mark); });
        break;
    }
    change(std::move(next));
}

void EditorSession::paste(std::vector<Annotation> marks, Size shift)
{
    EditorDocument next = m_document;
    std::vector<QUuid> ids;
    qint64 number = nextStepNumber();
    for (Annotation& mark : marks) {
        mark = MarkFrame::translated(std::move(mark), shift);
        mark.id = QUuid::createUuid();
        if (mark.kind == Kind::step)
            mark.stepNumber = number++;
        ids.push_back(mark.id);
        next.marks.push_back(std::move(mark));
    }
    change(std::move(next));
    select(std::move(ids));
}

qint64 EditorSession::nextStepNumber() const
{
    qint64 last = 0;
    for (const Annotation& mark : m_document.marks)
        if (mark.kind == Kind::step)
            last = std::max(last, mark.stepNumber);
    return last + 1;
}

} // namespace Kovrel
