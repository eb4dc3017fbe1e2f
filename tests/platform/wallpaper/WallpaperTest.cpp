#include "platform/wallpaper/PlasmaWallpaper.h"
#include "platform/wallpaper/WallpaperSettings.h"
#include "tests/support/TempFolder.h"

#include <QDir>

#include <gtest/gtest.h>

namespace Kovrel {

namespace {

using Fit = Wallpaper::Fit;

// A display right of another one, on which a picture is shown whose left half is blue and right half red.
const QRect desktop(0, 0, 800, 400);
const QRect display(400, 0, 400, 400);

struct WallpaperTest : testing::Test {
    WallpaperTest()
    {
        QImage picture(200, 100, QImage::Format_RGB32);
        for (int y = 0; y < 100; ++y)
            for (int x = 0; x < 200; ++x)
                picture.setPixelColor(x, y, x < 100 ? Qt::blue : Qt::red);
        EXPECT_TRUE(picture.save(path));
    }

    Testing::TempFolder folder;
    QString path = folder / "picture.png";
};

QByteArray written(const QString& path, const QByteArray& text)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(text);
    return text;
}

} // namespace

TEST_F(WallpaperTest, IsPaintedAsTheDesktopFitsIt)
{
    struct Case {
        Fit fit;
        QColor left, middleLeft, right, top; // at (10, 200), (150, 200), (390, 200), (190, 10)
    };

    const QColor green(Qt::green), blue(Qt::blue), red(Qt::red);
    const Case cases[] = {
        {Fit::centred, green, blue, green, green}, {Fit::contained, blue, blue, red, green},
        {Fit::stretched, blue, blue, red, blue},   {Fit::covering, blue, blue, red, blue},
        {Fit::spanned, red, red, red, red},        {Fit::tiled, blue, red, red, red},
    };
    for (const Case& c : cases) {
        const auto image = Wallpaper{.path = path, .fit = c.fit, .colour = green}.painted(display, desktop);
        ASSERT_TRUE(image);
        EXPECT_EQ(image->size(), display.size());
        EXPECT_EQ(image->pixelColor(10, 200), c.left) << int(c.fit);
        EXPECT_EQ(image->pixelColor(150, 200), c.middleLeft) << int(c.fit);
        EXPECT_EQ(image->pixelColor(390, 200), c.right) << int(c.fit);
        EXPECT_EQ(image->pixelColor(190, 10), c.top) << int(c.fit);
    }
}

TEST_F(WallpaperTest, IsItsColoursWithoutAPictureAndNothingWhereThatCantBeRead)
{
    const Wallpaper gradient{
        .path = folder / "gone.png", .colour = Qt::black, .otherColour = Qt::white, .gradient = Qt::Vertical};
    const auto image = gradient.painted(display, desktop);
    ASSERT_TRUE(image);
    EXPECT_LT(image->pixelColor(200, 5).red(), 10);
    EXPECT_GT(image->pixelColor(5, 395).red(), 245);
    written(folder / "broken.png", "no picture");
    EXPECT_EQ((Wallpaper{.path = folder / "broken.png"}.painted(display, desktop)), std::nullopt);
}

TEST_F(WallpaperTest, IsReadFromGsettings)
{
    const QString list = folder / "day.xml";
    written(list, "<background><static><file>\n /a/first.jpg </file></static><file>/a/second.jpg</file></background>");
    const QString gnome = "org.gnome.desktop.background color-shading-type 'horizontal'\n"
                          "org.gnome.desktop.background picture-options 'zoom'\n"
                          "org.gnome.desktop.background picture-uri 'file:///a/light%20one.jpg'\n"
                          "org.gnome.desktop.background picture-uri-dark 'file:///a/dark.jpg'\n"
                          "org.gnome.desktop.background primary-color '#023c88'\n"
                          "org.gnome.desktop.background secondary-color '#5789ca'\n";
    const Wallpaper light{.path = "/a/light one.jpg",
                          .fit = Fit::covering,
                          .colour = QColor("#023c88"),
                          .otherColour = QColor("#5789ca"),
                          .gradient = Qt::Horizontal};
    EXPECT_EQ(WallpaperSettings::fromGsettings(gnome, false), light);
    EXPECT_EQ(WallpaperSettings::fromGsettings(gnome, true)->path, "/a/dark.jpg");
    const QString mate = "org.mate.background picture-options 'none'\norg.mate.background picture-filename '/b.png'\n";
    EXPECT_EQ(WallpaperSettings::fromGsettings(mate, false)->path, "") << "none is shown";
    const QString changing = "s picture-options 'scaled'\ns picture-uri 'file://" + list + "'\n";
    EXPECT_EQ(WallpaperSettings::fromGsettings(changing, false)->path, "/a/first.jpg");
    EXPECT_EQ(WallpaperSettings::fromGsettings("", false), std::nullopt);
}

TEST_F(WallpaperTest, IsReadFromPlasmasFileForEachScreen)
{
    const QString package = folder / "Mountain";
    QDir().mkpath(package + "/contents/images");
    for (const char* name : {"1024x768.png", "1920x1080.png", "5120x2880.png"})
        written(package + "/contents/images/" + name, "");
    const QString file = "[Containments][1]\nlastScreen=0\nwallpaperplugin=org.kde.image\n\n"
                         "[Containments][1][Wallpaper][org.kde.image][General]\nFillMode=1\nImage=file://" +
                         package +
                         "/\nColor=1,2,3\n\n"
                         "[Containments][2]\nlastScreen=0\nformfactor=2\n\n"
                         "[Containments][3]\nlastScreen=1\nwallpaperplugin=org.kde.color\n\n"
                         "[Containments][3][Wallpaper][org.kde.color][General]\nColor=10,20,30\n\n"
                         "[Containments][4]\nlastScreen=2\nwallpaperplugin=org.kde.image\n";
    const auto first = PlasmaWallpaper::from(file, 0, {1900, 1000});
    ASSERT_TRUE(first);
    EXPECT_EQ(first->path, package + "//contents/images/1920x1080.png");
    EXPECT_EQ(first->fit, Fit::contained);
    EXPECT_EQ(first->colour, QColor(1, 2, 3));
    EXPECT_EQ(PlasmaWallpaper::from(file, 1, {1900, 1000}), (Wallpaper{.path = {}, .colour = QColor(10, 20, 30)}));
    EXPECT_EQ(PlasmaWallpaper::from(file, 2, {1900, 1000}), std::nullopt) << "the theme's own";
}

} // namespace Kovrel
