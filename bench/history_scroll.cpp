// history_scroll [COUNT]: page after page through a history of 20,000 captures, in a window of 1280 x 800 on the
// display that is there. Says how long frames of the grid take and how long pictures in view are missing after
// scrolling stops. Ends with 1 when a bound is missed.
#include "bench/BenchPictures.h"
#include "bench/HistoryRig.h"
#include "bench/Samples.h"

#include <QApplication>
#include <QScrollBar>

#include <cstdio>
#include <ctime>

using namespace Kovrel;
using Bench::HistoryRig;

namespace {

constexpr double longestFrame = 16; // milliseconds
constexpr double longestWait = 150;
constexpr int pagesBetweenStops = 12;

struct Series {
    Bench::Samples samples;
    double worst = 0;

    void add(double value)
    {
        samples.add(value);
        worst = std::max(worst, value);
    }

    void print(const char* title, const char* bound) const
    {
        std::printf("%-34s %8.1f %8.1f %s\n", title, samples.median(), worst, bound);
    }
};

struct Scrolling {
    Series frames;
    Series own; // of the frames, what the main thread itself takes; for the rest it waits for the display or a core
    Series waits;
};

double ownMilliseconds()
{
    timespec time{};
    ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return double(time.tv_sec) * 1e3 + double(time.tv_nsec) / 1e6;
}

// A frame: the grid moves and is painted.
void frame(HistoryGrid& grid, int to, Scrolling& result)
{
    const double before = ownMilliseconds();
    result.frames.add(Bench::milliseconds([&] {
        grid.verticalScrollBar()->setValue(to);
        grid.viewport()->repaint();
    }));
    result.own.add(ownMilliseconds() - before);
}

void scrollPage(HistoryGrid& grid, Scrolling& result)
{
    QScrollBar& bar = *grid.verticalScrollBar();
    constexpr int steps = 8;
    const int from = bar.value();
    for (int step = 1; step <= steps; ++step) {
        frame(grid, from + bar.pageStep() * step / steps, result);
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
        result.waits.add(Bench::milliseconds([&] { HistoryRig::waitUntil([&] { return grid.isComplete(); }); }));
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
    result.frames.print("frame of the grid", "(bound 16)");
    result.own.print("of it the main thread's own", "");
    result.waits.print("pictures missing after a stop", "(bound 150)");
    return result.frames.worst > longestFrame || result.waits.worst > longestWait ? 1 : 0;
}
