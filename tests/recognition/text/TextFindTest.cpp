#include "recognition/text/TextFind.h"

#include <gtest/gtest.h>

namespace Kovrel {

namespace {

// A line of its own height 0.1, wide enough to be continued.
OCRLine line(const QString& text, double y = 0.5, double x = 0.1, double width = 0.4)
{
    return {.text = text, .confidence = 1, .boundingBox = {x, y, width, 0.1}};
}

std::vector<std::pair<int, int>> rangesOf(const QString& query, const QString& text)
{
    std::vector<std::pair<int, int>> ranges;
    for (const auto& match : TextFind::matches(query, {line(text)}, 100))
        ranges.emplace_back(match.start, match.end);
    return ranges;
}

} // namespace

TEST(TextFind, NeitherCaseNorAccentsNorKindsOfSpaceCount)
{
    using Ranges = std::vector<std::pair<int, int>>;

    struct Case {
        const char* query;
        const char* text;
        Ranges expected;
    };

    const Case cases[] = {
        {"RÉSUMÉ", "my resume", {{3, 9}}},
        {"resume", "Re\u0301sume\u0301s", {{0, 6}}},
        {"a b", "A\u00A0B a\tb a\r\nb", {{0, 3}, {4, 7}, {8, 11}}},
        {"  \tb", "a b", {{2, 3}}},
        {"b ", "ab b", {{1, 3}}},
        {"ø", "O \u00D8", {{2, 3}}},
        {"i", "\u0130I", {{0, 1}, {1, 2}}},
        {"aa", "aaaa", {{0, 2}, {2, 4}}},
        {"x", "\U0001F469\u200D\U0001F4BBx", {{1, 2}}},
        {"\U0001F4BB", "\U0001F469\u200D\U0001F4BB \U0001F4BB", {{2, 3}}},
        {"", "a", {}},
        {" \u00A0\n", "a b", {}},
        {"longer", "long", {}},
    };
    for (const Case& c : cases)
        EXPECT_EQ(rangesOf(QString(c.query), QString(c.text)), c.expected) << qPrintable(QString(c.query));
}

TEST(TextFind, BoxesOfRightToLeftLinesHaveAWidth)
{
    struct Case {
        const char* query;
        std::vector<double> centers;
        double left;
        double width;
    };

    const QString text = QString::fromUtf8("שלום 12");
    const std::vector<double> centers{0.45, 0.4, 0.35, 0.3, 0.25, 0.15, 0.2};
    for (const Case& c : {Case{"של", centers, 0.375, 0.125}, Case{"12", centers, 0.1, 0.1},
                          Case{"שלום", {}, 0.1 + 0.4 * 3 / 7, 0.4 * 4 / 7}}) {
        OCRLine written = line(text);
        written.characterCenters = c.centers;
        const auto found = TextFind::matches(QString::fromUtf8(c.query), {written}, 1);
        ASSERT_EQ(found.size(), 1u) << c.query;
        EXPECT_NEAR(found.front().boxes.front().x, c.left, 1e-9) << c.query;
        EXPECT_NEAR(found.front().boxes.front().width, c.width, 1e-9) << c.query;
    }
}

TEST(TextFind, BoxesLieBetweenTheCentresOfCharacters)
{
    OCRLine even = line("abcd", 0.5, 0.2, 0.4);
    for (const auto& [index, x] : {std::pair(0, 0.2), {1, 0.3}, {2, 0.4}, {3, 0.5}, {4, 0.6}})
        EXPECT_NEAR(TextFind::boundary(index, even, 4), x, 1e-12);
    OCRLine uneven = even;
    uneven.characterCenters = {0.22, 0.26, 0.4, 0.58};
    for (const auto& [index, x] : {std::pair(0, 0.2), {1, 0.24}, {2, 0.33}, {3, 0.49}, {4, 0.6}})
        EXPECT_NEAR(TextFind::boundary(index, uneven, 4), x, 1e-12);
    uneven.characterCenters.pop_back();
    EXPECT_NEAR(TextFind::boundary(1, uneven, 4), 0.3, 1e-12) << "centres of another text do not count";

    const auto found = TextFind::matches("BC", {even}, 1);
    ASSERT_EQ(found.size(), 1u);
    ASSERT_EQ(found[0].boxes.size(), 1u);
    EXPECT_NEAR(found[0].boxes[0].minX(), 0.3, 1e-12);
    EXPECT_NEAR(found[0].boxes[0].maxX(), 0.5, 1e-12);
    EXPECT_EQ(found[0].boxes[0].y, 0.5);
    EXPECT_EQ(found[0].boxes[0].height, 0.1);
}

TEST(TextFind, WordsAreFoundAcrossTheEndsOfLines)
{
    const std::vector<OCRLine> lines{line("one two", 0.8), line("three", 0.65), line("four two", 0.5),
                                     line("three", 0.1)};
    const auto found = TextFind::matches("two three", lines, 10);
    ASSERT_EQ(found.size(), 1u) << "the last line stands too far below";
    EXPECT_EQ(found[0].line, 0);
    EXPECT_EQ(found[0].start, 4);
    EXPECT_EQ(found[0].end, 13);
    ASSERT_EQ(found[0].boxes.size(), 2u);
    EXPECT_EQ(found[0].boxes[1], lines[1].boundingBox);

    const auto longer = TextFind::matches("o three f", lines, 10);
    ASSERT_EQ(longer.size(), 1u);
    EXPECT_EQ(longer[0].boxes.size(), 3u);
    EXPECT_EQ(TextFind::matches("twothree", lines, 10).size(), 0u);

    const auto later = TextFind::matches("four t", lines, 10);
    ASSERT_EQ(later.size(), 1u);
    EXPECT_EQ(std::tuple(later[0].line, later[0].start, later[0].end), std::tuple(2, 0, 6));

    const auto trailing = TextFind::matches("two ", lines, 10);
    ASSERT_EQ(trailing.size(), 1u);
    EXPECT_EQ(trailing[0].boxes.size(), 1u) << "the end of a line is a space without a box";
}

TEST(TextFind, OnlyUprightTextRightBelowContinuesALine)
{
    const OCRLine upper = line("a", 0.8);

    struct Case {
        const char* what;
        OCRLine lower;
        bool isContinued;
    };

    OCRLine code = line("b", 0.65);
    code.isQRCode = true;
    OCRLine rotated = line("b", 0.65);
    rotated.quad = OCRQuad{};
    const Case cases[] = {
        {"right below", line("b", 0.69), true},
        {"a gap of 1.5 heights", line("b", 0.55), true},
        {"a gap of 1.6 heights", line("b", 0.54), false},
        {"half overlapping", line("b", 0.75), true},
        {"more than half overlapping", line("b", 0.76), false},
        {"above", line("b", 0.85), false},
        {"half of the narrower width", line("b", 0.65, 0.4, 0.2), true},
        {"less than that", line("b", 0.65, 0.41, 0.2), false},
        {"a code", code, false},
        {"rotated", rotated, false},
    };
    for (const Case& c : cases)
        EXPECT_EQ(TextFind::continues(c.lower, upper), c.isContinued) << c.what;
}

TEST(TextFind, StopsAtTheLimit)
{
    const std::vector<OCRLine> lines(5, line("a a"));
    for (const auto& [limit, count] : {std::pair(3, 3u), {100, 10u}, {0, 0u}, {-1, 0u}})
        EXPECT_EQ(TextFind::matches("a", lines, limit).size(), count);
    const auto found = TextFind::matches("a", lines, 3);
    EXPECT_EQ(std::pair(found[2].line, found[2].start), std::pair(1, 0));
}

} // namespace Kovrel
