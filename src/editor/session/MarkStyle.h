#pragma once

#include "editor/marks/Annotation.h"

#include <optional>

namespace Kovrel {

// How a mark looks, apart from what and where it is. What is not set stays as it is.
struct MarkStyle {
    std::optional<QString> colorHex = {};
    std::optional<double> lineWidth = {}; // image points; of a label, a fifth of its font size
    std::optional<AnnotationFillStyle> fillStyle = {};
    std::optional<AnnotationTextStyle> textStyle = {};
    std::optional<bool> rounded = {};
    std::optional<double> dimLevel = {};
    std::optional<double> tipScale = {};

    // What people call the width of a label.
    static constexpr double fontSizePerWidth = 5;

    // The style of a mark: what its kind does not have is not set.
    static MarkStyle of(const Annotation& mark);
    // What a tool's marks have, set or not.
    static MarkStyle onlyOf(Annotation::Kind kind, const MarkStyle& style);
    // The mark in this style. A label keeps its upper left corner.
    Annotation applied(Annotation mark) const;
    // What both have in common; what differs is not set.
    MarkStyle common(const MarkStyle& other) const;

    // What either has set; where both have, that of this one.
    MarkStyle united(const MarkStyle& other) const;

    bool operator==(const MarkStyle&) const = default;
};

} // namespace Kovrel
