// Takes pictures of the colour loupe and of measuring over light and dark pages, at scale 1 and 2, into a folder, to be
// looked at: in the middle, at edges, in each notation and unit.
//
//     bench_picking_pictures FOLDER
#include "overlay/OverlayView.h"
#include "picking/ColorLoupeSampler.h"
#include "picking/ColorText.h"
#include "picking/LoupeScene.h"
#include "picking/measure/MeasureAim.h"
#include "picking/measure/MeasureScene.h"
#include "tests/support/PaintedSurfaces.h"

#include <QDir>
#include <QGuiApplication>
#include <QPainter>

#include <cstdio>

namespace Kovrel {

namespace {

constexpr QSize pageSize(560, 360); // points

// Something to look at: text, a button, a gradient.
QImage page(bool isDark, double scale)
{
    QImage image((QSizeF(pageSize) * scale).toSize(), QImage::Format_RGB32);
    image.fill(isDark ? QColor("#1b1e26") : QColor("#f7f8fa"));
    QPainter painter(&image);
    painter.scale(scale, scale);
    painter.setRenderHint(QPainter::Antialiasing);
    QLinearGradient sky(0, 0, 560, 0);
    sky.setColorAt(0, "#2f6bff");
    sky.setColorAt(1, "#ff5f8a");
    painter.fillRect(QRect(0, 0, 560, 60), sky);
    painter.setPen(isDark ? Qt::white : Qt::black);
    for (int line = 0; line < 10; ++line)
        painter.drawText(30, 100 + 24 * line, "The quick brown fox jumps over the lazy dog, 0123456789");
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor("#2ea043"));
    painter.drawRoundedRect(QRectF(400, 130, 110, 34), 8, 8);
    painter.setPen(Qt::white);
    painter.drawText(QRect(400, 130, 110, 34), Qt::AlignCenter, "Continue");
    return image;
}

class Album {
public:
    Album(QString folder, bool isDark, double scale)
        : m_folder(std::move(folder)),
          m_look(QString("%1-%2x").arg(isDark ? "dark" : "light", QString::number(scale))),
          m_screen(page(isDark, scale)),
          m_display{.id = 1, .pixelRect = m_screen.rect(), .scale = scale}
    {
    }

    void loupe(const QString& name, QPointF point, int zoom, ColorNotation notation)
    {
        const QPoint pixel = (point * m_display.scale).toPoint();
        const QString hex = ColorLoupeSampler::hex(m_screen, pixel.x(), pixel.y()).value_or("#000000");
        save("loupe-" + name, LoupeScene::of(m_display, {.pointer = pixel,
                                                         .zoom = zoom,
                                                         .text = ColorText::of(hex, notation),
                                                         .widest = ColorText::widest(notation),
                                                         .color = QColor(hex)}));
    }

    void measure(const QString& name, QPointF point, MeasureUnit unit, const QString& hint)
    {
        MeasureAim aim = aimed();
        aim.point((point * m_display.scale).toPoint(), false);
        show("measure-" + name, aim, unit, hint);
    }

    void drag(const QString& name, const QRectF& points, MeasureUnit unit)
    {
        MeasureAim aim = aimed();
        aim.press((points.topLeft() * m_display.scale).toPoint());
        aim.point((points.bottomRight() * m_display.scale).toPoint(), false);
        show("measure-" + name, aim, unit, {});
    }

private:
    MeasureAim aimed() const
    {
        MeasureAim aim;
        aim.add({m_display, std::make_shared<MeasureSampler>(m_screen)});
        return aim;
    }

    void show(const QString& name, const MeasureAim& aim, MeasureUnit unit, const QString& hint)
    {
        const auto shown = aim.shown();
        save(name, MeasureScene::of(m_display, {shown->cross, shown->rect, unit, hint}));
    }

    void save(const QString& name, const OverlayScene& scene)
    {
        Testing::PaintedSurfaces surfaces(m_screen, m_display.pixelRect, OverlaySurfaces::Ground::frozen,
                                          Qt::transparent);
        OverlayView view(surfaces, m_display, {.screen = m_screen});
        view.show(scene);
        surfaces.shown.save(QString("%1/%2-%3.png").arg(m_folder, name, m_look));
    }

    QString m_folder;
    QString m_look;
    QImage m_screen;
    Display m_display;
};

} // namespace

} // namespace Kovrel

int main(int argc, char** argv)
{
    using namespace Kovrel;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    if (argc != 2 || !QDir().mkpath(argv[1])) {
        std::fputs("usage: bench_picking_pictures FOLDER\n", stderr);
        return 2;
    }
    for (const bool isDark : {false, true})
        for (const double scale : {1.0, 2.0}) {
            Album album(argv[1], isDark, scale);
            album.loupe("text", {35, 95}, LoupeScene::usualZoom, ColorNotation::hex);
            album.loupe("near", {402, 133}, LoupeScene::zooms - 1, ColorNotation::rgb);
            album.loupe("far", {300, 58}, 0, ColorNotation::hsl);
            album.measure("button", {480, 136}, MeasureUnit::pixels, {});
            album.measure("page", {540, 250}, MeasureUnit::points, "Tolerance 24");
            album.measure("letter", {31, 92}, MeasureUnit::pixels, {});
            album.measure("corner", {2, 358}, MeasureUnit::pixels, {});
            album.drag("drag", {396, 126, 119, 43}, MeasureUnit::points);
            album.loupe("corner", {559, 359}, LoupeScene::usualZoom, ColorNotation::oklch);
        }
}
