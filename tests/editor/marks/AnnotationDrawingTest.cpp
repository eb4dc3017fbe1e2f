#include "editor/marks/AnnotationDrawing.h"

#include "editor/marks/AnnotationExtent.h"
#include "editor/marks/AnnotationInk.h"
#include "editor/marks/HighlighterInk.h"
#include "editor/marks/MarkShadow.h"
#include "editor/marks/RedactionSources.h"
#include "tests/support/PictureDifference.h"
#include "tests/support/TestPictures.h"

#include <QPainter>

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace Kovrel {

namespace {

using AnnotationDrawing::Scene;
using Kind = Annotation::Kind;
using FillStyle = Annotation::FillStyle;

const QColor red(255, 0, 0);
const QColor white(Qt::white);
constexpr QSize pageSize(200, 100); // image points

Annotation mark(Kind kind, std::vector<Point> points, double lineWidth = 4)
{
    return {.kind = kind, .points = std::move(points), .colorHex = "#FF0000", .lineWidth = lineWidth};
}

Annotation label(const char* text, Annotation::TextStyle style = Annotation::TextStyle::plain)
{
    Annotation annotation = mark(Kind::text, {{60, 40}});
    annotation.text = QString::fromUtf8(text);
    annotation.textStyle = style;
    return annotation;
}

// A page with marks, at a scale.
class Page {
public:
    Page(double scale, const QColor& ground) : m_scale(scale)
    {
        m_image = QImage(pageSize * scale, QImage::Format_RGB32);
        m_image.fill(ground);
        setUp();
    }

    Page(double scale, const QImage& ground) : m_scale(scale), m_image(ground) { setUp(); }

    void draw(const std::vector<Annotation>& annotations, const std::optional<QRect>& pixels = std::nullopt)
    {
        QPainter painter(&m_image);
        if (pixels)
            painter.setClipRect(*pixels);
        painter.setTransform(QTransform(1, 0, 0, -1, 0, m_image.height()));
        AnnotationDrawing::drawAll(painter, annotations, scene);
    }

    // At image points.
    QColor at(double x, double y) const
    {
        return m_image.pixelColor(int(x * m_scale), m_image.height() - 1 - int(y * m_scale));
    }

    const QImage& image() const { return m_image; }

    Scene scene;

private:
    void setUp()
    {
        scene.scale = m_scale;
        scene.fullRect = QRectF(QPointF(), m_image.size());
        scene.shadeRegion = {scene.fullRect};
    }

    double m_scale;
    QImage m_image;
};

// Alpha has 8 bits, too: 0.7 is 178 / 255 or 179 / 255.
bool isNear(const QColor& one, const QColor& other)
{
    return std::abs(one.red() - other.red()) <= 1 && std::abs(one.green() - other.green()) <= 1 &&
           std::abs(one.blue() - other.blue()) <= 1;
}

struct Probe {
    Point place;
    QColor color;
};

// All kinds and styles, all over the page.
std::vector<Annotation> oneOfEach()
{
    std::vector<Annotation> all;
    double x = 8;
    int style = 0;
    for (int round = 0; round < 4; ++round)
        for (const auto& [kind, name] : RawStrings<Kind>::table) {
            Annotation each = mark(kind, {{x, 20}, {x + 23.5, 47.25}, {x + 30.25, 71.5}}, 3.3);
            each.text = "abc";
            each.rotation = round % 2 * 0.3;
            each.textStyle = Annotation::TextStyle(style % 4);
            each.fillStyle = FillStyle(style % 4);
            each.rounded = style % 3 == 0;
            if (style % 2 == 0)
                each.curveControl = Point{x + 40, 10};
            each.image = Testing::testPicture({40, 40}, Testing::Texture::blocks);
            all.push_back(each);
            ++style;
            x = 8 + std::fmod(11.3 * style, 150);
        }
    return all;
}

QImage textured(double scale)
{
    return Testing::testPicture(pageSize * scale, Testing::Texture::blocks).convertToFormat(QImage::Format_RGB32);
}

} // namespace

TEST(AnnotationDrawingTest, ShapesAreWhereTheyBelong)
{
    Annotation curved = mark(Kind::line, {{20, 20}, {180, 20}});
    curved.curveControl = Point{100, 140};
    Annotation turned = mark(Kind::rectangle, {{50, 40}, {150, 60}});
    turned.rotation = std::numbers::pi / 2;
    Annotation filled = mark(Kind::ellipse, {{50, 10}, {150, 90}});
    filled.fillStyle = FillStyle::filled;
    Annotation translucent = mark(Kind::rectangle, {{50, 10}, {150, 90}});
    translucent.fillStyle = FillStyle::translucent;
    Annotation rounded = mark(Kind::rectangle, {{50, 10}, {150, 90}}, 2);
    rounded.rounded = true;

    const struct {
        const char* name;
        Annotation annotation;
        std::vector<Probe> probes;
    } cases[] = {
        {"line", mark(Kind::line, {{20, 50}, {180, 50}}), {{{100, 50.5}, red}, {{100, 53}, white}, {{19, 50}, red}}},
        {"curved line", curved, {{{100, 80}, red}, {{100, 20}, white}}},
        {"pen", mark(Kind::pen, {{20, 20}, {100, 80}, {180, 20}}), {{{100, 79}, red}, {{100, 50}, white}}},
        {"a click of the pen", mark(Kind::pen, {{20, 20}}), {{{20, 20}, red}, {{23, 20}, white}}},
        {"rectangle",
         mark(Kind::rectangle, {{50, 90}, {150, 10}}),
         {{{50, 50}, red}, {{100, 50}, white}, {{48.5, 8.5}, red}}},
        {"rounded", rounded, {{{100, 10}, red}, {{50.2, 10.2}, white}}},
        {"translucent", translucent, {{{100, 50}, QColor(255, 191, 191)}, {{50, 50}, red}}},
        {"turned", turned, {{{100, 99}, red}, {{90, 70}, red}, {{60, 50}, white}}},
        {"filled ellipse", filled, {{{100, 50}, red}, {{55, 15}, white}, {{100, 90}, red}}},
        {"arrow",
         mark(Kind::arrow, {{20, 50}, {180, 50}}),
         {{{175, 50}, red},
          {{165, 55}, red},
          {{140, 55}, white},
          {{60, 50.5}, red},
          {{60, 54}, white},
          {{60, 50}, red}}},
        {"blackout",
         mark(Kind::blackout, {{20, 20}, {80, 80}}),
         {{{20, 20}, Qt::black}, {{79, 79}, Qt::black}, {{81, 50}, white}}},
        {"step", mark(Kind::step, {{0, 0}, {100, 50}}), {{{100, 58}, red}, {{100, 66}, white}, {{91, 50}, red}}},
        {"plate", label("i", Annotation::TextStyle::background), {{{62, 50}, red}, {{59, 39}, white}}},
        {"bubble",
         label("bubble", Annotation::TextStyle::bubble),
         {{{77, 35}, red}, {{72, 42}, red}, {{68, 41}, red}, {{100, 33}, white}}},
        {"measure",
         mark(Kind::measure, {{10, 50}, {190, 50}}, 2),
         {{{20, 50}, red}, {{10, 54}, red}, {{20, 54}, white}, {{100, 58}, red}}},
    };

    for (const double scale : {1.0, 1.5, 2.0, 3.0})
        for (const auto& [name, annotation, probes] : cases) {
            Page page(scale, white);
            page.draw({annotation});
            for (const auto& [place, color] : probes)
                EXPECT_TRUE(isNear(page.at(place.x, place.y), color))
                    << qPrintable(page.at(place.x, place.y).name()) << name << " at scale " << scale << " at "
                    << place.x << ',' << place.y;
        }
}

// Shorter than 0.9 of a head of 17.2 points.
TEST(AnnotationDrawingTest, ATinyArrowIsAHeadOnly)
{
    const QPainterPath tiny = AnnotationInk::inkPath(mark(Kind::arrow, {{50, 50}, {62, 50}}), 2);
    const QRectF extent = tiny.boundingRect();
    EXPECT_NEAR(extent.left(), 100, 0.5);
    EXPECT_NEAR(extent.right(), 124, 2);                                // softened
    EXPECT_TRUE(tiny.contains({103, 100 + 0.8 * extent.height() / 2})); // as wide as it is at its base
    EXPECT_FALSE(tiny.contains({118, 100 + 0.4 * extent.height() / 2}));
    const QPainterPath longer = AnnotationInk::inkPath(mark(Kind::arrow, {{50, 50}, {67, 50}}), 2);
    EXPECT_FALSE(longer.contains({103, 100 + 0.8 * longer.boundingRect().height() / 2}));
}

TEST(AnnotationDrawingTest, AStepHasItsWorkedSize)
{
    const Annotation step = mark(Kind::step, {{0, 0}}, 4);
    EXPECT_DOUBLE_EQ(AnnotationInk::stepRadius(step, 2), 26);
    EXPECT_DOUBLE_EQ(AnnotationInk::stepRingWidth(step, 2), 3.12);
    EXPECT_DOUBLE_EQ(AnnotationInk::stepRingWidth(mark(Kind::step, {{0, 0}}, 1), 2), 3);
}

TEST(AnnotationDrawingTest, OddWidthsLieOnWholePixels)
{
    for (const double width : {1.0, 3.0, 5.0})
        for (const auto& [kind, points] : {std::pair(Kind::rectangle, std::vector<Point>{{20, 20}, {80, 80}}),
                                           {Kind::line, {{20, 20}, {80, 20}}},
                                           {Kind::line, {{20, 20}, {20, 80}}}}) {
            Page page(1, white);
            page.draw({mark(kind, points, width)});
            for (double across = 10; across < 30; ++across)
                for (const QColor& color : {page.at(50, across), page.at(across, 50)})
                    EXPECT_TRUE(color == red || color == white) << width << ' ' << across;
        }
}

TEST(AnnotationDrawingTest, AStepsNumberFitsAndIsRead)
{
    Annotation step = mark(Kind::step, {{100, 50}}, 10);
    step.stepNumber = -123456;
    step.colorHex = "#0000FF";
    Page page(1, white);
    page.draw({step});
    const double radius = AnnotationInk::stepRadius(step, 1) - AnnotationInk::stepRingWidth(step, 1) / 2;
    for (double y = 47; y < 54; ++y) // beside the number and within the ring
        EXPECT_EQ(page.at(100 + radius - 3, y), QColor(0, 0, 255)) << y;
    step.colorHex = "#FFFF00";
    page.draw({step});
    int darkest = 255;
    for (double x = 80; x < 120; ++x)
        darkest = std::min(darkest, page.at(x, 50).red());
    EXPECT_LT(darkest, 100);
}

TEST(AnnotationDrawingTest, WhiteMarksAreSeenOnWhite)
{
    std::vector<Annotation> marks{mark(Kind::arrow, {{20, 50}, {180, 50}}), mark(Kind::step, {{100, 50}})};
    for (const auto& [style, name] : RawStrings<Annotation::TextStyle>::table)
        marks.push_back(label("white", style));
    for (Annotation& each : marks) {
        each.colorHex = "#FFFFFF";
        Page page(1, white);
        page.draw({each});
        const QRectF extent = AnnotationExtent::visualExtent(each, 1);
        const QRect around = extent.adjusted(-3, -3, 3, 3).toAlignedRect();
        int shaded = 0;
        for (int y = around.top(); y < around.bottom(); ++y)
            for (int x = around.left(); x < around.right(); ++x)
                if (const QColor color = page.at(x, y); color != white && color.red() > 180)
                    ++shaded;
        EXPECT_GT(shaded, 60) << qPrintable(rawString(each.kind) + ' ' + rawString(each.textStyle));
    }
}

TEST(AnnotationDrawingTest, AnArrowsHeadIsATriangleWithSoftCorners)
{
    const QPainterPath arrow = AnnotationInk::inkPath(mark(Kind::arrow, {{20, 50}, {180, 50}}), 1);
    EXPECT_FALSE(arrow.contains({179.8, 50}));
    EXPECT_TRUE(arrow.contains({178.5, 50}));
    const double base = 180 - 1.02 * 17.2;
    EXPECT_FALSE(arrow.contains({base + 0.1, 50 + 8.1}));
    EXPECT_TRUE(arrow.contains({base + 2, 50 + 6}));
}

// Beside the arc of the corner, with sides that begin along the edge.
TEST(AnnotationDrawingTest, TheTailOfABubbleLeavesItsStraightEdge)
{
    const QRectF chip(0, 0, 100, 30);
    const QPainterPath tail = AnnotationInk::leaderInk(chip, {12, -12}, 20, 11);
    EXPECT_TRUE(tail.contains({15, -7.7}));
    EXPECT_GE(tail.intersected([] {
                      QPainterPath below;
                      below.addRect(QRectF(-50, -0.5, 200, 0.5));
                      return below;
                  }())
                  .boundingRect()
                  .left(),
              11);
    EXPECT_TRUE(AnnotationInk::leaderInk(chip, {50, 20}, 20, 11).isEmpty());
    EXPECT_GE(AnnotationInk::leaderInk(chip, {130, 15}, 10, 11).boundingRect().right(), 130);
}

TEST(AnnotationDrawingTest, LiftHasItsWorkedSteps)
{
    const struct {
        double luma;
        double lift;
    } cases[] = {{0.1, 0.3}, {0.2, 0.3}, {0.33, 0.15}, {0.45, 0.05}, {0.46, 0}, {0.6, 0}, {-5, 0.3}};

    for (const auto& [luma, lift] : cases)
        EXPECT_NEAR(HighlighterInk::lift(luma), lift, 1e-12) << luma;
}

TEST(AnnotationDrawingTest, HighlightersOfOneColourNeverDarkenTwice)
{
    Annotation one = mark(Kind::highlighter, {{20, 50}, {180, 50}});
    Annotation other = mark(Kind::highlighter, {{100, 10}, {100, 90}});
    Page page(1, QColor(200, 200, 200));
    page.draw({one, other});
    const QColor single = page.at(40, 50);
    EXPECT_EQ(single.name(), QColor(200, 30, 30).name()); // 0.85 of red over it
    EXPECT_EQ(page.at(100, 50), single);
    EXPECT_EQ(page.at(100, 15), single);

    other.colorHex = "#ff0000"; // the same, written differently
    Page same(1, QColor(200, 200, 200));
    same.draw({one, other});
    EXPECT_EQ(same.at(100, 50), single);

    other.colorHex = "#00FF00";
    Page two(1, QColor(200, 200, 200));
    two.draw({one, other});
    EXPECT_TRUE(isNear(two.at(100, 50), QColor(30, 30, 5)))
        << qPrintable(two.at(100, 50).name()); // multiplied: 200 * 0.15 twice is 4.5
}

TEST(AnnotationDrawingTest, OnADarkPageTheHighlighterColoursAndLifts)
{
    Annotation highlighter = mark(Kind::highlighter, {{20, 50}, {180, 50}});
    highlighter.highlightOnDark = true;
    highlighter.highlightPageLuma = 0.1;
    Page page(1, QColor(40, 40, 40));
    page.draw({highlighter});
    // Red of the luminosity 40 / 255, then 0.3 of red on it.
    EXPECT_NEAR(page.at(100, 50).red(), 133 + 77, 1);
    EXPECT_NEAR(page.at(100, 50).green(), 0, 1);
    EXPECT_TRUE(HighlighterInk::highlighterSweepContains(highlighter, {100, 60}));
    EXPECT_FALSE(HighlighterInk::highlighterSweepContains(highlighter, {100, 64}));
}

TEST(AnnotationDrawingTest, TheLastSpotlightSaysHowDarkItIsAndOverlapsAreLit)
{
    Annotation one = mark(Kind::spotlight, {{20, 20}, {100, 80}});
    one.dimLevel = 0.3;
    Annotation other = mark(Kind::spotlight, {{80, 40}, {260, 60}});
    other.dimLevel = 0.7;
    Page page(2, white);
    page.draw({one, other});
    EXPECT_TRUE(isNear(page.at(5, 5), QColor(77, 77, 77))) << qPrintable(page.at(5, 5).name()); // 30 percent are left
    for (const Point& lit : {Point{30, 50}, {90, 50}, {150, 50}, {199, 50}})
        EXPECT_EQ(page.at(lit.x, lit.y), white) << lit.x;
    EXPECT_TRUE(isNear(page.at(20.2, 20.2), QColor(77, 77, 77)))
        << qPrintable(page.at(20.2, 20.2).name()); // a round corner
}

TEST(AnnotationDrawingTest, RedactionsShowTheirSourceInWholePixelsAndEndAtTheCapture)
{
    for (const double scale : {1.0, 2.0}) {
        const QImage capture = textured(scale);
        Page page(scale, capture);
        page.scene.pixelatedFull = RedactionSources::pixelated(capture, scale);
        page.draw({mark(Kind::pixelate, {{150.3, 20.6}, {250, 70.2}})});
        const int height = capture.height();
        QImage expected = capture;
        const QRect pixels = QRect(QPoint(int(150.3 * scale), height - int(std::ceil(70.2 * scale))),
                                   QPoint(capture.width() - 1, height - 1 - int(20.6 * scale)));
        QPainter(&expected).drawImage(pixels, page.scene.pixelatedFull, pixels);
        EXPECT_TRUE(Testing::sameColors(page.image(), expected)) << scale;
    }
}

TEST(AnnotationDrawingTest, WhatIsTransparentStaysSoUnderARedaction)
{
    QImage capture = Testing::translucent(Testing::testPicture(pageSize, Testing::Texture::noise));
    capture.convertTo(QImage::Format_ARGB32_Premultiplied);
    const QImage blurred = RedactionSources::blurred(capture, 1);
    for (int y = 0; y < capture.height(); ++y)
        for (int x = 0; x < capture.width(); ++x)
            ASSERT_LE(qAlpha(blurred.pixel(x, y)), qAlpha(capture.pixel(x, y)));
}

TEST(AnnotationDrawingTest, TheOrderIsRedactionsHighlightersShadeAllOthers)
{
    Annotation shade = mark(Kind::spotlight, {{0, 0}, {10, 10}});
    shade.dimLevel = 0.5;
    const std::vector all{mark(Kind::line, {{20, 50}, {180, 50}}), shade,
                          mark(Kind::highlighter, {{20, 80}, {180, 80}}), mark(Kind::blackout, {{20, 10}, {180, 90}})};
    Page page(1, white);
    page.draw(all);
    EXPECT_TRUE(isNear(page.at(100, 50), red))
        << qPrintable(page.at(100, 50).name()); // a line above a blackout that came later
    EXPECT_TRUE(isNear(page.at(100, 80), QColor(Qt::black)))
        << qPrintable(page.at(100, 80).name()); // a highlighter on the blackout
    EXPECT_TRUE(isNear(page.at(15, 80), QColor(128, 19, 19)))
        << qPrintable(page.at(15, 80).name()); // shade on the highlighter
}

TEST(AnnotationDrawingTest, AHighlighterReachesThePointer)
{
    Page page(1, white);
    page.draw({mark(Kind::highlighter, {{20, 50}, {60, 50}, {60, 61}}, 4)}); // nearer than half the nib's height
    EXPECT_NE(page.at(60, 70), white);
}

// The layers of one colour, on dark pages of several kinds, and their order.
TEST(AnnotationDrawingTest, AHighlighterOutOfViewCountsForItsLayer)
{
    Annotation dim = mark(Kind::highlighter, {{20, 20}, {80, 20}});
    dim.highlightOnDark = true;
    dim.highlightPageLuma = 0.1;
    Annotation bright = mark(Kind::highlighter, {{20, 80}, {180, 80}});
    bright.highlightOnDark = true;
    bright.highlightPageLuma = 0.45;
    Annotation blue = mark(Kind::highlighter, {{60, 10}, {60, 60}});
    blue.highlightOnDark = true;
    blue.colorHex = "#0000FF";
    Annotation first = dim;
    first.points = {{150, 80}};
    for (const std::vector<Annotation>& marks : {std::vector{dim, bright}, {first, blue, dim}}) {
        Page whole(1, QColor(40, 40, 40));
        whole.draw(marks);
        Page lower(1, QColor(40, 40, 40));
        lower.scene.culledTo = QRectF(0, 0, 100, 40);
        lower.draw(marks, QRect(0, 60, 100, 40));
        for (const Point& place : {Point{30, 20}, {60, 20}, {60, 35}})
            EXPECT_EQ(lower.at(place.x, place.y), whole.at(place.x, place.y)) << marks.size() << ' ' << place.x;
    }
}

// What is drawn piece by piece, culled, is what is drawn at once.
TEST(AnnotationDrawingTest, PiecesAreThePixelsOfTheWhole)
{
    for (const double scale : {1.0, 1.5}) {
        const QImage capture = textured(scale);
        const auto scenery = [&](Page& page) {
            page.scene.blurredFull = RedactionSources::blurred(capture, scale);
            page.scene.pixelatedFull = RedactionSources::pixelated(capture, scale);
        };
        Page whole(scale, capture);
        scenery(whole);
        whole.draw(oneOfEach());
        Page pieces(scale, capture);
        scenery(pieces);
        for (int y = 0; y < capture.height(); y += 33)
            for (int x = 0; x < capture.width(); x += 47) {
                const QRect piece(x, y, 47, 33);
                pieces.scene.culledTo = QRectF(x, capture.height() - y - 33, 47, 33);
                pieces.draw(oneOfEach(), piece);
            }
        EXPECT_TRUE(Testing::sameColors(pieces.image(), whole.image())) << scale;
        EXPECT_NE(Testing::largestDifference(whole.image(), capture.convertToFormat(whole.image().format())), 0);
    }
}

TEST(AnnotationDrawingTest, InkStaysWithinItsExtentAndTheExtentWithinTheCullBound)
{
    for (Annotation& annotation : oneOfEach()) {
        if (annotation.kind == Kind::spotlight)
            continue;
        constexpr double shadow = MarkShadow::reach;
        const QRectF extent =
            AnnotationExtent::rotatedVisualExtent(annotation, 1).adjusted(-shadow, -shadow, shadow, shadow);
        EXPECT_TRUE(AnnotationExtent::cullBound(annotation, 1).contains(extent))
            << qPrintable(rawString(annotation.kind));
        Page page(1, white);
        page.scene.blurredFull = page.scene.pixelatedFull = textured(1);
        page.draw({annotation});
        QImage outside = page.image();
        QPainter(&outside).fillRect(QRect(int(extent.left()) - 1, int(100 - extent.bottom()) - 1,
                                          int(extent.width()) + 3, int(extent.height()) + 3),
                                    white);
        QImage blank(outside.size(), QImage::Format_RGB32);
        blank.fill(white);
        EXPECT_TRUE(Testing::sameColors(outside, blank)) << qPrintable(rawString(annotation.kind));
    }
}

TEST(AnnotationDrawingTest, LabelsStayWithinTheirCullBound)
{
    const char* const texts[] = {"",
                                 "i",
                                 "WWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWW",
                                 "a b c d e f g h i j k l m n o p q r s t u v w",
                                 "Donaudampfschifffahrtsgesellschaft und mehr",
                                 "\n\n\n",
                                 "漢字漢字漢字漢字漢字漢字漢字漢字",
                                 "🎉🎉🎉🎉🎉🎉🎉🎉🎉🎉🎉🎉🎉🎉",
                                 "שלום עולם مرحبا بالعالم",
                                 "@%@%@% MMM ﷽﷽﷽"};
    for (const char* const text : texts)
        for (const double rotation : {0.0, 0.7})
            for (const std::vector<Point>& points :
                 {std::vector<Point>{{50, 50}}, {{50, 90}, {75, 20}}, {{50, 90}, {190, 20}}}) {
                Annotation each = label(text, Annotation::TextStyle::bubble);
                each.points = points;
                each.rotation = rotation;
                EXPECT_TRUE(
                    AnnotationExtent::cullBound(each, 1).contains(AnnotationExtent::rotatedVisualExtent(each, 1)))
                    << text << ' ' << rotation << ' ' << points.back().x;
            }
}

TEST(AnnotationDrawingTest, AMeasuresBadgeIsHitWhereItIsRead)
{
    const Annotation measure = mark(Kind::measure, {{0, 50}, {120, 50}}, 2);
    const MeasureInk::Reading wide{MeasureUnit::pixels, 1e6};
    const QRectF badge = MeasureInk::measureBadgeRect(measure, 1, wide);
    const Point end{badge.right() - 6, badge.center().y() - 2};
    EXPECT_TRUE(AnnotationInk::contains(measure, end, 0, wide));
    EXPECT_FALSE(AnnotationInk::contains(measure, end, 0));
    EXPECT_GE(AnnotationExtent::visualExtent(measure, 1, wide).right(), badge.right());
}

TEST(AnnotationDrawingTest, ALongStrokeHasNoJoints)
{
    Annotation pen = mark(Kind::pen, {}, 9);
    for (int k = 0; k < 1000; ++k)
        pen.points.push_back({20 + k * 0.15, 50.5});
    pen.colorHex = "#FF000080";
    Page page(1, white);
    page.draw({pen});
    for (int x = 21; x < 169; ++x)
        ASSERT_EQ(page.at(x, 50).name(), QColor(255, 127, 127).name()) << x;
}

TEST(AnnotationDrawingTest, AnEmptyLabelDrawsNothing)
{
    Page page(1, white);
    page.draw({label("", Annotation::TextStyle::bubble), label(" \n", Annotation::TextStyle::background)});
    EXPECT_TRUE(Testing::sameColors(page.image(), Page(1, white).image()));
}

TEST(AnnotationDrawingTest, TheEditedLabelIsLeftOut)
{
    const Annotation edited = label("edited");
    Page page(1, white);
    page.scene.excludingTextID = edited.id;
    page.draw({edited});
    EXPECT_TRUE(Testing::sameColors(page.image(), Page(1, white).image()));
}

TEST(AnnotationDrawingTest, NumbersBeyondAllPicturesDrawNothing)
{
    std::vector<Annotation> all;
    for (const double number : {1e300, -1e300, 1e9, std::numeric_limits<double>::infinity(), std::nan("")})
        for (const auto& [kind, name] : RawStrings<Kind>::table) {
            all.push_back(mark(kind, {{number, 5}, {50, number}}));
            Annotation wide = mark(kind, {{5, 5}, {50, 50}}, number);
            wide.fontSize = wide.tipScale = number;
            all.push_back(wide);
            Annotation bent = mark(kind, {{5, 5}, {50, 50}});
            bent.curveControl = Point{number, number};
            bent.rotation = number;
            all.push_back(bent);
            all.push_back(mark(kind, {}));
        }
    std::erase_if(all, [](const Annotation& annotation) {
        return AnnotationInk::isDrawable(annotation, 1) && annotation.kind == Kind::text;
    });
    Page page(1, white);
    page.draw(all);
    EXPECT_TRUE(Testing::sameColors(page.image(), Page(1, white).image()));
}

TEST(AnnotationDrawingTest, MarksAreHitWhereTheyAreDrawn)
{
    Annotation turned = label("a long label", Annotation::TextStyle::background);
    turned.rotation = std::numbers::pi / 2;
    const Point centre = turned.textRect().centre();

    const struct {
        const char* name;
        Annotation annotation;
        Point point;
        double tolerance;
        bool isHit;
    } cases[] = {
        {"on a line", mark(Kind::line, {{20, 50}, {180, 50}}), {100, 51}, 0, true},
        {"beside a line", mark(Kind::line, {{20, 50}, {180, 50}}), {100, 56}, 0, false},
        {"near a line", mark(Kind::line, {{20, 50}, {180, 50}}), {100, 56}, 5, true},
        {"an arrow's head", mark(Kind::arrow, {{20, 50}, {180, 50}}), {165, 55}, 0, true},
        {"inside a rectangle", mark(Kind::rectangle, {{20, 20}, {80, 80}}), {50, 50}, 0, true},
        {"a turned label", turned, {centre.x, centre.y + 50}, 0, true},
        {"where it was", turned, {centre.x + 50, centre.y}, 0, false},
        {"a step", mark(Kind::step, {{50, 50}}), {57, 57}, 0, true},
        {"nothing", mark(Kind::pen, {}), {0, 0}, 100, false},
        {"far away", mark(Kind::line, {{1e300, 0}, {0, 0}}), {0, 0}, 5, false},
    };

    for (const auto& [name, annotation, point, tolerance, isHit] : cases)
        EXPECT_EQ(AnnotationInk::contains(annotation, point, tolerance), isHit) << name;
}

} // namespace Kovrel
