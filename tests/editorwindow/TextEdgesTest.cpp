#include "editorwindow/find/TextEdges.h"

#include <QPainter>

#include <gtest/gtest.h>

namespace Kovrel {

namespace {

// Letters 12 pixels wide, 3 apart; words 12 apart; on a line 40 high at the top of a picture of 400 x 100 with two
// pixels to a point.
EditorCapture page(const QColor& ground, const QColor& ink)
{
    QImage image(400, 100, QImage::Format_RGB32);
    image.fill(ground);
    QPainter painter(&image);
    for (const int x : {100, 115, 130, 154, 169, 184, 208, 223})
        painter.fillRect(x, 6, 12, 28, ink);
    return {QUuid::createUuid(), image, 2, std::nullopt};
}

// In points: a line of 20 points at the top.
Rect boxOf(double left, double right)
{
    return {left / 2, 30, (right - left) / 2, 20};
}

} // namespace

TEST(TextEdgesTest, NothingIsLeftOfALetterAndNoOtherWordIsTouched)
{
    const struct {
        const char* what;
        double left, right; // as they were recognised, pixels
        bool isOfWords;
        double least[2], most[2]; // the edges that are asked for
    } cases[] = {
        {"a word as it is", 152, 198, true, {154, 196}, {142, 208}},
        {"recognised too far to the left", 146, 189, true, {154, 196}, {142, 208}},
        {"by a whole letter", 143, 182, true, {154, 196}, {142, 208}},
        {"two words", 152, 234, true, {154, 235}, {142, 400}},
        {"a part of a word", 170, 180, false, {169, 181}, {154, 196}},
        {"at the edge of the picture", 0, 150, true, {0, 151}, {0, 200}},
    };

    for (const auto& [ground, ink] :
         {std::pair{QColor(250, 250, 252), QColor(20, 20, 20)}, {QColor(30, 40, 60), QColor(140, 170, 190)}})
        for (const auto& [what, left, right, isOfWords, least, most] : cases) {
            const Rect widened = TextEdges::widened(page(ground, ink), boxOf(left, right), isOfWords);
            EXPECT_LE(2 * widened.minX(), least[0]) << what;
            EXPECT_GE(2 * widened.maxX(), least[1]) << what;
            EXPECT_GE(2 * widened.minX(), most[0]) << what;
            EXPECT_LE(2 * widened.maxX(), most[1]) << what;
            EXPECT_LT(widened.minY(), 30) << what;
            EXPECT_LE(widened.maxY(), 50) << what;
        }
}

} // namespace Kovrel
