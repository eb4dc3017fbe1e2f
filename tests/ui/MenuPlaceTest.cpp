#include "ui/MenuPlace.h"

#include <QGuiApplication>
#include <QMenu>

#include <gtest/gtest.h>

namespace Kovrel {

// With its edges on those of its button, whichever side is read from.
TEST(MenuPlaceTest, AMenuHangsFromTheSideThatIsReadFirst)
{
    for (const auto direction : {Qt::LeftToRight, Qt::RightToLeft}) {
        QGuiApplication::setLayoutDirection(direction);
        QWidget button;
        button.setGeometry(300, 100, 90, 30);
        button.show();
        QMenu menu(&button);
        menu.addAction("A command with a long name");
        MenuPlace::open(menu, MenuPlace::below(button));
        const QRect around(button.mapToGlobal(QPoint()), button.size());
        EXPECT_EQ(menu.geometry().top(), around.bottom() + 1);
        if (direction == Qt::LeftToRight)
            EXPECT_EQ(menu.geometry().left(), around.left());
        else
            EXPECT_EQ(menu.geometry().right(), around.right());
    }
    QGuiApplication::setLayoutDirection(Qt::LeftToRight);
}

} // namespace Kovrel
