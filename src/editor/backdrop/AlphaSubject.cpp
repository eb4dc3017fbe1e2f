#include "editor/backdrop/AlphaSubject.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace Kovrel {

namespace {

// Of the most covered pixel's alpha, which a translucent window has all over and its shadow never comes near.
constexpr double coveredShare = 0.7;
// Of a rounded rectangle, this much has to be covered: a window with a hole is one, a drawing on nothing is none.
constexpr double fullShare = 0.95;
// What a round corner leaves free of the square of its radius.
constexpr double cornerShare = 1 - std::numbers::pi / 4;

class Coverage {
public:
    explicit Coverage(const QImage& image) : m_alpha(image.convertToFormat(QImage::Format_Alpha8))
    {
        int most = 0;
        for (int y = 0; y < m_alpha.height(); ++y)
            most = std::max(most, int(*std::max_element(row(y), row(y) + m_alpha.width())));
        m_least = std::max(1, int(coveredShare * most));
    }

    // All that is covered.
    QRect box() const
    {
        const int width = m_alpha.width();
        QRect box;
        for (int y = 0; y < m_alpha.height(); ++y)
            if (const int left = freeFrom(y, 0, width, 1); left < width)
                box |= QRect(left, y, width - left - freeFrom(y, width - 1, width, -1), 1);
        return box;
    }

    qint64 pixels(const QRect& box) const
    {
        qint64 count = 0;
        for (int y = box.top(); y <= box.bottom(); ++y)
            count +=
                std::count_if(row(y) + box.left(), row(y) + box.right() + 1, [this](uchar a) { return a >= m_least; });
        return count;
    }

    // The radius of the largest corner.
    double radius(const QRect& box) const
    {
        qint64 most = 0;
        for (const int x : {box.left(), box.right()})
            for (const int y : {box.top(), box.bottom()})
                most = std::max(most, freeInCorner(box, {x, y}));
        return std::sqrt(double(most) / cornerShare);
    }

private:
    const uchar* row(int y) const { return m_alpha.constScanLine(y); }

    // How many pixels are free from `x` on, `most` at most.
    int freeFrom(int y, int x, int most, int step) const
    {
        int count = 0;
        while (count < most && row(y)[x + count * step] < m_least)
            ++count;
        return count;
    }

    // Row by row from the corner inwards, until one is covered from its first pixel.
    qint64 freeInCorner(const QRect& box, QPoint corner) const
    {
        const int right = corner.x() == box.left() ? 1 : -1;
        const int down = corner.y() == box.top() ? 1 : -1;
        qint64 count = 0;
        for (int step = 0; step < box.height() / 2; ++step) {
            const int length = freeFrom(corner.y() + step * down, corner.x(), box.width() / 2, right);
            if (length == 0)
                break;
            count += length;
        }
        return count;
    }

    QImage m_alpha;
    int m_least = 1;
};

// Whether what is covered fills the rounded rectangle. A circle's corners may be measured a little too large.
bool isCard(const Coverage& coverage, const QRect& box, double radius)
{
    const double area = double(box.width()) * box.height() - 4 * cornerShare * radius * radius;
    return radius <= std::min(box.width(), box.height()) / 2.0 + 1 && double(coverage.pixels(box)) >= fullShare * area;
}

} // namespace

std::optional<CaptureSubject> AlphaSubject::measured(const QImage& image)
{
    if (image.isNull() || !image.hasAlphaChannel())
        return std::nullopt;
    const Coverage coverage(image);
    const QRect box = coverage.box();
    const double radius = coverage.radius(box);
    const bool isAll = box == image.rect() && radius == 0;
    if (box.isEmpty() || isAll || !isCard(coverage, box, radius))
        return std::nullopt;
    return CaptureSubject{{double(box.x()), double(box.y()), double(box.width()), double(box.height())}, radius};
}

} // namespace Kovrel
