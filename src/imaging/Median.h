#pragma once

#include <algorithm>
#include <vector>

namespace Kovrel {

// The upper median of values, of which there is at least one.
template <class Number>
Number median(std::vector<Number> values)
{
    const auto middle = values.begin() + std::ptrdiff_t(values.size() / 2);
    std::ranges::nth_element(values, middle);
    return *middle;
}

} // namespace Kovrel
