#include "editor/session/MarkStyle.h"

#include "editor/geometry/MarkFrame.h"

namespace Kovrel {

namespace {

using Kind = Annotation::Kind;

bool isRedaction(Kind kind)
{
    return kind == Kind::blur || kind == Kind::pixelate || kind == Kind::blackout;
}

bool hasColor(Kind kind)
{
    return !isRedaction(kind) && kind != Kind::spotlight && kind != Kind::image;
}

bool isShape(Kind kind)
{
    return kind == Kind::rectangle || kind == Kind::ellipse;
}

double widthOf(const Annotation& mark)
{
    return mark.kind == Kind::text ? mark.fontSize / MarkStyle::fontSizePerWidth : mark.lineWidth;
}

template <class T>
std::optional<T> inCommon(const std::optional<T>& one, const std::optional<T>& other)
{
    return one == other ? one : std::nullopt;
}

} // namespace

MarkStyle MarkStyle::of(const Annotation& mark)
{
    return onlyOf(mark.kind, {.colorHex = mark.colorHex,
                              .lineWidth = widthOf(mark),
                              .fillStyle = mark.fillStyle,
                              .textStyle = mark.textStyle,
                              .rounded = mark.rounded,
                              .dimLevel = mark.dimLevel,
                              .tipScale = mark.tipScale});
}

MarkStyle MarkStyle::onlyOf(Kind kind, const MarkStyle& style)
{
    MarkStyle only;
    if (hasColor(kind)) {
        only.colorHex = style.colorHex;
        only.lineWidth = style.lineWidth;
    }
    if (isShape(kind))
        only.fillStyle = style.fillStyle;
    if (kind == Kind::rectangle)
        only.rounded = style.rounded;
    if (kind == Kind::text)
        only.textStyle = style.textStyle;
    if (kind == Kind::spotlight)
        only.dimLevel = style.dimLevel;
    if (kind == Kind::arrow)
        only.tipScale = style.tipScale;
    return only;
}

Annotation MarkStyle::applied(Annotation mark) const
{
    const MarkStyle style = onlyOf(mark.kind, *this);
    const Annotation before = mark;
    mark.colorHex = style.colorHex.value_or(mark.colorHex);
    mark.fillStyle = style.fillStyle.value_or(mark.fillStyle);
    mark.textStyle = style.textStyle.value_or(mark.textStyle);
    mark.rounded = style.rounded.value_or(mark.rounded);
    mark.dimLevel = style.dimLevel.value_or(mark.dimLevel);
    mark.tipScale = style.tipScale.value_or(mark.tipScale);
    if (mark.kind == Kind::text)
        mark.fontSize = style.lineWidth.value_or(widthOf(mark)) * fontSizePerWidth;
    else
        mark.lineWidth = style.lineWidth.value_or(mark.lineWidth);
    return mark.kind == Kind::text ? MarkFrame::keepingUpperLeft(before, std::move(mark)) : mark;
}

MarkStyle MarkStyle::common(const MarkStyle& other) const
{
    return {.colorHex = inCommon(colorHex, other.colorHex),
            .lineWidth = inCommon(lineWidth, other.lineWidth),
            .fillStyle = inCommon(fillStyle, other.fillStyle),
            .textStyle = inCommon(textStyle, other.textStyle),
            .rounded = inCommon(rounded, other.rounded),
            .dimLevel = inCommon(dimLevel, other.dimLevel),
            .tipScale = inCommon(tipScale, other.tipScale)};
}

MarkStyle MarkStyle::united(const MarkStyle& other) const
{
    return {.colorHex = colorHex ? colorHex : other.colorHex,
            .lineWidth = lineWidth ? lineWidth : other.lineWidth,
            .fillStyle = fillStyle ? fillStyle : other.fillStyle,
            .textStyle = textStyle ? textStyle : other.textStyle,
            .rounded = rounded ? rounded : other.rounded,
            .dimLevel = dimLevel ? dimLevel : other.dimLevel,
            .tipScale = tipScale ? tipScale : other.tipScale};
}

} // namespace Kovrel
