#include "bench/BenchPictures.h"

#include <QPainter>
#include <QRandomGenerator>

#include <cmath>

namespace Kovrel::Bench {

namespace {

const QColor paper(0xFA, 0xFA, 0xFA);
const QColor ink(0x22, 0x22, 0x26);

QString sentence(QRandomGenerator& random, int words)
{
    static const QStringList vocabulary{"the",     "window",  "of",    "a",     "picture",  "shows",    "every",
                                        "colour",  "between", "lines", "which", "people",   "read",     "on",
                                        "their",   "screens", "while", "other", "programs", "wait",     "for",
                                        "answers", "from",    "slow",  "disks", "and",      "networks", "0x1F4A"};
    QStringList chosen;
    for (int word = 0; word < words; ++word)
        chosen << vocabulary[random.bounded(int(vocabulary.size()))];
    return chosen.join(u' ');
}

// Smooth noise between 0 and 1: a lattice of random values, interpolated.
double latticeNoise(double x, double y, quint32 seed)
{
    const auto valueAt = [seed](int column, int row) {
        quint32 hash = quint32(column) * 0x9E3779B1u ^ quint32(row) * 0x85EBCA77u ^ seed;
        hash = (hash ^ (hash >> 15)) * 0x2C1B3C6Du;
        hash = (hash ^ (hash >> 12)) * 0x297A2D39u;
        return double(hash ^ (hash >> 15)) / 4294967295.0;
    };
    const double column = std::floor(x);
    const double row = std::floor(y);
    const double right = (x - column) * (x - column) * (3 - 2 * (x - column));
    const double down = (y - row) * (y - row) * (3 - 2 * (y - row));
    const double top = std::lerp(valueAt(int(column), int(row)), valueAt(int(column) + 1, int(row)), right);
    const double bottom = std::lerp(valueAt(int(column), int(row) + 1), valueAt(int(column) + 1, int(row) + 1), right);
    return std::lerp(top, bottom, down);
}

// Octaves of noise over a gradient, with the grain of a sensor.
QImage photograph(QSize size, double grain)
{
    QImage image(size, QImage::Format_RGB32);
    QRandomGenerator random(7);
    for (int y = 0; y < size.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < size.width(); ++x) {
            double light = 0.35 + 0.3 * y / size.height();
            double weight = 0.35;
            for (int octave = 0; octave < 6; ++octave, weight *= 0.55)
                light += weight * (latticeNoise(x * (1 << octave) / 400.0, y * (1 << octave) / 400.0, octave) - 0.5);
            const double value = 255 * light + grain * (random.generateDouble() - 0.5);
            const auto level = [](double channel) { return int(qBound(0.0, channel, 255.0)); };
            line[x] = qRgb(level(value * 0.95 + 6), level(value), level(value * 0.8 + 40));
        }
    }
    return image;
}

void drawParagraphs(QPainter& painter, const QRect& area, int pixelSize, const QString& family,
                    QRandomGenerator& random)
{
    QFont font(family);
    font.setPixelSize(pixelSize);
    painter.setFont(font);
    for (int y = area.top() + pixelSize; y < area.bottom(); y += pixelSize * 3 / 2)
        if (random.bounded(8) != 0)
            painter.drawText(area.left(), y, sentence(random, area.width() / (pixelSize * 4)));
}

void drawIcons(QPainter& painter, const QRect& bar, QRandomGenerator& random)
{
    const int side = bar.height() * 3 / 4;
    for (int x = bar.left() + side; x + side < bar.right(); x += side * 2) {
        const QColor colour = QColor::fromHsv(random.bounded(360), 160, 220);
        QLinearGradient shine(0, bar.top(), 0, bar.bottom());
        shine.setColorAt(0, colour.lighter(130));
        shine.setColorAt(1, colour.darker(130));
        painter.setPen(Qt::NoPen);
        painter.setBrush(shine);
        painter.drawRoundedRect(QRect(x, bar.center().y() - side / 2, side, side), side / 5.0, side / 5.0);
    }
}

void drawWindow(QPainter& painter, const QRect& frame, bool isDark, QRandomGenerator& random)
{
    const QColor background = isDark ? QColor(0x1E, 0x1F, 0x24) : paper;
    painter.fillRect(frame, background);
    const QRect title(frame.left(), frame.top(), frame.width(), 48);
    painter.fillRect(title, isDark ? QColor(0x30, 0x32, 0x38) : QColor(0xE4, 0xE4, 0xE8));
    drawIcons(painter, title.adjusted(frame.width() / 2, 6, 0, -6), random);
    painter.setPen(isDark ? QColor(0xD8, 0xDE, 0xE9) : ink);
    drawParagraphs(painter, frame.adjusted(24, 72, -24, -16), isDark ? 22 : 26,
                   isDark ? "DejaVu Sans Mono" : "DejaVu Sans", random);
    painter.setPen(QColor(0x80, 0x80, 0x88));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(frame.adjusted(0, 0, -1, -1));
}

QImage filledDesktop(QSize size)
{
    QImage image(size, QImage::Format_RGB32);
    QRandomGenerator random(1);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    QLinearGradient sky(0, 0, size.width(), size.height());
    sky.setColorAt(0, QColor(0x20, 0x3A, 0x60));
    sky.setColorAt(1, QColor(0x70, 0x40, 0x78));
    painter.fillRect(image.rect(), sky);
    const int width = size.width();
    const int height = size.height();
    drawWindow(painter, {width / 40, height / 12, width * 9 / 20, height * 4 / 5}, false, random);
    drawWindow(painter, {width / 2, height / 10, width * 9 / 20, height * 2 / 5}, true, random);
    const QRect viewer(width / 2, height * 11 / 20, width * 9 / 20, height * 2 / 5);
    drawWindow(painter, viewer, true, random);
    painter.drawImage(viewer.topLeft() + QPoint(16, 64), photograph({viewer.width() / 3, viewer.height() - 90}, 6));
    drawIcons(painter, {0, height - 60, width, 60}, random);
    return image;
}

QImage flatDesktop(QSize size)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(QColor(0x2E, 0x34, 0x40));
    QRandomGenerator random(2);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(0, 0, size.width(), 56, QColor(0x1B, 0x1E, 0x25));
    drawIcons(painter, {0, 0, size.width() / 2, 56}, random);
    painter.setPen(paper);
    drawParagraphs(painter, {size.width() * 3 / 4, 8, size.width() / 5, 40}, 26, "DejaVu Sans", random);
    return image;
}

QImage pageOfText(QSize size)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::white);
    QRandomGenerator random(3);
    QPainter painter(&image);
    painter.setPen(Qt::black);
    drawParagraphs(painter, image.rect().adjusted(80, 60, -80, -60), 28, "DejaVu Serif", random);
    return image;
}

QImage mosaicOfWindows(QSize size)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(QColor(0x50, 0x60, 0x70));
    QRandomGenerator random(4);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    constexpr int columns = 4;
    constexpr int rows = 3;
    const QSize cell(size.width() / columns, size.height() / rows);
    for (int index = 0; index < columns * rows; ++index) {
        const QPoint corner(index % columns * cell.width(), index / columns * cell.height());
        drawWindow(painter, QRect(corner, cell).adjusted(6, 6, -6, -6), index % 3 == 0, random);
    }
    return image;
}

} // namespace

std::vector<Picture> pictures(QSize size)
{
    return {{"filled desktop", filledDesktop(size)},
            {"flat desktop", flatDesktop(size)},
            {"page of text", pageOfText(size)},
            {"mosaic of windows", mosaicOfWindows(size)},
            {"photograph", photograph(size, 6)}};
}

} // namespace Kovrel::Bench
