#include "ui/tokens/Typography.h"

#include <QApplication>
#include <QFontInfo>

#include <gtest/gtest.h>

namespace Kovrel {

TEST(TypographyTest, TextsGrowWithTheFontOfTheDesktop)
{
    const QFont before = QApplication::font();
    const auto headline = [](int pixelSize) {
        QFont font = QApplication::font();
        font.setPixelSize(pixelSize);
        QApplication::setFont(font);
        return Typography::font(TextStyle::headline).pixelSize();
    };
    EXPECT_EQ(headline(13), 22);
    EXPECT_EQ(headline(26), 44);
    EXPECT_EQ(headline(9), 22) << "and never shrink";
    QApplication::setFont(before);
}

} // namespace Kovrel
