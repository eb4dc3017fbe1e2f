#include "editor/canvas/CanvasViewport.h"

#include <gtest/gtest.h>

#include <random>

namespace Kovrel {

namespace {

CanvasViewport viewportOf(QSize capture, double scale, QSize view, double ratio)
{
    CanvasViewport viewport(capture.height(), scale);
    viewport.setView(view, ratio);
    viewport.setCanvas(QRect({}, capture));
    return viewport;
}

} // namespace

TEST(CanvasViewportTest, ACanvasIsFittedAndNeverEnlarged)
{
    struct Case {
        QSize capture;
        double scale;
        QSize view;
        double ratio;
        double zoom;
    };

    const Case cases[] = {
        {{3840, 2160}, 1, {1008, 800}, 1, 0.25},
        {{300, 200}, 1, {1000, 800}, 1, 1},
        {{600, 400}, 2, {1000, 800}, 1, 0.5}, // of a screen of scale 2, on one of scale 1: as large as it was
        {{300, 200}, 1, {1000, 800}, 2, 2},
    };
    for (const Case& one : cases) {
        const CanvasViewport viewport = viewportOf(one.capture, one.scale, one.view, one.ratio);
        EXPECT_NEAR(viewport.zoom(), one.zoom, 1e-9);
        const QRectF shown = viewport.toView(QRectF({}, QSizeF(one.capture)));
        EXPECT_NEAR(shown.center().x(), one.view.width() / 2.0, 1) << "in the middle";
        EXPECT_NEAR(shown.center().y(), one.view.height() / 2.0, 1);
    }
}

TEST(CanvasViewportTest, ZoomingKeepsThePlaceUnderThePointerAndTheCanvasInSight)
{
    std::mt19937 random(3);
    CanvasViewport viewport = viewportOf({3840, 2160}, 2, {1000, 800}, 1.5);
    for (int round = 0; round < 300; ++round) {
        const QPointF about(double(random() % 1000), double(random() % 800));
        const QPointF before = viewport.toCanvas(about);
        const double zoom = 0.05 * double(1 + random() % 200);
        viewport.zoomTo(zoom, about);
        const QRectF shown = viewport.toView(QRectF(0, 0, 3840, 2160));
        const bool isFree = shown.left() < 0 && shown.right() > 1000 && shown.top() < 0 && shown.bottom() > 800;
        if (isFree && QRectF(0, 0, 3840, 2160).contains(before))
            EXPECT_LE((viewport.toView(before) - about).manhattanLength(), 1.01);
        viewport.pan({double(random() % 4000) - 2000, double(random() % 4000) - 2000});
        EXPECT_TRUE(viewport.toView(QRectF(0, 0, 3840, 2160)).intersects(QRectF(0, 0, 1000, 800)));
        EXPECT_EQ(viewport.toView(QPointF()), viewport.toView(QPointF()).toPoint()) << "on whole pixels";
        const Point there = viewport.toImage(about);
        EXPECT_LE((viewport.fromImage(there) - about).manhattanLength(), 1e-6);
    }
}

} // namespace Kovrel
