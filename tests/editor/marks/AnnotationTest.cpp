#include "editor/marks/Annotation.h"

#include "editor/marks/LabelText.h"
#include "model/Contrast.h"
#include "model/HexColor.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <numbers>

namespace Kovrel {

namespace {

using Kind = Annotation::Kind;

Annotation label(const char* text, std::vector<Point> points, double fontSize = 20)
{
    return {.kind = Kind::text, .points = std::move(points), .text = QString::fromUtf8(text), .fontSize = fontSize};
}

} // namespace

TEST(AnnotationTest, TheBoxIsSpannedByTheFirstAndTheLastPoint)
{
    const Annotation drag{.points = {{50, 80}, {1000, -1000}, {10, 20}}};
    EXPECT_EQ(drag.boundingRect(), (Rect{10, 20, 40, 60}));
    EXPECT_EQ(Annotation().boundingRect(), Rect());
}

TEST(AnnotationTest, TheMiddleIsOnTheCurve)
{
    Annotation line{.kind = Kind::line, .points = {{0, 0}, {100, 40}}};
    EXPECT_EQ(line.segmentMidpoint(), (Point{50, 20}));
    line.curveControl = Point{20, 100};
    EXPECT_EQ(line.segmentMidpoint(), (Point{35, 60}));
    EXPECT_EQ(Annotation().segmentMidpoint(), std::nullopt);
}

TEST(AnnotationTest, OnlyBoxesTurnAndOnlyStyledKindsHaveATool)
{
    std::vector<Kind> turning;
    std::vector<Kind> withoutTool;
    for (const auto& [kind, name] : RawStrings<Kind>::table) {
        if (Annotation{.kind = kind}.isRotatable())
            turning.push_back(kind);
        const auto tool = editorToolStyling(kind);
        if (!tool)
            withoutTool.push_back(kind);
        else
            EXPECT_EQ(rawString(*tool), QString(name));
    }
    EXPECT_EQ(turning, (std::vector{Kind::rectangle, Kind::ellipse, Kind::text, Kind::image}));
    EXPECT_EQ(withoutTool,
              (std::vector{Kind::blur, Kind::pixelate, Kind::blackout, Kind::spotlight, Kind::measure, Kind::image}));
}

TEST(AnnotationTest, AnEmptyLabelHasABodyOfOneLine)
{
    const Size empty = label("", {{0, 0}}).measuredTextSize(std::nullopt);
    EXPECT_EQ(empty.width, 80);
    EXPECT_EQ(empty.height, label("x", {{0, 0}}).measuredTextSize(std::nullopt).height);
    EXPECT_GE(label("i", {{0, 0}}).measuredTextSize(std::nullopt).width, 20);
}

TEST(AnnotationTest, AClickedLabelWrapsAtTenTimesItsSizeOrAtItsCap)
{
    Annotation long_ = label("one two three four five six seven eight nine ten", {{7, 9}});
    const double tenTimes = long_.textRect().width;
    EXPECT_LE(tenTimes, 200 + 2 * 7);
    EXPECT_GT(tenTimes, 150);

    const struct {
        std::optional<double> cap;
        double wrapWidth;
    } cases[] = {{std::nullopt, 200}, {150, 150}, {10, 120}, {5000, 200}};

    for (const auto& [cap, wrapWidth] : cases) {
        long_.wrapCap = cap;
        EXPECT_EQ(long_.textWrapWidth(), wrapWidth);
        EXPECT_EQ(long_.textRect().x, 7);
        EXPECT_EQ(long_.textRect().y, 9);
        EXPECT_LE(long_.textRect().width, wrapWidth + 14);
    }
    long_.points.clear();
    EXPECT_EQ(long_.textRect(), Rect());
}

TEST(AnnotationTest, ABoxedLabelHangsInItsBox)
{
    const Annotation boxed = label("some words that are wrapped", {{200, 150}, {100, 50}});
    EXPECT_EQ(boxed.textWrapWidth(), 100 - 2 * 7);
    const Rect rect = boxed.textRect();
    EXPECT_EQ(rect.x, 100);
    EXPECT_EQ(rect.maxY(), 150);
    EXPECT_LE(rect.width, 100);
    EXPECT_EQ(label("x", {{0, 0}, {1, 1}}).textWrapWidth(), 20);
}

// A font that is hinted, or measured at a rounded size, would break this.
TEST(AnnotationTest, TextGrowsWithItsSize)
{
    const char* const text = "Rounding would show in a long line of text, and emoji \xf0\x9f\x8e\x89 too";
    const Size small = label(text, {{0, 0}}, 10.5).measuredTextSize(std::nullopt);
    const Size large = label(text, {{0, 0}}, 105).measuredTextSize(std::nullopt);
    EXPECT_NEAR(small.width, large.width / 10, 1);
    EXPECT_NEAR(small.height, large.height / 10, 1);
}

TEST(AnnotationTest, AWordLongerThanALineAndLineEndsBreakLines)
{
    const double line = label("x", {{0, 0}}).measuredTextSize(std::nullopt).height;
    EXPECT_LE(label("Donaudampfschifffahrtsgesellschaft", {{0, 0}}).measuredTextSize(100).width, 100);
    EXPECT_NEAR(label("a\nb\nc", {{0, 0}}).measuredTextSize(std::nullopt).height, 3 * line, 2);
}

TEST(AnnotationTest, TextsFromRightToLeftEndOnTheRight)
{
    const auto edges = [](const char* text) {
        const LabelText layout(QString::fromUtf8(text), 20, std::nullopt);
        QRectF upper;
        QRectF lower;
        for (const QPainterPath& glyph : layout.outlines({0, 0}, 1)) {
            QRectF& line = glyph.boundingRect().center().y() > -layout.size().height / 2 ? upper : lower;
            line |= glyph.boundingRect();
        }
        return std::array{upper.left() - lower.left(), upper.right() - lower.right()};
    };
    EXPECT_NEAR(edges("nanananana\nna")[0], 0, 1);
    EXPECT_NEAR(edges("\u05e9\u05dc\u05d5\u05dd \u05e9\u05dc\u05d5\u05dd\n\u05e9\u05dc\u05d5\u05dd")[1], 0, 1);
}

// The latter one on the right of the former, as what comes second in a text from left to right.
TEST(AnnotationTest, EachParagraphHasItsOwnDirection)
{
    const LabelText text(QString::fromUtf8("\u05e9\u05dc\u05d5\u05dd \u05e9\u05dc\u05d5\u05dd\nab."), 20, std::nullopt);
    double lettersEnd = 0;
    QRectF last;
    for (const QPainterPath& glyph : text.outlines({0, 0}, 1))
        if (const QRectF box = glyph.boundingRect(); box.center().y() < -text.size().height / 2) {
            lettersEnd = std::max(lettersEnd, box.height() > 5 ? box.right() : 0);
            last = box.height() < 5 ? box : last;
        }
    EXPECT_GT(last.left(), lettersEnd);
    EXPECT_LT(lettersEnd, text.size().width / 2); // on the left
}

TEST(AnnotationTest, ASingleLetterIsInTheMiddle)
{
    const Annotation letter = label("i", {{10, 10}});
    const double width = LabelText("i", 20, std::nullopt).size().width;
    EXPECT_NEAR(letter.textOrigin().x + width / 2, letter.textRect().centre().x, 1e-9);
}

TEST(AnnotationTest, SignsThatAreAskedForAsPicturesHaveNoOutline)
{
    const struct {
        const char* text;
        size_t outlines;
    } cases[] = {
        {"\u2764\ufe0f", 0}, {"1\ufe0f\u20e3", 0}, {"\u2764\ufe0f\u200d\U0001f525", 0}, {"12", 2}, {"\u2122", 1}};

    for (const auto& [text, outlines] : cases)
        EXPECT_EQ(LabelText(QString::fromUtf8(text), 20, std::nullopt).outlines({0, 0}, 1).size(), outlines) << text;
}

TEST(AnnotationTest, LuminanceOfKnownColours)
{
    const struct {
        const char* hex;
        double luminance;
    } cases[] = {{"#FFFFFF", 1}, {"#000000", 0}, {"#FF0000", 0.2126}, {"#808080", 0.2159}, {"#050505", 0.00152}};

    for (const auto& [hex, luminance] : cases)
        EXPECT_NEAR(relativeLuminance(*HexColor::parse(QString(hex))), luminance, 0.0001) << hex;
}

TEST(HexColorTest, ReadsWhatIsWrittenAndNothingElse)
{
    const struct {
        const char* text;
        const char* written; // empty: no colour
    } cases[] = {{"#FF3B30", "#FF3B30"},
                 {"ff3b30", "#FF3B30"},
                 {"#11223344", "#11223344"},
                 {"#112233ff", "#112233"},
                 {"", ""},
                 {"#", ""},
                 {"red", ""},
                 {"#12345", ""},
                 {"#12345g", ""},
                 {"#1234567", ""},
                 {"##12345", ""}};

    for (const auto& [text, written] : cases) {
        const auto color = HexColor::parse(QString(text));
        EXPECT_EQ(color ? HexColor::text(*color) : QString(), QString(written)) << text;
    }
}

} // namespace Kovrel
