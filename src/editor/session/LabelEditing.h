#pragma once

#include "editor/session/EditorSession.h"

#include <QLineF>
#include <QRectF>
#include <QString>

namespace Kovrel {

// Writes in a label in its place. What is written is shown as it goes and becomes one step when it ends; text that is
// being composed by an input method is none of it. Positions count characters. Main thread.
class LabelEditing {
public:
    enum class Move { left, right, wordLeft, wordRight, up, down, lineStart, lineEnd, start, end };

    // The caret stands at the end. `session` outlives it.
    LabelEditing(EditorSession& session, QUuid id);

    QUuid id() const { return m_id; }

    // Without what is being composed.
    const QString& text() const { return m_now.text; }

    qsizetype caret() const { return m_now.caret; }

    qsizetype anchor() const { return m_now.anchor; }

    QString selectedText() const;

    // In the place of what is selected.
    void insert(const QString& text);
    // What an input method composes at the caret, with its own caret in it; empty ends it.
    void compose(const QString& text, int caret);
    // What is selected, or from the caret to where a move would bring it.
    void erase(Move move);
    void move(Move move, bool isSelecting);
    void selectAll();
    // Of the text only, until nothing that was written here is left.
    bool undo();
    bool redo();

    // Image points, upright: before the label is turned.
    void placeCaret(Point at, bool isSelecting);
    void selectWord(Point at);
    // From its upper end to its lower one, y up.
    QLineF caretLine() const;
    std::vector<QRectF> selectionRects() const;
    bool hasLabelAt(Point at) const;

    // One step. A label in which nothing is written is none.
    void finish();

private:
    struct State {
        QString text;
        qsizetype caret = 0;
        qsizetype anchor = 0;
    };

    const Annotation& label() const;
    QString shownText() const;

    qsizetype from() const { return std::min(m_now.caret, m_now.anchor); }

    qsizetype to() const { return std::max(m_now.caret, m_now.anchor); }

    qsizetype target(Move move) const;
    qsizetype verticalTarget(int lines) const;
    qsizetype withoutComposed(qsizetype position) const;
    void replace(qsizetype from, qsizetype to, const QString& text, bool isTyping);
    bool bring(std::vector<State>& from, std::vector<State>& to);
    void show();

    EditorSession& m_session;
    QUuid m_id;
    State m_now;
    QString m_composed;
    int m_composedCaret = 0;
    std::vector<State> m_before;
    std::vector<State> m_after; // taken back
    bool m_isTyping = false;    // the last change was typing: what follows belongs to it
};

} // namespace Kovrel
