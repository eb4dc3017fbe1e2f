#pragma once

#include "model/OCRResult.h"

#include <QPolygonF>
#include <QSize>

#include <compare>

namespace Kovrel {

// The text in a picture, to be selected with the pointer as in a document: which letter is where, and what lies between
// two of them in reading order. Points are pixels of the picture, origin top-left. Any thread.
class SelectableText {
public:
    // Before a character (grapheme) of a line, or behind its last one.
    struct Place {
        size_t line = 0;
        size_t character = 0;
        auto operator<=>(const Place&) const = default;
    };

    struct Range {
        Place from; // never behind `to`
        Place to;

        bool isEmpty() const { return from == to; }

        bool operator==(const Range&) const = default;
    };

    static Range between(Place one, Place other) { return {std::min(one, other), std::max(one, other)}; }

    SelectableText() = default;
    // Lines in reading order, of a picture of that many pixels.
    SelectableText(const std::vector<OCRLine>& lines, QSize picture);

    bool isEmpty() const { return m_lines.empty(); }

    // Whether there is text under a point, or almost.
    bool covers(QPointF point) const;

    // With at least one line: the nearest place to a point, wherever that is.
    Place placeAt(QPointF point) const;
    Range wordAt(QPointF point) const;
    Range lineAt(QPointF point) const;
    Range all() const;
    // One character on or back, over the ends of lines, too; at the ends of the text it stays.
    Place next(Place place) const;
    Place previous(Place place) const;

    // With tabs between columns of a row, and line feeds between rows.
    QString text(Range range) const;
    // What covers a range: one for each line.
    std::vector<QPolygonF> shapes(Range range) const;

    // The part of a line that its characters `from` to `to` in QString's counting are.
    Range part(size_t line, qsizetype from, qsizetype to) const;

    size_t lineCount() const { return m_lines.size(); }

    const QString& lineText(size_t line) const { return m_lines[line].text; }

private:
    // A line lies along a vector from its lower left corner, however it is turned.
    struct Line {
        QString text;
        std::vector<qsizetype> starts; // of each grapheme in the text, and the end
        std::vector<double> shares;    // of the line's length where each begins, and where the last one ends
        QPointF origin;
        QPointF along;
        QPointF up;

        QPointF shareOf(QPointF point) const; // along and up, 0 to 1 within the line
        double distanceTo(QPointF point) const;
        QPolygonF shape(size_t from, size_t to) const;
    };

    static Line makeLine(const OCRLine& line, QSize picture);
    size_t nearestLine(QPointF point) const;

    size_t length(size_t line) const { return m_lines[line].shares.size() - 1; }

    QString separator(size_t line) const;

    std::vector<Line> m_lines;
};

} // namespace Kovrel
