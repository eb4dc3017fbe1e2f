#include "platform/recognisers/TextLines.h"
#include "tests/platform/recognisers/Letters.h"

#include <gtest/gtest.h>

namespace Kovrel {

using Testing::append;
using Testing::letterHeight;
using Testing::letters;

namespace {

// "left,top width x height" of each line, with a + before those that continue another.
std::vector<std::string> linesOf(const std::vector<QRect>& blobs)
{
    std::vector<std::string> texts;
    for (const TextLines::Line& line : TextLines::of(blobs, letterHeight)) {
        const QRect& box = line.box;
        texts.push_back((line.continues ? "+" : "") + std::to_string(box.x()) + "," + std::to_string(box.y()) + " " +
                        std::to_string(box.width()) + "x" + std::to_string(box.height()));
    }
    return texts;
}

using Lines = std::vector<std::string>;

} // namespace

TEST(TextLines, MarksAndTallLettersBelongToTheirLine)
{
    const Lines alone{"20,30 60x10"};

    struct Case {
        const char* what;
        QRect blob;
        Lines lines;
    };

    const Case cases[] = {
        {"a capital", {83, 25, 6, 15}, {"20,25 69x15"}},
        {"a letter that hangs down", {83, 30, 6, 15}, {"20,30 69x15"}},
        {"the dot of an i", {30, 25, 2, 2}, {"20,25 60x15"}},
        {"a comma behind", {83, 37, 2, 6}, {"20,30 65x13"}},
        {"a dash before", {8, 35, 6, 2}, {"8,30 72x10"}},
        {"a dash and a wide space before", {0, 35, 6, 2}, {"0,30 80x10"}},
        {"a letter of a line that is closer than a letter is high", {20, 53, 6, 10}, {"20,30 60x10", "20,53 6x10"}},
        {"a speck far away", {300, 33, 2, 2}, alone},
        {"a frame", {10, 20, 75, 30}, alone},
        {"a picture", {90, 0, 200, 200}, alone},
        {"a rule", {20, 44, 300, 1}, alone},
    };
    for (const Case& c : cases) {
        auto blobs = letters(20, 40, 7);
        blobs.push_back(c.blob);
        EXPECT_EQ(linesOf(blobs), c.lines) << c.what;
    }
}

TEST(TextLines, GapsDivideLines)
{
    struct Case {
        int gap;
        Lines lines;
    };

    for (const Case& c : {Case{20, {"0,30 131x10"}}, Case{35, {"0,30 60x10", "+95,30 51x10"}},
                          Case{60, {"0,30 60x10", "120,30 51x10"}}}) {
        auto blobs = letters(0, 40, 7);
        append(blobs, letters(60 + c.gap, 40, 6));
        blobs.push_back({57, 30, 3, 10});
        EXPECT_EQ(linesOf(blobs), c.lines) << c.gap;
    }
}

TEST(TextLines, QuotationMarksBridgeTheGapBetweenLetters)
{
    auto blobs = letters(0, 40, 5);
    append(blobs, letters(80, 40, 5));
    blobs.reserve(blobs.size() + 4);
    for (const int left : {46, 49, 72, 75})
        blobs.push_back({left, 25, 2, 6});
    EXPECT_EQ(linesOf(blobs), Lines{"0,25 122x15"});
}

TEST(TextLines, LinesThatTouchStayTwo)
{
    auto blobs = letters(0, 20, 20);
    append(blobs, letters(0, 35, 20));
    blobs.push_back({90, 10, 6, 25}); // a letter that hangs down into a capital
    EXPECT_EQ(linesOf(blobs), (Lines{"0,10 177x10", "0,25 177x10"}));
}

TEST(TextLines, ASlopingLineIsOne)
{
    std::vector<QRect> blobs;
    blobs.reserve(100);
    for (int at = 0; at < 100; ++at)
        blobs.push_back({at * 9, 100 + at / 4, 6, 10});
    EXPECT_EQ(linesOf(blobs).size(), 1u);
}

TEST(TextLines, TheRoomHasPlaceForLettersThatAreNotThere)
{
    const auto lines = TextLines::of(letters(20, 40, 7), letterHeight);
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_EQ(lines.front().letterHeight, letterHeight);
    EXPECT_LE(lines.front().room.top(), 26);
    EXPECT_GE(lines.front().room.bottom(), 43);
    EXPECT_EQ(lines.front().room.left(), lines.front().box.left());
}

TEST(TextLines, ALoneBraceIsNoHeadline)
{
    const auto lines = TextLines::of({{20, 17, 8, 26}}, letterHeight);
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_EQ(lines.front().letterHeight, letterHeight);
}

TEST(TextLines, NothingMakesNoLines)
{
    EXPECT_TRUE(TextLines::of({}, letterHeight).empty());
    EXPECT_TRUE(TextLines::of({{5, 5, 1, 1}, {9, 3, 2, 1}}, letterHeight).empty());
}

} // namespace Kovrel
