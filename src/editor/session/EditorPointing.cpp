#include "editor/session/EditorPointing.h"

#include "editor/geometry/MarkFrame.h"
#include "editor/geometry/MarkHit.h"
#include "editor/session/CropGesture.h"
#include "editor/session/DrawGesture.h"
#include "editor/session/GroupGesture.h"
#include "editor/session/HandleGesture.h"
#include "editor/session/MarqueeGesture.h"
#include "editor/session/MeasureGesture.h"
#include "editor/session/MoveGesture.h"
#include "editor/session/PageTone.h"
#include "editor/session/StepGesture.h"
#include "editor/session/StrokeGesture.h"

#include <algorithm>
#include <cmath>

namespace Kovrel {

namespace {

using Kind = Annotation::Kind;
using Target = EditorPointing::Target;

constexpr double clickReach = 3;  // points of the screen
constexpr double fitsLine = 1.25; // a highlighter's nib by the height of a line
constexpr double nibHeight = 6.5; // by its width

double distance(Point one, Point other)
{
    return std::hypot(one.x - other.x, one.y - other.y);
}

// Around several marks, which grow together.
Annotation groupBox(const std::vector<Annotation>& marks)
{
    const Rect bounds = MarkFrame::bounds(marks);
    return {.kind = Kind::pen, .points = {{bounds.minX(), bounds.minY()}, {bounds.maxX(), bounds.maxY()}}};
}

// What handles belong to: the one mark that is selected, or the frame around several.
std::optional<Annotation> handled(const EditorSession& session)
{
    const std::vector<Annotation> marks = session.selectedMarks();
    if (marks.empty())
        return std::nullopt;
    return marks.size() == 1 ? marks.front() : groupBox(marks);
}

QPoint pixelAt(const EditorCapture& capture, Point at)
{
    return {int(at.x * capture.scale), int(capture.image.height() - 1 - at.y * capture.scale)};
}

std::optional<MeasureGesture::Drags> endOf(MarkHandle handle)
{
    if (handle == MarkHandle::start)
        return MeasureGesture::Drags::start;
    if (handle == MarkHandle::end)
        return MeasureGesture::Drags::end;
    return std::nullopt;
}

bool isLabel(const EditorSession& session, std::optional<QUuid> id)
{
    const Annotation* const mark = id ? session.document().mark(*id) : nullptr;
    return mark && mark->kind == Kind::text;
}

} // namespace

// --- What is there

Target EditorPointing::targetAt(const CanvasPointer& pointer) const
{
    if (m_session.tool() == EditorTool::crop) {
        const Rect crop = m_session.document().composition.crop.value_or(m_session.capture().canvas());
        return {.handle = CropGesture::handleAt(crop, pointer)};
    }
    if (const auto mark = handled(m_session))
        if (const auto handle = MarkHandles::at(*mark, pointer.at, pointer.handleReach(), pointer.turnDistance()))
            return {m_session.selection().front(), handle, true};
    const auto& marks = m_session.document().marks;
    const auto index = MarkHit::topmost(marks, pointer.at, pointer.reach());
    if (!index)
        return {};
    return {marks[*index].id, std::nullopt, m_session.isSelected(marks[*index].id)};
}

// --- Buttons

void EditorPointing::press(const CanvasPointer& pointer)
{
    if (m_gesture)
        return;
    m_pressed = pointer;
    m_hasMoved = false;
    m_gesture = gestureAt(pointer);
}

void EditorPointing::move(const CanvasPointer& pointer)
{
    if (!m_gesture)
        return;
    m_hasMoved |= distance(pointer.at, m_pressed.at) > clickReach * pointer.pixel;
    if (!m_hasMoved)
        return;
    m_session.preview(m_gesture->moved(pointer));
    if (m_gesture->marquee())
        m_session.select(*m_gesture->selection());
}

std::optional<QUuid> EditorPointing::release(const CanvasPointer& pointer)
{
    move(pointer);
    const auto gesture = std::exchange(m_gesture, nullptr);
    if (!gesture)
        return std::nullopt;
    if (!m_hasMoved)
        return clicked(*gesture);
    const auto selection = gesture->selection();
    if (m_session.tool() == EditorTool::text && selection && isNewLabel(*selection))
        return selection->front();
    m_session.keepPreview();
    if (selection)
        m_session.select(*selection);
    return std::nullopt;
}

void EditorPointing::cancel()
{
    m_gesture.reset();
    m_session.dropPreview();
}

// --- Which gesture

std::unique_ptr<EditorGesture> EditorPointing::gestureAt(const CanvasPointer& pointer)
{
    const EditorTool tool = m_session.tool();
    const EditorCapture& capture = m_session.capture();
    if (tool == EditorTool::crop)
        return std::make_unique<CropGesture>(m_session.document(), pointer,
                                             CropGesture::Frame{capture.canvas(), capture.scale, m_cropAspect});
    const Target target = targetAt(pointer);
    if (target.handle)
        return held(target, pointer);
    const bool isMeant = tool == EditorTool::select || (tool == EditorTool::text && isLabel(m_session, target.mark)) ||
                         (target.isSelected && isOnInk(*target.mark, pointer));
    if (target.mark && isMeant)
        return onMark(*target.mark, pointer);
    if (tool == EditorTool::select)
        return std::make_unique<MarqueeGesture>(
            m_session.document(), pointer.shift ? m_session.selection() : std::vector<QUuid>(), pointer.at);
    m_session.select({});
    return drawing(pointer, target.mark.has_value());
}

bool EditorPointing::isOnInk(QUuid id, const CanvasPointer& pointer) const
{
    const Annotation* const mark = m_session.document().mark(id);
    return mark && MarkHit::isOnInk(*mark, pointer.at, pointer.reach());
}

std::unique_ptr<EditorGesture> EditorPointing::onMark(QUuid id, const CanvasPointer& pointer)
{
    if (pointer.shift) {
        std::vector<QUuid> ids = m_session.selection();
        if (std::erase(ids, id) == 0)
            ids.push_back(id);
        m_session.select(std::move(ids));
    } else if (!m_session.isSelected(id)) {
        m_session.select({id});
    }
    if (m_session.selection().empty())
        return std::make_unique<MarqueeGesture>(m_session.document(), m_session.selection(), pointer.at);
    return std::make_unique<MoveGesture>(m_session.document(), m_session.selection(), pointer.at,
                                         m_session.capture().canvas());
}

std::unique_ptr<EditorGesture> EditorPointing::held(const Target& target, const CanvasPointer& pointer) const
{
    const auto places = MarkHandles::of(*handled(m_session), pointer.turnDistance());
    const auto place = std::ranges::find(places, *target.handle, &MarkHandles::Place::handle);
    const Size held{place->at.x - pointer.at.x, place->at.y - pointer.at.y};
    if (m_session.selection().size() > 1)
        return std::make_unique<GroupGesture>(m_session.document(), m_session.selection(), *target.handle, held);
    auto dragging = std::make_unique<HandleGesture>(m_session.document(), *target.mark, *target.handle, held,
                                                    m_session.capture().canvas());
    const auto drags = endOf(*target.handle);
    if (!m_edges || !drags || m_session.document().mark(*target.mark)->kind != Kind::measure)
        return dragging;
    return std::make_unique<MeasureGesture>(std::move(dragging),
                                            MeasureGesture::Measure{*target.mark, *drags, m_edges});
}

std::unique_ptr<EditorGesture> EditorPointing::drawing(const CanvasPointer& pointer, bool isOnMark) const
{
    Annotation mark = newMark(pointer);
    switch (mark.kind) {
    case Kind::pen:
    case Kind::highlighter:
        return std::make_unique<StrokeGesture>(m_session.document(), std::move(mark), pointer.at);
    case Kind::step:
        return std::make_unique<StepGesture>(m_session.document(), std::move(mark), pointer.at);
    case Kind::measure:
        return measuring(std::move(mark), pointer, isOnMark);
    default:
        return std::make_unique<DrawGesture>(m_session.document(), std::move(mark), pointer.at,
                                             m_session.capture().canvas());
    }
}

std::unique_ptr<EditorGesture> EditorPointing::measuring(Annotation mark, const CanvasPointer& pointer,
                                                         bool isOnMark) const
{
    auto drawn = std::make_unique<DrawGesture>(m_session.document(), mark, pointer.at, m_session.capture().canvas());
    if (!m_edges)
        return drawn;
    const MeasureGesture::Measure measure{mark.id, MeasureGesture::Drags::both, m_edges};
    return std::make_unique<MeasureGesture>(std::move(drawn), measure,
                                            isOnMark ? std::nullopt : measured(std::move(mark), pointer));
}

// A click measures what is under it: how wide it is, with Shift how high.
std::optional<EditorDocument> EditorPointing::measured(Annotation mark, const CanvasPointer& pointer) const
{
    const auto stretch =
        m_edges->around(pointer.at, pointer.shift ? CaptureEdges::Axis::vertical : CaptureEdges::Axis::horizontal);
    if (!stretch)
        return std::nullopt;
    EditorDocument next = m_session.document();
    mark.points = {stretch->from, stretch->to};
    next.marks.push_back(std::move(mark));
    return next;
}

Annotation EditorPointing::newMark(const CanvasPointer& pointer) const
{
    Annotation mark{.kind = *kindOf(m_session.tool())};
    mark = m_session.toolStyle(m_session.tool()).applied(std::move(mark));
    mark.stepNumber = m_session.nextStepNumber();
    if (mark.kind == Kind::highlighter)
        fitHighlighter(mark, pointer.at);
    return mark;
}

// To the page it is laid on, and to the line of text under it where that is wanted.
void EditorPointing::fitHighlighter(Annotation& mark, Point at) const
{
    const EditorCapture& capture = m_session.capture();
    mark.highlightPageLuma = PageTone::luminanceAt(capture.image, pixelAt(capture, at));
    mark.highlightOnDark = PageTone::isDark(mark.highlightPageLuma);
    if (const auto height = m_lineHeightAt ? m_lineHeightAt(at) : std::nullopt)
        mark.tipScale = fitsLine * *height / (nibHeight * std::max(mark.lineWidth, 1.0));
}

// --- Clicks

// With a tool that draws, a click on a mark selects it; with another it means the one mark under the pointer.
std::optional<QUuid> EditorPointing::clicked(const EditorGesture& gesture)
{
    const auto document = gesture.clicked();
    const Target target = targetAt(m_pressed);
    const bool isMarquee = gesture.selection() && gesture.selection()->empty();
    if (document && !isMarquee)
        m_session.change(*document);
    if (document && gesture.selection())
        m_session.select(*gesture.selection());
    if (document || m_session.tool() == EditorTool::crop)
        return std::nullopt;
    if (m_session.tool() == EditorTool::text && !target.mark)
        return newLabel();
    if (target.mark && !target.handle && !m_pressed.shift)
        m_session.select({*target.mark});
    const bool wantsToWrite = m_pressed.clicks == 2 || m_session.tool() == EditorTool::text;
    return wantsToWrite && !target.handle && isLabel(m_session, target.mark) ? target.mark : std::nullopt;
}

// Where somebody has clicked, its first line about the pointer. It is no step before something is written in it.
QUuid EditorPointing::newLabel()
{
    Annotation label = newMark(m_pressed);
    label.points = {m_pressed.at};
    const double half = label.textRect().height / 2;
    label = MarkFrame::translated(std::move(label), {0, -half});
    EditorDocument next = m_session.document();
    next.marks.push_back(label);
    m_session.preview(std::move(next));
    return label.id;
}

bool EditorPointing::isNewLabel(const std::vector<QUuid>& ids) const
{
    const Annotation* const mark = ids.size() == 1 ? m_session.document().mark(ids.front()) : nullptr;
    return mark && mark->kind == Kind::text && mark->text.isEmpty();
}

} // namespace Kovrel
