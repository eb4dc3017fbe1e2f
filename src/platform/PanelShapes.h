#pragma once

#include <QRect>
#include <QtGlobal>

namespace Kovrel {

// What the toolkit does not do for windows that float above others. Main thread.
class PanelShapes {
public:
    virtual ~PanelShapes() = default;

    // A window of ours, by its native handle, is under the pointer only within a rectangle of its device pixels (origin
    // top-left): what is around it, as a shadow, belongs to the windows below. A desktop may refuse.
    virtual void takeInputOnlyIn(quintptr window, const QRect& pixels) = 0;
};

} // namespace Kovrel
