#include "ui/controls/Hairline.h"

#include "ui/tokens/Metrics.h"
#include "ui/tokens/Theme.h"

#include <QPainter>

namespace Kovrel {

Hairline::Hairline()
{
    setFixedHeight(int(Stroke::hairline));
}

void Hairline::paintEvent(QPaintEvent*)
{
    QPainter(this).fillRect(rect().adjusted(Spacing::large, 0, -Spacing::large, 0), Theme::current().separator);
}

} // namespace Kovrel
