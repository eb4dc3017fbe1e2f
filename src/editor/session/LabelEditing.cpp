#include "editor/session/LabelEditing.h"

#include "editor/geometry/MarkFrame.h"
#include "editor/marks/LabelText.h"

#include <QTextBoundaryFinder>

#include <algorithm>

namespace Kovrel {

namespace {

using Boundary = QTextBoundaryFinder;

qsizetype next(const QString& text, qsizetype position, Boundary::BoundaryType type)
{
    Boundary finder(type, text);
    finder.setPosition(position);
    const qsizetype found = finder.toNextBoundary();
    return found < 0 ? text.size() : found;
}

qsizetype previous(const QString& text, qsizetype position, Boundary::BoundaryType type)
{
    Boundary finder(type, text);
    finder.setPosition(position);
    return std::max<qsizetype>(finder.toPreviousBoundary(), 0);
}

// Over blanks, and then over a word.
qsizetype wordRight(const QString& text, qsizetype position)
{
    while (position < text.size() && text[position].isSpace())
        ++position;
    return position < text.size() ? next(text, position, Boundary::Word) : position;
}

qsizetype wordLeft(const QString& text, qsizetype position)
{
    while (position > 0 && text[position - 1].isSpace())
        --position;
    return position > 0 ? previous(text, position, Boundary::Word) : 0;
}

LabelText layoutOf(const Annotation& label)
{
    return {label.text, label.fontSize, label.textWrapWidth()};
}

// In the layout's lengths, y down from the upper left corner of the text.
QPointF inLayout(const Annotation& label, Point at)
{
    const Point origin = label.textOrigin();
    return {at.x - origin.x, origin.y - at.y};
}

} // namespace

LabelEditing::LabelEditing(EditorSession& session, QUuid id) : m_session(session), m_id(id)
{
    m_now.text = label().text;
    m_now.text.replace("\r\n", "\n");
    m_now.caret = m_now.anchor = m_now.text.size();
    m_session.select({id});
    show();
}

const Annotation& LabelEditing::label() const
{
    static const Annotation gone{.kind = Annotation::Kind::text, .points = {{}}};
    const Annotation* const mark = m_session.document().mark(m_id);
    return mark ? *mark : gone;
}

QString LabelEditing::selectedText() const
{
    return m_now.text.sliced(from(), to() - from());
}

QString LabelEditing::shownText() const
{
    QString text = m_now.text;
    return text.insert(m_now.caret, m_composed);
}

void LabelEditing::show()
{
    EditorDocument next = m_session.document();
    if (Annotation* const mark = next.mark(m_id))
        *mark = MarkFrame::withText(*mark, shownText());
    m_session.preview(std::move(next));
}

// --- Writing

void LabelEditing::replace(qsizetype from, qsizetype to, const QString& text, bool isTyping)
{
    if (!isTyping || !m_isTyping)
        m_before.push_back(m_now);
    m_after.clear();
    m_isTyping = isTyping;
    m_now.text.replace(from, to - from, text);
    m_now.caret = m_now.anchor = from + text.size();
    show();
}

void LabelEditing::insert(const QString& text)
{
    QString clean = text;
    clean.replace("\r\n", "\n").replace('\r', '\n').replace('\t', ' ');
    m_composed.clear();
    const bool isTyping = clean.size() <= 2 && from() == to() && clean != "\n";
    replace(from(), to(), clean, isTyping);
}

void LabelEditing::compose(const QString& text, int caret)
{
    if (text.isEmpty() && m_composed.isEmpty())
        return;
    if (from() != to() && !text.isEmpty())
        replace(from(), to(), {}, false);
    m_composed = text;
    m_composedCaret = std::clamp(caret, 0, int(text.size()));
    show();
}

void LabelEditing::erase(Move move)
{
    if (from() != to()) {
        replace(from(), to(), {}, false);
        return;
    }
    const qsizetype end = target(move);
    if (end != m_now.caret)
        replace(std::min(end, m_now.caret), std::max(end, m_now.caret), {}, false);
}

bool LabelEditing::bring(std::vector<State>& from, std::vector<State>& to)
{
    if (from.empty())
        return false;
    to.push_back(std::exchange(m_now, from.back()));
    from.pop_back();
    m_isTyping = false;
    show();
    return true;
}

bool LabelEditing::undo()
{
    return bring(m_before, m_after);
}

bool LabelEditing::redo()
{
    return bring(m_after, m_before);
}

// --- The caret

qsizetype LabelEditing::target(Move move) const
{
    const QString& text = m_now.text;
    const qsizetype caret = m_now.caret;
    switch (move) {
    case Move::left:
        return previous(text, caret, Boundary::Grapheme);
    case Move::right:
        return next(text, caret, Boundary::Grapheme);
    case Move::wordLeft:
        return wordLeft(text, caret);
    case Move::wordRight:
        return wordRight(text, caret);
    case Move::up:
        return verticalTarget(-1);
    case Move::down:
        return verticalTarget(1);
    case Move::lineStart:
        return text.lastIndexOf('\n', caret - 1 - text.size()) + 1;
    case Move::lineEnd: {
        const qsizetype end = text.indexOf('\n', caret);
        return end < 0 ? text.size() : end;
    }
    case Move::start:
        return 0;
    case Move::end:
        return text.size();
    }
    return caret;
}

// A position in what is shown, as one of the text without what is being composed at the caret.
qsizetype LabelEditing::withoutComposed(qsizetype position) const
{
    const qsizetype beyond = std::clamp<qsizetype>(position - m_now.caret, 0, m_composed.size());
    return std::min(position - beyond, m_now.text.size());
}

// Beyond the first and the last line are the ends of the text.
qsizetype LabelEditing::verticalTarget(int lines) const
{
    const LabelText layout = layoutOf(label());
    const QLineF caret = layout.caret(m_now.caret);
    const double y = (caret.y1() + caret.y2()) / 2 + lines * (caret.y2() - caret.y1());
    if (y < 0)
        return 0;
    if (y > layout.size().height)
        return m_now.text.size();
    return withoutComposed(layout.positionAt({caret.x1(), y}));
}

// The arrow keys go where they point: from right to left the text goes on to the left.
void LabelEditing::move(Move move, bool isSelecting)
{
    m_isTyping = false;
    const bool isSideways = move == Move::left || move == Move::right;
    if (isSideways && !isSelecting && from() != to()) {
        m_now.caret = m_now.anchor = move == Move::left ? from() : to();
    } else {
        const bool isMirrored = isSideways && layoutOf(label()).isRightToLeft(m_now.caret);
        const Move meant = !isMirrored ? move : move == Move::left ? Move::right : Move::left;
        m_now.caret = target(meant);
        if (!isSelecting)
            m_now.anchor = m_now.caret;
    }
    show();
}

void LabelEditing::selectAll()
{
    m_now.anchor = 0;
    m_now.caret = m_now.text.size();
    show();
}

void LabelEditing::placeCaret(Point at, bool isSelecting)
{
    m_isTyping = false;
    m_now.caret = withoutComposed(layoutOf(label()).positionAt(inLayout(label(), at)));
    if (!isSelecting)
        m_now.anchor = m_now.caret;
    show();
}

void LabelEditing::selectWord(Point at)
{
    placeCaret(at, false);
    m_now.anchor = previous(m_now.text, std::min(m_now.caret + 1, m_now.text.size()), Boundary::Word);
    m_now.caret = next(m_now.text, m_now.anchor, Boundary::Word);
    show();
}

QLineF LabelEditing::caretLine() const
{
    const Point origin = label().textOrigin();
    const QLineF line = layoutOf(label()).caret(m_now.caret + m_composedCaret);
    return {origin.x + line.x1(), origin.y - line.y1(), origin.x + line.x2(), origin.y - line.y2()};
}

std::vector<QRectF> LabelEditing::selectionRects() const
{
    const Point origin = label().textOrigin();
    std::vector<QRectF> rects = layoutOf(label()).selection(from(), to());
    for (QRectF& rect : rects)
        rect = {origin.x + rect.x(), origin.y - rect.y() - rect.height(), rect.width(), rect.height()};
    return rects;
}

bool LabelEditing::hasLabelAt(Point at) const
{
    const Annotation& mark = label();
    const Rect plate = mark.textRect();
    return plate.contains(MarkFrame::turned(at, plate.centre(), -mark.rotation));
}

void LabelEditing::finish()
{
    m_composed.clear();
    m_composedCaret = 0;
    show();
    if (m_now.text.trimmed().isEmpty()) {
        EditorDocument next = m_session.document();
        std::erase_if(next.marks, [this](const Annotation& mark) { return mark.id == m_id; });
        m_session.preview(std::move(next));
    }
    m_session.keepPreview();
}

} // namespace Kovrel
