#include "ui/Label.h"

#include <QFontMetrics>
#include <QGuiApplication>

#include <gtest/gtest.h>

namespace Kovrel {

namespace {

struct LabelTest : testing::Test {
    LabelTest() { QGuiApplication::setLayoutDirection(Qt::RightToLeft); }

    ~LabelTest() override { QGuiApplication::setLayoutDirection(Qt::LeftToRight); }
};

// The last column of these rows that is not blank.
int lastInk(const QImage& picture, int top, int bottom)
{
    for (int x = picture.width() - 1; x >= 0; --x)
        for (int y = top; y < bottom; ++y)
            if (picture.pixel(x, y) != picture.pixel(0, 0))
                return x;
    return -1;
}

} // namespace

TEST_F(LabelTest, LinesThatAreReadFromTheRightBeginBelowEachOther)
{
    Label label(TextStyle::body);
    label.setText(QString("سلام ").repeated(12).trimmed());
    const int word = label.fontMetrics().horizontalAdvance("سلام ");
    label.resize(word * 5, label.heightForWidth(word * 5));
    const QImage picture = label.grab().toImage();
    const int line = label.fontMetrics().lineSpacing();
    ASSERT_GE(picture.height(), 3 * line);
    EXPECT_EQ(lastInk(picture, 0, line), lastInk(picture, 2 * line, picture.height()));
}

} // namespace Kovrel
