#pragma once

#include <QScrollArea>

namespace Kovrel {

// Room for what may be higher than its place, and is then scrolled. It shows the ground that it lies on, and what has
// the focus. Main thread.
class ScrollColumn : public QScrollArea {
public:
    ScrollColumn();

    // As wide as the column; the one before is deleted.
    void setContent(QWidget* content);
};

} // namespace Kovrel
