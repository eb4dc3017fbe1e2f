#include "editor/session/PageTone.h"

#include "model/Contrast.h"

#include <QColor>

#include <algorithm>
#include <vector>

namespace Kovrel {

namespace {

constexpr int reach = 24; // pixels to each side
constexpr int step = 2;
// Where black is read as well as white.
constexpr double darkest = 0.179;

} // namespace

// Letters take less than half of a page: the median is the page's own.
double PageTone::luminanceAt(const QImage& capture, QPoint pixel)
{
    const QRect area = QRect(pixel - QPoint(reach, reach), pixel + QPoint(reach, reach)) & capture.rect();
    std::vector<double> tones;
    for (int y = area.top(); y <= area.bottom(); y += step)
        for (int x = area.left(); x <= area.right(); x += step)
            tones.push_back(relativeLuminance(capture.pixelColor(x, y)));
    if (tones.empty())
        return 1;
    const auto middle = tones.begin() + qptrdiff(tones.size() / 2);
    std::ranges::nth_element(tones, middle);
    return *middle;
}

bool PageTone::isDark(double luminance)
{
    return luminance < darkest;
}

} // namespace Kovrel
