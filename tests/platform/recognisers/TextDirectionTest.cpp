#include "platform/recognisers/TextDirection.h"
#include "tests/platform/recognisers/Letters.h"

#include <QTransform>

#include <gtest/gtest.h>

namespace Kovrel {

using Testing::letterHeight;

namespace {

// A page of lines, turned clockwise.
std::vector<QRect> page(double degrees, int lines, int letters)
{
    QTransform turn;
    turn.rotate(degrees);
    std::vector<QRect> blobs;
    for (int line = 0; line < lines; ++line)
        for (int letter = 0; letter < letters; ++letter) {
            const int spaces = letter / 6;
            const QPointF centre = turn.map(QPointF(letter * 9 + spaces * 6, line * 22));
            blobs.push_back(QRectF(centre.x() - 4, centre.y() - 5, 8, 10).toRect());
        }
    return blobs;
}

} // namespace

TEST(TextDirection, IsThatOfTheLines)
{
    struct Case {
        double turned;
        double found;
    };

    for (const Case& c : {Case{0, 0}, Case{0.3, 0}, Case{3, 3}, Case{20, 20}, Case{-35, -35}, Case{90, 90},
                          Case{-90, 90}, Case{180, 0}, Case{170, -10}})
        EXPECT_NEAR(TextDirection::of(page(c.turned, 20, 60), letterHeight), c.found, 0.5) << c.turned;
}

TEST(TextDirection, FewLettersSayNothing)
{
    EXPECT_EQ(TextDirection::of({}, letterHeight), 0);
    EXPECT_EQ(TextDirection::of(page(40, 1, 11), letterHeight), 0);
    std::vector<QRect> calendar;
    calendar.reserve(35);
    for (int day = 0; day < 35; ++day)
        calendar.push_back({day % 7 * 60, day / 7 * 28, 8, 10});
    for (int broken = 0; broken < 5; ++broken)
        calendar.push_back({broken * 60 + 9, 11, 5, 5});
    EXPECT_EQ(TextDirection::of(calendar, letterHeight), 0) << "letters that stand alone";
}

} // namespace Kovrel
