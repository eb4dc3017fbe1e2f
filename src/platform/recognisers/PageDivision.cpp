#include "platform/recognisers/PageDivision.h"

#include <algorithm>
#include <functional>
#include <optional>

namespace Kovrel {

namespace {

constexpr size_t partsWanted = 4;
constexpr size_t fewestBlobs = 80; // in a part: fewer don't tell the recogniser how high letters are
constexpr double leastSide = 0.15; // of the blobs of a part, on each side of a cut
constexpr double columnGap = 2;    // letter heights
constexpr double rowGap = 0.5;
constexpr int largestBlob = 8; // letter heights; larger ones are frames and pictures

using Blobs = std::vector<QRect>;

struct Cut {
    int at = 0;
    size_t before = 0; // blobs
};

// The clean cut that halves the blobs best, along one axis. `from` and `to` are the ends of a blob on it.
template <class From, class To>
std::optional<Cut> bestCut(Blobs& blobs, double leastGap, From from, To to)
{
    std::ranges::sort(blobs, {}, from);
    std::optional<Cut> best;
    size_t mostBalanced = size_t(double(blobs.size()) * leastSide);
    int reached = std::invoke(to, blobs.front());
    for (size_t index = 1; index < blobs.size(); ++index) {
        const size_t smallerSide = std::min(index, blobs.size() - index);
        const int begin = std::invoke(from, blobs[index]);
        if (begin - reached > leastGap && smallerSide > mostBalanced) {
            mostBalanced = smallerSide;
            best = Cut{(begin + reached) / 2, index};
        }
        reached = std::max(reached, std::invoke(to, blobs[index]));
    }
    return best;
}

class Divider {
public:
    Divider(size_t total, int letterHeight)
        : m_enough(std::max(total / partsWanted, fewestBlobs)), m_height(letterHeight)
    {
    }

    std::vector<QRect> parts;

    void divide(QRect area, Blobs blobs)
    {
        const bool isCut = (blobs.size() >= fewestBlobs && cutBetweenColumns(area, blobs)) ||
                           (blobs.size() > m_enough && cutBetweenRows(area, blobs));
        if (!isCut)
            parts.push_back(area);
    }

private:
    bool cutBetweenColumns(QRect area, Blobs& blobs)
    {
        const auto cut = bestCut(blobs, columnGap * m_height, &QRect::left, &QRect::right);
        if (!cut)
            return false;
        QRect left = area;
        QRect right = area;
        left.setRight(cut->at);
        right.setLeft(cut->at + 1);
        divideBoth(left, right, blobs, cut->before);
        return true;
    }

    bool cutBetweenRows(QRect area, Blobs& blobs)
    {
        const auto cut = bestCut(blobs, rowGap * m_height, &QRect::top, &QRect::bottom);
        if (!cut)
            return false;
        QRect upper = area;
        QRect lower = area;
        upper.setBottom(cut->at);
        lower.setTop(cut->at + 1);
        divideBoth(upper, lower, blobs, cut->before);
        return true;
    }

    void divideBoth(QRect first, QRect second, const Blobs& blobs, size_t before)
    {
        divide(first, Blobs(blobs.begin(), blobs.begin() + qsizetype(before)));
        divide(second, Blobs(blobs.begin() + qsizetype(before), blobs.end()));
    }

    size_t m_enough;
    int m_height;
};

} // namespace

std::vector<QRect> PageDivision::parts(QSize page, const std::vector<QRect>& blobs, int letterHeight)
{
    Blobs small;
    for (const QRect& blob : blobs)
        if (blob.width() <= largestBlob * letterHeight && blob.height() <= largestBlob * letterHeight)
            small.push_back(blob);
    Divider divider(small.size(), letterHeight);
    divider.divide(QRect(QPoint(), page), std::move(small));
    return divider.parts;
}

} // namespace Kovrel
