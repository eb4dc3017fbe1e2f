#include "ui/EditorSymbols.h"

#include "ui/SymbolPaths.h"

#include <algorithm>

namespace Kovrel {

namespace {

using SymbolPaths::lines;

// Lines that are as close as they are wide fill what they are in.
QPainterPath filledRect(const QRectF& rect)
{
    QPainterPath path;
    for (double inset = 0; 2 * inset < std::min(rect.width(), rect.height()); inset += 0.06)
        path.addRect(rect.adjusted(inset, inset, -inset, -inset));
    return path;
}

QPainterPath pointerArrow()
{
    return lines({{0.22, 0.04},
                  {0.22, 0.86},
                  {0.42, 0.66},
                  {0.56, 0.98},
                  {0.68, 0.92},
                  {0.55, 0.62},
                  {0.84, 0.62},
                  {0.22, 0.04}});
}

QPainterPath cropMarks()
{
    QPainterPath path = lines({{0.22, 0}, {0.22, 0.78}, {1, 0.78}});
    path.addPath(lines({{0, 0.22}, {0.78, 0.22}, {0.78, 1}}));
    return path;
}

QPainterPath arrowUpRight()
{
    QPainterPath path = lines({{0.06, 0.94}, {0.92, 0.08}});
    path.addPath(lines({{0.4, 0.08}, {0.92, 0.08}, {0.92, 0.6}}));
    return path;
}

QPainterPath outOfFrame()
{
    QPainterPath path = lines({{0.46, 0.16}, {0.06, 0.16}, {0.06, 0.94}, {0.84, 0.94}, {0.84, 0.54}});
    path.addPath(lines({{0.4, 0.6}, {0.96, 0.04}}));
    path.addPath(lines({{0.64, 0.04}, {0.96, 0.04}, {0.96, 0.36}}));
    return path;
}

QPainterPath diagonal()
{
    return lines({{0.04, 0.96}, {0.96, 0.04}});
}

QPainterPath scribble()
{
    QPainterPath path(QPointF(0.04, 0.7));
    path.cubicTo(0.1, 0.1, 0.5, -0.05, 0.42, 0.4);
    path.cubicTo(0.36, 0.8, 0.2, 1.1, 0.34, 0.9);
    path.cubicTo(0.6, 0.5, 0.78, 0.25, 0.72, 0.6);
    path.cubicTo(0.68, 0.85, 0.85, 0.85, 0.96, 0.62);
    return path;
}

QPainterPath marker()
{
    QPainterPath path = lines({{0.3, 0.52}, {0.72, 0.04}, {0.96, 0.28}, {0.5, 0.72}, {0.3, 0.72}, {0.3, 0.52}});
    path.addPath(lines({{0.3, 0.72}, {0.16, 0.72}, {0.26, 0.6}}));
    path.addPath(lines({{0.04, 0.97}, {0.96, 0.97}}));
    return path;
}

QPainterPath frame()
{
    QPainterPath path;
    path.addRect(QRectF(0.02, 0.14, 0.96, 0.72));
    return path;
}

QPainterPath block()
{
    return filledRect(QRectF(0.02, 0.14, 0.96, 0.72));
}

// A line of text of which a part is covered.
QPainterPath coveredText()
{
    QPainterPath path = filledRect(QRectF(0.16, 0.3, 0.68, 0.4));
    path.addPath(lines({{0, 0.06}, {1, 0.06}}));
    path.addPath(lines({{0, 0.94}, {0.7, 0.94}}));
    return path;
}

QPainterPath circle()
{
    QPainterPath path;
    path.addEllipse(QRectF(0.02, 0.02, 0.96, 0.96));
    return path;
}

QPainterPath numberedCircle()
{
    QPainterPath path = circle();
    path.addPath(lines({{0.38, 0.36}, {0.54, 0.24}, {0.54, 0.76}}));
    return path;
}

QPainterPath letter()
{
    QPainterPath path = lines({{0.06, 0.2}, {0.06, 0.06}, {0.94, 0.06}, {0.94, 0.2}});
    path.addPath(lines({{0.5, 0.06}, {0.5, 0.95}}));
    path.addPath(lines({{0.34, 0.95}, {0.66, 0.95}}));
    return path;
}

QPainterPath drop()
{
    QPainterPath path(QPointF(0.5, 0.02));
    path.cubicTo(0.62, 0.26, 0.86, 0.44, 0.86, 0.66);
    path.cubicTo(0.86, 0.86, 0.7, 0.98, 0.5, 0.98);
    path.cubicTo(0.3, 0.98, 0.14, 0.86, 0.14, 0.66);
    path.cubicTo(0.14, 0.44, 0.38, 0.26, 0.5, 0.02);
    path.addPath(lines({{0.32, 0.66}, {0.38, 0.78}}));
    return path;
}

QPainterPath mosaic()
{
    QPainterPath path;
    path.addRect(QRectF(0.02, 0.02, 0.96, 0.96));
    for (const double at : {0.34, 0.66}) {
        path.addPath(lines({{at, 0.02}, {at, 0.98}}));
        path.addPath(lines({{0.02, at}, {0.98, at}}));
    }
    return path;
}

QPainterPath rays()
{
    QPainterPath path;
    path.addEllipse(QPointF(0.5, 0.5), 0.2, 0.2);
    for (int eighth = 0; eighth < 8; ++eighth)
        path.addPath(QTransform().translate(0.5, 0.5).rotate(45 * eighth).map(lines({{0.36, 0}, {0.5, 0}})));
    return path;
}

QPainterPath ruler()
{
    QPainterPath path;
    path.addRect(QRectF(0, 0.28, 1, 0.44));
    for (const double at : {0.2, 0.4, 0.6, 0.8})
        path.addPath(lines({{at, 0.28}, {at, 0.46}}));
    return path;
}

QPainterPath turningBack()
{
    QPainterPath path(QPointF(0.1, 0.34));
    path.lineTo(0.62, 0.34);
    path.cubicTo(1.08, 0.34, 1.08, 0.92, 0.62, 0.92);
    path.lineTo(0.34, 0.92);
    path.addPath(lines({{0.34, 0.08}, {0.08, 0.34}, {0.34, 0.6}}));
    return path;
}

QPainterPath turningForward()
{
    return QTransform(-1, 0, 0, 1, 1, 0).map(turningBack());
}

QPainterPath hatchedFrame()
{
    QPainterPath path = frame();
    for (const double at : {0.1, 0.4, 0.7})
        path.addPath(lines({{at, 0.86}, {at + 0.28, 0.14}}));
    return path;
}

QPainterPath halfFilledFrame()
{
    QPainterPath path = frame();
    path.addPath(filledRect(QRectF(0.24, 0.36, 0.52, 0.28)));
    return path;
}

QPainterPath roundedFrame()
{
    QPainterPath path;
    path.addRoundedRect(QRectF(0.02, 0.14, 0.96, 0.72), 0.26, 0.26);
    return path;
}

QPainterPath outlinedLetter()
{
    return lines({{0.06, 0.06},
                  {0.94, 0.06},
                  {0.94, 0.3},
                  {0.62, 0.3},
                  {0.62, 0.95},
                  {0.38, 0.95},
                  {0.38, 0.3},
                  {0.06, 0.3},
                  {0.06, 0.06}});
}

QPainterPath smallLetter()
{
    return QTransform(0.44, 0, 0, 0.4, 0.28, 0.3).map(letter());
}

QPainterPath letterOnPlate()
{
    QPainterPath path = smallLetter();
    path.addRoundedRect(QRectF(0, 0.08, 1, 0.84), 0.2, 0.2);
    return path;
}

QPainterPath bubble()
{
    QPainterPath path;
    path.addRoundedRect(QRectF(0, 0.02, 1, 0.72), 0.26, 0.26);
    path.addPath(lines({{0.2, 0.74}, {0.16, 0.98}, {0.44, 0.74}}));
    return path;
}

// A capture on its backdrop.
QPainterPath frameInFrame()
{
    QPainterPath path;
    path.addRoundedRect(QRectF(0.02, 0.1, 0.96, 0.8), 0.12, 0.12);
    path.addPath(filledRect(QRectF(0.28, 0.34, 0.44, 0.32)));
    return path;
}

QPainterPath chevronUp()
{
    return lines({{0.1, 0.7}, {0.5, 0.3}, {0.9, 0.7}});
}

QPainterPath chevronLeft()
{
    return lines({{0.7, 0.1}, {0.3, 0.5}, {0.7, 0.9}});
}

QPainterPath chevronRight()
{
    return lines({{0.3, 0.1}, {0.7, 0.5}, {0.3, 0.9}});
}

QPainterPath plus()
{
    QPainterPath path = lines({{0.5, 0.04}, {0.5, 0.96}});
    path.addPath(lines({{0.04, 0.5}, {0.96, 0.5}}));
    return path;
}

QPainterPath struckCircle()
{
    QPainterPath path = circle();
    path.addPath(lines({{0.16, 0.16}, {0.84, 0.84}}));
    return path;
}

QPainterPath padlock(double openedBy)
{
    QPainterPath path;
    path.addRoundedRect(QRectF(0.14, 0.46, 0.72, 0.5), 0.1, 0.1);
    path.moveTo(0.3, 0.46);
    path.lineTo(0.3, 0.26);
    path.cubicTo(0.3, -0.04, 0.7, -0.04, 0.7, 0.26);
    path.lineTo(0.7, 0.46 - openedBy);
    return path;
}

QPainterPath closedLock()
{
    return padlock(0);
}

QPainterPath openLock()
{
    return padlock(0.18);
}

struct Drawing {
    const char* name;
    QPainterPath (*draw)();
};

constexpr Drawing drawings[] = {
    {"cursorarrow", pointerArrow},
    {"crop", cropMarks},
    {"arrow.up.right", arrowUpRight},
    {"square.and.arrow.up.right", outOfFrame},
    {"line.diagonal", diagonal},
    {"scribble.variable", scribble},
    {"highlighter", marker},
    {"rectangle", frame},
    {"rectangle.fill", block},
    {"rectangle.fill.on.text", coveredText},
    {"rectangle.hatched", hatchedFrame},
    {"rectangle.translucent", halfFilledFrame},
    {"rectangle.rounded", roundedFrame},
    {"textformat.outlined", outlinedLetter},
    {"textformat.plate", letterOnPlate},
    {"bubble", bubble},
    {"circle", circle},
    {"1.circle.fill", numberedCircle},
    {"textformat", letter},
    {"drop.fill", drop},
    {"squareshape.split.3x3", mosaic},
    {"rays", rays},
    {"ruler", ruler},
    {"arrow.uturn.backward", turningBack},
    {"arrow.uturn.forward", turningForward},
    {"rectangle.inset.filled", frameInFrame},
    {"chevron.up", chevronUp},
    {"chevron.left", chevronLeft},
    {"chevron.right", chevronRight},
    {"plus", plus},
    {"nosign", struckCircle},
    {"lock", closedLock},
    {"lock.open", openLock},
};

} // namespace

std::optional<QPainterPath> EditorSymbols::path(const QString& name)
{
    const auto* const found = std::ranges::find_if(
        drawings, [&name](const Drawing& drawing) { return name == QLatin1StringView(drawing.name); });
    return found == std::end(drawings) ? std::nullopt : std::optional(found->draw());
}

} // namespace Kovrel
