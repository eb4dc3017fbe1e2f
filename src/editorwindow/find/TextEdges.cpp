#include "editorwindow/find/TextEdges.h"

#include <algorithm>
#include <cmath>

namespace Kovrel {

namespace {

// Shares of a line's height.
constexpr double aside = 0.25;
constexpr double aboveAndBelow = 0.15;
constexpr double wordGap = 0.15;
constexpr double farthest = 1.5; // that is walked to find a gap

constexpr int inkContrast = 32; // levels of 255

// The rows of a line in its picture.
struct Line {
    const QImage& image;
    QRect rows;

    bool hasInk(int x) const
    {
        int darkest = 255;
        int lightest = 0;
        for (int y = rows.top(); y <= rows.bottom(); ++y) {
            const int level = qGray(image.pixel(x, y));
            darkest = std::min(darkest, level);
            lightest = std::max(lightest, level);
        }
        return lightest - darkest > inkContrast;
    }

    bool isBlank(int x) const { return x < 0 || x >= image.width() || !hasInk(x); }

    // How far it is from `x` to the first `gap` columns without ink, which may begin before it; `most` where there are
    // none.
    int wayToGap(int x, int step, int gap, int most) const
    {
        int blank = 0;
        while (blank < gap && isBlank(x - (blank + 1) * step))
            ++blank;
        for (int way = 0; way < most; ++way, x += step) {
            blank = isBlank(x) ? blank + 1 : 0;
            if (blank >= gap)
                return std::max(0, way - gap + 1);
        }
        return most;
    }
};

} // namespace

Rect TextEdges::widened(const EditorCapture& capture, const Rect& box, bool isOfWords)
{
    const Rect canvas = capture.canvas();
    const double scale = capture.scale;
    const double height = box.height * scale;
    const int top = int((canvas.height - box.maxY()) * scale);
    const QRect rows = QRect(0, top, 1, int(std::ceil(height))) & QRect(0, 0, 1, capture.image.height());
    const Line line{capture.image, rows};
    const int gap = isOfWords ? std::max(2, int(wordGap * height)) : 1;
    const auto more = [&](double edge, int step) {
        const double way = line.wayToGap(int(edge * scale), step, gap, int(farthest * height)) + 1;
        return std::max(isOfWords ? 0.0 : aside * height, way) / scale;
    };
    const double left = std::max(box.minX() - more(box.minX(), -1), 0.0);
    const double right = std::min(box.maxX() + more(box.maxX(), 1), canvas.width);
    const double bottom = std::max(box.minY() - aboveAndBelow * box.height, 0.0);
    const double upper = std::min(box.maxY() + aboveAndBelow * box.height, canvas.height);
    return {left, bottom, right - left, upper - bottom};
}

} // namespace Kovrel
