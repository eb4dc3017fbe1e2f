#pragma once

#include "history/text/SearchableText.h"
#include "model/OCRResult.h"

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace Kovrel {

// The recognised lines of one capture as they are kept in memory for searching: their folded text once, what tells it
// from the text itself, and their boxes as small numbers. Any thread.
class IndexedText {
public:
    // Of the lines it keeps texts and boxes; lines without text are left out.
    explicit IndexedText(const std::vector<OCRLine>& lines);

    // The folded texts of the lines, a space between them.
    SearchableText searchable() const { return {m_folded, m_signature}; }

    // The lines again, boxes with five decimals; with confidence 1, neither quads nor centres.
    std::vector<OCRLine> lines() const;

    bool isEmpty() const { return m_lines.empty(); }

    // What it takes in memory, roughly.
    size_t bytes() const;

private:
    struct Line {
        std::uint32_t end = 0; // in the folded text
        std::array<float, 4> box{};
    };

    void append(const OCRLine& line);

    std::string m_folded;
    std::string m_differences;
    std::string m_signature;
    std::vector<Line> m_lines;
};

} // namespace Kovrel
