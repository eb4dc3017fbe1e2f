#include "ui/Symbols.h"

#include "ui/SymbolIconEngine.h"

#include <QPainter>
#include <QPainterPath>

namespace Kovrel {

namespace {

// All paths are in a unit box, y down.

QPainterPath lines(std::initializer_list<QPointF> points)
{
    QPainterPath path(*points.begin());
    for (const QPointF& point : points)
        path.lineTo(point);
    return path;
}

QPainterPath checkmark()
{
    return lines({{0.08, 0.55}, {0.38, 0.85}, {0.92, 0.18}});
}

QPainterPath timer()
{
    QPainterPath path;
    path.addEllipse(QRectF(0.08, 0.16, 0.84, 0.84));
    path.addPath(lines({{0.5, 0.58}, {0.5, 0.32}}));
    path.addPath(lines({{0.38, 0.0}, {0.62, 0.0}}));
    return path;
}

QPainterPath warningTriangle()
{
    QPainterPath path = lines({{0.5, 0.06}, {0.98, 0.92}, {0.02, 0.92}, {0.5, 0.06}});
    path.addPath(lines({{0.5, 0.36}, {0.5, 0.6}}));
    path.addPath(lines({{0.5, 0.75}, {0.5, 0.76}}));
    return path;
}

QPainterPath informationCircle()
{
    QPainterPath path;
    path.addEllipse(QRectF(0, 0, 1, 1));
    path.addPath(lines({{0.5, 0.45}, {0.5, 0.75}}));
    path.addPath(lines({{0.5, 0.25}, {0.5, 0.26}}));
    return path;
}

QPainterPath clipboard()
{
    QPainterPath path;
    path.addRoundedRect(QRectF(0.14, 0.12, 0.72, 0.86), 0.1, 0.1);
    path.addRoundedRect(QRectF(0.34, 0.0, 0.32, 0.2), 0.06, 0.06);
    path.addPath(lines({{0.32, 0.48}, {0.68, 0.48}}));
    path.addPath(lines({{0.32, 0.7}, {0.58, 0.7}}));
    return path;
}

QPainterPath textFrame()
{
    QPainterPath path;
    path.addPath(lines({{0.0, 0.25}, {0.0, 0.0}, {0.25, 0.0}}));
    path.addPath(lines({{0.75, 0.0}, {1.0, 0.0}, {1.0, 0.25}}));
    path.addPath(lines({{1.0, 0.75}, {1.0, 1.0}, {0.75, 1.0}}));
    path.addPath(lines({{0.25, 1.0}, {0.0, 1.0}, {0.0, 0.75}}));
    path.addPath(lines({{0.25, 0.36}, {0.75, 0.36}}));
    path.addPath(lines({{0.25, 0.62}, {0.6, 0.62}}));
    return path;
}

QPainterPath qrCode()
{
    QPainterPath path;
    for (const QPointF& corner : {QPointF(0, 0), QPointF(0.6, 0), QPointF(0, 0.6)})
        path.addRect(QRectF(corner, QSizeF(0.4, 0.4)));
    path.addPath(lines({{0.62, 0.62}, {0.8, 0.62}, {0.8, 0.8}, {1.0, 0.8}, {1.0, 1.0}}));
    return path;
}

QPainterPath pathNamed(const QString& name)
{
    if (name == "checkmark")
        return checkmark();
    if (name == "timer")
        return timer();
    if (name == Symbols::warning)
        return warningTriangle();
    if (name == Symbols::information)
        return informationCircle();
    if (name == "doc.on.clipboard.fill")
        return clipboard();
    if (name == "text.viewfinder")
        return textFrame();
    if (name == "qrcode")
        return qrCode();
    QPainterPath dot;
    dot.addEllipse(QRectF(0.35, 0.35, 0.3, 0.3));
    return dot;
}

} // namespace

void Symbols::paint(QPainter& painter, const QString& name, const QRectF& box, const QColor& color)
{
    painter.save();
    painter.translate(box.topLeft());
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(color, box.width() / 9, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPath(QTransform::fromScale(box.width(), box.height()).map(pathNamed(name)));
    painter.restore();
}

QIcon Symbols::icon(const QString& name)
{
    return QIcon(new SymbolIconEngine(name));
}

} // namespace Kovrel
