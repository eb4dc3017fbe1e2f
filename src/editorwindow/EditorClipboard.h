#pragma once

#include "editor/marks/Annotation.h"

#include <QByteArray>

#include <vector>

namespace Kovrel {

class Clipboard;

// Marks that were copied, to be pasted in any editor of the program. The desktop's clipboard only says that they are
// the last that was copied. Main thread.
class EditorClipboard {
public:
    static constexpr QLatin1String mimeType{"application/x-kovrel-marks"};

    static EditorClipboard& shared();

    void copy(std::vector<Annotation> marks, Clipboard& clipboard);
    // `token`: what the clipboard has of this type. None where other marks were copied since.
    std::vector<Annotation> marks(const QByteArray& token) const;

private:
    EditorClipboard() = default;

    std::vector<Annotation> m_marks;
    QByteArray m_token;
};

} // namespace Kovrel
