#include "bench/Samples.h"
#include "platform/x11/X11Screen.h"
#include "tests/support/PaintedScreen.h"
#include "tests/support/VirtualDisplay.h"

#include <QCoreApplication>
#include <QElapsedTimer>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <functional>
#include <vector>

using namespace Kovrel;

namespace {

constexpr QSize screenSize(3840, 2160);
constexpr size_t screenBytes = size_t(3840) * 2160 * 4;
constexpr int rounds = 60;

// Soft shapes with noise on them, and rubbish in the unused byte.
QImage photograph()
{
    QImage image(screenSize, QImage::Format_RGB32);
    quint32 noise = 1;
    for (int y = 0; y < image.height(); ++y) {
        auto* row = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            noise = noise * 1664525 + 1013904223;
            const auto shade = [&](double period) {
                return quint32(120 + 100 * std::sin(x / period) * std::cos(y / (period * 1.3)) + (noise >> 28));
            };
            row[x] = (noise & 0xff000000) | shade(310) << 16 | shade(470) << 8 | shade(190);
        }
    }
    return image;
}

// A segment that was attached once, and what a program without any care would do with it.
class BareCopy {
public:
    explicit BareCopy(const std::shared_ptr<X11Connection>& connection)
        : m_connection(connection),
          m_pool(std::make_shared<X11SegmentPool>(connection)),
          m_segment(m_pool->take(screenBytes)),
          m_kept(screenBytes)
    {
    }

    void get() const
    {
        m_connection->reply(xcb_shm_get_image_reply,
                            xcb_shm_get_image(m_connection->handle(), m_connection->root(), 0, 0, 3840, 2160, ~0u,
                                              XCB_IMAGE_FORMAT_Z_PIXMAP, m_segment->id, 0));
    }

    void getAndCopy()
    {
        get();
        std::memcpy(m_kept.data(), m_segment->bytes, screenBytes);
    }

private:
    std::shared_ptr<X11Connection> m_connection;
    std::shared_ptr<X11SegmentPool> m_pool;
    std::unique_ptr<X11SegmentPool::Segment> m_segment;
    std::vector<uchar> m_kept;
};

struct Contender {
    const char* name;
    std::function<void()> run;
    Bench::Samples milliseconds = {};
};

// In turns, so that whatever else the computer does falls on all of them.
void measure(std::vector<Contender>& contenders)
{
    for (int round = -3; round < rounds; ++round) {
        for (Contender& contender : contenders) {
            QElapsedTimer timer;
            timer.start();
            contender.run();
            if (round >= 0)
                contender.milliseconds.add(double(timer.nsecsElapsed()) / 1e6);
        }
    }
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const Testing::VirtualDisplay server(screenSize);
    Testing::PaintedScreen screen(server.name());
    screen.setRootPicture(photograph());

    const auto connection = std::make_shared<X11Connection>(server.name());
    X11ImageReader reader(connection);
    X11Screen kovrel(reader);
    BareCopy bare(connection);
    std::vector<Contender> contenders{
        {"shared-memory copy and memcpy", [&] { bare.getAndCopy(); }},
        {"shared-memory copy alone", [&] { bare.get(); }},
        {"kovrel: display grab",
         [&] { kovrel.grab({{0, 0}, screenSize}, ScreenPixels::PointerOption::without).value(); }},
        {"kovrel: display grab with pointer",
         [&] { kovrel.grab({{0, 0}, screenSize}, ScreenPixels::PointerOption::drawn).value(); }},
    };
    measure(contenders);
    const double baseline = contenders.front().milliseconds.median();
    std::printf("%-36s %9s %9s %7s\n", "3840 x 2160", "median ms", "best ms", "ratio");
    for (const Contender& contender : contenders)
        std::printf("%-36s %9.2f %9.2f %7.2f\n", contender.name, contender.milliseconds.median(),
                    contender.milliseconds.best(), contender.milliseconds.median() / baseline);
}
