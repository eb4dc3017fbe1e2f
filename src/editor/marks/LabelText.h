#pragma once

#include "model/Geometry.h"

#include <QColor>
#include <QFont>
#include <QLineF>
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

    // For editing. Positions count the characters of the text; lengths as those of size().

    // Where a caret before a character stands, from its upper end to its lower one.
    QLineF caret(qsizetype position) const;
    // Where a caret would go for a point, which may lie outside.
    qsizetype positionAt(QPointF point) const;
    // What is selected between two positions, line by line.
    std::vector<QRectF> selection(qsizetype from, qsizetype to) const;
    bool isRightToLeft(qsizetype position) const;

private:
    // One paragraph, and where its characters were in the text: some are left out.
    struct Paragraph {
        QTextLayout layout;
        std::vector<qsizetype> origins; // and where it ends
    };

    void layOut(double width);
    const Paragraph& paragraphOf(qsizetype position) const;
    static int within(const Paragraph& paragraph, qsizetype position);

    TextAttributes m_attributes;
    std::deque<Paragraph> m_paragraphs; // layouts can't be moved
    Size m_size;
};

} // namespace Kovrel
