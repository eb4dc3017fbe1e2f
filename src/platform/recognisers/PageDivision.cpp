#include "platform/recognisers/PageDivision.h"

#include <algorithm>
#include <functional>
#include <optional>

namespace Kovrel {

namespace {

constexpr size_t partsWanted = 4;  // between rows: enough to find the columns under a headline
constexpr size_t fewestBlobs = 80; // in what is cut: a page of fewer has no columns of text
constexpr double leastSide = 0.15; // of the blobs of a part, on each side of a cut
constexpr double columnGap = 2;    // letter heights
constexpr double rowGap = 0.5;
constexpr int largestBlob = 8; // letter heights; larger ones are frames and pictures

using Blobs = std::vector<QRect>;

using Cut = size_t; // blobs before it

// The widest clean cut along one axis, on which the blobs are sorted then. `from` and `to` are the ends of a blob on
// it.
template <class From, class To>
std::optional<Cut> widestCut(Blobs& blobs, double leastGap, From from, To to)
{
    std::ranges::sort(blobs, {}, from);
    std::optional<Cut> widest;
    double widestGap = leastGap;
    const auto fewest = size_t(double(blobs.size()) * leastSide);
    int reached = std::invoke(to, blobs.front());
    for (size_t index = 1; index < blobs.size(); ++index) {
        const int gap = std::invoke(from, blobs[index]) - reached;
        if (gap > widestGap && std::min(index, blobs.size() - index) > fewest) {
            widestGap = gap;
            widest = index;
        }
        reached = std::max(reached, std::invoke(to, blobs[index]));
    }
    return widest;
}

class Divider {
public:
    Divider(size_t total, int letterHeight)
        : m_enough(std::max(total / partsWanted, fewestBlobs)), m_height(letterHeight)
    {
    }

    std::vector<Blobs> parts;

    void divide(Blobs blobs)
    {
        std::optional<Cut> cut;
        if (blobs.size() >= fewestBlobs)
            cut = widestCut(blobs, columnGap * m_height, &QRect::left, &QRect::right);
        if (!cut && blobs.size() > m_enough)
            cut = widestCut(blobs, rowGap * m_height, &QRect::top, &QRect::bottom);
        if (!cut) {
            parts.push_back(std::move(blobs));
            return;
        }
        const auto middle = blobs.begin() + qsizetype(*cut);
        divide(Blobs(blobs.begin(), middle));
        divide(Blobs(middle, blobs.end()));
    }

private:
    size_t m_enough;
    int m_height;
};

} // namespace

std::vector<Blobs> PageDivision::parts(const Blobs& blobs, int letterHeight)
{
    Blobs small;
    for (const QRect& blob : blobs)
        if (blob.width() <= largestBlob * letterHeight && blob.height() <= largestBlob * letterHeight)
            small.push_back(blob);
    Divider divider(small.size(), letterHeight);
    divider.divide(std::move(small));
    return divider.parts;
}

} // namespace Kovrel
