#include "imaging/BlendMode.h"

#include "imaging/PainterPixels.h"

#include <QImage>

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace Kovrel {

using Blending::Rgba;

namespace {

// --- Non-separable: W3C Compositing and Blending Level 1, section 10.2

float luminosity(const Rgba& c)
{
    return 0.3f * c.red + 0.59f * c.green + 0.11f * c.blue;
}

Rgba clipped(const Rgba& c)
{
    const float light = luminosity(c);
    const float least = std::min({c.red, c.green, c.blue});
    const float most = std::max({c.red, c.green, c.blue});
    const auto fit = [&](float value) {
        if (least < 0)
            value = light + (value - light) * light / (light - least);
        if (most > 1)
            value = light + (value - light) * (1 - light) / (most - light);
        return value;
    };
    return {fit(c.red), fit(c.green), fit(c.blue), 1};
}

// The hue and saturation of one colour with the luminosity of another.
Rgba withLuminosity(const Rgba& c, float light)
{
    const float more = light - luminosity(c);
    return clipped({c.red + more, c.green + more, c.blue + more, 1});
}

Rgba mixed(const Rgba& backdrop, const Rgba& source, BlendMode mode)
{
    if (mode == BlendMode::normal)
        return source;
    if (mode == BlendMode::color)
        return withLuminosity(source, luminosity(backdrop));
    return {backdrop.red * source.red, backdrop.green * source.green, backdrop.blue * source.blue, 1};
}

Rgba plusLighter(const Rgba& backdrop, const Rgba& source)
{
    const auto sum = [&](float below, float above) { return std::min(1.0f, below + above * source.alpha); };
    return {sum(backdrop.red, source.red), sum(backdrop.green, source.green), sum(backdrop.blue, source.blue),
            std::min(1.0f, backdrop.alpha + source.alpha)};
}

// --- Pixels

Rgba fromPixel(QRgb pixel)
{
    constexpr float step = 1.0f / 255;
    return {float(qRed(pixel)) * step, float(qGreen(pixel)) * step, float(qBlue(pixel)) * step,
            float(qAlpha(pixel)) * step};
}

QRgb toPixel(const Rgba& c)
{
    const auto level = [](float value) { return int(value * 255 + 0.5f); };
    const int alpha = level(c.alpha);
    const auto colour = [&](float value) { return std::min(level(value), alpha); };
    return qRgba(colour(c.red), colour(c.green), colour(c.blue), alpha);
}

// --- Coverage, in bands: a slanting stroke leaves most of the rectangle around it alone

constexpr int bandHeight = 64;

// In pixels of the device.
struct PlacedPath {
    QPainterPath path;
    QRect bounds;
};

std::vector<PlacedPath> placed(const std::vector<QPainterPath>& paths, const QTransform& toDevice)
{
    std::vector<PlacedPath> result;
    for (const QPainterPath& path : paths) {
        const QPainterPath mapped = toDevice.map(path);
        result.push_back({mapped, mapped.boundingRect().toAlignedRect()});
    }
    return result;
}

// How much of each pixel of `area` the paths cover together. A null image where none comes near.
QImage coverageOf(const std::vector<PlacedPath>& paths, const QRect& area)
{
    const auto isNear = [&](const PlacedPath& each) { return each.bounds.intersects(area); };
    if (std::ranges::none_of(paths, isNear))
        return {};
    QImage coverage(area.size(), QImage::Format_Alpha8);
    coverage.fill(0);
    QPainter painter(&coverage);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(-area.topLeft());
    for (const PlacedPath& each : paths)
        if (isNear(each))
            painter.fillPath(each.path, Qt::black);
    return coverage;
}

// The first place from `x` on that is not a run of eight uncovered pixels.
int pastUncovered(const uchar* coverage, int x, int count)
{
    for (std::uint64_t eight = 0; x + 8 <= count; x += 8) {
        std::memcpy(&eight, coverage + x, 8);
        if (eight != 0)
            break;
    }
    return x;
}

void blendRow(QRgb* pixels, const uchar* coverage, int count, Rgba source, BlendMode mode, QRgb opaque)
{
    const float alpha = source.alpha / 255;
    for (int x = pastUncovered(coverage, 0, count); x < count; ++x) {
        if (coverage[x] == 0) {
            x = pastUncovered(coverage, x + 1, count) - 1;
            continue;
        }
        source.alpha = alpha * float(coverage[x]);
        pixels[x] = toPixel(Blending::blended(fromPixel(pixels[x] | opaque), source, mode));
    }
}

// Nothing for another device, and for an image of another format.
QImage* imageOf(const QPainter& painter)
{
    if (painter.device()->devType() != QInternal::Image)
        return nullptr;
    auto* const image = static_cast<QImage*>(painter.device());
    const bool isBlendable =
        image->format() == QImage::Format_RGB32 || image->format() == QImage::Format_ARGB32_Premultiplied;
    return isBlendable ? image : nullptr;
}

} // namespace

Rgba Blending::blended(Rgba backdrop, Rgba source, BlendMode mode)
{
    if (mode == BlendMode::plusLighter)
        return plusLighter(backdrop, source);
    Rgba straight{0, 0, 0, 1};
    if (backdrop.alpha > 0)
        straight = {backdrop.red / backdrop.alpha, backdrop.green / backdrop.alpha, backdrop.blue / backdrop.alpha, 1};
    const Rgba both = mixed(straight, source, mode);
    const auto component = [&](float below, float above, float mix) {
        return source.alpha * ((1 - backdrop.alpha) * above + backdrop.alpha * mix) + (1 - source.alpha) * below;
    };
    return {component(backdrop.red, source.red, both.red), component(backdrop.green, source.green, both.green),
            component(backdrop.blue, source.blue, both.blue), source.alpha + backdrop.alpha * (1 - source.alpha)};
}

void Blending::fillPaths(QPainter& painter, const std::vector<QPainterPath>& paths, const QColor& color, BlendMode mode)
{
    QImage* const device = imageOf(painter);
    if (!device)
        return;
    QImage& image = *device;
    const std::vector<PlacedPath> placedPaths = placed(paths, painter.combinedTransform());
    QRect bounds;
    for (const PlacedPath& each : placedPaths)
        bounds |= each.bounds;
    const QRect area = bounds & PainterPixels::clip(painter);
    const Rgba source{color.redF(), color.greenF(), color.blueF(), color.alphaF()};
    const QRgb opaque = image.format() == QImage::Format_RGB32 ? 0xff000000 : 0;
    for (int top = area.top(); top <= area.bottom(); top += bandHeight) {
        const QRect band = QRect(area.x(), top, area.width(), bandHeight) & area;
        const QImage coverage = coverageOf(placedPaths, band);
        for (int y = 0; y < coverage.height(); ++y) {
            auto* const row = reinterpret_cast<QRgb*>(image.scanLine(top + y));
            blendRow(row + area.x(), coverage.constScanLine(y), area.width(), source, mode, opaque);
        }
    }
}

} // namespace Kovrel
