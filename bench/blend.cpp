// blend: bench_blend FILE compares the blend modes with a table of exact results: a CSV of mode, straight backdrop and
// source (br … sa), and premultiplied results (oa, pr, pg, pb). Ends with 1 when a result is too far off.

#include "imaging/BlendMode.h"

#include <QFile>
#include <QImage>
#include <QMap>
#include <QPainter>
#include <QStringList>

#include <array>
#include <cstdio>

using namespace Kovrel;

namespace {

const QMap<QString, BlendMode> modes{
    {"multiply", BlendMode::multiply}, {"color", BlendMode::color}, {"plus-lighter", BlendMode::plusLighter}};

QRgb blended(QRgb backdrop, QRgb source, BlendMode mode)
{
    QImage image(1, 1, QImage::Format_ARGB32_Premultiplied);
    image.setPixel(0, 0, backdrop);
    QPainter painter(&image);
    QPainterPath path;
    path.addRect(0, 0, 1, 1);
    Blending::fillPaths(painter, {path}, QColor::fromRgba(source), mode);
    return *reinterpret_cast<const QRgb*>(image.constScanLine(0));
}

// Rounded once, as a translucent picture holds it.
QRgb premultiplied(const std::array<int, 4>& c)
{
    const auto channel = [&](size_t index) { return (c[index] * c[3] * 2 + 255) / 510; };
    return qRgba(channel(0), channel(1), channel(2), c[3]);
}

int difference(QRgb one, QRgb other)
{
    return std::max({std::abs(qRed(one) - qRed(other)), std::abs(qGreen(one) - qGreen(other)),
                     std::abs(qBlue(one) - qBlue(other)), std::abs(qAlpha(one) - qAlpha(other))});
}

// By how opaque the two are: how many, and how far off at most.
struct Group {
    const char* name;
    int mostAllowed;
    int count = 0;
    int most = 0;
};

} // namespace

int main(int argc, char** argv)
{
    QFile file(argc > 1 ? argv[1] : "");
    if (!file.open(QIODevice::ReadOnly)) {
        std::fprintf(stderr, "bench_blend FILE\n");
        return 2;
    }
    std::array groups{Group{"both opaque", 0}, Group{"translucent on opaque", 1}, Group{"both translucent", 2}};
    file.readLine();
    while (!file.atEnd()) {
        const QStringList fields = QString::fromUtf8(file.readLine()).split(',');
        const auto four = [&](qsizetype from) {
            return std::array{fields[from].toInt(), fields[from + 1].toInt(), fields[from + 2].toInt(),
                              fields[from + 3].toInt()};
        };
        const auto backdrop = four(1);
        const auto source = four(5);
        const QRgb expected = qRgba(fields[13].toInt(), fields[14].toInt(), fields[15].toInt(), fields[12].toInt());
        const QRgb result =
            blended(premultiplied(backdrop), qRgba(source[0], source[1], source[2], source[3]), modes[fields[0]]);
        Group& group = groups[backdrop[3] < 255 ? 2 : source[3] < 255 ? 1 : 0];
        ++group.count;
        group.most = std::max(group.most, difference(result, expected));
    }
    bool isGood = true;
    for (const auto& [name, mostAllowed, count, most] : groups) {
        std::printf("%-22s %4d cases, at most %d levels off (may be %d)\n", name, count, most, mostAllowed);
        isGood &= count > 0 && most <= mostAllowed;
    }
    return isGood ? 0 : 1;
}
