#pragma once

#include <QRect>

#include <vector>

namespace Kovrel::Testing {

constexpr int letterHeight = 10;
constexpr int letterStep = 9; // from one letter to the next, of which the letter takes two thirds

// The boxes of small letters on a line, `foot` being the first row below them.
inline std::vector<QRect> letters(int left, int foot, int count)
{
    std::vector<QRect> boxes;
    boxes.reserve(size_t(count));
    for (int at = 0; at < count; ++at)
        boxes.push_back({left + at * letterStep, foot - letterHeight, 6, letterHeight});
    return boxes;
}

inline void append(std::vector<QRect>& boxes, const std::vector<QRect>& more)
{
    boxes.insert(boxes.end(), more.begin(), more.end());
}

} // namespace Kovrel::Testing
