#include "editor/marks/LabelInk.h"

#include "editor/marks/AnnotationInk.h"
#include "editor/marks/LabelText.h"
#include "editor/marks/MarkShadow.h"

#include <QPainter>
#include <QPainterPathStroker>

namespace Kovrel {

namespace {

// To each side of a letter's edge, as a share of the font size.
constexpr double outlineWidth = 0.08;

void drawOutlined(QPainter& painter, const LabelText& text, const Annotation& label, double scale, const QColor& color)
{
    const QPen pen(textColorOn(color), 2 * outlineWidth * label.fontSize * scale, Qt::SolidLine, Qt::RoundCap,
                   Qt::RoundJoin);
    const QPointF origin = AnnotationInk::scaled(label.textOrigin(), scale);
    const QPainterPathStroker stroker(pen);
    std::vector<QPainterPath> outlines;
    for (const QPainterPath& glyph : text.outlines(origin, scale))
        outlines.push_back(stroker.createStroke(glyph));
    MarkShadow::draw(painter, outlines, scale);
    for (const QPainterPath& outline : outlines)
        painter.fillPath(outline, pen.color());
    text.draw(painter, origin, scale, color);
}

} // namespace

void LabelInk::fillTextChip(QPainter& painter, const Annotation& label, double scale, const QColor& color)
{
    const QPainterPath chip = AnnotationInk::inkPath(label, scale);
    MarkShadow::draw(painter, {chip.simplified()}, scale);
    painter.fillPath(chip, color);
}

void LabelInk::drawText(QPainter& painter, const Annotation& label, double scale)
{
    if (label.text.trimmed().isEmpty())
        return;
    painter.save();
    painter.setTransform(AnnotationInk::rotation(label, scale), true);
    const QColor color = AnnotationInk::colorOf(label);
    const LabelText text(label.text, label.fontSize, label.textWrapWidth());
    const QPointF origin = AnnotationInk::scaled(label.textOrigin(), scale);
    if (label.textStyle == Annotation::TextStyle::stroke) {
        drawOutlined(painter, text, label, scale, color);
    } else if (isChip(label.textStyle)) {
        fillTextChip(painter, label, scale, color);
        text.draw(painter, origin, scale, textColorOn(color));
    } else {
        MarkShadow::draw(painter, text.outlines(origin, scale), scale);
        text.draw(painter, origin, scale, color);
    }
    painter.restore();
}

} // namespace Kovrel
