#include "editorwindow/EditorClipboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

namespace Kovrel {

namespace {

const QString marksType = "application/x-kovrel-marks";

} // namespace

EditorClipboard& EditorClipboard::shared()
{
    static EditorClipboard clipboard;
    return clipboard;
}

// The desktop's clipboard only says that they are the last that was copied.
void EditorClipboard::set(std::vector<Annotation> marks)
{
    m_marks = std::move(marks);
    auto* const data = new QMimeData;
    data->setData(marksType, "1");
    QGuiApplication::clipboard()->setMimeData(data);
}

std::vector<Annotation> EditorClipboard::marks() const
{
    const bool isOurs = QGuiApplication::clipboard()->ownsClipboard();
    return isOurs ? m_marks : std::vector<Annotation>();
}

} // namespace Kovrel
