#include "ui/FloatingShadow.h"
#include "ui/tokens/SoftShadow.h"
#include "ui/tokens/Theme.h"

#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>

namespace Kovrel {

namespace {

QImage empty(double scale)
{
    QImage image((QSizeF(320, 260) * scale).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(scale);
    image.fill(Qt::transparent);
    return image;
}

int mostApart(const QImage& one, const QImage& other, const QRect& without)
{
    int most = 0;
    for (int y = 0; y < one.height(); ++y)
        for (int x = 0; x < one.width(); ++x)
            if (!without.contains(x, y))
                most = std::max(most, std::abs(qAlpha(one.pixel(x, y)) - qAlpha(other.pixel(x, y))));
    return most;
}

} // namespace

TEST(FloatingShadowTest, IsTheSoftShadowWhateverTheCardsSizeAndScale)
{
    for (const double scale : {1.0, 2.0})
        for (const QRectF card : {QRectF(40, 40, 216, 140), QRectF(40, 40, 230, 164), QRectF(50, 50, 20, 10)}) {
            QImage kept = empty(scale);
            QPainter keptPainter(&kept);
            keptPainter.setRenderHint(QPainter::Antialiasing);
            FloatingShadow::paint(keptPainter, card, 16);
            keptPainter.end();
            QImage drawn = empty(scale);
            QPainter painter(&drawn);
            painter.setRenderHint(QPainter::Antialiasing);
            SoftShadow::floating(Theme::current().shadow).paint(painter, card, 16);
            painter.end();
            const QRect covered = QRectF(card.topLeft() * scale, card.size() * scale).toRect();
            EXPECT_LE(mostApart(kept, drawn, covered), 1) << scale << ' ' << card.width();
            EXPECT_GT(mostApart(kept, empty(scale), covered), 10) << "it is seen";
        }
}

} // namespace Kovrel
