#include "recognition/text/TextObservations.h"

#include "tests/support/FakeTextRecogniser.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <numbers>

namespace Kovrel {

using Observation = TextRecogniser::Observation;
using Testing::FakeTextRecogniser;

namespace {

constexpr QSize pixels(1000, 1000);

// A line turned counter-clockwise around the middle of a square picture.
Observation turned(const QString& text, double width, double height, double degrees)
{
    const double angle = degrees * std::numbers::pi / 180;
    const auto corner = [&](double x, double y) {
        return Point{0.5 + x * std::cos(angle) - y * std::sin(angle), 0.5 + x * std::sin(angle) + y * std::cos(angle)};
    };
    const Point corners[] = {corner(0, 0), corner(width, 0), corner(0, height), corner(width, height)};
    const auto [left, right] = std::ranges::minmax(corners, {}, &Point::x);
    const auto [bottom, top] = std::ranges::minmax(corners, {}, &Point::y);
    const Rect box{left.x, bottom.y, right.x - left.x, top.y - bottom.y};
    return {corners[0], corners[1], corners[2], box, FakeTextRecogniser::line(text, box).candidates};
}

std::vector<double> centers(const QString& text, std::vector<std::optional<Rect>> boxes)
{
    Observation line = FakeTextRecogniser::line(text, {0.1, 0.5, 0.4, 0.1});
    line.candidates[0].characterBoxes = std::move(boxes);
    return TextObservations::result({line}, pixels).lines[0].characterCenters;
}

} // namespace

TEST(TextObservationsTest, CentresOfCharacters)
{
    const Rect a{0.1, 0, 0.1, 0.1};
    const Rect b{0.2, 0, 0.1, 0.1};
    const Rect c{0.4, 0, 0.1, 0.1};
    const Rect word{0.1, 0, 0.2, 0.1};
    const Rect thin{0.3, 0, 0.0001, 0.1};

    struct Case {
        const char* text;
        std::vector<std::optional<Rect>> boxes;
        std::vector<double> centers;
    };

    const Case cases[] = {
        {"abcde", {word, word, word, word, word}, {0.12, 0.16, 0.20, 0.24, 0.28}},
        {"abcd", {a, b, {}, c}, {0.15, 0.25, 0.35, 0.45}},
        {"abcd", {{}, {}, b, c}, {0.25, 0.25, 0.25, 0.45}},
        {"abc", {a, thin, {}}, {0.15, 0.15, 0.15}},
        {"ab", {{}, {}}, {}},
        {"ab", {}, {}},
        {" ab ", {thin, a, b, {}}, {0.15, 0.25}},
        {"e\u0301b", {a, b}, {0.15, 0.25}},
    };
    for (const Case& t : cases)
        EXPECT_THAT(centers(t.text, t.boxes), testing::Pointwise(testing::DoubleNear(1e-9), t.centers)) << t.text;
}

TEST(TextObservationsTest, RotatedLinesHaveAQuadAndNoCentres)
{
    struct Case {
        double degrees;
        double height;
        bool hasQuad;
        bool isOriented;
    };

    const Case cases[] = {
        {0, 0.02, false, false},    {9, 0.02, true, false},   {11, 0.02, true, true}, {90, 0.02, false, true},
        {170.1, 0.02, true, false}, {-168, 0.02, true, true}, {1, 0.4, false, false}, {40, 0.0005, false, false},
    };
    for (const Case& c : cases) {
        const OCRResult result = TextObservations::result({turned("ab", 0.4, c.height, c.degrees)}, pixels);
        EXPECT_EQ(result.lines[0].quad.has_value(), c.hasQuad) << c.degrees;
        EXPECT_EQ(result.lines[0].characterCenters.empty(), c.hasQuad) << c.degrees;
        EXPECT_EQ(result.isOriented, c.isOriented) << c.degrees;
    }
}

TEST(TextObservationsTest, RotatedPagesKeepTheRecognisersOrder)
{
    const std::vector<Observation> upright{FakeTextRecogniser::line("below", {0.1, 0.1, 0.3, 0.1}),
                                           FakeTextRecogniser::line("above", {0.1, 0.8, 0.3, 0.1})};
    EXPECT_EQ(TextObservations::result(upright, pixels).fullText, "above\nbelow");
    EXPECT_EQ(TextObservations::result(upright, pixels).lines[0].text, "above");
    const std::vector<Observation> rotated{turned("second", 0.3, 0.02, 60), turned("first", 0.4, 0.02, 60)};
    EXPECT_EQ(TextObservations::result(rotated, pixels).fullText, "second\nfirst");
}

TEST(TextObservationsTest, LinesWithoutTextAreLeftOut)
{
    EXPECT_EQ(TextObservations::result({}, pixels), OCRResult());
    Observation noCandidate = FakeTextRecogniser::line("x", {0, 0, 1, 1});
    noCandidate.candidates.clear();
    EXPECT_EQ(TextObservations::result({noCandidate, FakeTextRecogniser::line(" \t", {0, 0, 1, 1})}, pixels),
              OCRResult());
}

} // namespace Kovrel
