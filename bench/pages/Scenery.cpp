#include "bench/pages/Scenery.h"

#include <cmath>

namespace Kovrel::Bench {

namespace {

QColor colour(RandomText& random)
{
    return QColor::fromHsv(random.number(0, 359), random.number(60, 220), random.number(80, 250));
}

QPoint pointIn(const QRect& frame, RandomText& random)
{
    return {random.number(frame.left(), frame.right()), random.number(frame.top(), frame.bottom())};
}

// Shapes, lines and arrows over a gradient, as in charts and illustrations.
void draw(QPainter& painter, const QRect& frame, RandomText& random)
{
    QLinearGradient sky(frame.topLeft(), frame.bottomRight());
    sky.setColorAt(0, colour(random));
    sky.setColorAt(1, colour(random));
    painter.fillRect(frame, random.chance(0.5) ? QBrush(sky) : QBrush(Qt::white));
    for (int shape = random.number(15, 45); shape > 0; --shape) {
        const QRect box(pointIn(frame, random), QSize(random.number(6, 90), random.number(6, 70)));
        painter.setPen(QPen(colour(random), random.number(1, 4)));
        painter.setBrush(random.chance(0.5) ? QBrush(colour(random)) : QBrush(Qt::NoBrush));
        switch (random.number(0, 4)) {
        case 0:
            painter.drawEllipse(box);
            break;
        case 1:
            painter.drawRect(box);
            break;
        case 2:
            painter.drawLine(box.topLeft(), box.bottomRight());
            break;
        case 3:
            painter.drawArc(box, random.number(0, 5760), random.number(500, 5000));
            break;
        default:
            painter.drawConvexPolygon(QPolygon{box.topLeft(), box.bottomLeft(), pointIn(box, random)});
        }
    }
}

// Blobs of light and shade in many sizes, with the grain of a sensor.
void photograph(QPainter& painter, const QRect& frame, RandomText& random)
{
    const QColor base = colour(random);
    painter.fillRect(frame, base);
    painter.setPen(Qt::NoPen);
    for (int size = frame.height(); size > 4; size = size * 2 / 3)
        for (int blob = 4 * frame.height() / size; blob > 0; --blob) {
            const QPoint centre = pointIn(frame, random);
            QRadialGradient shade(centre, size);
            QColor tone =
                random.chance(0.5) ? base.lighter(random.number(110, 220)) : base.darker(random.number(110, 300));
            tone.setAlpha(random.number(60, 220));
            shade.setColorAt(0, tone);
            tone.setAlpha(0);
            shade.setColorAt(random.number(5, 10) / 10.0, tone);
            painter.setBrush(shade);
            painter.drawEllipse(centre, size, size * random.number(4, 10) / 10);
        }
    for (int grain = frame.width() * frame.height() / 2; grain > 0; --grain) {
        painter.setPen(QColor(random.chance(0.5) ? Qt::white : Qt::black));
        painter.setOpacity(random.number(1, 10) / 100.0);
        painter.drawPoint(pointIn(frame, random));
    }
    painter.setOpacity(1);
}

} // namespace

void Scenery::draw(QPainter& painter, const QRect& frame, Kind kind, RandomText& random)
{
    painter.save();
    painter.setClipRect(frame);
    if (kind == Kind::drawing)
        Bench::draw(painter, frame, random);
    else
        photograph(painter, frame, random);
    painter.restore();
}

} // namespace Kovrel::Bench
