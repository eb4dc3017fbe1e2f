#include "ui/controls/ScrollColumn.h"

namespace Kovrel {

ScrollColumn::ScrollColumn()
{
    setWidgetResizable(true);
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::NoFocus);
    viewport()->setAutoFillBackground(false);
}

void ScrollColumn::setContent(QWidget* content)
{
    setWidget(content);
    content->setAutoFillBackground(false);
}

} // namespace Kovrel
