#include "editor/document/EditorDocument.h"

#include <algorithm>

namespace Kovrel {

const Annotation* EditorDocument::mark(QUuid id) const
{
    const auto found = std::ranges::find(marks, id, &Annotation::id);
    return found == marks.end() ? nullptr : &*found;
}

Annotation* EditorDocument::mark(QUuid id)
{
    const auto found = std::ranges::find(marks, id, &Annotation::id);
    return found == marks.end() ? nullptr : &*found;
}

} // namespace Kovrel
