#include "editor/marks/ArrowInk.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <vector>

namespace Kovrel {

namespace {

constexpr int steps = 48;
constexpr int capSteps = 16;
constexpr double cornerRounding = 2; // image points along the edges of the head
// From where on, as a share of the shaft, it straightens into the head.
constexpr double straightensFrom = 0.6;

double dot(QPointF a, QPointF b)
{
    return QPointF::dotProduct(a, b);
}

double length(QPointF vector)
{
    return std::sqrt(dot(vector, vector));
}

QPointF unit(QPointF vector)
{
    const double size = length(vector);
    return size > 0 ? vector / size : QPointF(1, 0);
}

// To the left of a direction, y up.
QPointF normal(QPointF direction)
{
    return {-direction.y(), direction.x()};
}

double smoothstep(double x)
{
    x = std::clamp(x, 0.0, 1.0);
    return x * x * (3 - 2 * x);
}

// The middle of the shaft, from the tail to the tip.
class CentreLine {
public:
    CentreLine(QPointF from, QPointF to, std::optional<QPointF> control) : m_from(from), m_to(to), m_control(control)
    {
        for (int k = 1; k <= steps; ++k)
            m_arc[size_t(k)] = m_arc[size_t(k - 1)] + ::Kovrel::length(at(k) - at(k - 1));
    }

    QPointF at(int k) const { return point(double(k) / steps); }

    QPointF tangent(double t) const
    {
        if (!m_control)
            return unit(m_to - m_from);
        const QPointF derivative = 2 * (1 - t) * (*m_control - m_from) + 2 * t * (m_to - *m_control);
        return length(derivative) > 0 ? unit(derivative) : unit(m_to - m_from);
    }

    double arc(int k) const { return m_arc[size_t(k)]; }

    double total() const { return std::max(m_arc.back(), 0.0001); }

    QPointF atArc(double arc) const
    {
        const auto next = std::ranges::lower_bound(m_arc, arc);
        if (next == m_arc.begin() || next == m_arc.end())
            return next == m_arc.end() ? m_to : m_from;
        const auto k = next - m_arc.begin();
        const double fraction = (arc - *(next - 1)) / (*next - *(next - 1));
        return point((double(k - 1) + fraction) / steps);
    }

private:
    QPointF point(double t) const
    {
        if (!m_control)
            return m_from + t * (m_to - m_from);
        return (1 - t) * (1 - t) * m_from + 2 * t * (1 - t) * *m_control + t * t * m_to;
    }

    QPointF m_from;
    QPointF m_to;
    std::optional<QPointF> m_control;
    std::array<double, steps + 1> m_arc{};
};

CentreLine centreLine(Point from, Point to, std::optional<Point> control, double scale)
{
    const auto scaled = [scale](Point point) { return QPointF(point.x * scale, point.y * scale); };
    return {scaled(from), scaled(to), control ? std::optional(scaled(*control)) : std::nullopt};
}

// All in target points.
struct Proportions {
    Proportions(double lineWidth, double scale, double tipScale, double total)
    {
        const double width = lineWidth * scale;
        const double wanted = std::max(4.3 * width, 14 * scale) * tipScale;
        const bool isHeadOnly = total < 0.9 * wanted;
        shaftHalf = std::max(0.9 * width, 2 * scale);
        tailHalf = std::max(0.16 * width, 0.6 * scale);
        head = isHeadOnly ? total : std::min(wanted, 0.5 * total);
        headHalf = isHeadOnly ? 0.48 * head : std::max(0.48 * head, 1.7 * shaftHalf);
        shaftEnd = isHeadOnly ? 0 : total - 0.9 * head;
    }

    double shaftHalf;
    double tailHalf;
    double head;
    double headHalf;
    double shaftEnd; // along the line; 0 where there is no shaft
};

// A triangle whose corners are rounded from so far on.
QPainterPath softened(const std::array<QPointF, 3>& corners, double rounding)
{
    QPainterPath path;
    for (size_t index = 0; index < 3; ++index) {
        const QPointF corner = corners[index];
        const auto towards = [&](QPointF next) {
            return corner + std::min(rounding, length(next - corner) / 4) * unit(next - corner);
        };
        const QPointF start = towards(corners[(index + 2) % 3]);
        index == 0 ? path.moveTo(start) : path.lineTo(start);
        path.quadTo(corner, towards(corners[(index + 1) % 3]));
    }
    path.closeSubpath();
    return path;
}

class Arrow {
public:
    Arrow(const CentreLine& line, const Proportions& size, QPointF tip, double scale)
        : m_line(line),
          m_size(size),
          m_tip(tip),
          m_shaftEnd(line.atArc(std::max(size.shaftEnd, 0.0))),
          m_rounding(cornerRounding * scale)
    {
        const QPointF chord = tip - m_shaftEnd;
        m_headDirection = length(chord) > 0.5 * scale ? unit(chord) : line.tangent(1);
    }

    QPainterPath path() const
    {
        QPainterPath path;
        path.setFillRule(Qt::WindingFill);
        if (m_size.shaftEnd > 0)
            path.addPolygon(shaft());
        path.closeSubpath();
        path.addPath(head());
        return path;
    }

    // To the left of the head's direction.
    QPointF headCorner() const { return headBase() + m_size.headHalf * normal(m_headDirection); }

private:
    // Clockwise as the head is, so that they do not cancel each other out where they overlap.
    QPolygonF shaft() const
    {
        QPolygonF left;
        QPolygonF right;
        const auto add = [&](QPointF centre, QPointF offset) {
            left << centre + offset;
            right << centre - offset;
        };
        for (int k = 0; k <= steps && m_line.arc(k) <= m_size.shaftEnd; ++k) {
            const double along = m_line.arc(k) / m_size.shaftEnd;
            add(m_line.at(k), halfWidth(along) * offsetDirection(double(k) / steps, along));
        }
        add(m_shaftEnd, m_size.shaftHalf * normal(m_headDirection));
        std::ranges::reverse(right);
        return left + right + tailCap();
    }

    double halfWidth(double along) const
    {
        return m_size.tailHalf + (m_size.shaftHalf - m_size.tailHalf) * std::pow(along, 1.45);
    }

    QPointF offsetDirection(double t, double along) const
    {
        const double blend = smoothstep((along - straightensFrom) / (1 - straightensFrom));
        return unit((1 - blend) * normal(m_line.tangent(t)) + blend * normal(m_headDirection));
    }

    // Round the back, from the right side to the left.
    QPolygonF tailCap() const
    {
        const QPointF direction = m_line.tangent(0);
        const double right = std::atan2(direction.y(), direction.x()) - std::numbers::pi / 2;
        QPolygonF cap;
        for (int k = 1; k < capSteps; ++k) {
            const double angle = right - k * std::numbers::pi / capSteps;
            cap << m_line.at(0) + m_size.tailHalf * QPointF(std::cos(angle), std::sin(angle));
        }
        return cap;
    }

    // Overlapping the shaft where there is one, so that no seam shows.
    QPointF headBase() const
    {
        const double overlap = m_size.shaftEnd > 0 ? 0.12 * m_size.head : 0;
        return m_shaftEnd - overlap * m_headDirection;
    }

    QPainterPath head() const
    {
        const QPointF side = m_size.headHalf * normal(m_headDirection);
        return softened({headBase() + side, m_tip, headBase() - side}, m_rounding);
    }

    const CentreLine& m_line;
    const Proportions& m_size;
    QPointF m_tip;
    QPointF m_shaftEnd;
    double m_rounding;
    QPointF m_headDirection;
};

} // namespace

QPainterPath ArrowInk::arrowInkPath(Point from, Point to, std::optional<Point> control, double lineWidth, double scale,
                                    double tipScale)
{
    const CentreLine line = centreLine(from, to, control, scale);
    const Proportions size(lineWidth, scale, tipScale, line.total());
    return Arrow(line, size, line.at(steps), scale).path();
}

Point ArrowInk::headCorner(Point from, Point to, std::optional<Point> control, double lineWidth, double tipScale)
{
    const CentreLine line = centreLine(from, to, control, 1);
    const Proportions size(lineWidth, 1, tipScale, line.total());
    const QPointF corner = Arrow(line, size, line.at(steps), 1).headCorner();
    return {corner.x(), corner.y()};
}

} // namespace Kovrel
