#include "recognition/text/TextFind.h"

#include "model/text/TextFolding.h"

#include <QTextBoundaryFinder>

#include <algorithm>

namespace Kovrel {

namespace {

// Geometry is kept with five decimals; a bound that is met is not missed by rounding.
constexpr double rounding = 1e-9;

// A text as it is compared, and where its characters begin in it.
struct Normalized {
    QString text;
    std::vector<qsizetype> starts; // of each character, and the end; empty where every code unit is one character

    int length() const { return int(starts.empty() ? text.size() : qsizetype(starts.size()) - 1); }

    // No value inside a character.
    std::optional<int> characterAt(qsizetype unit) const
    {
        if (starts.empty())
            return int(unit);
        const auto place = std::ranges::lower_bound(starts, unit);
        return place != starts.end() && *place == unit ? std::optional(int(place - starts.begin())) : std::nullopt;
    }
};

// Neither combining marks nor surrogates nor a line break of two characters.
bool isOneUnitPerCharacter(const QString& text)
{
    return std::ranges::all_of(text, [](QChar unit) { return unit.unicode() < 0x300 && unit != u'\r'; });
}

QString normalizedCharacter(const QString& character)
{
    return character.front().isSpace() ? QString(u' ') : TextFolding::comparable(character);
}

// Most text is, and needs no more than lower case. A loop without an exit runs on many units at once.
bool isPrintableAscii(const QString& text)
{
    bool isOther = false;
    for (const QChar unit : text)
        isOther |= unit.unicode() < 0x20 || unit.unicode() > 0x7E;
    return !isOther;
}

Normalized normalized(const QString& text)
{
    Normalized result;
    if (isPrintableAscii(text))
        return {TextFolding::comparable(text), {}};
    if (isOneUnitPerCharacter(text)) {
        result.text = TextFolding::comparable(text);
        std::ranges::replace_if(result.text, [](QChar unit) { return unit.isSpace(); }, QChar(u' '));
        return result;
    }
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    result.starts.push_back(0);
    for (qsizetype start = 0, end = finder.toNextBoundary(); end > start; start = end, end = finder.toNextBoundary()) {
        result.text += normalizedCharacter(text.sliced(start, end - start));
        result.starts.push_back(result.text.size());
    }
    return result;
}

QString normalizedQuery(const QString& query)
{
    QString text = normalized(query).text;
    const auto first = std::ranges::find_if(text, [](QChar unit) { return unit != u' '; });
    return text.remove(0, first - text.cbegin());
}

// Lines that continue one another, as one text. Between them is a space.
class Passage {
public:
    explicit Passage(const std::vector<OCRLine>& lines) : m_lines(lines) {}

    bool isContinuedBy(const OCRLine& line) const
    {
        return m_parts.empty() || TextFind::continues(line, m_lines[size_t(m_parts.back().line)]);
    }

    void append(int line)
    {
        Part part{line, 0, 0, normalized(m_lines[size_t(line)].text)};
        if (m_parts.empty()) {
            m_text = part.content.text;
        } else {
            part.firstUnit = m_text.size() + 1;
            part.firstCharacter = m_parts.back().firstCharacter + m_parts.back().length() + 1;
            m_text += u' ' + part.content.text;
        }
        m_parts.push_back(std::move(part));
    }

    void find(const QString& query, size_t limit, std::vector<TextFind::Match>& found) const
    {
        for (qsizetype at = m_text.indexOf(query); at >= 0 && found.size() < limit;) {
            const auto start = characterAt(at);
            const auto end = characterAt(at + query.size());
            if (start && end)
                found.push_back(match(*start, *end));
            at = m_text.indexOf(query, start && end ? at + query.size() : at + 1);
        }
    }

private:
    struct Part {
        int line = 0;
        qsizetype firstUnit = 0; // in the passage
        int firstCharacter = 0;
        Normalized content;

        int length() const { return content.length(); }
    };

    std::optional<int> characterAt(qsizetype unit) const
    {
        const auto part = std::prev(std::ranges::upper_bound(m_parts, unit, {}, &Part::firstUnit));
        if (unit > part->firstUnit + part->content.text.size())
            return std::nullopt;
        const auto character = part->content.characterAt(unit - part->firstUnit);
        return character ? std::optional(part->firstCharacter + *character) : std::nullopt;
    }

    TextFind::Match match(int start, int end) const
    {
        auto part = std::prev(std::ranges::upper_bound(m_parts, start, {}, &Part::firstCharacter));
        const int origin = part->firstCharacter;
        TextFind::Match result{part->line, start - origin, end - origin, {}};
        for (; part != m_parts.end() && part->firstCharacter < end; ++part) {
            const int from = std::max(start - part->firstCharacter, 0);
            const int to = std::min(end - part->firstCharacter, part->length());
            if (from < to)
                result.boxes.push_back(box(m_lines[size_t(part->line)], from, to, part->length()));
        }
        return result;
    }

    // Where both directions are mixed, the ends of a match need not be its edges.
    static Rect box(const OCRLine& line, int from, int to, int length)
    {
        double left = TextFind::boundary(from, line, length);
        double right = left;
        for (int index = from + 1; index <= to; ++index) {
            left = std::min(left, TextFind::boundary(index, line, length));
            right = std::max(right, TextFind::boundary(index, line, length));
        }
        return {left, line.boundingBox.y, right - left, line.boundingBox.height};
    }

    const std::vector<OCRLine>& m_lines;
    std::vector<Part> m_parts;
    QString m_text;
};

} // namespace

std::vector<TextFind::Match> TextFind::matches(const QString& query, const std::vector<OCRLine>& lines, int limit)
{
    std::vector<Match> found;
    const QString text = normalizedQuery(query);
    if (text.isEmpty() || limit <= 0)
        return found;
    const bool acrossLines = text.contains(u' ');
    for (size_t next = 0; next < lines.size() && found.size() < size_t(limit);) {
        Passage passage(lines);
        do
            passage.append(int(next++));
        while (acrossLines && next < lines.size() && passage.isContinuedBy(lines[next]));
        passage.find(text, size_t(limit), found);
    }
    return found;
}

bool TextFind::continues(const OCRLine& line, const OCRLine& after)
{
    if (line.isQRCode || after.isQRCode || line.quad || after.quad)
        return false;
    const Rect& lower = line.boundingBox;
    const Rect& upper = after.boundingBox;
    const double height = std::max(lower.height, upper.height);
    const double gap = upper.minY() - lower.maxY();
    const double overlap = std::min(upper.maxX(), lower.maxX()) - std::max(upper.minX(), lower.minX());
    return lower.centre().y < upper.centre().y && height > 0 && gap >= -0.5 * height - rounding &&
           gap <= 1.5 * height + rounding && overlap >= std::min(upper.width, lower.width) / 2 - rounding;
}

double TextFind::boundary(int index, const OCRLine& line, int length)
{
    const Rect& box = line.boundingBox;
    const auto& centers = line.characterCenters;
    const bool isRightToLeft = line.text.isRightToLeft();
    if (length <= 0 || centers.size() != size_t(length)) {
        const double share = length > 0 ? double(index) / length : 0;
        return box.minX() + box.width * (isRightToLeft ? 1 - share : share);
    }
    if (index < 1 || index >= length)
        return (index < 1) == isRightToLeft ? box.maxX() : box.minX();
    return (centers[size_t(index) - 1] + centers[size_t(index)]) / 2;
}

} // namespace Kovrel
