#include "editor/backdrop/EditorBackdropMetrics.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <utility>

namespace Kovrel {

namespace {

void expectNear(const Rect& rect, const Rect& expected, const char* name)
{
    EXPECT_NEAR(rect.x, expected.x, 1e-9) << name;
    EXPECT_NEAR(rect.y, expected.y, 1e-9) << name;
    EXPECT_NEAR(rect.width, expected.width, 1e-9) << name;
    EXPECT_NEAR(rect.height, expected.height, 1e-9) << name;
}

EditorBackdrop padded(double padding, const std::function<void(EditorBackdrop&)>& change = {})
{
    EditorBackdrop backdrop;
    backdrop.padding = padding;
    if (change)
        change(backdrop);
    return backdrop;
}

EditorBackdrop aligned(CardAlignment alignment, AspectRatio aspect)
{
    return padded(0.25, [&](EditorBackdrop& backdrop) {
        backdrop.aspect = aspect;
        backdrop.alignment = alignment;
    });
}

const CaptureSubject window{{60, 10, 200, 100}, 8}; // of an image of 400 x 200; 60, 140 and 10, 90 points around it

} // namespace

// Of an image of 400 x 200: a fifth of the shorter side is 40 points.
TEST(EditorBackdropMetrics, TheCanvas)
{
    const EditorBackdrop none = padded(0.25, [](EditorBackdrop& backdrop) {
        backdrop.fill = {};
        backdrop.aspect = AspectRatio{1, 1};
        backdrop.frame = 1;
        backdrop.alignment = CardAlignment::top;
    });
    const EditorBackdrop framed = padded(0.25, [](EditorBackdrop& backdrop) { backdrop.frame = 0.5; });

    const struct {
        const char* name;
        EditorBackdrop backdrop;
        Rect canvas;
    } cases[] = {
        {"none", none, {0, 0, 400, 200}},
        {"no padding", padded(0), {0, 0, 400, 200}},
        {"padding", padded(0.25), {-40, -40, 480, 280}},
        {"frame", framed, {-50, -50, 500, 300}},
        {"square", aligned(CardAlignment::center, {1, 1}), {-40, -140, 480, 480}},
        {"wide", aligned(CardAlignment::center, {2, 1}), {-80, -40, 560, 280}},
        // 16 points, 0.4 of the padding, stay on the sides that it is pushed to.
        {"top left, square", aligned(CardAlignment::topLeft, {1, 1}), {-16, -264, 480, 480}},
        {"top, square", aligned(CardAlignment::top, {1, 1}), {-40, -264, 480, 480}},
        {"bottom right, square", aligned(CardAlignment::bottomRight, {1, 1}), {-64, -16, 480, 480}},
        {"right, wide", aligned(CardAlignment::right, {2, 1}), {-144, -40, 560, 280}},
        {"left, wide", aligned(CardAlignment::left, {2, 1}), {-16, -40, 560, 280}},
    };

    for (const auto& [name, backdrop, canvas] : cases)
        expectNear(EditorBackdropMetrics::canvasRect({400, 200}, backdrop), canvas, name);
    expectNear(EditorBackdropMetrics::canvasRect({400, 200}, padded(0.25), window), {-20, -20, 440, 240}, "window");
    expectNear(EditorBackdropMetrics::canvasRect({0, 0}, padded(0.25)), {0, 0, 0, 0}, "nothing");
}

TEST(EditorBackdropMetrics, ShapedGrowsOneSideAboutTheCentre)
{
    const Rect rect{10, 20, 480, 240};
    expectNear(EditorBackdropMetrics::shaped(rect, AspectRatio{1, 1}), {10, -100, 480, 480}, "square");
    expectNear(EditorBackdropMetrics::shaped(rect, AspectRatio{3, 1}), {-110, 20, 720, 240}, "wide");
    expectNear(EditorBackdropMetrics::shaped(rect, AspectRatio{2, 1}), rect, "as it is");
    expectNear(EditorBackdropMetrics::shaped(rect, {}), rect, "free");
    expectNear(EditorBackdropMetrics::shaped({1, 2, 0, 5}, AspectRatio{1, 1}), {1, 2, 0, 5}, "empty");
}

TEST(EditorBackdropMetrics, UnevenMarginsAreEvenedOut)
{
    EditorBackdrop backdrop = padded(0);
    const BackdropMargins margins{.left = 30, .top = 5, .right = 12, .bottom = 20};
    const auto balanced = [&](const std::optional<CaptureSubject>& subject, const BackdropMargins& around) {
        return EditorBackdropMetrics::balancedRect({400, 200}, backdrop, subject, around);
    };
    expectNear(balanced({}, margins), {0, 0, 400, 200}, "not asked for");
    backdrop.autoBalance = true;
    expectNear(balanced({}, margins), {18, 15, 382, 185}, "margins");
    expectNear(balanced({}, {}), {0, 0, 400, 200}, "none");
    expectNear(balanced(window, margins), {0, 80, 320, 120}, "window");
    expectNear(balanced(CaptureSubject{{500, 0, 10, 10}, 0}, margins), {18, 15, 382, 185}, "window elsewhere");
}

TEST(EditorBackdropMetrics, ShadowRoomIsTheLeastOnTheSidesThatTheLightUses)
{
    const Rect framed{0, 0, 100, 100};
    const Rect canvas{-10, -20, 140, 160}; // 10 left, 30 right, 20 below, 40 above

    const struct {
        ShadowLight direction;
        std::optional<double> room;
    } cases[] = {
        {{1, 0}, 30},  {{-1, 0}, 10},  {{0, 1}, 20}, {{0, -1}, 40},   {{1, 1}, 20},
        {{1, -1}, 30}, {{-1, -1}, 10}, {{0, 0}, 10}, {{1e-7, 1}, 20}, {{-1e-7, -1e-7}, 10},
    };

    for (const auto& [direction, room] : cases)
        EXPECT_EQ(EditorBackdropMetrics::shadowRoom(framed, canvas, direction), room)
            << direction.x << ", " << direction.y;
    const Rect tight{0, -20, 100, 120.0000001};
    EXPECT_EQ(EditorBackdropMetrics::shadowRoom(framed, tight, {0, 0}), 20);
    EXPECT_EQ(EditorBackdropMetrics::shadowRoom(framed, tight, {1, 0}), std::nullopt);
    EXPECT_EQ(EditorBackdropMetrics::shadowRoom(framed, framed, {0, 0}), std::nullopt);
}

// A card at the upper edge has little room above, where light from above throws no shadow.
TEST(EditorBackdropMetrics, OnlyTheSidesThatTheLightThrowsShadowsToLimitThem)
{
    const auto sigma = [](CardAlignment alignment, ShadowLight light) {
        const EditorBackdrop backdrop = padded(0.4, [&](EditorBackdrop& changed) {
            changed.alignment = alignment;
            changed.shadowLight = light;
            changed.shadow = Shadow{{{0.01, 0.2, 0.5}}};
        });
        return EditorBackdropMetrics::layout({400, 200}, 1, 1, backdrop)->shadow.at(0).sigma;
    };
    EXPECT_DOUBLE_EQ(sigma(CardAlignment::top, {0, 1}), 20);
    EXPECT_LT(sigma(CardAlignment::top, {0, -1}), 20);
    EXPECT_LT(sigma(CardAlignment::top, {0, 0}), 20);
}

// Three standard deviations and the offset end before the canvas does, wherever the light throws the shadow to.
TEST(EditorBackdropMetrics, NoShadowLeavesTheCanvas)
{
    for (const auto& [alignment, name] : RawStrings<CardAlignment>::table) {
        for (const ShadowLight light : {ShadowLight{0, 1}, {1, 1}, {-1, 0.2}, {0, -1}, {0, 0}}) {
            const EditorBackdrop backdrop = padded(0.1, [&, side = alignment](EditorBackdrop& changed) {
                changed.alignment = side;
                changed.aspect = AspectRatio{4, 3};
                changed.shadowLight = light;
                changed.shadow = Shadow{{{0.3, 0.6, 0.5}, {0.001, 0.002, 0.5}}};
            });
            const auto layout = EditorBackdropMetrics::layout({800, 400}, 2, 2, backdrop).value();
            ASSERT_EQ(layout.shadow.size(), 2u);
            for (const auto& layer : layout.shadow) {
                const QRectF reach =
                    QRectF(layout.framed())
                        .translated(layer.x, layer.y)
                        .adjusted(-3 * layer.sigma, -3 * layer.sigma, 3 * layer.sigma, 3 * layer.sigma);
                const bool isFromFront = light.x == 0 && light.y == 0;
                EXPECT_TRUE((reach.left() >= -1 || !(light.x < 0 || isFromFront)) &&
                            (reach.right() <= layout.canvas.width() + 1 || !(light.x > 0 || isFromFront)) &&
                            (reach.top() >= -1 || !(light.y < 0 || isFromFront)) &&
                            (reach.bottom() <= layout.canvas.height() + 1 || !(light.y > 0 || isFromFront)))
                    << name << ", " << light.x << ", " << light.y;
            }
            EXPECT_GT(layout.shadow[0].sigma, layout.shadow[1].sigma); // and it is still there
        }
    }
}

TEST(EditorBackdropMetrics, WithoutRoomThereIsNoShadow)
{
    const EditorBackdrop backdrop = padded(0, [](EditorBackdrop& changed) {
        changed.shadow = Shadow{{{0, 4, 1}, {0, 4, 1}}};
        changed.frame = 1;
    });
    EXPECT_TRUE(EditorBackdropMetrics::layout({400, 300}, 1, 1, backdrop)->shadow.empty());
}

// However large the layers, and however large the canvas, or longer than wide: in pixels of a capture of 400 x 300.
TEST(EditorBackdropMetrics, NoShadowReachesFartherThanTheCaptureIsLarge)
{
    for (const auto& [aspect, padding] : {std::pair(AspectRatio{75, 1}, 0.0), {{1, 75}, 0.0}, {{1, 1}, 10.0}}) {
        for (const ShadowLight light : {ShadowLight{0, 1}, {1, 1}, {-1, 0}, {0, 0}}) {
            const EditorBackdrop backdrop = padded(padding, [&, shape = aspect](EditorBackdrop& changed) {
                changed.aspect = shape;
                changed.shadowLight = light;
                changed.shadow = Shadow{{{10, 10, 1}, {10, 0, 1}}};
            });
            const auto layout = EditorBackdropMetrics::layout({400, 300}, 1, 1, backdrop).value();
            for (const auto& layer : layout.shadow)
                EXPECT_LE(3 * layer.sigma + std::hypot(layer.x, layer.y), 300 + 1e-6)
                    << aspect.width << ":" << aspect.height << ", " << light.x << ", " << light.y;
        }
    }
}

TEST(EditorBackdropMetrics, ACaptureLandsOnWholePixelsAsLargeAsItIs)
{
    for (const double scale : {1.0, 1.25, 1.5, 2.0, 3.0}) {
        for (const double padding : {0.0, 0.1, 0.137, 0.5}) {
            EditorBackdrop backdrop = padded(padding);
            backdrop.aspect = AspectRatio{1, 1};
            backdrop.frame = 0.33;
            const QSize pixels(641, 373);
            const CaptureSubject subject{{33, 20, 501, 300}, 9};
            const auto layout = EditorBackdropMetrics::layout(pixels, scale, scale, backdrop, subject).value();
            EXPECT_EQ(layout.image.size(), pixels) << scale;
            EXPECT_EQ(layout.card, QRect(33, 20, 501, 300).translated(layout.image.topLeft())) << scale;
            EXPECT_EQ(layout.canvas.width(), layout.canvas.height()) << scale;
            EXPECT_TRUE(QRect({0, 0}, layout.canvas).contains(layout.framed())) << scale;
        }
    }
}

TEST(EditorBackdropMetrics, LengthsGrowWithTheScale)
{
    EditorBackdrop backdrop = padded(0.25, [](EditorBackdrop& changed) {
        changed.frame = 1;
        changed.corners = 12;
    });
    const auto once = EditorBackdropMetrics::layout({400, 200}, 1, 1, backdrop).value();
    EXPECT_EQ(once.canvas, QSize(520, 320));
    EXPECT_EQ(once.image, QRect(60, 60, 400, 200));
    EXPECT_EQ(once.frame, 20);
    EXPECT_EQ(once.cardRadius, 12);
    EXPECT_EQ(once.framedRadius(), 32);
    const auto zoomed = EditorBackdropMetrics::layout({400, 200}, 1, 1.5, backdrop).value();
    EXPECT_EQ(zoomed.canvas, QSize(780, 480));
    EXPECT_EQ(zoomed.image, QRect(90, 90, 600, 300));
    EXPECT_EQ(zoomed.cardRadius, 18);
    const auto dense = EditorBackdropMetrics::layout({800, 400}, 2, 2, backdrop).value();
    EXPECT_EQ(dense.canvas, QSize(1040, 640));
    EXPECT_EQ(dense.cardRadius, 24);
}

TEST(EditorBackdropMetrics, CornersAreTheWindowsOrTheChosenOnes)
{
    EditorBackdrop backdrop = padded(0.25);
    const auto radius = [&](double corners) {
        backdrop.corners = corners;
        return EditorBackdropMetrics::layout({800, 400}, 2, 2, backdrop, CaptureSubject{{0, 0, 800, 400}, 20})
            ->cardRadius;
    };
    EXPECT_EQ(radius(0), 20);
    EXPECT_EQ(radius(15), 30);
    EXPECT_EQ(radius(1000), 200);
    backdrop.corners = 0;
    backdrop.frame = 1;
    EXPECT_EQ(EditorBackdropMetrics::layout({400, 200}, 1, 1, backdrop)->framedRadius(), 0);
}

TEST(EditorBackdropMetrics, WhatCannotBeDrawnHasNoLayout)
{
    const EditorBackdrop backdrop = padded(10);
    EXPECT_TRUE(EditorBackdropMetrics::layout({400, 200}, 1, 1, backdrop));
    EXPECT_FALSE(EditorBackdropMetrics::layout({30000, 20000}, 1, 1, backdrop));
    EXPECT_FALSE(EditorBackdropMetrics::layout({400, 200}, 1, 1e6, backdrop));
    for (const double scale : {0.0, -1.0, std::nan(""), 1e-9, double(INFINITY)}) {
        EXPECT_FALSE(EditorBackdropMetrics::layout({400, 200}, 1, scale, backdrop)) << scale;
        EXPECT_FALSE(EditorBackdropMetrics::layout({400, 200}, scale, 1, backdrop)) << scale;
    }
    EXPECT_FALSE(EditorBackdropMetrics::layout({}, 1, 1, backdrop));
}

TEST(BackdropMargins, AreWhatIsAroundTheContent)
{
    const auto page = [](QColor paper, const QRect& content, QColor ink) {
        QImage image(60, 40, QImage::Format_ARGB32_Premultiplied);
        image.fill(paper);
        for (int y = content.top(); y <= content.bottom(); ++y)
            for (int x = content.left(); x <= content.right(); ++x)
                image.setPixelColor(x, y, ink);
        return image;
    };
    const BackdropMargins around{.left = 7, .top = 3, .right = 20, .bottom = 12};
    const QRect content(7, 3, 33, 25);
    EXPECT_EQ(BackdropMargins::measured(page(Qt::white, content, Qt::red)), around);
    EXPECT_EQ(BackdropMargins::measured(page(Qt::transparent, content, QColor(255, 255, 255, 40))), around);
    EXPECT_EQ(BackdropMargins::measured(page(QColor(40, 44, 52), content, QColor(60, 44, 52))), around);
    EXPECT_EQ(BackdropMargins::measured(page(QColor(40, 44, 52), content, QColor(44, 44, 52))), BackdropMargins());
    EXPECT_EQ(BackdropMargins::measured(QImage()), BackdropMargins());

    // Content that is no rectangle: two spots.
    QImage spots = page(Qt::white, {50, 5, 1, 1}, Qt::black);
    spots.setPixelColor(4, 30, Qt::black);
    EXPECT_EQ(BackdropMargins::measured(spots), (BackdropMargins{.left = 4, .top = 5, .right = 9, .bottom = 9}));
    // A bar across has no margin beside it.
    EXPECT_EQ(BackdropMargins::measured(page(Qt::white, {0, 10, 60, 5}, Qt::black)),
              (BackdropMargins{.left = 0, .top = 10, .right = 0, .bottom = 25}));
}

} // namespace Kovrel
