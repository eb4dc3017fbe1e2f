#include "editor/session/ToolStyles.h"

namespace Kovrel {

std::optional<Annotation::Kind> kindOf(EditorTool tool)
{
    using Kind = Annotation::Kind;
    switch (tool) {
    case EditorTool::select:
    case EditorTool::crop:
        return std::nullopt;
    case EditorTool::arrow:
        return Kind::arrow;
    case EditorTool::line:
        return Kind::line;
    case EditorTool::pen:
        return Kind::pen;
    case EditorTool::highlighter:
        return Kind::highlighter;
    case EditorTool::rectangle:
    case EditorTool::rectangleFilled:
        return Kind::rectangle;
    case EditorTool::ellipse:
        return Kind::ellipse;
    case EditorTool::step:
        return Kind::step;
    case EditorTool::text:
        return Kind::text;
    case EditorTool::blur:
        return Kind::blur;
    case EditorTool::pixelate:
        return Kind::pixelate;
    case EditorTool::blackout:
        return Kind::blackout;
    case EditorTool::spotlight:
        return Kind::spotlight;
    case EditorTool::measure:
        return Kind::measure;
    }
    return std::nullopt;
}

MarkStyle ToolStyles::of(EditorTool tool) const
{
    const auto kind = kindOf(tool);
    if (!kind)
        return {};
    return MarkStyle::onlyOf(*kind, {.colorHex = m_preferences.toolColorHex(tool),
                                     .lineWidth = m_preferences.toolStrokeWidth(tool),
                                     .fillStyle = m_preferences.toolFillStyle(tool),
                                     .textStyle = m_preferences.get(Settings::annotationTextStyle),
                                     .rounded = m_preferences.toolRoundedCorners(tool),
                                     .dimLevel = m_preferences.get(Settings::annotationDimLevel),
                                     .tipScale = 1});
}

void ToolStyles::set(EditorTool tool, const MarkStyle& style)
{
    if (style.colorHex)
        m_preferences.setToolColorHex(*style.colorHex, tool);
    if (style.lineWidth)
        m_preferences.set(Settings::annotationStrokeWidth.of(tool), *style.lineWidth);
    if (style.fillStyle)
        m_preferences.setToolFillStyle(*style.fillStyle, tool);
    if (style.textStyle)
        m_preferences.set(Settings::annotationTextStyle, *style.textStyle);
    if (style.rounded)
        m_preferences.set(Settings::annotationRoundedCorners.of(tool), *style.rounded);
    if (style.dimLevel)
        m_preferences.set(Settings::annotationDimLevel, *style.dimLevel);
}

} // namespace Kovrel
