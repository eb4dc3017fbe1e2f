#include "platform/recognisers/PageRules.h"
#include "tests/platform/recognisers/Letters.h"

#include <QPainter>

#include <gtest/gtest.h>

namespace Kovrel {

using Testing::append;
using Testing::letterHeight;
using Testing::letters;

namespace {

QImage inkOf(const std::vector<QRect>& boxes)
{
    QImage ink(200, 100, QImage::Format_Grayscale8);
    ink.fill(Qt::white);
    QPainter painter(&ink);
    for (const QRect& box : boxes)
        painter.fillRect(box, Qt::black);
    return ink;
}

} // namespace

TEST(PageRules, RulesGoAndStrokesStay)
{
    const QRect descender{65, 40, 3, 6};
    const std::vector<QRect> frame{{10, 20, 90, 1}, {10, 55, 90, 1}, {10, 20, 1, 36}, {99, 20, 1, 36}};
    std::vector<QRect> hanging{{20, 68, 60, 2}};
    for (int x = 20; x < 80; x += 6)
        hanging.push_back({x, 70, 2, 8});

    struct Case {
        const char* what;
        std::vector<QRect> rules;
        std::vector<QRect> kept;
    };

    const Case cases[] = {
        {"an underline", {{20, 42, 60, 1}}, {}},
        {"an underline that a letter crosses", {{20, 42, 60, 1}}, {descender}},
        {"a frame", frame, {}},
        {"the frame of a button, which is little higher than its text",
         {{10, 24, 90, 1}, {10, 46, 90, 1}, {10, 24, 1, 23}, {99, 24, 1, 23}},
         {}},
        {"a rule between columns", {{120, 2, 1, 90}}, {}},
        {"a dash", {}, {{90, 35, 20, 1}}},
        {"an area", {}, {{120, 10, 60, 20}}},
        {"the line from which letters hang", {}, hanging},
    };
    for (const Case& c : cases) {
        std::vector<QRect> expected = letters(20, 40, 7);
        append(expected, c.kept);
        std::vector<QRect> all = expected;
        append(all, c.rules);
        EXPECT_EQ(PageRules::without(inkOf(all), letterHeight), inkOf(expected)) << c.what;
    }
}

} // namespace Kovrel
