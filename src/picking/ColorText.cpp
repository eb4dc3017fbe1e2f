#include "picking/ColorText.h"

#include "imaging/OklabColor.h"
#include "model/HexColor.h"

#include <cmath>
#include <numbers>

namespace Kovrel {

namespace {

// Without zeros that say nothing.
QString rounded(double value, int decimals)
{
    const double power = std::pow(10, decimals);
    return QString::number(std::round(value * power) / power);
}

QString rgb(const QColor& color)
{
    return QString("rgb(%1, %2, %3)").arg(color.red()).arg(color.green()).arg(color.blue());
}

QString hsl(const QColor& color)
{
    const double hue = std::max(0.0, double(color.hslHueF())); // grey has none
    return QString("hsl(%1, %2%, %3%)")
        .arg(int(std::lround(360 * hue)) % 360)
        .arg(std::lround(100 * color.hslSaturationF()))
        .arg(std::lround(100 * color.lightnessF()));
}

QString oklch(const QColor& color)
{
    constexpr double grey = 0.0005; // less chroma than is written, and then any hue would be noise
    const OklabColor lab = OklabColor::of(color);
    const double chroma = std::hypot(lab.a, lab.b);
    const double degrees = std::atan2(lab.b, lab.a) * 180 / std::numbers::pi;
    const double hue = chroma < grey ? 0 : std::fmod(degrees + 360, 360);
    return QString("oklch(%1% %2 %3)").arg(rounded(100 * lab.lightness, 1), rounded(chroma, 3), rounded(hue, 1));
}

} // namespace

QString ColorText::of(const QString& hex, ColorNotation notation)
{
    const QColor color = HexColor::parse(hex).value_or(QColor(Qt::black));
    switch (notation) {
    case ColorNotation::hex:
        return HexColor::text(color);
    case ColorNotation::rgb:
        return rgb(color);
    case ColorNotation::hsl:
        return hsl(color);
    case ColorNotation::oklch:
        return oklch(color);
    }
    Q_UNREACHABLE();
}

QString ColorText::widest(ColorNotation notation)
{
    switch (notation) {
    case ColorNotation::hex:
        return "#DDDDDD";
    case ColorNotation::rgb:
        return "rgb(200, 200, 200)";
    case ColorNotation::hsl:
        return "hsl(200, 100%, 50%)";
    case ColorNotation::oklch:
        return "oklch(50.0% 0.200 200.0)";
    }
    Q_UNREACHABLE();
}

ColorNotation ColorText::next(ColorNotation notation)
{
    const auto& table = RawStrings<ColorNotation>::table;
    return table[(size_t(notation) + 1) % table.size()].first;
}

} // namespace Kovrel
