#include "editor/marks/AnnotationExtent.h"

#include "editor/marks/AnnotationInk.h"
#include "editor/marks/LabelText.h"
#include "editor/marks/MarkShadow.h"

#include <QFontMetricsF>

#include <algorithm>
#include <cmath>
#include <numeric>

namespace Kovrel {

namespace {

using Kind = Annotation::Kind;

// How far ink reaches around the points, in image points, at most.
double reach(const Annotation& mark)
{
    const double width = mark.lineWidth;
    switch (mark.kind) {
    case Kind::highlighter:
        return 3.25 * std::max(width, 1.0) * std::max(mark.tipScale, 1.0);
    case Kind::arrow:
        // Half the width of a head, which is at most as long as 4.3 line widths or 14 points, and no wider than that.
        return std::max({4.3 * width * mark.tipScale, 14 * mark.tipScale, 2 * width, 4.0});
    case Kind::step:
        return (width * 2.4 + 3.4) * 1.12 + 2;
    case Kind::measure:
        return 4 + 2 * width; // the ticks
    default:
        return width;
    }
}

QRectF around(QPointF centre, double radius)
{
    return {centre.x() - radius, centre.y() - radius, 2 * radius, 2 * radius};
}

constexpr char16_t latinEnd = 0x250;
constexpr double otherLineHeight = 2; // em, at most, in whatever font there is for it

// In em. Latin characters as they are, with something for what their neighbours do to them; of the others none is wider
// than an emoji.
double widthOf(QChar character)
{
    constexpr double widest = 1.4;
    static const std::vector<double> widths = [] {
        const TextAttributes attributes = textAttributes(1, std::nullopt);
        const QFontMetricsF metrics(attributes.font);
        std::vector<double> all;
        all.reserve(latinEnd);
        for (char16_t c = 0; c < latinEnd; ++c)
            all.push_back(1.02 * metrics.horizontalAdvance(QChar(c)) * attributes.scale);
        return all;
    }();
    return character.unicode() < latinEnd ? widths[character.unicode()] : widest;
}

bool isLatin(QChar character)
{
    return character.unicode() < latinEnd;
}

struct TextBound {
    double width = 0; // em, of the longest line when none is broken
    int lines = 1;
    double lineHeight = 1.25; // em
};

// Breaks a text as a label does: words that do not fit go into the next line, of those that are longer than a line what
// does not fit.
class Breaking {
public:
    explicit Breaking(double wrapInEm) : m_wrap(wrapInEm) {}

    TextBound boundOf(const QString& text)
    {
        double unbroken = 0;
        for (const QChar character : text) {
            m_word.push_back(widthOf(character));
            if (!isLatin(character))
                m_bound.lineHeight = otherLineHeight;
            if (character.isSpace())
                endWord();
            unbroken += widthOf(character);
            m_bound.width = std::max(m_bound.width, unbroken);
            if (character == u'\n') {
                endLine();
                unbroken = 0;
            }
        }
        endWord();
        return m_bound;
    }

private:
    void endWord()
    {
        const double width = std::accumulate(m_word.begin(), m_word.end(), 0.0);
        if (m_line > 0 && m_line + width > m_wrap)
            endLine();
        for (const double character : m_word) {
            if (m_line > 0 && m_line + character > m_wrap)
                endLine();
            m_line += character;
        }
        m_word.clear();
    }

    void endLine()
    {
        ++m_bound.lines;
        m_line = 0;
    }

    double m_wrap;
    double m_line = 0;
    std::vector<double> m_word;
    TextBound m_bound;
};

// Up from a click, down from the top of a box, with the tail of a bubble below.
QRectF labelBound(const Annotation& mark, const QRectF& box)
{
    const double size = mark.fontSize;
    const TextBound text = Breaking(mark.textWrapWidth() / size).boundOf(mark.text);
    const double width = std::max(std::min(text.width * size, mark.textWrapWidth()), 4 * size) + size;
    const double height = (text.lineHeight * text.lines + 0.5) * size;
    const double lower = mark.points.size() == 1 ? box.top() : box.bottom() - height;
    const double tail = mark.textStyle == Annotation::TextStyle::bubble ? 0.7 * size : 0;
    return {box.left() - 1, lower - tail, width, height + tail};
}

// Round ends and joins reach as far to each side.
QRectF penExtent(const Annotation& mark, double scale)
{
    const QRectF box = AnnotationExtent::pointsBox(mark);
    const double half = mark.lineWidth * scale / 2;
    return QRectF(box.topLeft() * scale, box.size() * scale).adjusted(-half, -half, half, half);
}

// However it is turned.
QRectF turnedBound(const Annotation& mark, QRectF box)
{
    if (mark.kind == Kind::text)
        box = labelBound(mark, box);
    if (mark.rotation == 0 || !mark.isRotatable())
        return box;
    return around(box.center(), std::hypot(box.width(), box.height()));
}

} // namespace

QRectF AnnotationExtent::pointsBox(const Annotation& mark)
{
    if (mark.points.empty())
        return {};
    const auto [left, right] = std::ranges::minmax(mark.points, {}, &Point::x);
    const auto [lower, upper] = std::ranges::minmax(mark.points, {}, &Point::y);
    return {QPointF(left.x, lower.y), QPointF(right.x, upper.y)};
}

QRectF AnnotationExtent::visualExtent(const Annotation& mark, double scale, const MeasureInk::Reading& reading)
{
    if (!AnnotationInk::isDrawable(mark, scale))
        return {};
    if (mark.kind == Kind::pen)
        return penExtent(mark, scale);
    return AnnotationInk::inkPath(mark, scale, reading).boundingRect();
}

QRectF AnnotationExtent::rotatedVisualExtent(const Annotation& mark, double scale, const MeasureInk::Reading& reading)
{
    if (!AnnotationInk::isDrawable(mark, scale) || !mark.isRotatable() || mark.rotation == 0)
        return visualExtent(mark, scale, reading);
    return AnnotationInk::rotation(mark, scale).map(AnnotationInk::inkPath(mark, scale)).boundingRect();
}

QRectF AnnotationExtent::cullBound(const Annotation& mark, double scale)
{
    if (!AnnotationInk::isDrawable(mark, scale))
        return {};
    QRectF box = pointsBox(mark);
    if (mark.kind == Kind::measure)
        box |= MeasureInk::badgeBound(mark);
    if (mark.curveControl && (mark.kind == Kind::line || mark.kind == Kind::arrow))
        box |= QRectF(AnnotationInk::scaled(*mark.curveControl, 1), QSizeF(1e-9, 1e-9));
    const double margin = reach(mark) + MarkShadow::reach + 1;
    box = turnedBound(mark, box).adjusted(-margin, -margin, margin, margin);
    return {box.left() * scale, box.top() * scale, box.width() * scale, box.height() * scale};
}

} // namespace Kovrel
