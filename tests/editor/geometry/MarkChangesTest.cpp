#include "editor/geometry/MarkChanges.h"

#include "editor/geometry/MarkFrame.h"
#include "editor/marks/AnnotationDrawing.h"
#include "editor/marks/RedactionSources.h"

#include <QPainter>

#include <gtest/gtest.h>

#include <random>

namespace Kovrel {

namespace {

using Kind = Annotation::Kind;
using Marks = std::vector<Annotation>;

constexpr QSize size(160, 120);
const QStringList colors{"#FF3B30", "#FFDC2C"};

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

// Every kind, anywhere on the capture.
class RandomMarks {
public:
    explicit RandomMarks(unsigned seed) : m_random(seed) {}

    int below(int end) { return int(m_random() % unsigned(end)); }

    Point place() { return {double(below(size.width())), double(below(size.height()))}; }

    Annotation mark()
    {
        Annotation mark{.kind = Kind(below(14)), .points = {place(), place()}, .colorHex = colors[below(2)]};
        mark.lineWidth = 1 + below(5);
        mark.text = "Ag";
        mark.fontSize = 8 + below(8);
        mark.fillStyle = Annotation::FillStyle(below(4));
        mark.textStyle = Annotation::TextStyle(below(4));
        mark.rotation = below(2) * below(6);
        mark.highlightOnDark = below(2) == 0;
        mark.highlightPageLuma = 0.1 * below(5);
        mark.dimLevel = 0.2 * below(4);
        if (mark.kind == Kind::image)
            mark.image = capture().copy(0, 0, 20, 30);
        if (below(3) == 0)
            mark.curveControl = place();
        return mark;
    }

    Marks some()
    {
        Marks marks;
        for (int count = below(8); count >= 0; --count)
            marks.push_back(mark());
        return marks;
    }

    // What somebody does to marks.
    Marks changed(Marks marks)
    {
        const size_t index = marks.empty() ? 0 : size_t(below(int(marks.size())));
        switch (marks.empty() ? 0 : below(6)) {
        case 0:
            marks.insert(marks.begin() + qptrdiff(index), mark());
            break;
        case 1:
            marks.erase(marks.begin() + qptrdiff(index));
            break;
        case 2:
            marks[index] = MarkFrame::translated(marks[index], {double(below(40) - 20), double(below(40) - 20)});
            break;
        case 3:
            marks[index].colorHex = colors[below(2)];
            marks[index].dimLevel = 0.2 * below(4);
            break;
        case 4:
            std::rotate(marks.begin(), marks.begin() + qptrdiff(index), marks.end());
            break;
        default: {
            Annotation other = mark();
            other.id = marks[index].id;
            marks[index] = other;
        }
        }
        return marks;
    }

private:
    std::mt19937 m_random;
};

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
        RandomMarks random(seed);
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
