#pragma once

#include "model/Geometry.h"

#include <QColor>
#include <QFont>
#include <QPainterPath>
#include <QTextLayout>

#include <deque>
#include <optional>
#include <vector>

class QPainter;

namespace Kovrel {

// The font of everything that is written on a capture, and how it is measured. It is the same with and without a
// display, and is neither hinted nor coloured at its edges, so a text has the same shape at every scale.
struct TextAttributes {
    QFont font;       // at a size of its own, large enough to be exact
    double scale = 1; // from that size to the wanted one
    std::optional<QColor> color;
};

// Semibold, which labels are set in.
TextAttributes textAttributes(double fontSize, const std::optional<QColor>& color);
// Bold, for the numbers of steps.
TextAttributes boldTextAttributes(double fontSize, const std::optional<QColor>& color);

// Dark on light plates, white on all others.
QColor textColorOn(const QColor& plate);

// A text that is broken into lines. The unit is that of the font size, y down from the upper left corner. Any thread.
class LabelText {
public:
    // Without a width it is broken only where it has line ends. A word that is longer than a line is broken too. Each
    // paragraph has the direction of its first letter; those from right to left are aligned to the right.
    LabelText(const QString& text, double fontSize, std::optional<double> wrapWidth);
    LabelText(const QString& text, const TextAttributes& attributes, std::optional<double> wrapWidth);

    Size size() const { return m_size; }

    static double lineHeight(double fontSize);

    // In a painter whose y points up, with the text's upper left corner at `origin` (target points).
    void draw(QPainter& painter, QPointF origin, double scale, const QColor& color) const;
    // What draw() fills, in the same place, glyph by glyph. Those that are pictures, such as emoji, have no outline.
    std::vector<QPainterPath> outlines(QPointF origin, double scale) const;

private:
    void layOut(double width);

    TextAttributes m_attributes;
    std::deque<QTextLayout> m_paragraphs; // which can't be moved
    Size m_size;
};

} // namespace Kovrel
