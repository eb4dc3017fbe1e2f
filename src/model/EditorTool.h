#pragma once

#include "model/RawStrings.h"

namespace Kovrel {

// The tools of the annotation editor, in the order of its toolbar.
enum class EditorTool {
    select,
    crop,
    arrow,
    line,
    pen,
    highlighter,
    rectangle,
    rectangleFilled,
    ellipse,
    step,
    text,
    blur,
    pixelate,
    blackout,
    spotlight,
    measure,
};

template <>
struct RawStrings<EditorTool> {
    static constexpr std::array table{
        std::pair{EditorTool::select, "select"},
        std::pair{EditorTool::crop, "crop"},
        std::pair{EditorTool::arrow, "arrow"},
        std::pair{EditorTool::line, "line"},
        std::pair{EditorTool::pen, "pen"},
        std::pair{EditorTool::highlighter, "highlighter"},
        std::pair{EditorTool::rectangle, "rectangle"},
        std::pair{EditorTool::rectangleFilled, "rectangleFilled"},
        std::pair{EditorTool::ellipse, "ellipse"},
        std::pair{EditorTool::step, "step"},
        std::pair{EditorTool::text, "text"},
        std::pair{EditorTool::blur, "blur"},
        std::pair{EditorTool::pixelate, "pixelate"},
        std::pair{EditorTool::blackout, "blackout"},
        std::pair{EditorTool::spotlight, "spotlight"},
        std::pair{EditorTool::measure, "measure"},
    };
};

// The symbol on the tool's button.
constexpr const char* symbolName(EditorTool tool)
{
    constexpr std::array names{
        "cursorarrow", "crop",      "arrow.up.right",        "line.diagonal",  "scribble.variable",
        "highlighter", "rectangle", "rectangle.fill",        "circle",         "1.circle.fill",
        "textformat",  "drop.fill", "squareshape.split.3x3", "rectangle.fill", "rays",
        "ruler"};
    return names[size_t(tool)];
}

} // namespace Kovrel
