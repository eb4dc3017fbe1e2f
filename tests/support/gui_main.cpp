#include <QGuiApplication>

#include <gtest/gtest.h>

// Text is drawn, for which fonts come with a platform; offscreen it has no display.
int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
