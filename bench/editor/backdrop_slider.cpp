// What a movement of a slider of the backdrop panel costs on the canvas of a 4K capture in a window of 1920 x 1080
// pixels, drawn exactly and as it is sketched while the slider moves, beside a copy of the capture: for each slider, at
// the capture's own size and with all of it in sight.
#include "editor/canvas/CanvasPicture.h"

#include "bench/BenchPictures.h"

#include <QElapsedTimer>
#include <QGuiApplication>
#include <QPainter>

#include <algorithm>
#include <cstdio>

using namespace Kovrel;

namespace {

template <class Work>
double medianOf(const Work& work)
{
    std::vector<double> times;
    for (int round = 0; round < 9; ++round) {
        QElapsedTimer timer;
        timer.start();
        work(round);
        times.push_back(double(timer.nsecsElapsed()) / 1e6);
    }
    std::ranges::nth_element(times, times.begin() + 4);
    return times[4];
}

struct Slider {
    const char* name;
    double EditorBackdrop::* field;
    double step;
};

// The middle of the canvas.
QRect inSight(const CanvasPicture& picture)
{
    QRect sight({}, QSize(1920, 1080));
    sight.moveCenter(picture.area().center());
    return sight;
}

void measure(double share, const BackdropFill& fill, const char* fillName)
{
    const QImage image = Bench::pictures({3840, 2160}).front().image.convertToFormat(QImage::Format_RGB32);
    CanvasPicture picture({QUuid::createUuid(), image, 2, {}});
    picture.setShare(share);
    EditorDocument document;
    document.composition.backdrop = EditorBackdrop();
    document.composition.backdrop.fill = fill;
    picture.setDocument(document);
    QImage target(image.size(), image.format());
    const double copy = medianOf([&](int) { QPainter(&target).drawImage(0, 0, image); });
    const Slider sliders[] = {{"padding", &EditorBackdrop::padding, 0.01},
                              {"corners", &EditorBackdrop::corners, 1},
                              {"shadow", &EditorBackdrop::shadowOpacity, -0.02},
                              {"frame", &EditorBackdrop::frame, 0.02},
                              {"blur", &EditorBackdrop::blur, 0.005}};
    for (const auto& [name, field, step] : sliders) {
        const auto move = [&](int) {
            document.composition.backdrop.*field += step;
            picture.setDocument(document);
            picture.drawn(inSight(picture));
        };
        const double exact = medianOf(move);
        picture.setSketched(true);
        const double frame = medianOf(move);
        picture.setSketched(false);
        std::printf("%-9s %-9s %5.2f  %8.1f  %8.1f  %8.1f  %6.2f\n", fillName, name, share, exact, frame, copy,
                    frame / copy);
    }
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    std::printf("fill      slider    share  exact ms  frame ms   copy ms   ratio\n");
    for (const double share : {1.0, 0.4}) {
        measure(share, {BackdropFill::Kind::gradient, "lagoon"}, "gradient");
        measure(share, {BackdropFill::Kind::color, "#336699"}, "colour");
        measure(share, {BackdropFill::Kind::picture, "dunes"}, "picture");
    }
    return 0;
}
