#include "editor/backdrop/GradientBitmap.h"
#include "editor/backdrop/BackdropCatalogue.h"
#include "imaging/GaussianBlur.h"
#include "model/Geometry.h"
#include "model/HexColor.h"
#include "tests/support/PictureDifference.h"

#include <gtest/gtest.h>

#include <set>

namespace Kovrel {

namespace {

BackdropGradient between(const QString& from, const QString& to, double angle = 0)
{
    return {"id", "Name", {{from, 0}, {to, 1}}, angle, {}};
}

std::array<double, 3> meanOf(const QImage& image, const QRect& block)
{
    std::array<double, 3> sums{};
    for (int y = block.top(); y <= block.bottom(); ++y)
        for (int x = block.left(); x <= block.right(); ++x)
            for (int channel = 0; channel < 3; ++channel)
                sums[size_t(channel)] += image.pixel(x, y) >> (16 - 8 * channel) & 0xff;
    for (double& sum : sums)
        sum /= block.width() * block.height();
    return sums;
}

// What the colour is over a block, as far as a straight line between four places tells.
std::array<double, 3> exactMean(const PreparedGradient& gradient, const QRect& block, QSize canvas)
{
    std::array<double, 3> mean{};
    for (const double x : {0.25, 0.75})
        for (const double y : {0.25, 0.75}) {
            const auto color = gradient.colorAt((block.x() + x * block.width()) / canvas.width(),
                                                (block.y() + y * block.height()) / canvas.height(), canvas);
            for (size_t channel = 0; channel < 3; ++channel)
                mean[channel] += double(color[channel]) / 4;
        }
    return mean;
}

// How much the means over blocks of 8 x 8 pixels bend from one to the next, on average.
double bend(const QImage& image)
{
    double sum = 0;
    int count = 0;
    for (int x = 0; x + 8 <= image.width(); x += 40)
        for (int y = 8; y + 16 <= image.height(); y += 8) {
            const auto before = meanOf(image, {x, y - 8, 8, 8});
            const auto mean = meanOf(image, {x, y, 8, 8});
            const auto after = meanOf(image, {x, y + 8, 8, 8});
            for (size_t channel = 0; channel < 3; ++channel, ++count)
                sum += std::abs(before[channel] - 2 * mean[channel] + after[channel]);
        }
    return sum / count;
}

} // namespace

// Rounded to whole levels, a gradient is half a level off where a band ends. The mean over few pixels must not be.
TEST(GradientBitmap, HasNoBands)
{
    for (const auto& source : {between("#808080", "#848484"), between("#101828", "#1C2030", 37),
                               *BackdropCatalogue::gradient("fog"), *BackdropCatalogue::gradient("midnight")}) {
        const QSize canvas(1600, 900);
        const PreparedGradient gradient(source);
        const QImage image = gradientBitmap(gradient, canvas);
        double greatest = 0;
        for (int y = 0; y + 16 <= canvas.height(); y += 16)
            for (int x = 0; x + 16 <= canvas.width(); x += 16) {
                const auto mean = meanOf(image, {x, y, 16, 16});
                const auto exact = exactMean(gradient, {x, y, 16, 16}, canvas);
                for (size_t channel = 0; channel < 3; ++channel)
                    greatest = std::max(greatest, std::abs(mean[channel] - exact[channel]));
            }
        EXPECT_LT(greatest, 0.15) << source.id.toStdString();
    }
}

TEST(GradientBitmap, NoPixelIsALevelOffTheExactColour)
{
    for (const BackdropGradient& source : BackdropCatalogue::gradients()) {
        for (const QSize canvas : {QSize(48, 30), QSize(701, 1203)}) {
            const PreparedGradient gradient(source);
            const QImage image = gradientBitmap(gradient, canvas);
            ASSERT_EQ(image.size(), canvas);
            for (int y = 0; y < canvas.height(); y += 7)
                for (int x = 0; x < canvas.width(); x += 5) {
                    const auto exact =
                        gradient.colorAt((x + 0.5) / canvas.width(), (y + 0.5) / canvas.height(), canvas);
                    for (int channel = 0; channel < 3; ++channel)
                        ASSERT_NEAR(image.pixel(x, y) >> (16 - 8 * channel) & 0xff, exact[size_t(channel)], 1.4)
                            << source.id.toStdString() << " " << x << "," << y;
                }
        }
    }
}

TEST(GradientBitmap, AFlatOneIsFlatAndThreadsLeaveNoSeam)
{
    for (const QSize canvas : {QSize(1, 1), QSize(33, 9), QSize(1500, 1001)}) {
        QImage expected(canvas, QImage::Format_RGB32);
        expected.fill(QColor("#5B6472"));
        EXPECT_TRUE(Testing::identicalPicture(gradientBitmap(PreparedGradient(between("#5B6472", "#5B6472")), canvas),
                                              expected));
    }
    EXPECT_TRUE(gradientBitmap(PreparedGradient(between("#000000", "#FFFFFF")), {0, 0}).isNull());
}

TEST(PreparedGradient, RunsFromCornerToCornerAtItsAngle)
{
    const struct {
        double angle;
        Point start; // fractions from the left and from the top
        Point end;
    } cases[] = {{0, {0, 0.5}, {1, 0.5}}, {90, {0.5, 1}, {0.5, 0}}, {45, {0, 1}, {1, 0}}, {315, {0, 0}, {1, 1}}};

    for (const auto& [angle, start, end] : cases) {
        const PreparedGradient gradient(between("#000000", "#FFFFFF", angle));
        for (const QSize canvas : {QSize(300, 100), QSize(100, 100)}) {
            EXPECT_NEAR(gradient.colorAt(start.x, start.y, canvas)[0], 0, 1) << std::to_string(angle);
            EXPECT_NEAR(gradient.colorAt(end.x, end.y, canvas)[0], 255, 1) << std::to_string(angle);
        }
    }
    // Oklab: the middle of black and white is the grey of half its lightness.
    EXPECT_NEAR(PreparedGradient(between("#000000", "#FFFFFF")).colorAt(0.5, 0.5, {10, 10})[1], 99, 1);
}

TEST(PreparedGradient, ABlobIsAroundItsMiddleAndEndsAtItsRim)
{
    BackdropGradient source = between("#000000", "#000000");
    source.blobs = {{"#FFFFFF", 0.25, 0.75, 0.2, 1}};
    const PreparedGradient gradient(source);
    EXPECT_NEAR(gradient.colorAt(0.25, 0.25, {200, 100})[0], 255, 1); // y counts from the bottom
    EXPECT_NEAR(gradient.colorAt(0.46, 0.25, {200, 100})[0], 0, 0.01);
    EXPECT_NEAR(gradient.colorAt(0.25, 0.25 + 0.42, {200, 100})[0], 0, 0.01);
    EXPECT_GT(gradient.colorAt(0.35, 0.25, {200, 100})[0], 20);
}

TEST(BackdropCatalogue, HasFillsWithNamesOfTheirOwn)
{
    EXPECT_EQ(BackdropCatalogue::gradients().size(), 20u);
    EXPECT_EQ(BackdropCatalogue::colors().size(), 14u);
    EXPECT_EQ(BackdropCatalogue::pictures().size(), 8u);
    const auto expectUnique = [](const auto& fills) {
        std::set<QString> ids;
        std::set<QString> names;
        for (const auto& fill : fills) {
            EXPECT_TRUE(ids.insert(fill.id).second) << fill.id.toStdString();
            EXPECT_TRUE(names.insert(fill.name).second) << fill.name.toStdString();
        }
    };
    expectUnique(BackdropCatalogue::gradients());
    expectUnique(BackdropCatalogue::colors());
    expectUnique(BackdropCatalogue::pictures());
}

TEST(BackdropCatalogue, AllColoursCanBeRead)
{
    const auto expectColor = [](const QString& hex) { EXPECT_TRUE(HexColor::parse(hex)) << hex.toStdString(); };
    const auto expectGradient = [&](const BackdropGradient& gradient) {
        double location = -1;
        for (const auto& stop : gradient.stops) {
            expectColor(stop.color);
            EXPECT_GT(stop.location, location);
            location = stop.location;
        }
        for (const auto& blob : gradient.blobs)
            expectColor(blob.color);
    };
    for (const auto& gradient : BackdropCatalogue::gradients())
        expectGradient(gradient);
    for (const auto& color : BackdropCatalogue::colors())
        expectColor(color.hex);
    for (const auto& picture : BackdropCatalogue::pictures()) {
        expectGradient(picture.ground);
        for (const auto& ridge : picture.ridges) {
            expectColor(ridge.crest);
            expectColor(ridge.foot);
        }
    }
}

// A picture is the same composition at any size: half of one is what it is at half the size.
TEST(BackdropPicture, LooksTheSameAtAnySize)
{
    for (const BackdropPicture& picture : BackdropCatalogue::pictures()) {
        const QImage small = picture.bitmap({240, 150});
        const QImage large = picture.bitmap({720, 450});
        double sum = 0;
        for (int y = 0; y < 150; ++y)
            for (int x = 0; x < 240; ++x)
                sum += std::abs(qGreen(small.pixel(x, y)) - qGreen(large.pixel(3 * x + 1, 3 * y + 1)));
        EXPECT_LT(sum / (240 * 150), 2) << picture.id.toStdString();
        EXPECT_TRUE(Testing::identicalPicture(large, picture.bitmap({720, 450}))) << picture.id.toStdString();
    }
}

TEST(BackdropPicture, ARidgeCoversWhatIsBelowItAndShadesWhatIsAbove)
{
    const BackdropPicture picture{
        "id",
        "Name",
        between("#C0C0C0", "#C0C0C0"),
        {{.level = 0.5, .crest = "#FF0000", .foot = "#0000FF", .depth = 0.25, .shade = 0.5, .shadeReach = 0.1}}};
    const QImage image = picture.bitmap({20, 200});
    EXPECT_EQ(image.pixelColor(10, 70), QColor("#C0C0C0"));
    EXPECT_NEAR(image.pixelColor(10, 99).red(), 0x60, 8);
    EXPECT_NEAR(image.pixelColor(10, 90).red(), 0xC0 * (1 - 0.5 / 4), 6);
    EXPECT_NEAR(image.pixelColor(10, 101).red(), 0xFF, 10);
    EXPECT_NEAR(image.pixelColor(10, 125).red(), 0x80, 4);
    EXPECT_EQ(image.pixelColor(10, 170), QColor("#0000FF"));
}

// A band's edge is a bend of up to a level.
TEST(BackdropPicture, HasNoBandsWhenItIsBlurred)
{
    const BackdropPicture& picture = *BackdropCatalogue::picture("aurora");
    const QImage rounded = GaussianBlur::blurred(picture.bitmap({800, 600}), 300, GaussianBlur::Edges::repeated);
    EXPECT_LT(bend(picture.bitmap({800, 600}, 300)), bend(rounded) / 3);
}

} // namespace Kovrel
