// render_icon SVG SIZE PNG: draws an icon at one of the sizes that desktops ask for.

#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

int main(int argc, char** argv)
{
    if (argc != 4)
        return 2;
    QSvgRenderer drawing(QString::fromLocal8Bit(argv[1]));
    const int size = atoi(argv[2]);
    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    drawing.render(&painter);
    painter.end();
    return drawing.isValid() && image.save(QString::fromLocal8Bit(argv[3]), "png") ? 0 : 1;
}
