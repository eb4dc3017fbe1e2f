#pragma once

#include "model/AnnotationFillStyle.h"
#include "model/AnnotationTextStyle.h"
#include "model/EditorTool.h"
#include "model/Geometry.h"

#include <QImage>
#include <QUuid>

#include <optional>
#include <vector>

namespace Kovrel {

// One mark on a capture. Coordinates and widths are image points (a pixel of the capture divided by its export scale),
// with the origin at the lower left of the capture and y up. Everything here is pure; any thread.
struct Annotation {
    enum class Kind {
        pen,
        highlighter,
        arrow,
        line,
        rectangle,
        ellipse,
        text,
        blur,
        pixelate,
        blackout,
        step,
        spotlight,
        measure,
        image,
    };
    using FillStyle = AnnotationFillStyle;
    using TextStyle = AnnotationTextStyle;

    QUuid id = QUuid::createUuid(); // while the editor is open; not persisted
    Kind kind = Kind::pen;
    // A stroke's samples (pen, highlighter), the centre (step), the origin of a label that was placed by a click; for
    // all others the first and the last point are the ends of the drag.
    std::vector<Point> points;
    QString colorHex; // what HexColor parses; anything else is drawn black
    double lineWidth = 0;
    QString text;
    double fontSize = 20;
    qint64 stepNumber = 1;
    FillStyle fillStyle = FillStyle::outline;
    TextStyle textStyle = TextStyle::plain;
    bool rounded = false;
    double dimLevel = 0.5; // darkness around a spotlight, 0 to 1
    std::optional<QImage> image;
    std::optional<Point> curveControl; // bends a line or an arrow into a quadratic curve
    double tipScale = 1;
    bool highlightOnDark = false;
    double highlightPageLuma = 0.3;
    double rotation = 0;           // radians, counterclockwise about the centre
    std::optional<double> wrapCap; // a label that was placed by a click wraps here

    // What the first and the last point span.
    Rect boundingRect() const;
    // Halfway along a line or an arrow; on the curve where it is bent.
    std::optional<Point> segmentMidpoint() const;
    bool isRotatable() const;

    // Of the text, whole points; an empty label has a body too. Without a width it is not wrapped.
    Size measuredTextSize(std::optional<double> wrapWidth) const;
    // The measured text with its padding, before it is rotated. A label that was placed by a click begins at that
    // point; one that was drawn as a box hangs from the upper left corner of the box.
    Rect textRect() const;
    // Where in textRect() the text's upper left corner is; a text that is narrower than its body is in the middle.
    Point textOrigin() const;
    // The width at which the text is wrapped.
    double textWrapWidth() const;
    // Where the tail of a bubble points, before it is rotated.
    Point bubbleTailTip() const;
    // The rectangle that turns: textRect() of a label, boundingRect() of the others.
    Rect rotationRect() const;

    bool operator==(const Annotation&) const = default;
};

template <>
struct RawStrings<Annotation::Kind> {
    static constexpr std::array table{
        std::pair{Annotation::Kind::pen, "pen"},
        std::pair{Annotation::Kind::highlighter, "highlighter"},
        std::pair{Annotation::Kind::arrow, "arrow"},
        std::pair{Annotation::Kind::line, "line"},
        std::pair{Annotation::Kind::rectangle, "rectangle"},
        std::pair{Annotation::Kind::ellipse, "ellipse"},
        std::pair{Annotation::Kind::text, "text"},
        std::pair{Annotation::Kind::blur, "blur"},
        std::pair{Annotation::Kind::pixelate, "pixelate"},
        std::pair{Annotation::Kind::blackout, "blackout"},
        std::pair{Annotation::Kind::step, "step"},
        std::pair{Annotation::Kind::spotlight, "spotlight"},
        std::pair{Annotation::Kind::measure, "measure"},
        std::pair{Annotation::Kind::image, "image"},
    };
};

// The tool whose style settings a kind of mark shares; none for the kinds without a style panel.
std::optional<EditorTool> editorToolStyling(Annotation::Kind kind);

} // namespace Kovrel
