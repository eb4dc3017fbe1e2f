#include "editorwindow/EditorIntake.h"

#include "editor/session/Sticker.h"
#include "editorwindow/EditorClipboard.h"
#include "editorwindow/EditorToasts.h"
#include "editorwindow/canvas/AnnotationCanvasView.h"
#include "platform/Clipboard.h"
#include "platform/Guarded.h"
#include "platform/Workers.h"

#include <QDropEvent>
#include <QMimeData>

#include <algorithm>

namespace Kovrel {

namespace {

constexpr Size nextShift{12, -12};

Point inside(const Rect& area, Point point)
{
    return {std::clamp(point.x, area.minX(), area.maxX()), std::clamp(point.y, area.minY(), area.maxY())};
}

IncomingPictures picturesIn(const ClipboardContent& content)
{
    QMimeData data;
    data.setData(content.mimeType, content.bytes);
    return IncomingPictures::in(data);
}

} // namespace

EditorIntake::EditorIntake(EditorServices& services, EditorSession& session, AnnotationCanvasView& canvas)
    : m_services(services), m_session(session), m_canvas(canvas), m_scope(services.loop, services.workers)
{
    canvas.setAcceptDrops(true);
    canvas.installEventFilter(this);
}

// --- Dropped

bool EditorIntake::eventFilter(QObject* canvas, QEvent* event)
{
    const auto type = event->type();
    if (type != QEvent::DragEnter && type != QEvent::DragMove && type != QEvent::Drop)
        return QObject::eventFilter(canvas, event);
    auto& drag = static_cast<QDropEvent&>(*event);
    drag.setDropAction(Qt::CopyAction);
    drag.setAccepted(isTaken(drag));
    if (type == QEvent::Drop && drag.isAccepted())
        drop(drag);
    return true;
}

// A picture that is dragged out of this editor is none for itself.
bool EditorIntake::isTaken(const QDropEvent& drag) const
{
    const auto* const source = qobject_cast<QWidget*>(drag.source());
    return (!source || source->window() != m_canvas.window()) && IncomingPictures::mayBeIn(*drag.mimeData());
}

void EditorIntake::drop(const QDropEvent& drag)
{
    const Point at = m_canvas.imagePoint(drag.position());
    Scope::start(add(IncomingPictures::in(*drag.mimeData()), at), "taking what was dropped");
}

// --- Pasted

void EditorIntake::paste()
{
    if (m_canvas.written())
        Scope::start(pasteText(), "pasting a text");
    else
        Scope::start(pasteMarksOrPictures(m_canvas.imagePoint(QRectF(m_canvas.rect()).center())), "pasting");
}

QCoro::Task<> EditorIntake::pasteText()
{
    const auto label = m_canvas.written();
    const auto text = co_await m_scope.reply<std::optional<QString>>(
        [this](auto done) { m_services.clipboard.readText(std::move(done)); });
    if (text && m_canvas.written() == label)
        m_canvas.insertText(*text);
}

QCoro::Task<> EditorIntake::pasteMarksOrPictures(Point at)
{
    const QStringList types = QStringList{EditorClipboard::mimeType} + IncomingPictures::mimeTypes();
    const auto content = co_await m_scope.reply<std::optional<ClipboardContent>>(
        [&](auto done) { m_services.clipboard.read(types, std::move(done)); });
    if (!content)
        EditorToasts::warn(m_services.ports, tr("Nothing was pasted"), tr("There is no picture on the clipboard."));
    else if (content->mimeType != EditorClipboard::mimeType)
        co_await add(picturesIn(*content), at);
    else if (!isClosed())
        m_session.paste(EditorClipboard::shared().marks(content->bytes), nextShift);
}

// --- Pictures

QCoro::Task<> EditorIntake::add(IncomingPictures incoming, Point at)
{
    const auto job = [incoming, capture = m_session.capture()] { return incoming.decoded(capture); };
    const IncomingPictures::Decoded failed{{}, tr("The picture can't be read.")};
    const auto decoded =
        co_await m_scope.onWorker(Lane::utility, QualityOfService::userInteractive, Guarded::orElse(job, failed));
    if (isClosed())
        co_return;
    if (!decoded.refused.isEmpty())
        EditorToasts::warn(m_services.ports, tr("Not all was taken"), decoded.refused);
    if (!decoded.pictures.empty())
        lay(decoded.pictures, at);
}

void EditorIntake::lay(const std::vector<QImage>& pictures, Point at)
{
    const EditorCapture& capture = m_session.capture();
    m_canvas.stopWriting();
    m_canvas.pointing().cancel();
    if (m_session.tool() == EditorTool::crop)
        m_session.setTool(EditorTool::select);
    Point middle = inside(m_session.document().composition.crop.value_or(capture.canvas()), at);
    std::vector<Annotation> marks;
    for (const QImage& picture : pictures) {
        marks.push_back(Sticker::mark(picture, middle, capture));
        middle = {middle.x + nextShift.width, middle.y + nextShift.height};
    }
    m_session.paste(std::move(marks), {});
}

// What comes too late finds nothing to be laid on.
bool EditorIntake::isClosed() const
{
    return m_canvas.window()->isHidden();
}

} // namespace Kovrel
