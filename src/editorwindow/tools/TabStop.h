#pragma once

#include <QWidget>

namespace Kovrel {

// Of controls that are one group, among which the arrow keys go, one is a stop of the Tab key. Main thread.
namespace TabStop {

template <class Controls>
void setOnly(const QWidget* stop, const Controls& group)
{
    for (QWidget* const control : group)
        control->setFocusPolicy(control == stop ? Qt::TabFocus : Qt::NoFocus);
}

} // namespace TabStop

} // namespace Kovrel
