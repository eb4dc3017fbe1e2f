#include "editorwindow/EditorClipboard.h"

#include "platform/Clipboard.h"

#include <QUuid>

namespace Kovrel {

EditorClipboard& EditorClipboard::shared()
{
    static EditorClipboard clipboard;
    return clipboard;
}

void EditorClipboard::copy(std::vector<Annotation> marks, Clipboard& clipboard)
{
    m_marks = std::move(marks);
    m_token = QUuid::createUuid().toByteArray();
    clipboard.put({{mimeType, [token = m_token] { return token; }}});
}

std::vector<Annotation> EditorClipboard::marks(const QByteArray& token) const
{
    return token == m_token ? m_marks : std::vector<Annotation>();
}

} // namespace Kovrel
