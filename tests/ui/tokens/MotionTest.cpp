#include "ui/tokens/Motion.h"

#include <QByteArray>

#include <gtest/gtest.h>

namespace Kovrel {

TEST(MotionTest, TakesNoTimeForThoseWhoWantNone)
{
    Motion motion;
    EXPECT_GT(motion.appearing().count(), 0);
    motion.setReduced(true);
    EXPECT_EQ(motion.appearing().count(), 0);
    EXPECT_EQ(motion.disappearing().count(), 0);

    qputenv("KOVREL_REDUCED_MOTION", "1");
    Motion wished;
    wished.setReduced(false);
    EXPECT_TRUE(wished.isReduced()) << "the variable goes before the desktop";
    qunsetenv("KOVREL_REDUCED_MOTION");
}

} // namespace Kovrel
