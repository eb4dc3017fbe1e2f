#include "editor/AnnotationFlattener.h"

#include "tests/support/PictureDifference.h"
#include "tests/support/TestPictures.h"

#include <QPainter>

#include <gtest/gtest.h>

namespace Kovrel {

namespace {

using AnnotationFlattener::Input;
using Kind = Annotation::Kind;

Annotation mark(Kind kind, std::vector<Point> points, double lineWidth = 4)
{
    return {.kind = kind, .points = std::move(points), .colorHex = "#FF0000", .lineWidth = lineWidth};
}

QImage plain(QSize size, const QColor& color)
{
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(color);
    return image;
}

QImage rendered(const Input& input)
{
    EditorBackdropRenderer renderer;
    return AnnotationFlattener::render(input, renderer);
}

} // namespace

TEST(AnnotationFlattenerTest, ThePictureGrowsByWhatSticksOutButNotByMore)
{
    const QSize size(200, 100);

    const struct {
        const char* name;
        Annotation annotation;
        double scale;
        QMargins padding;
    } cases[] = {
        {"inside", mark(Kind::rectangle, {{20, 20}, {180, 80}}), 1, {}},
        {"at the edge", mark(Kind::rectangle, {{2, 2}, {198, 98}}), 1, {}},
        {"half a line out", mark(Kind::rectangle, {{0, 0}, {200, 100}}), 1, {2, 2, 2, 2}},
        {"at scale 2", mark(Kind::rectangle, {{0, 0}, {100, 50}}), 2, {4, 4, 4, 4}},
        {"far out to the right", mark(Kind::line, {{100, 50}, {400, 50}}), 1, {0, 0, 8, 0}},
        {"as far at scale 2", mark(Kind::line, {{50, 25}, {400, 25}}), 2, {0, 0, 16, 0}},
        {"as far at scale 0.5", mark(Kind::line, {{200, 100}, {800, 100}}), 0.5, {0, 0, 4, 0}},
        {"above", mark(Kind::line, {{100, 50}, {100, 101}}), 1, {0, 3, 0, 0}},
        {"below", mark(Kind::step, {{100, 10}}), 1, {0, 0, 0, 4}},
        {"a redaction ends with the capture", mark(Kind::blackout, {{-50, -50}, {400, 400}}), 1, {}},
        {"so does a spotlight", mark(Kind::spotlight, {{-50, -50}, {50, 50}}), 1, {}},
    };

    for (const auto& [name, annotation, scale, padding] : cases) {
        const QMargins found = AnnotationFlattener::exportPadding({annotation}, size, scale);
        EXPECT_EQ(found, padding) << name << ": " << found.left() << ' ' << found.top() << ' ' << found.right() << ' '
                                  << found.bottom();
        const QImage picture =
            rendered({.base = plain(size, Qt::white), .annotations = {annotation}, .exportScale = scale});
        EXPECT_EQ(picture.size(), size.grownBy(padding)) << name;
    }
}

TEST(AnnotationFlattenerTest, WithoutMarksThePictureIsTheCapture)
{
    QImage capture = Testing::testPicture({61, 43}, Testing::Texture::noise).convertToFormat(QImage::Format_RGB32);
    capture.setColorSpace(QColorSpace(QColorSpace::DisplayP3));
    capture.setDotsPerMeterX(5669);
    capture.setDotsPerMeterY(5669);
    const QImage picture = rendered({.base = capture});
    EXPECT_TRUE(Testing::sameColors(picture, capture));
    EXPECT_EQ(picture.colorSpace(), capture.colorSpace());
    EXPECT_EQ(picture.dotsPerMeterX(), 5669);
    EXPECT_TRUE(rendered({}).isNull());
}

// Also under a blur or squares that were drawn before or after it.
TEST(AnnotationFlattenerTest, NothingOfTheCaptureIsLeftUnderABlackout)
{
    const Annotation blackout = mark(Kind::blackout, {{10.4, 10.4}, {60.6, 50.6}});
    const Annotation blur = mark(Kind::blur, {{20, 20}, {50, 40}});
    const Annotation squares = mark(Kind::pixelate, {{20, 20}, {50, 40}});
    for (const std::vector<Annotation>& marks :
         {std::vector{blackout}, {blackout, blur}, {blur, blackout}, {blackout, squares}, {squares, blackout}}) {
        Input one{.base = Testing::testPicture({80, 60}, Testing::Texture::noise, 1), .annotations = marks};
        Input other = one;
        QPainter(&other.base).fillRect(10, 9, 51, 41, Qt::green);
        const QImage picture = rendered(one);
        EXPECT_TRUE(Testing::sameColors(rendered(other), picture)) << marks.size();
        EXPECT_EQ(picture.pixelColor(10, 9), QColor(Qt::black)); // whole pixels, outward
        EXPECT_EQ(picture.pixelColor(60, 49), QColor(Qt::black));
        EXPECT_EQ(picture.pixelColor(35, 30), QColor(Qt::black));
    }
}

TEST(AnnotationFlattenerTest, AMatteLiesUnderEverything)
{
    const Input input{.base = plain({100, 100}, Qt::transparent),
                      .annotations = {mark(Kind::blur, {{0, 0}, {50, 100}}), mark(Kind::highlighter, {{75, 50}})},
                      .matte = QColor(200, 200, 200)};
    const QImage picture = rendered(input);
    EXPECT_EQ(picture.pixelColor(20, 50).name(), "#c8c8c8"); // the blur is one of what is seen
    EXPECT_EQ(picture.pixelColor(75, 50).name(), "#c81e1e");
    EXPECT_EQ(rendered({.base = input.base}).pixelColor(20, 50).alpha(), 0);
}

TEST(AnnotationFlattenerTest, OnABackdropTheCaptureIsClippedAndMarksReachOver)
{
    EditorBackdrop backdrop;
    backdrop.fill = {BackdropFill::Kind::color, "#0000FF"};
    backdrop.padding = 0.25;
    backdrop.shadowOpacity = 0;
    backdrop.corners = 20;
    Annotation shade = mark(Kind::spotlight, {{150, 50}, {160, 60}});
    shade.dimLevel = 0.5;
    const Input input{.base = plain({400, 200}, Qt::white),
                      .annotations = {shade, mark(Kind::line, {{-30, 100}, {50, 100}}),
                                      mark(Kind::highlighter, {{200, -20}, {200, 100}}, 8)},
                      .backdrop = backdrop};
    const QImage picture = rendered(input);
    ASSERT_EQ(picture.size(), QSize(480, 280));
    const QColor blue(0, 0, 255);

    const struct {
        const char* name;
        QPoint pixel;
        QColor color;
    } probes[] = {
        {"fill", {5, 5}, blue},
        {"a corner of the capture", {41, 41}, blue},
        {"the shaded capture", {100, 60}, QColor(128, 128, 128)},
        {"in the light", {195, 185}, Qt::white},
        {"a line over the edge", {15, 140}, Qt::red},
        {"a highlighter ends at the edge", {240, 245}, blue},
    };

    for (const auto& [name, pixel, color] : probes)
        EXPECT_EQ(picture.pixelColor(pixel).name(), color.name()) << name;
    EXPECT_EQ(picture.pixelColor(240, 235).green(), picture.pixelColor(240, 235).blue());
    EXPECT_GT(picture.pixelColor(240, 235).red(), picture.pixelColor(240, 235).blue());
}

} // namespace Kovrel
