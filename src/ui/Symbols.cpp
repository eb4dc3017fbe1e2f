#include "ui/Symbols.h"

#include "ui/EditorSymbols.h"
#include "ui/SymbolIconEngine.h"
#include "ui/SymbolPaths.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>

namespace Kovrel {

namespace {

using SymbolPaths::lines;

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

QPainterPath cross()
{
    QPainterPath path = lines({{0.05, 0.05}, {0.95, 0.95}});
    path.addPath(lines({{0.95, 0.05}, {0.05, 0.95}}));
    return path;
}

QPainterPath crossInCircle()
{
    QPainterPath path = QTransform(0.4, 0, 0, 0.4, 0.3, 0.3).map(cross());
    path.addEllipse(QRectF(0, 0, 1, 1));
    return path;
}

// Three quarters of a turn, with the head of an arrow at its end.
QPainterPath turnedLeft()
{
    const QRectF circle(0.1, 0.14, 0.8, 0.8);
    QPainterPath path;
    path.arcMoveTo(circle, 170);
    path.arcTo(circle, 170, 270);
    QPainterPath head = lines({{0.0, 0.22}, {0.13, 0.5}, {0.4, 0.36}});
    path.addPath(head);
    return path;
}

QPainterPath turnedRight()
{
    return QTransform(-1, 0, 0, 1, 1, 0).map(turnedLeft());
}

QPainterPath eye()
{
    QPainterPath path(QPointF(0, 0.5));
    path.quadTo({0.5, -0.1}, {1, 0.5});
    path.quadTo({0.5, 1.1}, {0, 0.5});
    path.addEllipse(QRectF(0.34, 0.34, 0.32, 0.32));
    return path;
}

QPainterPath struckOut(QPainterPath path)
{
    path.addPath(lines({{0.1, 0.94}, {0.9, 0.06}}));
    return path;
}

QPainterPath closedEye()
{
    return struckOut(eye());
}

QPainterPath envelope()
{
    QPainterPath path;
    path.addRoundedRect(QRectF(0, 0.14, 1, 0.72), 0.08, 0.08);
    path.addPath(lines({{0.04, 0.2}, {0.5, 0.56}, {0.96, 0.2}}));
    return path;
}

QPainterPath corners()
{
    QPainterPath path = lines({{0.6, 0.04}, {0.96, 0.04}, {0.96, 0.4}});
    path.addPath(lines({{0.96, 0.04}, {0.6, 0.4}}));
    path.addPath(lines({{0.4, 0.96}, {0.04, 0.96}, {0.04, 0.6}}));
    path.addPath(lines({{0.04, 0.96}, {0.4, 0.6}}));
    return path;
}

QPainterPath magnifier()
{
    QPainterPath path;
    path.addEllipse(QRectF(0.04, 0.04, 0.66, 0.66));
    path.addPath(lines({{0.62, 0.62}, {0.96, 0.96}}));
    return path;
}

QPainterPath grid()
{
    QPainterPath path;
    for (const QPointF& corner : {QPointF(0, 0), QPointF(0.58, 0), QPointF(0, 0.58), QPointF(0.58, 0.58)})
        path.addRoundedRect(QRectF(corner, QSizeF(0.42, 0.42)), 0.08, 0.08);
    return path;
}

QPainterPath folder()
{
    QPainterPath path = lines({{0.0, 0.3}, {0.0, 0.14}, {0.36, 0.14}, {0.48, 0.3}});
    path.addRoundedRect(QRectF(0, 0.3, 1, 0.6), 0.08, 0.08);
    return path;
}

QPainterPath clock()
{
    QPainterPath path;
    path.addEllipse(QRectF(0, 0, 1, 1));
    path.addPath(lines({{0.5, 0.22}, {0.5, 0.5}, {0.7, 0.62}}));
    return path;
}

QPainterPath photograph()
{
    QPainterPath path;
    path.addRoundedRect(QRectF(0, 0.1, 1, 0.8), 0.1, 0.1);
    path.addEllipse(QRectF(0.18, 0.26, 0.16, 0.16));
    path.addPath(lines({{0.04, 0.78}, {0.36, 0.52}, {0.54, 0.68}, {0.74, 0.44}, {0.96, 0.66}}));
    return path;
}

QPainterPath twoSheets()
{
    QPainterPath path;
    path.addRoundedRect(QRectF(0.3, 0.28, 0.64, 0.7), 0.1, 0.1);
    path.addPath(lines({{0.08, 0.7}, {0.08, 0.06}, {0.66, 0.06}}));
    return path;
}

QPainterPath downIntoTray()
{
    QPainterPath path = lines({{0.5, 0.04}, {0.5, 0.66}});
    path.addPath(lines({{0.26, 0.44}, {0.5, 0.67}, {0.74, 0.44}}));
    path.addPath(lines({{0.06, 0.68}, {0.06, 0.95}, {0.94, 0.95}, {0.94, 0.68}}));
    return path;
}

QPainterPath pencil()
{
    QPainterPath path = lines({{0.06, 0.94}, {0.12, 0.68}, {0.72, 0.08}, {0.92, 0.28}, {0.32, 0.88}, {0.06, 0.94}});
    path.addPath(lines({{0.58, 0.22}, {0.78, 0.42}}));
    return path;
}

QPainterPath drawingPin()
{
    QPainterPath path =
        lines({{0.3, 0.05}, {0.7, 0.05}, {0.66, 0.38}, {0.84, 0.6}, {0.16, 0.6}, {0.34, 0.38}, {0.3, 0.05}});
    path.addPath(lines({{0.5, 0.6}, {0.5, 0.97}}));
    return path;
}

QPainterPath struckPin()
{
    return struckOut(drawingPin());
}

QPainterPath threeDots()
{
    QPainterPath path;
    for (const double x : {0.12, 0.5, 0.88})
        path.addEllipse(QPointF(x, 0.5), 0.045, 0.045);
    return path;
}

QPainterPath snowflake()
{
    QPainterPath path;
    for (const double angle : {30.0, 90.0, 150.0}) {
        const QTransform turned = QTransform().translate(0.5, 0.5).rotate(angle);
        path.addPath(turned.map(lines({{-0.48, 0}, {0.48, 0}})));
        for (const double side : {-1.0, 1.0})
            path.addPath(turned.map(lines({{side * 0.44, -0.13}, {side * 0.28, 0}, {side * 0.44, 0.13}})));
    }
    return path;
}

QPainterPath chevronDown()
{
    return lines({{0.08, 0.3}, {0.5, 0.72}, {0.92, 0.3}});
}

QPainterPath gear()
{
    QPainterPath path;
    path.addEllipse(QPointF(0.5, 0.5), 0.16, 0.16);
    path.addEllipse(QPointF(0.5, 0.5), 0.36, 0.36);
    for (int eighth = 0; eighth < 8; ++eighth)
        path.addPath(QTransform().translate(0.5, 0.5).rotate(45 * eighth).map(lines({{0.38, 0}, {0.5, 0}})));
    return path;
}

QPainterPath viewfinder()
{
    QPainterPath path;
    for (int quarter = 0; quarter < 4; ++quarter)
        path.addPath(QTransform()
                         .translate(0.5, 0.5)
                         .rotate(90 * quarter)
                         .map(lines({{-0.48, -0.2}, {-0.48, -0.4}, {-0.4, -0.48}, {-0.2, -0.48}})));
    path.addEllipse(QPointF(0.5, 0.5), 0.12, 0.12);
    return path;
}

QPainterPath keyboardOutline()
{
    QPainterPath path;
    path.addRoundedRect(QRectF(0, 0.18, 1, 0.64), 0.1, 0.1);
    for (const double x : {0.2, 0.4, 0.6, 0.8})
        path.addPath(lines({{x, 0.38}, {x + 0.01, 0.38}}));
    path.addPath(lines({{0.28, 0.62}, {0.72, 0.62}}));
    return path;
}

QPainterPath speaker()
{
    QPainterPath path =
        lines({{0.0, 0.36}, {0.2, 0.36}, {0.46, 0.12}, {0.46, 0.88}, {0.2, 0.64}, {0.0, 0.64}, {0.0, 0.36}});
    for (const double radius : {0.2, 0.4}) {
        const QRectF circle(0.46 - radius + 0.1, 0.5 - radius, 2 * radius, 2 * radius);
        path.arcMoveTo(circle, 50);
        path.arcTo(circle, 50, -100);
    }
    return path;
}

QPainterPath dot()
{
    QPainterPath path;
    path.addEllipse(QRectF(0.35, 0.35, 0.3, 0.3));
    return path;
}

struct Drawing {
    QLatin1String name;
    QPainterPath (*draw)();
};

constexpr Drawing drawings[] = {
    {QLatin1String("checkmark"), checkmark},
    {QLatin1String("timer"), timer},
    {Symbols::warning, warningTriangle},
    {Symbols::information, informationCircle},
    {QLatin1String("doc.on.clipboard.fill"), clipboard},
    {QLatin1String("text.viewfinder"), textFrame},
    {QLatin1String("qrcode"), qrCode},
    {QLatin1String("xmark"), cross},
    {QLatin1String("xmark.circle"), crossInCircle},
    {QLatin1String("rotate.left"), turnedLeft},
    {QLatin1String("rotate.right"), turnedRight},
    {QLatin1String("eye"), eye},
    {QLatin1String("eye.slash"), closedEye},
    {QLatin1String("envelope"), envelope},
    {QLatin1String("pin.slash"), struckPin},
    {QLatin1String("arrow.up.left.and.arrow.down.right"), corners},
    {QLatin1String("magnifyingglass"), magnifier},
    {QLatin1String("square.grid"), grid},
    {QLatin1String("folder"), folder},
    {QLatin1String("clock"), clock},
    {QLatin1String("photo"), photograph},
    {QLatin1String("doc.on.doc"), twoSheets},
    {QLatin1String("square.and.arrow.down"), downIntoTray},
    {QLatin1String("pencil"), pencil},
    {QLatin1String("pin"), drawingPin},
    {QLatin1String("ellipsis"), threeDots},
    {QLatin1String("snowflake"), snowflake},
    {QLatin1String("chevron.down"), chevronDown},
    {QLatin1String("gearshape"), gear},
    {QLatin1String("viewfinder"), viewfinder},
    {QLatin1String("keyboard"), keyboardOutline},
    {QLatin1String("speaker"), speaker},
};

QPainterPath pathNamed(const QString& name)
{
    const auto* const found = std::ranges::find(drawings, name, &Drawing::name);
    return found == std::end(drawings) ? EditorSymbols::path(name).value_or(dot()) : found->draw();
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
