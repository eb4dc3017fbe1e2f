#include "editorwindow/tools/DragHandle.h"

#include <QApplication>
#include <QMouseEvent>

namespace Kovrel {

DragHandle::DragHandle(const QString& symbol, const QString& name) : SymbolButton(symbol, name)
{
    setFocusPolicy(Qt::NoFocus);
    setCursor(Qt::OpenHandCursor);
}

void DragHandle::mousePressEvent(QMouseEvent* event)
{
    SymbolButton::mousePressEvent(event);
    m_from = event->position().toPoint();
}

void DragHandle::mouseMoveEvent(QMouseEvent* event)
{
    const QPoint at = event->position().toPoint();
    if (!m_from || !event->buttons().testFlag(Qt::LeftButton) ||
        (at - *m_from).manhattanLength() < QApplication::startDragDistance())
        return;
    m_from.reset();
    setDown(false);
    Q_EMIT dragged();
}

} // namespace Kovrel
