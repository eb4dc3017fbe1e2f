#include "imaging/MeasureSampler.h"

#include <gtest/gtest.h>

#include <QPainter>

#include <limits>
#include <random>

using namespace Kovrel;

namespace {

using Axis = MeasureSampler::Axis;
using Pixels = MeasureSampler::Run;

constexpr Axis axes[] = {Axis::horizontal, Axis::vertical};

// A picture whose rows, or columns, are all these greys.
QImage greys(const std::vector<int>& values, Axis axis)
{
    const int length = int(values.size());
    QImage image(axis == Axis::horizontal ? QSize(length, 3) : QSize(3, length), QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const int grey = values[size_t(axis == Axis::horizontal ? x : y)];
            image.setPixel(x, y, qRgb(grey, grey, grey));
        }
    }
    return image;
}

std::vector<int> edgesOf(const std::vector<int>& values, Axis axis, int floor)
{
    const MeasureSampler sampler(greys(values, axis));
    std::vector<int> edges;
    for (int at = -1; at <= int(values.size()) + 1; ++at) {
        if (sampler.qualifiesAsEdge(axis, at, 1, floor))
            edges.push_back(at);
    }
    return edges;
}

std::optional<Pixels> runOf(const std::vector<int>& values, Axis axis, int start, int tolerance,
                            std::optional<int> edgeFloor = std::nullopt)
{
    const MeasureSampler sampler(greys(values, axis));
    return axis == Axis::horizontal ? sampler.span(start, 1, axis, tolerance, edgeFloor)
                                    : sampler.span(1, start, axis, tolerance, edgeFloor);
}

} // namespace

TEST(MeasureSamplerTest, ARunGoesAsFarAsPixelsAreLikeTheOneThatWasPointedAt)
{
    struct Case {
        std::vector<int> values;
        int start;
        int tolerance;
        Pixels run;
    };

    const Case cases[] = {
        {{9, 9, 9, 9}, 2, 0, {0, 3}},      {{9, 9, 50, 9, 9, 9}, 3, 0, {3, 5}}, // a line just left of it
        {{9, 9, 9, 50, 9}, 2, 0, {0, 2}},  {{9, 10, 9}, 1, 0, {1, 1}},          {{9, 10, 9}, 1, 1, {0, 2}},
        {{0, 4, 8, 12, 16}, 2, 4, {1, 3}}, // compared with the start, not with the neighbour
        {{50, 9, 9}, 0, 5, {0, 0}},        {{9, 9, 50}, 2, 5, {2, 2}},          {{9}, 0, 0, {0, 0}},
    };
    for (const Axis axis : axes) {
        for (const Case& each : cases)
            EXPECT_EQ(runOf(each.values, axis, each.start, each.tolerance), each.run);
    }
}

TEST(MeasureSamplerTest, EachChannelCountsAndAlphaDoesNot)
{
    QImage image(5, 1, QImage::Format_ARGB32);
    for (const int changed : {0, 1, 2}) {
        for (int x = 0; x < 5; ++x)
            image.setPixel(x, 0, qRgba(100, 100, 100, 250 - x));
        image.setPixel(3, 0, qRgba(changed == 0 ? 103 : 100, changed == 1 ? 97 : 100, changed == 2 ? 103 : 100, 255));
        const MeasureSampler sampler(image);
        EXPECT_EQ(sampler.span(1, 0, Axis::horizontal, 2), (Pixels{0, 2})) << changed;
        EXPECT_EQ(sampler.span(1, 0, Axis::horizontal, 3), (Pixels{0, 4})) << changed;
        EXPECT_EQ(sampler.signedStep(Axis::horizontal, 3, 0), changed == 1 ? -3 : 3);
    }
}

TEST(MeasureSamplerTest, NothingLiesOutsideThePicture)
{
    const MeasureSampler sampler(greys({1, 2, 3, 4}, Axis::horizontal)); // four wide, three high
    for (const QPoint outside : {QPoint(-1, 0), QPoint(4, 0), QPoint(0, -1), QPoint(0, 3)}) {
        for (const Axis axis : axes)
            EXPECT_FALSE(sampler.span(outside.x(), outside.y(), axis, 0));
    }
    for (const auto& [at, cross] :
         {std::pair(0, 0), std::pair(4, 0), std::pair(-1, 0), std::pair(2, -1), std::pair(2, 3)}) {
        EXPECT_FALSE(sampler.signedStep(Axis::horizontal, at, cross));
        EXPECT_FALSE(sampler.qualifiesAsEdge(Axis::horizontal, at, cross, -1000));
    }
    EXPECT_EQ(sampler.signedStep(Axis::horizontal, 3, 2), 3);
    EXPECT_FALSE(MeasureSampler(QImage()).span(0, 0, Axis::horizontal, 0));
}

TEST(MeasureSamplerTest, AnEdgeIsWhereARampRisesAboveItsSurroundings)
{
    struct Case {
        const char* what;
        std::vector<int> values;
        std::vector<int> edges; // with a floor of 12: four levels of each channel
    };

    const Case cases[] = {
        {"nothing there", {9, 9, 9, 9, 9, 9}, {}},
        {"a step of more than the floor", {9, 9, 9, 14, 14, 14}, {3}},
        {"a step as high as the floor", {9, 9, 9, 13, 13, 13}, {}},
        {"down", {14, 14, 9, 9}, {2}},
        {"antialiased: no step is above the floor, all together are", {247, 247, 249, 253, 255, 255}, {3}},
        {"blurred evenly: its middle", {9, 9, 9, 11, 13, 15, 17, 19, 19, 19, 19}, {5}},
        {"a line of one pixel", {9, 9, 9, 60, 9, 9, 9}, {3, 4}},
        {"lines of one pixel with gaps of three", {9, 9, 60, 9, 9, 9, 60, 9, 9}, {2, 3, 6, 7}},
        {"noise", {100, 102, 99, 101, 98, 102, 100, 97, 101, 99, 102, 100}, {}},
        {"dither", {100, 110, 100, 110, 100, 110, 100, 110, 100, 110, 100, 110}, {}},
        {"a border in noise", {100, 102, 99, 101, 100, 130, 131, 129, 132, 130, 131}, {5}},
        {"a gradient over the whole", {0, 3, 6, 9, 12, 15, 18, 21, 24, 27, 30, 33, 36, 39, 42, 45, 48, 51}, {}},
    };
    for (const Axis axis : axes) {
        for (const Case& each : cases)
            EXPECT_EQ(edgesOf(each.values, axis, 12), each.edges) << each.what;
    }
}

TEST(MeasureSamplerTest, ARunEndsAtEdgesWithinTheToleranceWhereAFloorIsGiven)
{
    const std::vector<int> button{255, 255, 255, 253, 249, 247, 247, 247, 247, 249, 253, 255, 255, 255};
    for (const Axis axis : axes) {
        EXPECT_EQ(runOf(button, axis, 7, 12), (Pixels{0, 13}));
        EXPECT_EQ(runOf(button, axis, 7, 12, 12), (Pixels{4, 9})) << "both of its borders at their steepest";
        EXPECT_EQ(runOf(button, axis, 0, 12, 12), (Pixels{0, 3}));
        EXPECT_EQ(runOf(button, axis, 7, 12, 24), (Pixels{0, 13})) << "no border rises by more";
    }
}

TEST(MeasureSamplerTest, TheNearestEdgeIsFoundAndOfTwoAsNearTheSharperOne)
{
    // Edges of strength 20 at 4 and of 60 at 8; the borders are at 0 and 12.
    const std::vector<int> values{10, 10, 10, 10, 30, 30, 30, 30, 90, 90, 90, 90};
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    constexpr double infinity = std::numeric_limits<double>::infinity();

    struct Case {
        double near;
        double reach;
        std::optional<int> edge;
    };

    const Case cases[] = {
        {5.5, 3, 4}, {6, 3, 8},   {6.00004, 3, 8}, {5.9999, 3, 4}, {5.5, 1, {}},     {5.5, 1.5, 4},     {2, 2, 0},
        {1.9, 3, 0}, {10, 3, 12}, {11, 0.5, {}},   {13, 1, 12},    {-1, 1, 0},       {-3, 1, {}},       {20, 1, {}},
        {5, -1, {}}, {4, 0, 4},   {nan, 3, {}},    {5, nan, {}},   {6, infinity, 8}, {infinity, 5, {}}, {1e300, 1, {}},
    };
    for (const Axis axis : axes) {
        const MeasureSampler sampler(greys(values, axis));
        for (const Case& each : cases)
            EXPECT_EQ(sampler.sharpestEdge(axis, each.near, 1, each.reach, 12), each.edge)
                << each.near << ' ' << each.reach;
        EXPECT_FALSE(sampler.sharpestEdge(axis, 4, -1, 3, 12));
        EXPECT_FALSE(sampler.sharpestEdge(axis, 4, 3, 3, 12));
    }
}

// Cards as interfaces draw them, a little lighter or darker than the page, with antialiased borders at broken places.
TEST(MeasureSamplerTest, FaintAntialiasedCardsAreMeasuredWithinAPixel)
{
    std::mt19937 random(7);
    const auto between = [&](double low, double high) { return std::uniform_real_distribution(low, high)(random); };
    for (int round = 0; round < 200; ++round) {
        const int page = int(between(20, 235));
        const int card = page + (round % 2 == 0 ? 1 : -1) * int(between(6, 12));
        QImage image(300, 200, QImage::Format_RGB32);
        image.fill(qRgb(page, page, page));
        const QRectF frame(between(20, 60), between(20, 60), between(80, 200), between(40, 100));
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(QColor(card, card, card));
        painter.drawRoundedRect(frame, 6, 6);
        painter.end();

        const MeasureSampler sampler(image);
        const QPoint middle = frame.center().toPoint();
        const auto across = sampler.span(middle.x(), middle.y(), Axis::horizontal, 24, 12);
        const auto up = sampler.span(middle.x(), middle.y(), Axis::vertical, 24, 12);
        EXPECT_NEAR(across->length(), frame.width(), 1.5) << page << ' ' << card;
        EXPECT_NEAR(up->length(), frame.height(), 1.5) << page << ' ' << card;
    }
}
