#pragma once

#include "editor/canvas/CanvasViewport.h"
#include "editor/session/LabelEditing.h"

#include <QTimer>
#include <QVariant>
#include <QWidget>

namespace Kovrel {

class CanvasOverlay;

// Writing in a label on the canvas: its caret, the keys and the input method. Main thread.
class CanvasWriting : public QObject {
    Q_OBJECT

public:
    // `session` and `canvas`, to which keys and input methods come, outlive it.
    CanvasWriting(EditorSession& session, QWidget& canvas);

    bool isActive() const { return m_editing.has_value(); }

    // The label that is being written.
    std::optional<QUuid> label() const;

    bool hasLabelAt(Point at) const { return m_editing && m_editing->hasLabelAt(at); }

    void begin(QUuid label);
    void end();
    // While somebody writes, as all below.
    void insert(const QString& text);
    void press(Point at, int clicks, bool isSelecting);
    void drag(Point at);
    // False: the key means nothing here.
    bool press(const QKeyEvent& event);
    void takeInput(const QInputMethodEvent& event);
    // Invalid: it has no answer of its own. `ratio`: device pixels of a point of the canvas.
    QVariant answer(Qt::InputMethodQuery query, const CanvasViewport& viewport, double ratio) const;
    void layOver(CanvasOverlay& overlay) const;

Q_SIGNALS:
    // What lies over the canvas is to be drawn anew.
    void looksDifferent();
    // What is on the clipboard, to be inserted.
    void textWanted();
    // To be put there.
    void textCopied(const QString& text);

private:
    EditorSession& m_session;
    QWidget& m_canvas;
    std::optional<LabelEditing> m_editing;
    QTimer m_caretTimer;
    bool m_isCaretShown = true;
};

} // namespace Kovrel
