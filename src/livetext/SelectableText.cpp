#include "livetext/SelectableText.h"

#include "recognition/text/TextFind.h"

#include <QTextBoundaryFinder>

#include <algorithm>
#include <cmath>

namespace Kovrel {

namespace {

constexpr double reachBeside = 0.4; // of the height of a line: near enough to its ends
constexpr double reachAbove = 0.2;  // and above and below it

std::vector<qsizetype> graphemeStarts(const QString& text)
{
    std::vector<qsizetype> starts{0};
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    while (finder.toNextBoundary() > 0)
        starts.push_back(finder.position());
    return starts;
}

QPointF inPicture(Point point, QSize picture)
{
    return {point.x * picture.width(), (1 - point.y) * picture.height()};
}

double dot(QPointF one, QPointF other)
{
    return QPointF::dotProduct(one, other);
}

double norm(QPointF vector)
{
    return std::hypot(vector.x(), vector.y());
}

// Where each grapheme begins, as a share of the line. Turned lines tell nothing of their characters.
std::vector<double> sharesOf(const OCRLine& line, int count)
{
    std::vector<double> shares;
    for (int index = 0; index <= count; ++index) {
        if (line.quad) {
            const double share = double(index) / std::max(count, 1);
            shares.push_back(line.text.isRightToLeft() ? 1 - share : share);
        } else {
            const double width = std::max(line.boundingBox.width, 1e-9);
            shares.push_back((TextFind::boundary(index, line, count) - line.boundingBox.x) / width);
        }
    }
    return shares;
}

} // namespace

// --- A line

SelectableText::Line SelectableText::makeLine(const OCRLine& line, QSize picture)
{
    Line made{.text = line.text, .starts = graphemeStarts(line.text)};
    made.shares = sharesOf(line, int(made.starts.size()) - 1);
    const Rect& box = line.boundingBox;
    const OCRQuad quad =
        line.quad.value_or(OCRQuad{{box.minX(), box.minY()}, {box.maxX(), box.minY()}, {box.minX(), box.maxY()}});
    made.origin = inPicture(quad.origin, picture);
    made.along = inPicture(quad.xEnd, picture) - made.origin;
    made.up = inPicture(quad.yEnd, picture) - made.origin;
    return made;
}

QPointF SelectableText::Line::shareOf(QPointF point) const
{
    const QPointF from = point - origin;
    return {dot(from, along) / std::max(dot(along, along), 1e-9), dot(from, up) / std::max(dot(up, up), 1e-9)};
}

double SelectableText::Line::distanceTo(QPointF point) const
{
    const QPointF share = shareOf(point);
    const QPointF nearest = origin + std::clamp(share.x(), 0.0, 1.0) * along + std::clamp(share.y(), 0.0, 1.0) * up;
    return norm(point - nearest);
}

// Right to left, the first character has the greatest share.
QPolygonF SelectableText::Line::shape(size_t from, size_t to) const
{
    const auto [left, right] =
        std::minmax_element(shares.begin() + std::ptrdiff_t(from), shares.begin() + std::ptrdiff_t(to) + 1);
    const QPointF begin = origin + *left * along;
    const QPointF end = origin + *right * along;
    return QPolygonF({begin, end, end + up, begin + up});
}

// --- Places

SelectableText::SelectableText(const std::vector<OCRLine>& lines, QSize picture)
{
    for (const OCRLine& line : lines)
        if (!line.text.isEmpty())
            m_lines.push_back(makeLine(line, picture));
}

bool SelectableText::covers(QPointF point) const
{
    return std::ranges::any_of(m_lines, [&](const Line& line) {
        const QPointF share = line.shareOf(point);
        const double beside = reachBeside * norm(line.up) / std::max(norm(line.along), 1e-9);
        return share.x() >= -beside && share.x() <= 1 + beside && share.y() >= -reachAbove &&
               share.y() <= 1 + reachAbove;
    });
}

size_t SelectableText::nearestLine(QPointF point) const
{
    const auto nearest =
        std::ranges::min_element(m_lines, {}, [&](const Line& line) { return line.distanceTo(point); });
    return size_t(nearest - m_lines.begin());
}

// Well above all text is its beginning, and well below all of it its end.
SelectableText::Place SelectableText::placeAt(QPointF point) const
{
    const auto shapes = this->shapes(all());
    const auto isBelow = [&](const QPolygonF& shape) {
        return point.y() > shape.boundingRect().bottom() + shape.boundingRect().height();
    };
    const auto isAbove = [&](const QPolygonF& shape) {
        return point.y() < shape.boundingRect().top() - shape.boundingRect().height();
    };
    if (std::ranges::all_of(shapes, isAbove))
        return all().from;
    if (std::ranges::all_of(shapes, isBelow))
        return all().to;
    const size_t index = nearestLine(point);
    const Line& line = m_lines[index];
    const double share = line.shareOf(point).x();
    const auto nearest = std::ranges::min_element(line.shares, {}, [&](double each) { return std::abs(each - share); });
    return {index, size_t(nearest - line.shares.begin())};
}

// The character under the point belongs to it; a boundary may be nearer that has it before or behind.
SelectableText::Range SelectableText::wordAt(QPointF point) const
{
    const size_t index = nearestLine(point);
    const Line& line = m_lines[index];
    const double share = line.shareOf(point).x();
    size_t character = 0;
    while (character + 2 < line.shares.size() &&
           !(share >= std::min(line.shares[character], line.shares[character + 1]) &&
             share < std::max(line.shares[character], line.shares[character + 1])))
        ++character;
    QTextBoundaryFinder words(QTextBoundaryFinder::Word, line.text);
    words.setPosition(line.starts[character + 1]);
    const qsizetype end = words.isAtBoundary() ? line.starts[character + 1] : words.toNextBoundary();
    words.setPosition(end);
    return part(index, std::max<qsizetype>(words.toPreviousBoundary(), 0), end);
}

SelectableText::Range SelectableText::lineAt(QPointF point) const
{
    const size_t line = nearestLine(point);
    return {{line, 0}, {line, length(line)}};
}

SelectableText::Range SelectableText::all() const
{
    return m_lines.empty() ? Range() : Range{{0, 0}, {m_lines.size() - 1, length(m_lines.size() - 1)}};
}

SelectableText::Place SelectableText::next(Place place) const
{
    if (place.character < length(place.line))
        return {place.line, place.character + 1};
    return place.line + 1 < m_lines.size() ? Place{place.line + 1, 0} : place;
}

SelectableText::Place SelectableText::previous(Place place) const
{
    if (place.character > 0)
        return {place.line, place.character - 1};
    return place.line > 0 ? Place{place.line - 1, length(place.line - 1)} : place;
}

SelectableText::Range SelectableText::part(size_t line, qsizetype from, qsizetype to) const
{
    const auto& starts = m_lines[line].starts;
    const auto character = [&](qsizetype offset) {
        return size_t(std::ranges::lower_bound(starts, offset) - starts.begin());
    };
    return {{line, character(from)}, {line, character(to)}};
}

// --- What is selected

// Of the line after this one: in the same row it goes on, as a column where there is a gap.
QString SelectableText::separator(size_t line) const
{
    const Line& before = m_lines[line];
    const Line& after = m_lines[line + 1];
    const QPointF begin = before.shareOf(after.origin + after.up / 2);
    if (begin.y() < 0 || begin.y() > 1 || begin.x() < 1)
        return "\n";
    const double gap = (begin.x() - 1) * norm(before.along);
    return gap >= norm(before.up) ? "\t" : " ";
}

QString SelectableText::text(Range range) const
{
    QString text;
    for (size_t index = range.from.line; index <= range.to.line && index < m_lines.size(); ++index) {
        const Line& line = m_lines[index];
        const size_t first = index == range.from.line ? range.from.character : 0;
        const size_t last = index == range.to.line ? range.to.character : length(index);
        text += QStringView(line.text).sliced(line.starts[first], line.starts[last] - line.starts[first]);
        if (index < range.to.line)
            text += separator(index);
    }
    return text;
}

std::vector<QPolygonF> SelectableText::shapes(Range range) const
{
    std::vector<QPolygonF> shapes;
    for (size_t index = range.from.line; index <= range.to.line && index < m_lines.size(); ++index) {
        const size_t first = index == range.from.line ? range.from.character : 0;
        const size_t last = index == range.to.line ? range.to.character : length(index);
        if (last > first)
            shapes.push_back(m_lines[index].shape(first, last));
    }
    return shapes;
}

} // namespace Kovrel
