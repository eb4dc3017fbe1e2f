#include "cards/PreviewDuration.h"

#include <gtest/gtest.h>

#include <cmath>

namespace Kovrel {

using namespace std::chrono_literals;

TEST(PreviewDurationTest, WhatASettingSaysIsATimeOrNone)
{
    EXPECT_EQ(PreviewDuration::of(5).time(), 5s);
    EXPECT_EQ(PreviewDuration::of(2.5).time(), 2500ms);
    EXPECT_EQ(PreviewDuration::of(1e300).time(), 24h);
    for (const double kept : {-1.0, -30.0, double(std::nan(""))})
        EXPECT_EQ(PreviewDuration::of(kept), PreviewDuration::keepUntilClosed()) << kept;
    EXPECT_NE(PreviewDuration::of(5), PreviewDuration::of(10));
}

TEST(PreviewDurationTest, TheChoicesAreStoredAsTheyAreRead)
{
    QStringList titles;
    for (const PreviewDuration& choice : PreviewDuration::choices()) {
        titles << choice.title();
        EXPECT_EQ(PreviewDuration::of(choice.seconds()), choice);
    }
    EXPECT_EQ(titles, (QStringList{"Close after 5 seconds", "Close after 10 seconds", "Close after 15 seconds",
                                   "Close after 30 seconds", "Keep previews until I close them"}));
}

} // namespace Kovrel
