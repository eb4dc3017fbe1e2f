#include "imaging/WindowCorners.h"
#include "imaging/GaussianBlur.h"

#include <QPainter>

#include <gtest/gtest.h>

namespace Kovrel {

namespace {

const QSize size(300, 200);

QImage canvas()
{
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    return image;
}

// A window with a bar of another colour on top, cut to round corners where a radius is given.
QImage window(QColor bar, QColor body, double topRadius, double bottomRadius)
{
    QImage image = canvas();
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(bar);
    painter.drawRoundedRect(QRect(0, 0, 300, 120), topRadius, topRadius);
    painter.setBrush(body);
    painter.drawRoundedRect(QRect(0, 80, 300, 120), bottomRadius, bottomRadius);
    painter.fillRect(QRect(0, 40, 300, 120), body);
    return image;
}

QImage on(const QImage& ground, const QImage& window)
{
    QImage image = ground;
    QPainter(&image).drawImage(0, 0, window);
    return image;
}

QImage filled(QColor colour)
{
    QImage image = canvas();
    image.fill(colour);
    return image;
}

// The shadow that a window with a header bar draws around itself reaches below its corners.
QImage shadow()
{
    QImage image = canvas();
    image.fill(QColor(0, 0, 0, 110));
    for (int x = 0; x < size.width(); ++x)
        for (int y = 0; y < size.height(); ++y)
            image.setPixel(x, y, qRgba(0, 0, 0, 60 + (x + y) % 60));
    return image;
}

int greatestDifference(const QImage& one, const QImage& other)
{
    int greatest = 0;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x) {
            const QRgb a = one.pixel(x, y);
            const QRgb b = other.pixel(x, y);
            for (const int shift : {0, 8, 16, 24})
                greatest = std::max(greatest, std::abs(int(a >> shift & 0xff) - int(b >> shift & 0xff)));
        }
    }
    return greatest;
}

} // namespace

TEST(WindowCorners, NothingOfTheGroundIsLeftBesideThem)
{
    for (const QColor bar : {QColor("#EBEBEB"), QColor("#303030"), QColor("#3584E4")}) {
        for (const double radius : {4.0, 8.0, 12.0, 15.5, 24.0}) {
            const QImage all = window(bar, Qt::white, radius, radius);
            QImage withShadow = on(shadow(), all);
            WindowCorners::cut(withShadow);
            EXPECT_LE(greatestDifference(withShadow, all), 24) << "shadow, radius " << radius;
            const QImage top = window(bar, Qt::white, radius, 0);
            QImage onBlack = on(filled(Qt::black), top);
            WindowCorners::cut(onBlack);
            EXPECT_LE(greatestDifference(onBlack, top), 24) << "black, radius " << radius;
        }
    }
}

TEST(WindowCorners, WhatIsNoRoundCornerStays)
{
    QImage terminal = on(filled(Qt::black), window("#DDDDDD", Qt::black, 0, 0));
    QImage stairs = filled(Qt::white);
    QPainter(&stairs).fillRect(0, 10, 30, 8, Qt::black); // black, but not at the corner
    QImage notch = filled(Qt::white);
    QPainter(&notch).fillRect(0, 0, 20, 60, Qt::black); // further down than any corner
    QImage bordered = window("#EBEBEB", Qt::white, 12, 12);
    QPainter(&bordered).fillRect(0, 30, 2, 100, QColor("#707070")); // a line that is darker than the window
    for (QImage image : {filled(QColor(10, 20, 30, 128)), filled(Qt::black), terminal, stairs, notch, bordered}) {
        const QImage before = image.copy();
        WindowCorners::cut(image);
        EXPECT_LE(greatestDifference(image, before), 3);
    }
    QImage tiny(1, 1, QImage::Format_ARGB32_Premultiplied);
    tiny.fill(Qt::black);
    WindowCorners::cut(tiny);
    EXPECT_EQ(tiny.pixel(0, 0), 0xff000000);
}

} // namespace Kovrel
