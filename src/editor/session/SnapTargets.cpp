#include "editor/session/SnapTargets.h"

#include "editor/geometry/MarkFrame.h"

#include <algorithm>

namespace Kovrel {

namespace {

bool hasSides(const Annotation& mark)
{
    using Kind = Annotation::Kind;
    return mark.kind != Kind::pen && mark.kind != Kind::highlighter && mark.kind != Kind::arrow &&
           mark.kind != Kind::line;
}

} // namespace

std::vector<Rect> SnapTargets::of(std::span<const Annotation> marks, std::span<const QUuid> without)
{
    std::vector<Rect> rects;
    for (const Annotation& mark : marks)
        if (hasSides(mark) && std::ranges::find(without, mark.id) == without.end())
            rects.push_back(MarkFrame::bounds(mark));
    return rects;
}

} // namespace Kovrel
