#include "editorwindow/find/EditorFind.h"

#include "editorwindow/find/TextEdges.h"
#include "recognition/text/TextFind.h"

#include <algorithm>
#include <limits>

namespace Kovrel {

namespace {

Rect onCanvas(const Rect& share, const Rect& canvas)
{
    return {share.x * canvas.width, share.y * canvas.height, share.width * canvas.width, share.height * canvas.height};
}

bool contains(const Rect& outer, const Rect& inner)
{
    return outer.minX() <= inner.minX() && outer.minY() <= inner.minY() && outer.maxX() >= inner.maxX() &&
           outer.maxY() >= inner.maxY();
}

bool meets(const Rect& one, const Rect& other)
{
    return one.minX() < other.maxX() && other.minX() < one.maxX() && one.minY() < other.maxY() &&
           other.minY() < one.maxY();
}

// What is hidden: the rectangles of redactions.
std::vector<Rect> redactedIn(const std::vector<Annotation>& marks)
{
    using Kind = Annotation::Kind;
    std::vector<Rect> rects;
    for (const Annotation& mark : marks)
        if ((mark.kind == Kind::blur || mark.kind == Kind::pixelate || mark.kind == Kind::blackout) &&
            mark.rotation == 0)
            rects.push_back(mark.boundingRect());
    return rects;
}

// Whether a match begins and ends where words do. Of texts whose letters are several characters nothing is known.
bool isOfWords(const TextFind::Match& match, const OCRLine& line)
{
    const QString& text = line.text;
    if (qsizetype(line.characterCenters.size()) != text.size())
        return false;
    const auto isGap = [&text](qsizetype at) { return at < 0 || at >= text.size() || text[at].isSpace(); };
    return isGap(match.start - 1) && isGap(match.end);
}

// Where the places of letters are not known, as in lines that lie rotated, all of the line is hidden.
EditorFind::Hit hitOf(const TextFind::Match& match, const std::vector<OCRLine>& lines, const Rect& canvas)
{
    EditorFind::Hit hit{.isOfWords = isOfWords(match, lines[size_t(match.line)])};
    for (size_t index = 0; index < match.boxes.size(); ++index) {
        const OCRLine& line = lines[size_t(match.line) + index];
        const Rect all = onCanvas(line.boundingBox, canvas);
        hit.boxes.push_back(line.quad ? all : onCanvas(match.boxes[index], canvas));
        hit.redactions.push_back(line.characterCenters.empty() ? all : hit.boxes.back());
    }
    return hit;
}

Annotation redaction(const Rect& rect, Annotation::Kind kind)
{
    return {.kind = kind, .points = {{rect.minX(), rect.minY()}, {rect.maxX(), rect.maxY()}}};
}

} // namespace

EditorFind::EditorFind(EditorSession& session, std::function<void()> changed)
    : m_session(session), m_changed(std::move(changed)), m_changes(session.onChange([this] { follow(); }))
{
}

void EditorFind::setLines(std::vector<OCRLine> lines)
{
    m_lines = std::move(lines);
    find();
}

void EditorFind::setQuery(const QString& query)
{
    m_query = query;
    m_current = 0;
    find();
}

void EditorFind::find()
{
    m_matches.clear();
    for (const auto& match : TextFind::matches(m_query, m_lines, std::numeric_limits<int>::max()))
        m_matches.push_back(hitOf(match, m_lines, m_session.capture().canvas()));
    m_hits = seen();
    m_changed();
}

// What was found stays found; marks and the crop decide what of it is seen.
void EditorFind::follow()
{
    if (!m_matches.empty() && std::exchange(m_hits, seen()) != m_hits)
        m_changed();
}

std::vector<EditorFind::Hit> EditorFind::seen() const
{
    const auto& [marks, composition] = m_session.document();
    const Rect page = composition.crop.value_or(m_session.capture().canvas());
    const std::vector<Rect> redacted = redactedIn(marks);
    const auto isSeen = [&](const Rect& box) {
        return meets(box, page) &&
               std::ranges::none_of(redacted, [&box](const Rect& rect) { return contains(rect, box); });
    };
    std::vector<Hit> hits;
    std::ranges::copy_if(m_matches, std::back_inserter(hits),
                         [&](const Hit& hit) { return std::ranges::any_of(hit.boxes, isSeen); });
    return hits;
}

std::optional<size_t> EditorFind::current() const
{
    return m_hits.empty() ? std::nullopt : std::optional(std::min(m_current, m_hits.size() - 1));
}

void EditorFind::go(int step)
{
    const auto now = current();
    if (!now)
        return;
    const auto count = qptrdiff(m_hits.size());
    m_current = size_t((qptrdiff(*now) + step % count + count) % count);
    m_changed();
}

void EditorFind::redactAll(RedactTool tool)
{
    const MarkStyle style = m_session.toolStyle(*fromRawString<EditorTool>(rawString(tool)));
    const auto kind = *fromRawString<Annotation::Kind>(rawString(tool));
    EditorDocument next = m_session.document();
    for (const Hit& hit : m_hits)
        for (const Rect& rect : hit.redactions)
            next.marks.push_back(
                style.applied(redaction(TextEdges::widened(m_session.capture(), rect, hit.isOfWords), kind)));
    m_session.seal();
    m_session.change(std::move(next));
}

} // namespace Kovrel
