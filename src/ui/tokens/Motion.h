#pragma once

#include <QEasingCurve>

#include <chrono>

namespace Kovrel {

// How long things take to come and to go: no time at all for those who asked their desktop for no animations.
// Main thread.
class Motion {
public:
    static Motion& shared();

    // KOVREL_REDUCED_MOTION=1 asks for none from the start.
    Motion();

    bool isReduced() const { return m_isReduced; }

    // What the desktop says; the variable of the environment goes before.
    void setReduced(bool isReduced);

    std::chrono::milliseconds appearing() const;
    std::chrono::milliseconds disappearing() const;
    std::chrono::milliseconds moving() const; // from one place to another

    static constexpr QEasingCurve::Type easing = QEasingCurve::OutCubic;

private:
    bool m_isReduced;
};

} // namespace Kovrel
