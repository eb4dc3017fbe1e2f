#include "editorwindow/CanvasSources.h"

#include "editor/OwnBackdropPicture.h"
#include "editor/marks/RedactionSources.h"
#include "editorwindow/EditorToasts.h"
#include "editorwindow/canvas/AnnotationCanvasView.h"
#include "platform/Guarded.h"
#include "platform/Workers.h"

#include <QFileInfo>

#include <algorithm>

namespace Kovrel {

namespace {

using Kind = Annotation::Kind;

bool has(const EditorSession& session, Kind kind)
{
    const auto& marks = session.document().marks;
    return std::ranges::find(marks, kind, &Annotation::kind) != marks.end();
}

bool needsRedactions(const EditorSession& session)
{
    const EditorTool tool = session.tool();
    return tool == EditorTool::blur || tool == EditorTool::pixelate || has(session, Kind::blur) ||
           has(session, Kind::pixelate);
}

bool needsEdges(const EditorSession& session)
{
    return session.tool() == EditorTool::measure || has(session, Kind::measure);
}

} // namespace

CanvasSources::CanvasSources(EditorServices& services, EditorSession& session, AnnotationCanvasView& canvas)
    : m_services(services), m_session(session), m_canvas(canvas), m_scope(services.loop, services.workers)
{
}

void CanvasSources::follow()
{
    if (!m_hasRedactions && needsRedactions(m_session)) {
        m_hasRedactions = true;
        Scope::start(makeRedactions(), "preparing redactions");
    }
    if (!m_hasEdges && needsEdges(m_session)) {
        m_hasEdges = true;
        Scope::start(findEdges(), "finding edges to measure");
    }
    const BackdropFill& fill = m_session.document().composition.backdrop.fill;
    if (const auto path = OwnBackdropPicture::path(fill); path && *path != m_picture) {
        m_picture = *path;
        Scope::start(readPicture(fill), "reading a picture for a backdrop");
    }
}

QCoro::Task<> CanvasSources::makeRedactions()
{
    const auto job = [capture = m_session.capture()] {
        return CanvasPicture::Redactions{RedactionSources::blurred(capture.image, capture.scale),
                                         RedactionSources::pixelated(capture.image, capture.scale)};
    };
    const auto made = co_await m_scope.onWorker(Lane::editorSave, Guarded::orElse(job, CanvasPicture::Redactions()));
    m_canvas.setRedactions(made);
}

QCoro::Task<> CanvasSources::findEdges()
{
    using Edges = std::shared_ptr<const CaptureEdges>;
    const auto job = [capture = m_session.capture()] { return Edges(std::make_shared<CaptureEdges>(capture)); };
    const Edges edges = co_await m_scope.onWorker(Lane::editorSave, Guarded::orElse(job, Edges()));
    m_canvas.pointing().setEdges(edges);
}

QCoro::Task<> CanvasSources::readPicture(BackdropFill fill)
{
    const auto job = [fill] {
        const auto read = OwnBackdropPicture::read(fill);
        return read && *read ? **read : QImage();
    };
    const QImage picture = co_await m_scope.onWorker(Lane::editorSave, Guarded::orElse(job, QImage()));
    if (fill.value != m_picture)
        co_return;
    m_canvas.setBackdropPicture(fill.value, picture);
    if (picture.isNull())
        EditorToasts::warn(m_services.ports, tr("The picture is not shown"),
                           tr("%1 is no picture that can be read.").arg(QFileInfo(fill.value).fileName()));
}

} // namespace Kovrel
