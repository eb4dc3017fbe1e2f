// backdrop: what drawing a backdrop costs, in bare copies of the same pixels (3840 x 2160 and what surrounds them).

#include "bench/Samples.h"
#include "editor/backdrop/BackdropCatalogue.h"
#include "editor/backdrop/EditorBackdropMetrics.h"
#include "editor/backdrop/EditorBackdropRenderer.h"
#include "editor/backdrop/GradientBitmap.h"

#include <QGuiApplication>

#include <cstdio>
#include <functional>

using namespace Kovrel;

namespace {

constexpr QSize captureSize(3840, 2160);
constexpr double scale = 2;
constexpr int rounds = 9;

QImage capture()
{
    QImage image(captureSize, QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            image.setPixel(x, y, qRgb(x, y, x ^ y));
    return image;
}

EditorBackdrop backdrop()
{
    EditorBackdrop result;
    result.padding = 0.1;
    return result;
}

struct Row {
    const char* name;
    std::function<void()> work;
    Bench::Samples times = {};
};

// A piece of the editor's canvas, over a corner of the card.
void redraw(EditorBackdropRenderer& renderer, const BackdropLayout& layout, const QImage& image, QImage& canvas)
{
    QPainter painter(&canvas);
    painter.setClipRect(layout.card.right() - 200, layout.card.bottom() - 200, 400, 400);
    renderer.fillPainter(painter, layout, backdrop());
    renderer.drawShadow(painter, layout, backdrop());
    renderer.drawFrame(painter, layout, backdrop());
    EditorBackdropRenderer::drawCapture(painter, layout, image);
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    const QImage image = capture();
    const BackdropLayout layout = EditorBackdropMetrics::layout(captureSize, scale, scale, backdrop()).value();
    EditorBackdropRenderer renderer;
    QImage canvas = renderer.canvas(layout, backdrop());
    QImage copied;
    const PreparedGradient gradient(BackdropCatalogue::gradients().front());

    Row rows[] = {
        {"bare copy of the canvas", [&] { copied = canvas.copy(); }},
        {"gradient", [&] { gradientBitmap(gradient, layout.canvas); }},
        {"picture (dunes)", [&] { BackdropCatalogue::picture("dunes")->bitmap(layout.canvas); }},
        {"shadow tile", [&] { ShadowTile::rendered(layout.framed().size(), layout.framedRadius(), layout.shadow); }},
        {"export, nothing prepared", [&] { EditorBackdropRenderer().render(image, scale, backdrop()); }},
        {"export, prepared", [&] { renderer.render(image, scale, backdrop()); }},
        {"redraw of 400 x 400", [&] { redraw(renderer, layout, image, canvas); }},
    };
    for (int round = 0; round < rounds; ++round)
        for (Row& row : rows)
            row.times.add(Bench::milliseconds(row.work));
    std::printf("%-28s %9s %9s\n", "4K capture, padding 0.1", "ms", "copies");
    for (Row& row : rows)
        std::printf("%-28s %9.2f %9.2f\n", row.name, row.times.median(), row.times.median() / rows[0].times.median());
}
