#include "platform/recognisers/PageDivision.h"
#include "tests/platform/recognisers/Letters.h"

#include <gtest/gtest.h>

namespace Kovrel {

using Testing::append;
using Testing::letterHeight;
using Testing::letters;

namespace {

std::vector<QRect> column(int left, int top, int lines)
{
    std::vector<QRect> blobs;
    for (int line = 0; line < lines; ++line)
        append(blobs, letters(left, top + 10 + line * 20, 20));
    return blobs;
}

// What the blobs of each part cover; parts right below each other are one.
std::vector<QRect> partsOf(const std::vector<QRect>& blobs)
{
    std::vector<QRect> areas;
    for (const auto& part : PageDivision::parts(blobs, letterHeight)) {
        QRect area;
        for (const QRect& blob : part)
            area |= blob;
        if (!areas.empty() && areas.back().left() == area.left() && areas.back().right() == area.right() &&
            areas.back().top() < area.top())
            areas.back() |= area;
        else
            areas.push_back(area);
    }
    return areas;
}

} // namespace

TEST(PageDivision, ColumnsAreReadFromTheLeft)
{
    auto blobs = column(300, 0, 10);
    append(blobs, column(0, 0, 10));
    EXPECT_EQ(partsOf(blobs), (std::vector{QRect(0, 0, 177, 190), QRect(300, 0, 177, 190)}));
}

TEST(PageDivision, WhatStandsAboveColumnsComesBeforeThem)
{
    auto blobs = column(0, 200, 10);
    append(blobs, column(300, 200, 10));
    for (int line = 0; line < 5; ++line)
        append(blobs, letters(0, 60 + line * 20, 53));
    const auto parts = partsOf(blobs);
    ASSERT_EQ(parts.size(), 3u);
    EXPECT_EQ(parts[0], QRect(0, 50, 474, 90));
    EXPECT_EQ(parts[1].left(), 0);
    EXPECT_EQ(parts[2].left(), 300);
}

TEST(PageDivision, WordsAndFewLettersAreNotCut)
{
    auto words = column(0, 0, 8);
    append(words, column(177 + 2 * letterHeight - 1, 0, 8));
    auto few = column(0, 0, 1);
    append(few, column(300, 0, 1));
    for (const auto& blobs : {words, few})
        EXPECT_EQ(partsOf(blobs).front().right(), blobs.back().right());
}

TEST(PageDivision, PicturesBelongToNoPart)
{
    auto blobs = column(0, 0, 3);
    blobs.push_back({0, 100, 400, 300});
    EXPECT_EQ(partsOf(blobs), std::vector{QRect(0, 0, 177, 50)});
}

TEST(PageDivision, NothingIsOnePartAtMost)
{
    EXPECT_LE(PageDivision::parts({}, letterHeight).size(), 1u);
}

} // namespace Kovrel
