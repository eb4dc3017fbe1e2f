#include "editor/geometry/MarkChanges.h"

#include "editor/marks/AnnotationExtent.h"

#include <algorithm>

namespace Kovrel {

namespace {

using Kind = Annotation::Kind;
using Marks = std::span<const Annotation>;

using Some = std::vector<const Annotation*>;

void add(Some& some, Marks marks)
{
    for (const Annotation& mark : marks)
        some.push_back(&mark);
}

Some changedInPlace(Marks before, Marks after)
{
    Some changed;
    for (size_t index = 0; index < before.size(); ++index)
        if (before[index] != after[index])
            changed.insert(changed.end(), {&before[index], &after[index]});
    return changed;
}

// What lies between those that are the same at both ends of the lists.
Some changedBetween(Marks before, Marks after)
{
    const auto start = size_t(std::ranges::mismatch(before, after).in1 - before.begin());
    const size_t most = std::min(before.size(), after.size()) - start;
    size_t end = 0;
    while (end < most && before[before.size() - 1 - end] == after[after.size() - 1 - end])
        ++end;
    Some changed;
    add(changed, before.subspan(start, before.size() - start - end));
    add(changed, after.subspan(start, after.size() - start - end));
    return changed;
}

Some changed(Marks before, Marks after)
{
    const bool hasSameOrder = std::ranges::equal(before, after, {}, &Annotation::id, &Annotation::id);
    return hasSameOrder ? changedInPlace(before, after) : changedBetween(before, after);
}

const Annotation* lastSpotlight(Marks marks)
{
    const auto last =
        std::find_if(marks.rbegin(), marks.rend(), [](const Annotation& mark) { return mark.kind == Kind::spotlight; });
    return last == marks.rend() ? nullptr : &*last;
}

// The last spotlight says how dark it is around all of them.
bool isShadeChanged(Marks before, Marks after)
{
    const Annotation* const was = lastSpotlight(before);
    const Annotation* const is = lastSpotlight(after);
    return bool(was) != bool(is) || (was && is && was->dimLevel != is->dimLevel);
}

// Strokes of one colour on a dark page are one layer, and the last one says how dark the page is.
bool isOfLayer(const Annotation& mark, const Annotation& stroke)
{
    return mark.kind == Kind::highlighter && mark.colorHex == stroke.colorHex &&
           mark.highlightOnDark == stroke.highlightOnDark;
}

void addLayer(std::vector<QRectF>& areas, const Annotation& stroke, Marks marks)
{
    for (const Annotation& mark : marks)
        if (isOfLayer(mark, stroke))
            areas.push_back(AnnotationExtent::cullBound(mark, 1));
}

} // namespace

std::vector<QRectF> MarkChanges::areas(Marks before, Marks after, const QRectF& all)
{
    if (isShadeChanged(before, after))
        return {all};
    std::vector<QRectF> areas;
    for (const Annotation* const mark : changed(before, after)) {
        areas.push_back(AnnotationExtent::cullBound(*mark, 1));
        if (mark->kind == Kind::highlighter && mark->highlightOnDark) {
            addLayer(areas, *mark, before);
            addLayer(areas, *mark, after);
        }
    }
    std::erase_if(areas, [](const QRectF& area) { return area.isEmpty(); });
    return areas;
}

} // namespace Kovrel
