#include "editorwindow/canvas/WritingKeys.h"

#include "editor/session/LabelEditing.h"

#include <QKeyEvent>

#include <algorithm>
#include <array>

namespace Kovrel {

namespace {

using Move = LabelEditing::Move;

struct Movement {
    QKeySequence::StandardKey key;
    Move move;
    bool isSelecting;
};

constexpr std::array movements{
    Movement{QKeySequence::MoveToPreviousChar, Move::left, false},
    Movement{QKeySequence::MoveToNextChar, Move::right, false},
    Movement{QKeySequence::MoveToPreviousWord, Move::wordLeft, false},
    Movement{QKeySequence::MoveToNextWord, Move::wordRight, false},
    Movement{QKeySequence::MoveToPreviousLine, Move::up, false},
    Movement{QKeySequence::MoveToNextLine, Move::down, false},
    Movement{QKeySequence::MoveToStartOfLine, Move::lineStart, false},
    Movement{QKeySequence::MoveToEndOfLine, Move::lineEnd, false},
    Movement{QKeySequence::MoveToStartOfDocument, Move::start, false},
    Movement{QKeySequence::MoveToEndOfDocument, Move::end, false},
    Movement{QKeySequence::SelectPreviousChar, Move::left, true},
    Movement{QKeySequence::SelectNextChar, Move::right, true},
    Movement{QKeySequence::SelectPreviousWord, Move::wordLeft, true},
    Movement{QKeySequence::SelectNextWord, Move::wordRight, true},
    Movement{QKeySequence::SelectPreviousLine, Move::up, true},
    Movement{QKeySequence::SelectNextLine, Move::down, true},
    Movement{QKeySequence::SelectStartOfLine, Move::lineStart, true},
    Movement{QKeySequence::SelectEndOfLine, Move::lineEnd, true},
    Movement{QKeySequence::SelectStartOfDocument, Move::start, true},
    Movement{QKeySequence::SelectEndOfDocument, Move::end, true},
};

struct Erasure {
    QKeySequence::StandardKey key;
    Move move;
};

constexpr std::array erasures{
    Erasure{QKeySequence::Backspace, Move::left},
    Erasure{QKeySequence::Delete, Move::right},
    Erasure{QKeySequence::DeleteStartOfWord, Move::wordLeft},
    Erasure{QKeySequence::DeleteEndOfWord, Move::wordRight},
};

bool moves(LabelEditing& editing, const QKeyEvent& event)
{
    const auto found = std::ranges::find_if(movements, [&](const Movement& one) { return event.matches(one.key); });
    if (found == movements.end())
        return false;
    editing.move(found->move, found->isSelecting);
    return true;
}

bool erases(LabelEditing& editing, const QKeyEvent& event)
{
    const auto found = std::ranges::find_if(erasures, [&](const Erasure& one) { return event.matches(one.key); });
    if (found == erasures.end())
        return false;
    editing.erase(found->move);
    return true;
}

bool copies(LabelEditing& editing, const QKeyEvent& event, const std::function<void(const QString&)>& copy)
{
    const bool cuts = event.matches(QKeySequence::Cut);
    if (!cuts && !event.matches(QKeySequence::Copy))
        return false;
    if (!editing.selectedText().isEmpty())
        copy(editing.selectedText());
    if (cuts && !editing.selectedText().isEmpty())
        editing.erase(Move::left);
    return true;
}

bool goesBack(LabelEditing& editing, const QKeyEvent& event)
{
    if (event.matches(QKeySequence::Undo))
        editing.undo();
    else if (event.matches(QKeySequence::Redo))
        editing.redo();
    else if (event.matches(QKeySequence::SelectAll))
        editing.selectAll();
    else
        return false;
    return true;
}

} // namespace

bool WritingKeys::press(LabelEditing& editing, const QKeyEvent& event, const std::function<void(const QString&)>& copy)
{
    if (moves(editing, event) || erases(editing, event) || copies(editing, event, copy) || goesBack(editing, event))
        return true;
    if (event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter) {
        editing.insert("\n");
        return true;
    }
    const QString text = event.text();
    const bool isWritten = !text.isEmpty() && (text[0].isPrint() || text[0].isHighSurrogate());
    const bool isCommand =
        event.modifiers().testFlag(Qt::ControlModifier) && !event.modifiers().testFlag(Qt::AltModifier);
    if (!isWritten || isCommand)
        return false;
    editing.insert(text);
    return true;
}

} // namespace Kovrel
