#include "editor/geometry/MarkChanges.h"

#include "editor/marks/AnnotationDrawing.h"
#include "editor/marks/RedactionSources.h"
#include "tests/editor/RandomMarks.h"

#include <QPainter>

#include <gtest/gtest.h>

namespace Kovrel {

namespace {

using Kind = Annotation::Kind;
using Marks = std::vector<Annotation>;

constexpr QSize size(160, 120);

QImage capture()
{
    QImage image(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y)
        for (int x = 0; x < size.width(); ++x)
            image.setPixel(x, y, qRgb(60 + x, 60 + y, (x / 5 + y / 5) % 2 * 200));
    return image;
}

QImage drawn(const Marks& marks)
{
    static const QImage base = capture();
    static const QImage blurred = RedactionSources::blurred(base, 1);
    static const QImage pixelated = RedactionSources::pixelated(base, 1);
    QImage image = base.copy();
    QPainter painter(&image);
    painter.setTransform(QTransform(1, 0, 0, -1, 0, size.height()));
    const QRectF all({}, QSizeF(size));
    AnnotationDrawing::drawAll(
        painter, marks, {.blurredFull = blurred, .pixelatedFull = pixelated, .fullRect = all, .shadeRegion = {all}});
    return image;
}

// Pixels, y down.
QRegion region(const std::vector<QRectF>& areas)
{
    QRegion region;
    for (const QRectF& area : areas)
        region += QRectF(area.left(), size.height() - area.bottom(), area.width(), area.height()).toAlignedRect();
    return region;
}

int differencesOutside(const QImage& before, const QImage& after, const QRegion& region)
{
    int count = 0;
    for (int y = 0; y < size.height(); ++y)
        for (int x = 0; x < size.width(); ++x)
            if (before.pixel(x, y) != after.pixel(x, y) && !region.contains(QPoint(x, y)))
                ++count;
    return count;
}

} // namespace

TEST(MarkChangesTest, NothingElseLooksDifferent)
{
    int areasThatAreSmaller = 0;
    for (unsigned seed = 0; seed < 300; ++seed) {
        Testing::RandomMarks random(seed, size, capture().copy(0, 0, 20, 30));
        const Marks before = random.some();
        const Marks after = random.changed(before);
        const auto areas = MarkChanges::areas(before, after, QRectF({}, QSizeF(size)));
        EXPECT_EQ(differencesOutside(drawn(before), drawn(after), region(areas)), 0) << "seed " << seed;
        areasThatAreSmaller += (QRegion(QRect({}, size)) - region(areas)).isEmpty() ? 0 : 1;
    }
    EXPECT_GT(areasThatAreSmaller, 100);
}

TEST(MarkChangesTest, MarksThatStayAreNotDrawnAnew)
{
    const QRectF all({}, QSizeF(size));
    const Annotation one{.kind = Kind::rectangle, .points = {{10, 10}, {20, 20}}, .lineWidth = 2};
    Annotation other = MarkFrame::translated(one, {100, 80});
    other.id = QUuid::createUuid();
    EXPECT_TRUE(MarkChanges::areas(Marks{one, other}, Marks{one, other}, all).empty());
    const auto moved = MarkChanges::areas(Marks{one, other}, Marks{one, MarkFrame::translated(other, {5, 0})}, all);
    EXPECT_FALSE(region(moved).contains(QPoint(15, 105))) << "the one that stays";
    EXPECT_TRUE(region(moved).contains(QPoint(115, 25)));
}

} // namespace Kovrel
