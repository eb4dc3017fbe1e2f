#include "ui/Symbols.h"

#include "ui/tokens/Theme.h"

#include <QApplication>
#include <QPalette>

#include <gtest/gtest.h>

namespace Kovrel {

namespace {

bool hasColor(const QImage& image, const QColor& color)
{
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (image.pixelColor(x, y) == color)
                return true;
    return false;
}

} // namespace

TEST(SymbolsTest, IconsAreDrawnAtTheScaleOfTheScreenInTheColoursOfTheMoment)
{
    const QPalette before = QApplication::palette();
    const QIcon icon = Symbols::icon("doc.on.clipboard.fill");
    for (const bool isDark : {false, true}) {
        const Theme& theme = Theme::of({.isDark = isDark});
        QApplication::setPalette(theme.palette());
        const QPixmap picture = icon.pixmap({32, 32}, 2);
        EXPECT_EQ(picture.size(), QSize(64, 64));
        EXPECT_TRUE(hasColor(picture.toImage(), theme.text)) << isDark;
        EXPECT_TRUE(hasColor(icon.pixmap({32, 32}, 2, QIcon::Disabled).toImage(), theme.disabledText)) << isDark;
    }
    QApplication::setPalette(before);
}

} // namespace Kovrel
