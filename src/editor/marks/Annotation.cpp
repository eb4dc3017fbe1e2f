#include "editor/marks/Annotation.h"

#include "editor/marks/LabelSizes.h"
#include "editor/marks/LabelText.h"

#include <algorithm>
#include <cmath>

namespace Kovrel {

namespace {

// Everything about a label is a share of its font size.
constexpr double sidePadding = 0.35;
constexpr double upperPadding = 0.12;
constexpr double narrowestClicked = 6;
constexpr double widestClicked = 10;
constexpr double emptyWidth = 4;
// The tail leaves the plate near its left end and points down.
constexpr double tailDrop = 0.6;
constexpr double tailInset = 0.6;

Size bodyOf(const Annotation& label, Size text)
{
    const double narrowest = label.text.isEmpty() ? emptyWidth * label.fontSize : label.fontSize;
    return {std::max(std::ceil(text.width), narrowest),
            std::max(std::ceil(text.height), std::ceil(LabelText::lineHeight(label.fontSize)))};
}

// The body with its padding.
Rect rectAround(const Annotation& label, Size body)
{
    const Size padded{body.width + 2 * sidePadding * label.fontSize, body.height + 2 * upperPadding * label.fontSize};
    const Rect box = label.boundingRect();
    const double y = label.points.size() == 1 ? box.y : box.maxY() - padded.height;
    return {box.x, y, padded.width, padded.height};
}

} // namespace

Rect Annotation::boundingRect() const
{
    if (points.empty())
        return {};
    const Point& first = points.front();
    const Point& last = points.back();
    return {std::min(first.x, last.x), std::min(first.y, last.y), std::abs(last.x - first.x),
            std::abs(last.y - first.y)};
}

std::optional<Point> Annotation::segmentMidpoint() const
{
    if (points.empty())
        return std::nullopt;
    const Point& first = points.front();
    const Point& last = points.back();
    if (!curveControl)
        return Point{(first.x + last.x) / 2, (first.y + last.y) / 2};
    return Point{0.25 * first.x + 0.5 * curveControl->x + 0.25 * last.x,
                 0.25 * first.y + 0.5 * curveControl->y + 0.25 * last.y};
}

bool Annotation::isRotatable() const
{
    return kind == Kind::rectangle || kind == Kind::ellipse || kind == Kind::text || kind == Kind::image;
}

Size Annotation::measuredTextSize(std::optional<double> wrapWidth) const
{
    return bodyOf(*this, LabelSizes::of(text, fontSize, wrapWidth));
}

double Annotation::textWrapWidth() const
{
    const double size = std::max(fontSize, 0.0);
    if (points.size() > 1)
        return std::max(size, boundingRect().width - 2 * sidePadding * size);
    return std::clamp(wrapCap.value_or(widestClicked * size), narrowestClicked * size, widestClicked * size);
}

Rect Annotation::textRect() const
{
    return points.empty() ? Rect() : rectAround(*this, measuredTextSize(textWrapWidth()));
}

Point Annotation::textOrigin() const
{
    const Size laidOut = LabelSizes::of(text, fontSize, textWrapWidth());
    const Size body = bodyOf(*this, laidOut);
    const Rect rect = rectAround(*this, body);
    // Most bodies are as wide as their text; that of a single letter is wider.
    return {rect.x + sidePadding * fontSize + (body.width - laidOut.width) / 2, rect.maxY() - upperPadding * fontSize};
}

Point Annotation::bubbleTailTip() const
{
    const Rect rect = textRect();
    return {rect.x + std::min(tailInset * fontSize, rect.width / 2), rect.y - tailDrop * fontSize};
}

Rect Annotation::rotationRect() const
{
    return kind == Kind::text ? textRect() : boundingRect();
}

std::optional<EditorTool> editorToolStyling(Annotation::Kind kind)
{
    switch (kind) {
    case Annotation::Kind::pen:
        return EditorTool::pen;
    case Annotation::Kind::highlighter:
        return EditorTool::highlighter;
    case Annotation::Kind::arrow:
        return EditorTool::arrow;
    case Annotation::Kind::line:
        return EditorTool::line;
    case Annotation::Kind::rectangle:
        return EditorTool::rectangle;
    case Annotation::Kind::ellipse:
        return EditorTool::ellipse;
    case Annotation::Kind::text:
        return EditorTool::text;
    case Annotation::Kind::step:
        return EditorTool::step;
    case Annotation::Kind::blur:
    case Annotation::Kind::pixelate:
    case Annotation::Kind::blackout:
    case Annotation::Kind::spotlight:
    case Annotation::Kind::measure:
    case Annotation::Kind::image:
        return std::nullopt;
    }
    return std::nullopt;
}

} // namespace Kovrel
