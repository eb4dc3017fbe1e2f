#include "ui/style/AppColors.h"
#include "tests/support/desktop/FakeAppearance.h"
#include "ui/tokens/ColorScheme.h"

#include <QApplication>
#include <QPalette>

#include <gtest/gtest.h>

namespace Kovrel {

namespace {

bool isDark()
{
    return ColorScheme::of(QApplication::palette()).isDark;
}

struct AppColorsTest : testing::Test {
    Testing::FakeAppearance appearance;

    void TearDown() override { QApplication::setPalette(QPalette()); }
};

} // namespace

TEST_F(AppColorsTest, TheWishIsFollowedAtTheStartAndLater)
{
    appearance.setDark(true);
    const AppColors colors(appearance);
    EXPECT_TRUE(isDark());
    appearance.setDark(false);
    EXPECT_FALSE(isDark());
    appearance.setDark(true);
    EXPECT_TRUE(isDark());
}

TEST_F(AppColorsTest, ThePaletteOfTheToolkitStaysWhereItIsRight)
{
    const QPalette before = QApplication::palette();
    const AppColors colors(appearance);
    EXPECT_EQ(QApplication::palette(), before);
    appearance.setDark(false);
    EXPECT_EQ(QApplication::palette(), before);
    appearance.setDark(true);
    appearance.setDark({});
    EXPECT_EQ(QApplication::palette(), before);
}

} // namespace Kovrel
