// history_scroll [COUNT]: page after page through a history of 20,000 captures, in a window of 1280 x 800 on the
// display that is there. Says how long frames of the grid take and how long pictures in view are missing after
// scrolling stops. Ends with 1 when a bound is missed.
#include "bench/BenchPictures.h"
#include "bench/HistoryRig.h"
#include "bench/Samples.h"

#include <QApplication>
#include <QScrollBar>

#include <cstdio>

using namespace Kovrel;
using Bench::HistoryRig;

namespace {

constexpr double longestFrame = 16; // milliseconds
constexpr int longestWait = 150;
constexpr int pagesBetweenStops = 12;

struct Scrolling {
    Bench::Samples frames;
    Bench::Samples waits;
    double worstFrame = 0;
    double worstWait = 0;
};

// A frame: the grid moves and is painted.
double frame(HistoryGrid& grid, int to)
{
    return Bench::milliseconds([&] {
        grid.verticalScrollBar()->setValue(to);
        grid.viewport()->repaint();
    });
}

void scrollPage(HistoryGrid& grid, Scrolling& result)
{
    QScrollBar& bar = *grid.verticalScrollBar();
    constexpr int steps = 8;
    const int from = bar.value();
    for (int step = 1; step <= steps; ++step) {
        const double took = frame(grid, from + bar.pageStep() * step / steps);
        result.frames.add(took);
        result.worstFrame = std::max(result.worstFrame, took);
        HistoryRig::waitUntil([] { return false; }, 4); // what arrives meanwhile is taken
    }
}

Scrolling scroll(HistoryGrid& grid)
{
    Scrolling result;
    const QScrollBar& bar = *grid.verticalScrollBar();
    for (int page = 0; bar.value() < bar.maximum(); ++page) {
        scrollPage(grid, result);
        if (page % pagesBetweenStops != 0)
            continue;
        const double took = Bench::milliseconds([&] { HistoryRig::waitUntil([&] { return grid.isComplete(); }); });
        result.waits.add(took);
        result.worstWait = std::max(result.worstWait, took);
    }
    return result;
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    const int count = argc > 1 ? QByteArray(argv[1]).toInt() : 20000;
    std::vector<QImage> images;
    for (const Bench::Picture& picture : Bench::pictures({1920, 1080}))
        images.push_back(picture.image);
    HistoryRig rig(count, images);
    HistoryWindow window(rig.services());
    window.resize(1280, 800);
    window.present();
    HistoryRig::waitUntil([&] { return window.grid().model()->rowCount() == count && window.grid().isComplete(); });
    const Scrolling result = scroll(window.grid());
    std::printf("%d captures, scale %.1f\n", count, window.devicePixelRatioF());
    std::printf("%-34s %8s %8s\n", "ms", "median", "worst");
    std::printf("%-34s %8.1f %8.1f (bound %.0f)\n", "frame of the grid", result.frames.median(), result.worstFrame,
                longestFrame);
    std::printf("%-34s %8.1f %8.1f (bound %d)\n", "pictures missing after a stop", result.waits.median(),
                result.worstWait, longestWait);
    return result.worstFrame > longestFrame || result.worstWait > longestWait ? 1 : 0;
}
