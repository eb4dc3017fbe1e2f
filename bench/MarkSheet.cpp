#include "bench/MarkSheet.h"

#include "editor/AnnotationFlattener.h"
#include "editor/marks/LabelText.h"

#include <QPainter>

namespace Kovrel::Bench {

namespace {

using Kind = Annotation::Kind;
using FillStyle = Annotation::FillStyle;
using TextStyle = Annotation::TextStyle;

constexpr double cellWidth = 240;
constexpr double cellHeight = 150;
constexpr int columns = 5;

const char* const red = "#FF3B30";
const char* const blue = "#0A84FF";
const char* const yellow = "#FFD60A";
const char* const green = "#30D158";

struct Cell {
    const char* title = "";
    std::vector<Annotation> marks; // from the cell's lower left corner
};

Annotation mark(Kind kind, std::vector<Point> points, const char* color = red, double lineWidth = 4)
{
    return {.kind = kind, .points = std::move(points), .colorHex = color, .lineWidth = lineWidth};
}

template <class Change>
Annotation with(Annotation annotation, Change change)
{
    change(annotation);
    return annotation;
}

Annotation label(const char* text, TextStyle style, const char* color = red, Point at = {40, 60})
{
    return with(mark(Kind::text, {at}, color), [&](Annotation& a) {
        a.text = QString::fromUtf8(text);
        a.textStyle = style;
    });
}

Annotation box(Kind kind, FillStyle fill, bool rounded, const char* color = red)
{
    return with(mark(kind, {{40, 30}, {200, 110}}, color), [&](Annotation& a) {
        a.fillStyle = fill;
        a.rounded = rounded;
    });
}

Annotation turned(Annotation annotation, double radians)
{
    annotation.rotation = radians;
    return annotation;
}

Annotation curved(Annotation annotation, Point control)
{
    annotation.curveControl = control;
    return annotation;
}

std::vector<Point> wave()
{
    std::vector<Point> points;
    for (int k = 0; k <= 60; ++k)
        points.push_back({30 + 3.0 * k, 70 + 30 * std::sin(k / 6.0)});
    return points;
}

Annotation highlighter(std::vector<Point> points, const char* color, bool isDark)
{
    return with(mark(Kind::highlighter, std::move(points), color, 3), [&](Annotation& a) {
        a.highlightOnDark = isDark;
        a.highlightPageLuma = isDark ? 0.02 : 0.9;
    });
}

Annotation sticker()
{
    QImage image(160, 120, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(Qt::white, 6));
    painter.setBrush(QColor(blue));
    painter.drawRoundedRect(image.rect().adjusted(4, 4, -4, -4), 24, 24);
    painter.end();
    return with(mark(Kind::image, {{70, 35}, {170, 110}}), [&](Annotation& a) { a.image = image; });
}

Annotation step(qint64 number, Point at, const char* color, double lineWidth = 4)
{
    return with(mark(Kind::step, {at}, color, lineWidth), [&](Annotation& a) { a.stepNumber = number; });
}

std::vector<Cell> cells(bool isDark)
{
    const auto bubble = TextStyle::bubble;
    return {
        {"arrow", {mark(Kind::arrow, {{30, 30}, {200, 110}})}},
        {"arrow, curved", {curved(mark(Kind::arrow, {{30, 40}, {205, 60}}, blue, 6), {110, 170})}},
        {"arrows: thin, short",
         {mark(Kind::arrow, {{30, 110}, {200, 110}}, green, 1), mark(Kind::arrow, {{30, 70}, {52, 70}}, red, 4),
          mark(Kind::arrow, {{90, 70}, {102, 74}}, red, 4), mark(Kind::arrow, {{30, 30}, {200, 30}}, blue, 9)}},
        {"line", {mark(Kind::line, {{30, 30}, {200, 110}}), mark(Kind::line, {{30, 60}, {200, 60}}, blue, 2)}},
        {"line, curved", {curved(mark(Kind::line, {{30, 40}, {205, 60}}, green, 5), {110, 170})}},

        {"pen", {mark(Kind::pen, wave()), mark(Kind::pen, {{210, 30}})}},
        {"highlighter",
         {highlighter({{20, 95}, {210, 95}}, yellow, isDark), highlighter({{120, 60}, {150, 110}}, yellow, isDark),
          highlighter({{20, 55}, {210, 57}}, green, isDark), highlighter({{60, 40}, {80, 110}}, "#FF2D92", isDark)}},
        {"highlighter, a click", {highlighter({{110, 70}}, yellow, isDark)}},
        {"measure",
         {mark(Kind::measure, {{30, 110}, {210, 110}}, red, 2), mark(Kind::measure, {{40, 30}, {75, 30}}, blue, 2),
          mark(Kind::measure, {{170, 20}, {170, 95}}, red, 2)}},
        {"measure, oblique", {mark(Kind::measure, {{40, 30}, {200, 110}}, blue, 2)}},

        {"rectangle", {box(Kind::rectangle, FillStyle::outline, false)}},
        {"translucent", {box(Kind::rectangle, FillStyle::translucent, false)}},
        {"hatched", {box(Kind::rectangle, FillStyle::hatched, false)}},
        {"filled", {box(Kind::rectangle, FillStyle::filled, false)}},
        {"rounded, turned", {turned(box(Kind::rectangle, FillStyle::outline, true, blue), 0.3)}},

        {"ellipse", {box(Kind::ellipse, FillStyle::outline, false)}},
        {"translucent", {box(Kind::ellipse, FillStyle::translucent, false, green)}},
        {"hatched", {box(Kind::ellipse, FillStyle::hatched, false, blue)}},
        {"filled", {box(Kind::ellipse, FillStyle::filled, false, yellow)}},
        {"turned", {turned(box(Kind::ellipse, FillStyle::translucent, false), -0.5)}},

        {"text", {label("Plain text", TextStyle::plain)}},
        {"stroke",
         {label("Outlined", TextStyle::stroke),
          label("on anything \xf0\x9f\x91\x8d", TextStyle::stroke, yellow, {40, 20})}},
        {"background",
         {label("On a plate", TextStyle::background), label("dark on light", TextStyle::background, yellow, {40, 20})}},
        {"bubble", {label("A bubble", bubble, blue)}},
        {"bubble, turned", {turned(label("Look here", bubble), 0.4)}},

        {"wrapped",
         {label("A label without a box wraps at ten times its size", TextStyle::background, green, {15, 25})}},
        {"emoji", {label("Done \xf0\x9f\x8e\x89 \xe2\x9c\x85", TextStyle::background, "#1C1C1E", {15, 40})}},
        {"right to left", {label("שלום עולם, kovrel مرحبا بالعالم", bubble, blue, {15, 40})}},
        {"in a box",
         {with(label("Hangs from the upper edge", TextStyle::plain),
               [](Annotation& a) { a.points = {{20, 20}, {220, 120}}; })}},
        {"steps",
         {step(1, {40, 90}, red), step(12, {90, 90}, blue), step(345, {150, 90}, green, 8),
          step(7, {40, 40}, yellow, 2), step(-3, {90, 40}, "#000000", 3)}},

        {"blur", {mark(Kind::blur, {{20, 30}, {170, 105}})}},
        {"pixelate", {mark(Kind::pixelate, {{20, 30}, {170, 105}})}},
        {"blackout", {mark(Kind::blackout, {{20.3, 30.7}, {170.2, 105.1}})}},
        {"image", {sticker()}},
        {"image, turned", {turned(sticker(), 0.35)}},
    };
}

size_t rowsOf(size_t count)
{
    return (count + columns - 1) / columns;
}

Point corner(size_t index, size_t count)
{
    const auto column = double(index % columns);
    const auto row = double(rowsOf(count) - 1 - index / columns);
    return {column * cellWidth, row * cellHeight};
}

Annotation moved(Annotation annotation, Point by)
{
    for (Point& point : annotation.points)
        point = {point.x + by.x, point.y + by.y};
    if (annotation.curveControl)
        annotation.curveControl = {annotation.curveControl->x + by.x, annotation.curveControl->y + by.y};
    return annotation;
}

void write(QPainter& painter, const char* text, double fontSize, Point at, const QColor& color)
{
    LabelText(QString::fromUtf8(text), fontSize, std::nullopt).draw(painter, {at.x, at.y}, 1, color);
}

QImage page(double scale, bool isDark, const std::vector<Cell>& all)
{
    const double height = double(rowsOf(all.size())) * cellHeight;
    QImage image(int(columns * cellWidth * scale), int(height * scale), QImage::Format_RGB32);
    image.fill(isDark ? QColor(0x1e, 0x1f, 0x22) : QColor(Qt::white));
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setTransform(QTransform(scale, 0, 0, -scale, 0, height * scale));
    const QColor ink = isDark ? QColor(0xc8, 0xca, 0xd0) : QColor(0x30, 0x32, 0x38);
    const QColor line = isDark ? QColor(0x36, 0x38, 0x3e) : QColor(0xe4, 0xe6, 0xea);
    for (size_t index = 0; index < all.size(); ++index) {
        const Point at = corner(index, all.size());
        painter.fillRect(QRectF(at.x, at.y, cellWidth, 1), line);
        painter.fillRect(QRectF(at.x, at.y, 1, cellHeight), line);
        write(painter, all[index].title, 9, {at.x + 8, at.y + cellHeight - 4}, QColor(0x8a, 0x8e, 0x98));
        for (int row = 0; row < 4; ++row)
            write(painter, "The quick brown fox jumps over", 11, {at.x + 22, at.y + 115 - 24 * row}, ink);
    }
    return image;
}

} // namespace

QImage markSheet(double scale, bool isDark)
{
    const std::vector<Cell> all = cells(isDark);
    AnnotationFlattener::Input input{.base = page(scale, isDark, all), .exportScale = scale};
    for (size_t index = 0; index < all.size(); ++index)
        for (const Annotation& annotation : all[index].marks)
            input.annotations.push_back(moved(annotation, corner(index, all.size())));
    EditorBackdropRenderer renderer;
    return AnnotationFlattener::render(input, renderer);
}

QImage spotlightSheet(double scale, bool isDark)
{
    const std::vector<Cell> texts(columns * 2);
    const Annotation second =
        with(mark(Kind::spotlight, {{430, 40}, {660, 100}}), [](Annotation& spotlight) { spotlight.dimLevel = 0.6; });
    EditorBackdropRenderer renderer;
    return AnnotationFlattener::render({.base = page(scale, isDark, texts),
                                        .annotations = {mark(Kind::spotlight, {{250, 20}, {470, 125}}), second,
                                                        highlighter({{720, 95}, {1180, 95}}, yellow, isDark),
                                                        mark(Kind::arrow, {{760, 40}, {670, 70}})},
                                        .exportScale = scale},
                                       renderer);
}

} // namespace Kovrel::Bench
