#include "imaging/WindowCorners.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace Kovrel {

namespace {

constexpr int largestRadius = 48;    // pixels; corners of 24 points on a display of scale 2
constexpr double nearlyWhole = 0.98; // smoothed edges that count as inside
constexpr int darkest = 3 * 0x20;    // colours, channels added up, of which shares can't be told
constexpr QRgb black = 0xff000000;

int brightness(QRgb pixel)
{
    return qRed(pixel) + qGreen(pixel) + qBlue(pixel);
}

QRgb withAlpha(QRgb pixel, int alpha)
{
    return qRgba(std::min(qRed(pixel), alpha), std::min(qGreen(pixel), alpha), std::min(qBlue(pixel), alpha), alpha);
}

// One corner, whose pixels count inwards from it.
class Corner {
public:
    Corner(QImage& image, bool isRight, bool isBottom)
        : m_image(image),
          m_isRight(isRight),
          m_isBottom(isBottom),
          m_size(std::min({largestRadius, image.width() / 2, image.height() / 2}))
    {
        if (m_size > 0)
            m_whole = qAlpha(at(m_size - 1, m_size - 1));
    }

    void cut()
    {
        if (m_size == 0 || m_whole == 0 || !isBeside(0, 0))
            return;
        if (!isRound())
            return;
        // All are found before any is changed, since each is compared with others.
        std::vector<std::pair<QPoint, QRgb>> changes;
        const int edge = edgeOnBlack();
        const auto isCut = [&](int column, int row) {
            return isBeside(column, row) || (std::max(column, row) < edge && shareOf(column, row) < nearlyWhole);
        };
        for (int row = 0; row < m_size && isCut(0, row); ++row)
            for (int column = 0; column < m_size && isCut(column, row); ++column)
                changes.emplace_back(QPoint(column, row), withoutGround(column, row));
        for (const auto& [place, pixel] : changes)
            at(place.x(), place.y()) = pixel;
    }

private:
    QRgb& at(int column, int row) const
    {
        const int x = m_isRight ? m_image.width() - 1 - column : column;
        const int y = m_isBottom ? m_image.height() - 1 - row : row;
        return reinterpret_cast<QRgb*>(m_image.scanLine(y))[x];
    }

    bool isBeside(int column, int row) const
    {
        const QRgb pixel = at(column, row);
        return pixel == black || qAlpha(pixel) < nearlyWhole * m_whole;
    }

    // Of what lies beside a round corner each row has fewer pixels than the one before, until there are none.
    bool isRound() const
    {
        int last = m_size - 1;
        for (int row = 0; row < m_size; ++row) {
            int length = 0;
            while (length <= last && isBeside(length, row))
                ++length;
            if (length > last)
                return false;
            if (length == 0)
                return true;
            last = length;
        }
        return false;
    }

    // What the window looks like near a pixel of its edge.
    QRgb inside(int column, int row) const
    {
        const int steps = m_size - 1 - std::max(column, row);
        for (int step = 0; step < steps; ++step)
            if (!isBeside(column + step, row + step) && !isBeside(column + step + 1, row + step + 1))
                return at(column + step + 1, row + step + 1);
        return at(m_size - 1, m_size - 1);
    }

    // How far a corner on opaque black reaches, whose smoothed pixels no alpha tells. The first pixels of a corner with
    // radius r that are black throughout are r - sqrt(2r - 1) in number.
    int edgeOnBlack() const
    {
        if (at(0, 0) != black)
            return 0;
        int run = 0;
        while (run < m_size && at(run, 0) == black)
            ++run;
        return std::min(m_size, int(std::ceil(run + 1 + std::sqrt(2 * run + 1))));
    }

    QRgb withoutGround(int column, int row) const
    {
        const int alpha = int(std::min(shareOf(column, row), 1.0) * m_whole + 0.5);
        return withAlpha(at(column, row), std::min(alpha, qAlpha(at(column, row))));
    }

    // How much of a pixel the window covers. The ground is black, with whatever alpha: a pixel's colour is the
    // window's.
    double shareOf(int column, int row) const
    {
        const QRgb pixel = at(column, row);
        const int most = brightness(inside(column, row));
        return most < darkest ? shareByAlpha(pixel) : double(brightness(pixel)) / most;
    }

    double shareByAlpha(QRgb pixel) const
    {
        const int ground = qAlpha(at(0, 0));
        if (ground >= m_whole)
            return pixel == black ? 0 : 1;
        return std::clamp(double(qAlpha(pixel) - ground) / (m_whole - ground), 0.0, 1.0);
    }

    QImage& m_image;
    bool m_isRight;
    bool m_isBottom;
    int m_size;      // of the square that is looked at
    int m_whole = 0; // the alpha of the window itself, which may be translucent all over
};

} // namespace

void WindowCorners::cut(QImage& window)
{
    for (const bool isRight : {false, true})
        for (const bool isBottom : {false, true})
            Corner(window, isRight, isBottom).cut();
}

} // namespace Kovrel
