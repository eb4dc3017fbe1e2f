#include "editorwindow/canvas/CanvasWriting.h"

#include "editorwindow/canvas/CanvasOverlay.h"
#include "editorwindow/canvas/WritingKeys.h"

#include <QApplication>
#include <QInputMethod>
#include <QKeyEvent>
#include <QStyleHints>

namespace Kovrel {

CanvasWriting::CanvasWriting(EditorSession& session, QWidget& canvas) : m_session(session), m_canvas(canvas)
{
    m_canvas.setAttribute(Qt::WA_InputMethodEnabled, false);
    m_caretTimer.setInterval(std::max(QApplication::cursorFlashTime(), 2) / 2);
    connect(&m_caretTimer, &QTimer::timeout, this, [this] {
        m_isCaretShown = !m_isCaretShown;
        Q_EMIT looksDifferent();
    });
}

std::optional<QUuid> CanvasWriting::label() const
{
    return m_editing ? std::optional(m_editing->id()) : std::nullopt;
}

void CanvasWriting::begin(QUuid label)
{
    end();
    m_editing.emplace(m_session, label);
    m_isCaretShown = true;
    m_caretTimer.start();
    m_canvas.setAttribute(Qt::WA_InputMethodEnabled, true);
    m_canvas.setFocus();
    Q_EMIT looksDifferent();
}

void CanvasWriting::end()
{
    if (!m_editing)
        return;
    QGuiApplication::inputMethod()->commit();
    m_canvas.setAttribute(Qt::WA_InputMethodEnabled, false);
    m_caretTimer.stop();
    m_editing->finish();
    m_editing.reset();
    Q_EMIT looksDifferent();
}

void CanvasWriting::insert(const QString& text)
{
    if (m_editing)
        m_editing->insert(text);
}

void CanvasWriting::press(Point at, int clicks, bool isSelecting)
{
    if (clicks == 2)
        m_editing->selectWord(at);
    else
        m_editing->placeCaret(at, isSelecting);
}

void CanvasWriting::drag(Point at)
{
    m_editing->placeCaret(at, true);
}

bool CanvasWriting::press(const QKeyEvent& event)
{
    m_isCaretShown = true;
    const bool isControl = event.modifiers().testFlag(Qt::ControlModifier);
    if (event.key() == Qt::Key_Escape || (event.key() == Qt::Key_Return && isControl)) {
        end();
        return true;
    }
    if (event.matches(QKeySequence::Paste)) {
        Q_EMIT textWanted();
        return true;
    }
    return WritingKeys::press(*m_editing, event, [this](const QString& text) { Q_EMIT textCopied(text); });
}

void CanvasWriting::takeInput(const QInputMethodEvent& event)
{
    if (!event.commitString().isEmpty())
        m_editing->insert(event.commitString());
    int caret = int(event.preeditString().size());
    for (const auto& attribute : event.attributes())
        if (attribute.type == QInputMethodEvent::Cursor)
            caret = attribute.start;
    m_editing->compose(event.preeditString(), caret);
}

QVariant CanvasWriting::answer(Qt::InputMethodQuery query, const CanvasViewport& viewport, double ratio) const
{
    switch (query) {
    case Qt::ImCursorRectangle: {
        const QLineF line = m_editing->caretLine();
        const QPointF upper = viewport.fromImage({line.x1(), line.y1()}) / ratio;
        const QPointF lower = viewport.fromImage({line.x2(), line.y2()}) / ratio;
        return QRectF(upper, lower).normalized().adjusted(0, 0, 1, 0);
    }
    case Qt::ImSurroundingText:
        return m_editing->text();
    case Qt::ImCursorPosition:
        return int(m_editing->caret());
    case Qt::ImAnchorPosition:
        return int(m_editing->anchor());
    case Qt::ImCurrentSelection:
        return m_editing->selectedText();
    default:
        return {};
    }
}

void CanvasWriting::layOver(CanvasOverlay& overlay) const
{
    if (const Annotation* const label = m_session.document().mark(m_editing->id()))
        overlay.drawWriting(*label, m_editing->caretLine(), m_editing->selectionRects(), m_isCaretShown);
}

} // namespace Kovrel
