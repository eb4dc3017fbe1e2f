#include "imaging/QuarterTurn.h"

#include <QTransform>

namespace Kovrel {

QImage turned(const QImage& image, QuarterTurn turn)
{
    return image.transformed(QTransform().rotate(turn == QuarterTurn::left ? -90 : 90));
}

} // namespace Kovrel
