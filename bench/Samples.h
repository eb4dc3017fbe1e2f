#pragma once

#include <QElapsedTimer>

#include <algorithm>
#include <vector>

namespace Kovrel::Bench {

// How long a piece of work takes, by the clock on the wall.
template <class Work>
double milliseconds(Work work)
{
    QElapsedTimer timer;
    timer.start();
    work();
    return double(timer.nsecsElapsed()) / 1e6;
}

// What several runs of the same thing took.
class Samples {
public:
    void add(double value) { m_values.insert(std::ranges::upper_bound(m_values, value), value); }

    double best() const { return m_values.front(); }

    double worst() const { return m_values.back(); }

    double median() const { return m_values[m_values.size() / 2]; }

private:
    std::vector<double> m_values; // the smallest first
};

} // namespace Kovrel::Bench
