#include "bench/BackdropSheet.h"

#include "editor/backdrop/BackdropCatalogue.h"
#include "editor/backdrop/EditorBackdropRenderer.h"

#include <QPainterPath>

namespace Kovrel::Bench {

using Kind = BackdropFill::Kind;

namespace {

constexpr QSizeF capturePoints(300, 190);
constexpr int columns = 5;
constexpr double gap = 16;
constexpr double captionHeight = 18;

struct Cell {
    QString caption;
    EditorBackdrop backdrop;
    QImage capture;
    std::optional<CaptureSubject> subject = {};
};

// Something like a window with text and buttons.
void drawContent(QPainter& painter, const QRectF& rect, bool isDark)
{
    painter.fillRect(rect, isDark ? QColor("#1B1D22") : QColor("#FFFFFF"));
    painter.fillRect(QRectF(rect.x(), rect.y(), rect.width(), 26), isDark ? QColor("#2A2D34") : QColor("#ECEEF1"));
    const QColor lights[] = {"#FF5F57", "#FEBC2E", "#28C840"};
    painter.setPen(Qt::NoPen);
    for (int index = 0; index < 3; ++index) {
        painter.setBrush(lights[index]);
        painter.drawEllipse(QPointF(rect.x() + 15 + 14 * index, rect.y() + 13), 4.5, 4.5);
    }
    for (int line = 0; line < 8; ++line) {
        painter.setBrush(line == 0 ? QColor("#5B7CFA") : isDark ? QColor("#5A5F6A") : QColor("#C9CED6"));
        const double width = (0.4 + 0.07 * ((line * 5) % 8)) * rect.width();
        painter.drawRoundedRect(QRectF(rect.x() + 16, rect.y() + 42 + 17 * line, width, 8), 4, 4);
    }
}

QImage capture(double scale, bool isDark)
{
    QImage image((capturePoints * scale).toSize(), QImage::Format_RGB32);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(scale, scale);
    drawContent(painter, {{0, 0}, capturePoints}, isDark);
    return image;
}

constexpr QRectF windowInMargins(24, 12, 252, 150);
constexpr double windowCorners = 12;

// A translucent window with round corners in the transparent surroundings that a capture of it has.
QImage windowCapture(double scale)
{
    QImage content((capturePoints * scale).toSize(), QImage::Format_RGB32);
    QPainter contentPainter(&content);
    contentPainter.setRenderHint(QPainter::Antialiasing);
    contentPainter.scale(scale, scale);
    drawContent(contentPainter, windowInMargins, false);
    contentPainter.end();

    QImage image(content.size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setOpacity(0.88);
    QPainterPath window;
    window.addRoundedRect(windowInMargins, windowCorners, windowCorners);
    painter.fillPath(QTransform::fromScale(scale, scale).map(window), QBrush(content));
    return image;
}

CaptureSubject windowSubject(double scale)
{
    const QRectF& rect = windowInMargins;
    return {{rect.x() * scale, rect.y() * scale, rect.width() * scale, rect.height() * scale}, windowCorners * scale};
}

QImage rendered(const Cell& cell, double scale)
{
    return EditorBackdropRenderer().render(cell.capture, scale, cell.backdrop, cell.subject,
                                           BackdropMargins::measured(cell.capture));
}

// The cells in rows, each under its caption.
QImage sheet(const std::vector<Cell>& cells, double scale)
{
    std::vector<QImage> images;
    QSize largest;
    for (const Cell& cell : cells) {
        images.push_back(rendered(cell, scale));
        largest = largest.expandedTo(images.back().size());
    }
    const int stepX = int(largest.width() + gap * scale);
    const int stepY = int(largest.height() + (gap + captionHeight) * scale);
    const int rows = (int(cells.size()) + columns - 1) / columns;
    QImage all(columns * stepX + int(gap * scale), rows * stepY + int(gap * scale), QImage::Format_RGB32);
    all.fill(QColor("#FFFFFF"));
    QPainter painter(&all);
    QFont font;
    font.setPixelSize(int(12 * scale));
    painter.setFont(font);
    for (int index = 0; index < int(cells.size()); ++index) {
        const QPoint place(index % columns * stepX + int(gap * scale), index / columns * stepY);
        painter.drawText(QRectF(place.x(), place.y(), stepX, captionHeight * scale), Qt::AlignVCenter,
                         cells[size_t(index)].caption);
        painter.drawImage(place + QPoint(0, int(captionHeight * scale)), images[size_t(index)]);
    }
    return all;
}

template <class Change>
Cell changed(const QString& caption, const QImage& image, Change change)
{
    Cell cell{caption, {}, image};
    change(cell.backdrop);
    return cell;
}

Cell filled(const QString& name, const BackdropFill& fill, const QImage& image)
{
    return changed(name, image, [&](EditorBackdrop& backdrop) { backdrop.fill = fill; });
}

std::vector<Cell> gradientCells(double scale, bool isDark)
{
    std::vector<Cell> cells;
    for (const auto& gradient : BackdropCatalogue::gradients())
        cells.push_back(filled(gradient.name, {Kind::gradient, gradient.id}, capture(scale, isDark)));
    return cells;
}

std::vector<Cell> colorCells(double scale, bool isDark)
{
    std::vector<Cell> cells;
    for (const auto& color : BackdropCatalogue::colors())
        cells.push_back(filled(color.name, {Kind::color, color.hex}, capture(scale, isDark)));
    return cells;
}

std::vector<Cell> pictureCells(double scale, bool isDark)
{
    std::vector<Cell> cells;
    for (const double blur : {0.0, 0.1})
        for (const auto& picture : BackdropCatalogue::pictures()) {
            const QString caption = blur > 0 ? picture.name + ", blurred" : picture.name;
            cells.push_back(filled(caption, {Kind::picture, picture.id}, capture(scale, isDark)));
            cells.back().backdrop.blur = blur;
        }
    return cells;
}

std::vector<Cell> shadowCells(double scale)
{
    std::vector<Cell> cells;
    const QImage light = capture(scale, false);
    const std::pair<const char*, Shadow> shadows[] = {
        {"none", Shadow::none()}, {"subtle", Shadow::subtle()}, {"soft", Shadow::soft()}, {"deep", Shadow::deep()}};
    for (const char* const page : {"#FFFFFF", "#C5C9D0"})
        for (const auto& [name, shadow] : shadows)
            cells.push_back(changed(QString("Shadow: ") + name, light, [&](EditorBackdrop& backdrop) {
                backdrop.shadow = shadow;
                backdrop.padding = 0.25;
                backdrop.fill = {Kind::color, page};
            }));
    for (const auto& [x, y] : {std::pair{1.0, 1.0}, {-1.0, 1.0}, {0.0, -1.0}, {0.0, 0.0}})
        cells.push_back(changed(QString("Light to %1, %2").arg(x).arg(y), light, [&](EditorBackdrop& backdrop) {
            backdrop.shadow = Shadow::deep();
            backdrop.shadowLight = {x, y};
            backdrop.padding = 0.3;
            backdrop.fill = {Kind::gradient, "fog"};
        }));
    return cells;
}

std::vector<Cell> alignmentCells(double scale)
{
    std::vector<Cell> cells;
    const QImage light = capture(scale, false);
    for (const auto& [alignment, name] : RawStrings<CardAlignment>::table)
        cells.push_back(changed(name, light, [&, side = alignment](EditorBackdrop& backdrop) {
            backdrop.alignment = side;
            backdrop.aspect = AspectRatio{4, 3};
            backdrop.fill = {Kind::gradient, "iris"};
        }));
    return cells;
}

std::vector<Cell> aspectCells(double scale)
{
    std::vector<Cell> cells;
    const QImage light = capture(scale, false);
    for (const auto& [width, height] : {std::pair{1, 1}, {16, 9}, {4, 5}, {2, 1}})
        cells.push_back(changed(QString("%1:%2").arg(width).arg(height), light, [&](EditorBackdrop& backdrop) {
            backdrop.aspect = AspectRatio{width, height};
            backdrop.fill = {Kind::gradient, "peach"};
        }));
    return cells;
}

std::vector<Cell> frameCells(double scale)
{
    std::vector<Cell> cells;
    for (const bool follows : {false, true})
        for (const double corners : {0.0, 4.0, 16.0})
            cells.push_back(changed(QString("Frame, corners %1").arg(corners), capture(scale, follows),
                                    [&](EditorBackdrop& backdrop) {
                                        backdrop.frame = 0.6;
                                        backdrop.corners = corners;
                                        backdrop.frameFollowsPage = follows;
                                        backdrop.fill = {Kind::gradient, follows ? "orchid" : "graphite"};
                                    }));
    for (const bool balanced : {false, true}) {
        cells.push_back(changed(balanced ? "Window, balanced" : "Window", windowCapture(scale),
                                [&](EditorBackdrop& backdrop) { backdrop.autoBalance = balanced; }));
        cells.back().subject = windowSubject(scale);
    }
    cells.push_back(cells.back());
    cells.back().caption = "Window, framed";
    cells.back().backdrop.frame = 0.4;
    cells.push_back(changed("Transparent page", windowCapture(scale), [](EditorBackdrop& backdrop) {
        backdrop.fill = {Kind::color, "#FFFFFF00"};
        backdrop.autoBalance = true;
    }));
    cells.back().subject = windowSubject(scale);
    return cells;
}

} // namespace

std::vector<BackdropSheet::Sheet> BackdropSheet::sheets(double scale)
{
    std::vector<Sheet> all;
    for (const bool isDark : {false, true}) {
        const QString on = isDark ? "-dark" : "-light";
        all.push_back({"gradients" + on, sheet(gradientCells(scale, isDark), scale)});
        all.push_back({"colors" + on, sheet(colorCells(scale, isDark), scale)});
        all.push_back({"pictures" + on, sheet(pictureCells(scale, isDark), scale)});
    }
    all.push_back({"shadows", sheet(shadowCells(scale), scale)});
    all.push_back({"alignments", sheet(alignmentCells(scale), scale)});
    all.push_back({"aspects", sheet(aspectCells(scale), scale)});
    all.push_back({"frames", sheet(frameCells(scale), scale)});
    return all;
}

} // namespace Kovrel::Bench
