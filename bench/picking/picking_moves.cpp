// picking_moves: bench_picking_moves [ROUNDS] measures how long it takes from a move of the pointer until another
// program sees on the screen what the loupe and the guides of measuring then show, on one display of 3840 x 2160. The
// bound is a frame at 60 Hz.

#include "bench/Samples.h"
#include "tests/e2e/UserSession.h"
#include "tests/support/PaintedScreen.h"
#include "tests/support/Patterns.h"
#include "ui/tokens/OverlayTokens.h"

#include <QGuiApplication>

#include <cstdio>

using namespace Kovrel;

namespace {

constexpr QSize desktopSize(3840, 2160);
constexpr double frame = 1000.0 / 60;

// Of what is shown somewhere when the pointer is at a place.
using Look = std::function<QRgb(QPoint pointer)>;

struct Probe {
    const char* what;
    QStringList command;
    QPoint from; // the pointer to where it is looked
    Look look;
};

class Bench4K {
public:
    explicit Bench4K(const QImage& picture) : m_painted(m_server.name()), m_session(&m_server)
    {
        m_painted.setRootPicture(picture);
        m_session.prepare({"measureHintSeen=true"});
        m_session.startKovrel({"--background"});
        if (!Testing::UserSession::eventually([this] { return m_session.instancePid() != 0; }))
            throw std::runtime_error("the program does not start");
    }

    void measure(const Probe& probe, int rounds)
    {
        QPoint pointer(900, 700);
        m_painted.movePointer(pointer);
        m_session.startKovrel(probe.command);
        if (!Testing::UserSession::eventually([&] { return shows(probe, pointer); }))
            throw std::runtime_error("nothing is shown");
        Bench::Samples moves;
        for (int round = 0; round < rounds; ++round) {
            pointer += QPoint(round % 2 == 0 ? 7 : 12, round % 3 == 0 ? 5 : 3);
            moves.add(Bench::milliseconds([&] {
                m_painted.movePointer(pointer);
                while (!shows(probe, pointer)) {
                }
            }));
        }
        m_painted.typeEscape();
        std::printf("%-44s %9.2f %9.2f  of a frame %.2f\n", probe.what, moves.median(), moves.worst(),
                    moves.median() / frame);
    }

private:
    bool shows(const Probe& probe, QPoint pointer) const
    {
        return m_painted.pixelAt(pointer + probe.from) == (probe.look(pointer) & 0xffffff);
    }

    Testing::VirtualDisplay m_server{desktopSize};
    Testing::PaintedScreen m_painted;
    Testing::UserSession m_session;
};

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    const int rounds = argc > 1 ? atoi(argv[1]) : 100;
    std::printf("%-44s %9s %9s\n", "from a move to its pixels, ms", "median", "worst");
    const QRgb accent = OverlayTokens::accent.rgb();
    // The widest runs there are: from edge to edge of the display.
    QImage plain(desktopSize, QImage::Format_RGB32);
    plain.fill(0xfff0f0f0);
    Bench4K(plain).measure({"guides across the whole display", {"measure"}, {300, 0}, [=](QPoint) { return accent; }},
                           rounds);
    const QImage pattern = Testing::pattern(desktopSize);
    constexpr int middle = 14 + 153 / 2; // of the loupe, right of and below the pointer
    Bench4K(pattern).measure(
        {"the loupe", {"pick-color"}, {middle, middle}, [&](QPoint pointer) { return pattern.pixel(pointer); }},
        rounds);
}
