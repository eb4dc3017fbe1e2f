#pragma once

#include "editor/geometry/MarkFrame.h"

#include <algorithm>
#include <random>

namespace Kovrel::Testing {

// Marks of every kind, anywhere on a capture, and what somebody does to them.
class RandomMarks {
public:
    using Marks = std::vector<Annotation>;

    RandomMarks(unsigned seed, QSize size, QImage sticker) : m_random(seed), m_size(size), m_sticker(std::move(sticker))
    {
    }

    int below(int end) { return int(m_random() % unsigned(end)); }

    Point place() { return {double(below(m_size.width())), double(below(m_size.height()))}; }

    Annotation mark()
    {
        Annotation mark{.kind = Annotation::Kind(below(14)), .points = {place(), place()}, .colorHex = color()};
        mark.lineWidth = 1 + below(5);
        mark.text = "Ag";
        mark.fontSize = 8 + below(8);
        mark.fillStyle = Annotation::FillStyle(below(4));
        mark.textStyle = Annotation::TextStyle(below(4));
        mark.rotation = below(2) * below(6);
        mark.highlightOnDark = below(2) == 0;
        mark.highlightPageLuma = 0.1 * below(5);
        mark.dimLevel = 0.2 * below(4);
        if (mark.kind == Annotation::Kind::image)
            mark.image = m_sticker;
        if (below(3) == 0)
            mark.curveControl = place();
        return mark;
    }

    Marks some()
    {
        Marks marks;
        for (int count = below(8); count >= 0; --count)
            marks.push_back(mark());
        return marks;
    }

    Marks changed(Marks marks)
    {
        const size_t index = marks.empty() ? 0 : size_t(below(int(marks.size())));
        switch (marks.empty() ? 0 : below(6)) {
        case 0:
            marks.insert(marks.begin() + qptrdiff(index), mark());
            break;
        case 1:
            marks.erase(marks.begin() + qptrdiff(index));
            break;
        case 2:
            marks[index] = MarkFrame::translated(marks[index], {double(below(40) - 20), double(below(40) - 20)});
            break;
        case 3:
            marks[index].colorHex = color();
            marks[index].dimLevel = 0.2 * below(4);
            break;
        case 4:
            std::rotate(marks.begin(), marks.begin() + qptrdiff(index), marks.end());
            break;
        default: {
            Annotation other = mark();
            other.id = marks[index].id;
            marks[index] = other;
        }
        }
        return marks;
    }

private:
    QString color() { return below(2) == 0 ? "#FF3B30" : "#FFDC2C"; }

    std::mt19937 m_random;
    QSize m_size;
    QImage m_sticker;
};

} // namespace Kovrel::Testing
