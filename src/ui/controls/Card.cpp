#include "ui/controls/Card.h"

#include "ui/Ground.h"
#include "ui/tokens/Metrics.h"
#include "ui/tokens/Theme.h"

#include <QPainter>

namespace Kovrel {

void Card::paintEvent(QPaintEvent*)
{
    const Theme& theme = Theme::current();
    QPainter painter(this);
    Ground{.color = theme.card, .edge = theme.cardEdge, .radius = Radius::group}.paint(painter, rect());
}

} // namespace Kovrel
