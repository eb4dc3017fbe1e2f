#include "platform/recognisers/TextLines.h"

#include "imaging/Median.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>
#include <unordered_map>
#include <utility>

namespace Kovrel {

namespace {

using Line = TextLines::Line;

// Heights of the page's small letters.
constexpr double leastLetter = 0.45;       // what is lower is a mark: a dot, an accent, a dash
constexpr double leastNarrowLetter = 0.75; // what is lower and narrow is a quotation mark, a comma or a bracket's half
constexpr double narrow = 0.6;             // of its height
constexpr double leastLoneLetter = 0.6;
constexpr double widestMark = 4;
constexpr double plainLetter = 2.4; // what is higher belongs to a headline, or is two letters of two lines that touch
constexpr double loneBracket = 3;
constexpr double largestLetter = 8; // what is higher is a picture
// Heights of the letters of a line.
constexpr double leastOverlap = 0.5;
constexpr double widestGap = 2.5; // in a line
constexpr double widestPause = 4; // between a line and what continues it
constexpr double lowMark = 0.75;
constexpr double markReach = 0.5;  // above and below
constexpr double quoteReach = 0.7; // above, for what bridges a gap
constexpr double markGap = 1.75;   // beside: the gap behind a dash where all characters are equally wide
constexpr double roomAbove = 1.45; // what capitals need, measured from the baseline
constexpr double mostAbove = 2.2;
constexpr double roomBelow = 0.4;
constexpr double mostBelow = 0.9;

int endOf(const QRect& box)
{
    return box.x() + box.width();
}

int footOf(const QRect& box)
{
    return box.y() + box.height();
}

int gapBetween(const QRect& one, const QRect& other)
{
    return std::max(one.x(), other.x()) - std::min(endOf(one), endOf(other));
}

// What stands between two heights of the page.
struct Band {
    double top = 0;
    double foot = 0;

    double height() const { return foot - top; }

    double shareIn(const Band& other) const
    {
        return (std::min(foot, other.foot) - std::max(top, other.top)) / std::min(height(), other.height());
    }

    // By so many of its heights on both sides.
    Band extended(double heights) const { return {top - heights * height(), foot + heights * height()}; }
};

Band bandOf(const QRect& letter)
{
    return {double(letter.y()), double(footOf(letter))};
}

// Things by the heights of the page at which they stand, so that the neighbours of one are found without asking all.
class BandIndex {
public:
    explicit BandIndex(int rowHeight) : m_rowHeight(rowHeight) {}

    void add(size_t thing, const Band& band)
    {
        for (int row = rowAt(band.top); row <= rowAt(band.foot); ++row)
            if (auto& things = m_rows[row]; things.empty() || things.back() != thing)
                things.push_back(thing);
    }

    // Each thing near the band, some of them twice. `use` tells whether it is worth to be kept for others.
    template <class Use>
    void visit(const Band& band, Use use)
    {
        for (int row = rowAt(band.top); row <= rowAt(band.foot); ++row)
            if (const auto things = m_rows.find(row); things != m_rows.end())
                std::erase_if(things->second, [&](size_t thing) { return !use(thing); });
    }

private:
    int rowAt(double y) const { return int(std::floor(y / m_rowHeight)); }

    int m_rowHeight;
    std::unordered_map<int, std::vector<size_t>> m_rows;
};

// A line while it is put together.
class Growing {
public:
    explicit Growing(const QRect& letter) : m_reach(letter), m_band(bandOf(letter)), m_letters{letter} {}

    // From its first letter to its last one, and how high the letters stood that were added lately: lines may slope.
    const QRect& reach() const { return m_reach; }

    const Band& band() const { return m_band; }

    size_t letterCount() const { return m_letters.size(); }

    void add(const QRect& letter)
    {
        widen(letter);
        m_letters.push_back(letter);
        m_band = {(2 * m_band.top + letter.y()) / 3, (2 * m_band.foot + footOf(letter)) / 3};
    }

    void add(const Growing& other)
    {
        m_reach |= other.m_reach;
        m_letters.insert(m_letters.end(), other.m_letters.begin(), other.m_letters.end());
        settle();
    }

    void widen(const QRect& box)
    {
        m_reach.setLeft(std::min(m_reach.left(), box.left()));
        m_reach.setRight(std::max(m_reach.right(), box.right()));
    }

    void include(const QRect& mark) { m_reach |= mark; }

    // A comma, asterisk or the like, which is high enough for a letter of other lines.
    bool isMarkOf(const Growing& line, int gap) const
    {
        const double height = line.m_band.height();
        const double centre = m_reach.center().y();
        return m_letters.size() <= 2 && (gap < 0 || m_band.height() <= lowMark * height) &&
               centre >= line.m_band.top - markReach * height && centre <= line.m_band.foot + markReach * height;
    }

    // All of it in one band.
    void settle()
    {
        std::vector<int> tops;
        std::vector<int> feet;
        for (const QRect& letter : m_letters) {
            tops.push_back(letter.y());
            feet.push_back(footOf(letter));
            m_reach |= letter;
        }
        m_band = {double(median(std::move(tops))), double(median(std::move(feet)))};
    }

    // Its ink, and the room that its letters would need if they were all there.
    Line finished(bool continues, int pageHeight) const
    {
        const double height = m_band.height();
        const auto place = [&](double aboveBaseline) { return int(std::lround(m_band.foot - aboveBaseline * height)); };
        QRect box = m_reach;
        box.setTop(std::max(box.top(), place(mostAbove)));
        box.setBottom(std::min(box.bottom(), place(-mostBelow)));
        QRect room = box;
        room.setTop(std::min(box.top(), place(roomAbove)));
        room.setBottom(std::max(box.bottom(), place(-roomBelow)));
        return {box, room, std::min(int(std::lround(height)), mostLetterHeight(pageHeight)), continues};
    }

private:
    // A lone brace, bracket or capital is higher than the small letters that it would stand among.
    int mostLetterHeight(int pageHeight) const
    {
        const bool isLone = m_letters.size() == 1 && m_band.height() <= loneBracket * pageHeight;
        return isLone ? pageHeight : std::numeric_limits<int>::max();
    }

    QRect m_reach;
    Band m_band;
    std::vector<QRect> m_letters;
};

class Finder {
public:
    explicit Finder(int letterHeight) : m_height(letterHeight), m_index(letterHeight) {}

    std::vector<Line> find(std::vector<QRect> blobs)
    {
        std::ranges::sort(blobs, {}, &QRect::left);
        for (const QRect& blob : blobs)
            if (isMark(blob))
                placeMark(blob);
            else if (blob.height() <= plainLetter * m_height)
                placeLetter(blob);
        renewIndex();
        for (const QRect& blob : blobs)
            if (blob.height() > plainLetter * m_height && blob.height() <= largestLetter * m_height)
                placeTall(blob);
        for (Growing& line : m_lines)
            line.settle();
        mergePieces();
        renewIndex();
        for (const QRect& mark : m_marks)
            attach(mark);
        return inOrder();
    }

private:
    bool isMark(const QRect& blob) const
    {
        const bool isNarrow = blob.width() < narrow * blob.height();
        return blob.height() < (isNarrow ? leastNarrowLetter : leastLetter) * m_height;
    }

    // What ends so far to the left that no later blob comes near it.
    bool isPast(const Growing& line, const QRect& blob) const
    {
        return gapBetween(line.reach(), blob) > widestGap * largestLetter * m_height;
    }

    void renewIndex()
    {
        m_index = BandIndex(m_height);
        for (size_t line = 0; line < m_lines.size(); ++line)
            m_index.add(line, m_lines[line].band());
    }

    void addLine(const QRect& letter)
    {
        m_lines.emplace_back(letter);
        m_index.add(m_lines.size() - 1, bandOf(letter));
    }

    std::optional<size_t> lineFor(const QRect& letter)
    {
        const Band band = bandOf(letter);
        std::optional<size_t> best;
        double most = leastOverlap;
        m_index.visit(band, [&](size_t at) {
            const Growing& line = m_lines[at];
            const double share = band.shareIn(line.band());
            const double height = std::min(band.height(), line.band().height());
            if (share >= most && gapBetween(line.reach(), letter) <= widestGap * height) {
                most = share;
                best = at;
            }
            return true;
        });
        return best;
    }

    void placeLetter(const QRect& letter)
    {
        if (const auto line = lineFor(letter))
            addTo(*line, letter);
        else
            addLine(letter);
    }

    void addTo(size_t line, const QRect& letter)
    {
        m_lines[line].add(letter);
        m_index.add(line, m_lines[line].band());
    }

    void placeTall(const QRect& letter)
    {
        const auto at = lineFor(letter);
        if (!at)
            return addLine(letter);
        Growing& line = m_lines[*at];
        if (letter.contains(line.reach()))
            return; // a frame around it
        if (letter.height() > plainLetter * line.band().height())
            line.widen(letter);
        else
            addTo(*at, letter);
    }

    // A mark behind letters lets the line reach further, and waits like the others until there are lines.
    void placeMark(const QRect& mark)
    {
        if (mark.width() > widestMark * m_height)
            return;
        m_marks.push_back(mark);
        const int centre = mark.center().y();
        Growing* line = nullptr;
        m_index.visit({double(mark.y() - m_height), double(footOf(mark) + m_height)}, [&](size_t at) {
            const Band& band = m_lines[at].band();
            if (centre >= band.top - quoteReach * band.height() && centre <= band.foot + band.height() / 3 &&
                gapBetween(m_lines[at].reach(), mark) <= widestGap * band.height())
                line = &m_lines[at];
            return true;
        });
        if (line)
            line->widen(mark);
    }

    // Each line takes in those to its right that belong to it.
    void mergePieces()
    {
        std::ranges::sort(m_lines, {}, [](const Growing& line) { return line.reach().left(); });
        std::vector<Growing> merged;
        BandIndex index(m_height);
        for (const Growing& line : m_lines) {
            std::optional<size_t> mate;
            index.visit(line.band().extended(markReach), [&](size_t at) {
                if (belongTogether(merged[at], line))
                    mate = at;
                return !isPast(merged[at], line.reach());
            });
            if (mate)
                merged[*mate].add(line);
            else
                merged.push_back(line);
            const size_t at = mate.value_or(merged.size() - 1);
            index.add(at, merged[at].band());
        }
        m_lines = std::move(merged);
    }

    static bool belongTogether(const Growing& one, const Growing& other)
    {
        const double lower = std::min(one.band().height(), other.band().height());
        const double higher = std::max(one.band().height(), other.band().height());
        const int gap = gapBetween(one.reach(), other.reach());
        if (one.band().shareIn(other.band()) >= leastOverlap && gap <= lower)
            return true;
        return gap <= higher && (other.isMarkOf(one, gap) || one.isMarkOf(other, gap));
    }

    void attach(const QRect& mark)
    {
        Growing* nearest = nullptr;
        double shortest = 0;
        m_index.visit(bandOf(mark).extended(markReach * plainLetter * m_height / mark.height()), [&](size_t at) {
            Growing& line = m_lines[at];
            const double height = line.band().height();
            const double centre = mark.center().y();
            const double away = std::max({line.reach().y() - centre, centre - footOf(line.reach()), 0.0});
            if (away <= markReach * height && gapBetween(line.reach(), mark) <= markGap * height &&
                (!nearest || away < shortest)) {
                nearest = &line;
                shortest = away;
            }
            return true;
        });
        if (nearest)
            nearest->include(mark);
    }

    std::vector<Line> inOrder()
    {
        std::erase_if(m_lines, [this](const Growing& line) {
            return line.letterCount() == 1 && line.band().height() < leastLoneLetter * m_height;
        });
        std::ranges::sort(m_lines, {}, [](const Growing& line) { return line.reach().left(); });
        std::vector<std::vector<const Growing*>> rows; // each line with those that continue it
        BandIndex index(m_height);
        for (const Growing& line : m_lines) {
            std::optional<size_t> row;
            index.visit(line.band(), [&](size_t at) {
                if (continues(line, *rows[at].back()))
                    row = at;
                return !isPast(*rows[at].back(), line.reach());
            });
            if (!row)
                rows.emplace_back();
            const size_t at = row.value_or(rows.size() - 1);
            rows[at].push_back(&line);
            index.add(at, line.band());
        }
        return inOrder(std::move(rows));
    }

    std::vector<Line> inOrder(std::vector<std::vector<const Growing*>> rows) const
    {
        std::ranges::sort(
            rows, {}, [](const auto& row) { return std::pair(row.front()->band().foot, row.front()->reach().left()); });
        std::vector<Line> lines;
        for (const auto& row : rows)
            for (const Growing* const line : row)
                lines.push_back(line->finished(line != row.front(), m_height));
        return lines;
    }

    static bool continues(const Growing& line, const Growing& before)
    {
        const int gap = gapBetween(before.reach(), line.reach());
        return before.band().shareIn(line.band()) >= leastOverlap && gap >= 0 &&
               gap <= widestPause * std::min(before.band().height(), line.band().height());
    }

    int m_height;
    BandIndex m_index; // of the lines by their bands
    std::vector<Growing> m_lines;
    std::vector<QRect> m_marks;
};

} // namespace

std::vector<Line> TextLines::of(const std::vector<QRect>& blobs, int letterHeight)
{
    return Finder(letterHeight).find(blobs);
}

} // namespace Kovrel
