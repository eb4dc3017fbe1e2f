#pragma once

#include "editor/marks/Annotation.h"

#include <vector>

namespace Kovrel {

// Marks that were copied, to be pasted in any editor of the program. Copying anything else, anywhere, ends that.
// Main thread.
class EditorClipboard {
public:
    static EditorClipboard& shared();

    void set(std::vector<Annotation> marks);
    // None where something else was copied since.
    std::vector<Annotation> marks() const;

private:
    EditorClipboard() = default;

    std::vector<Annotation> m_marks;
};

} // namespace Kovrel
