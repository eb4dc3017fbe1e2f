#pragma once

#include <QRegion>
#include <QtGlobal>

namespace Kovrel {

// What the toolkit does not do for windows that float above others. Main thread.
class PanelShapes {
public:
    virtual ~PanelShapes() = default;

    // A window of ours, by its native handle, is under the pointer only within a region of its device pixels (origin
    // top-left): what is around it, as a shadow, belongs to the windows below. An empty region leaves all to them. The
    // desktop adds no shadow of its own. It may refuse.
    virtual void takeInputOnlyIn(quintptr window, const QRegion& pixels) = 0;
};

} // namespace Kovrel
