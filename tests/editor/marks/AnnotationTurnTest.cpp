#include "editor/marks/AnnotationTurn.h"
#include "editor/AnnotationFlattener.h"
#include "tests/support/TestPictures.h"

#include <QTransform>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace Kovrel {

namespace {

using Kind = Annotation::Kind;

const QImage capture = Testing::testPicture({120, 80}, Testing::Texture::blocks);

QImage drawn(const QImage& base, const Annotation& mark)
{
    EditorBackdropRenderer renderer;
    return AnnotationFlattener::render({.base = base, .annotations = {mark}, .exportScale = 2}, renderer);
}

// How many pixels differ by more than what turned edges are rounded to.
int differences(const QImage& one, const QImage& other)
{
    int count = 0;
    for (int y = 0; y < one.height(); ++y)
        for (int x = 0; x < one.width(); ++x)
            if (std::abs(qGray(one.pixel(x, y)) - qGray(other.pixel(x, y))) > 60)
                ++count;
    return count;
}

} // namespace

TEST(AnnotationTurnTest, TheMarkedPictureTurnedIsTheTurnedPictureMarked)
{
    Annotation arrow{.kind = Kind::arrow, .points = {{5, 5}, {40, 20}}, .colorHex = "#FF0000", .lineWidth = 3};
    Annotation curved = arrow;
    curved.curveControl = Point{10, 30};
    Annotation box{.kind = Kind::rectangle, .points = {{10, 8}, {50, 30}}, .colorHex = "#00FF00", .lineWidth = 3};
    Annotation tilted = box;
    tilted.rotation = 0.3;
    const Annotation label{
        .kind = Kind::text, .points = {{8, 25}}, .colorHex = "#000000", .text = "Label", .fontSize = 12};
    const Annotation blackout{.kind = Kind::blackout, .points = {{30, 5}, {55, 12}}, .colorHex = "#000000"};
    for (const Annotation& mark : {arrow, curved, box, tilted, label, blackout})
        for (const auto [turn, degrees] : {std::pair{QuarterTurn::left, -90}, {QuarterTurn::right, 90}}) {
            const QTransform whole = QTransform().rotate(degrees);
            const QImage expected = drawn(capture, mark).transformed(whole);
            const QImage actual = drawn(capture.transformed(whole), AnnotationTurn::turned(mark, {60, 40}, turn));
            ASSERT_EQ(actual.size(), expected.size()) << qPrintable(rawString(mark.kind));
            EXPECT_LT(differences(actual, expected), 40) << qPrintable(rawString(mark.kind)) << ' ' << degrees;
            EXPECT_GT(differences(capture.transformed(whole), expected), 80) << "the mark is seen";
        }
}

TEST(AnnotationTurnTest, FourTurnsAreNone)
{
    const Annotation label{.kind = Kind::text, .points = {{8, 25}}, .text = "Label", .rotation = 0.5};
    Annotation turned = label;
    for (const Size size : {Size{60, 40}, {40, 60}, {60, 40}, {40, 60}})
        turned = AnnotationTurn::turned(turned, size, QuarterTurn::right);
    EXPECT_NEAR(turned.rotation, label.rotation, 1e-9);
    EXPECT_NEAR(turned.points[0].x, 8, 1e-9);
    EXPECT_NEAR(turned.points[0].y, 25, 1e-9);
}

} // namespace Kovrel
