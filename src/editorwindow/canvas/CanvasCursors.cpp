#include "editorwindow/canvas/CanvasCursors.h"

#include <array>
#include <cmath>
#include <numbers>

namespace Kovrel {

namespace {

// Along the direction in which a handle is dragged, however its mark is turned.
Qt::CursorShape along(Point direction, double rotation)
{
    constexpr std::array shapes{Qt::SizeHorCursor, Qt::SizeBDiagCursor, Qt::SizeVerCursor, Qt::SizeFDiagCursor};
    const double angle = std::atan2(direction.y, direction.x) + rotation;
    const int eighth = int(std::lround(angle / (std::numbers::pi / 4)));
    return shapes[size_t((eighth % 4 + 4) % 4)];
}

QCursor ofHandle(MarkHandle handle, double rotation)
{
    if (handle == MarkHandle::turn)
        return Qt::PointingHandCursor;
    const Point direction = MarkHandles::direction(handle);
    return direction == Point() ? Qt::CrossCursor : along(direction, rotation);
}

} // namespace

QCursor CanvasCursors::of(const EditorPointing::Target& target, const EditorSession& session)
{
    if (target.handle) {
        const Annotation* const mark = target.mark ? session.document().mark(*target.mark) : nullptr;
        const bool isAlone = session.selection().size() == 1;
        return ofHandle(*target.handle, mark && isAlone && mark->isRotatable() ? mark->rotation : 0);
    }
    if (target.mark && (target.isSelected || session.tool() == EditorTool::select))
        return Qt::SizeAllCursor;
    if (session.tool() == EditorTool::select)
        return Qt::ArrowCursor;
    return session.tool() == EditorTool::text ? Qt::IBeamCursor : Qt::CrossCursor;
}

} // namespace Kovrel
