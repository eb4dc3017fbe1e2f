#include "imaging/InkBlobs.h"

#include <QStringList>

#include <gtest/gtest.h>

namespace Kovrel {

TEST(InkBlobs, AreWhatHangsTogether)
{
    struct Case {
        QStringList rows;
        std::vector<QRect> boxes;
    };

    const Case cases[] = {
        {{"....", "...."}, {}},
        {{"#"}, {{0, 0, 1, 1}}},
        {{"#..#", "#..#", "####"}, {{0, 0, 4, 3}}},
        {{"#...", ".#..", "...#"}, {{0, 0, 2, 2}, {3, 2, 1, 1}}},
        {{"..#", ".#.", "#.."}, {{0, 0, 3, 3}}},
        {{"#.#.#", ".....", "#####"}, {{0, 0, 1, 1}, {2, 0, 1, 1}, {4, 0, 1, 1}, {0, 2, 5, 1}}},
        {{"#.#.#", "#####"}, {{0, 0, 5, 2}}},
    };
    for (const Case& c : cases) {
        const InkBlobs blobs(QSize(int(c.rows.front().size()), int(c.rows.size())),
                             [&](int x, int y) { return c.rows[y][x] == '#'; });
        EXPECT_EQ(blobs.boxes(), c.boxes) << qPrintable(c.rows.join('\n'));
    }
}

} // namespace Kovrel
