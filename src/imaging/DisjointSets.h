#pragma once

#include <algorithm>
#include <vector>

namespace Kovrel {

// Numbers that turn out to name the same thing, as the parts of a region that is met row by row.
class DisjointSets {
public:
    int add()
    {
        m_parents.push_back(int(m_parents.size()));
        return m_parents.back();
    }

    // The lowest number of the set that holds this one.
    int rootOf(int number)
    {
        while (parent(number) != number)
            number = parent(number) = parent(parent(number));
        return number;
    }

    int unite(int one, int other)
    {
        if (one == other)
            return one;
        const auto [low, high] = std::minmax({rootOf(one), rootOf(other)});
        return parent(high) = low;
    }

    // For each number that of its set, counted from 0 in the order of their lowest numbers.
    std::vector<int> numbered()
    {
        std::vector<int> numbers(m_parents.size());
        int count = 0;
        for (size_t at = 0; at < numbers.size(); ++at) {
            const int root = rootOf(int(at));
            numbers[at] = root == int(at) ? count++ : numbers[size_t(root)];
        }
        return numbers;
    }

private:
    int& parent(int number) { return m_parents[size_t(number)]; }

    std::vector<int> m_parents;
};

} // namespace Kovrel
