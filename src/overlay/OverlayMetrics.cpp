#include "overlay/OverlayMetrics.h"

#include "overlay/OverlayPlacement.h"
#include "ui/tokens/OverlayTokens.h"

#include <QFontDatabase>
#include <QFontMetricsF>

#include <algorithm>
#include <cmath>

namespace Kovrel {

namespace {

// In points.
struct Pill {
    double text;
    double padding;
    double height;
};

constexpr Pill labelPill{OverlayTokens::labelText, OverlayTokens::labelPadding, OverlayTokens::labelHeight};
constexpr Pill hintPill{OverlayTokens::hintText, OverlayTokens::hintPadding, OverlayTokens::hintHeight};

const Pill& pillOf(OverlayDecoration::Kind kind)
{
    return kind == OverlayDecoration::Kind::hint ? hintPill : labelPill;
}

} // namespace

int OverlayMetrics::pixels(double points, double scale)
{
    return std::max(1, int(std::lround(points * scale)));
}

QFont OverlayMetrics::pillFont(OverlayDecoration::Kind kind, double scale)
{
    QFont font = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
    font.setPixelSize(int(std::lround(pillOf(kind).text * scale)));
    font.setWeight(QFont::Medium);
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setStyleStrategy(QFont::NoSubpixelAntialias);
    return font;
}

QSize OverlayMetrics::pillSize(OverlayDecoration::Kind kind, const QString& text, double scale)
{
    const double width = QFontMetricsF(pillFont(kind, scale)).horizontalAdvance(text);
    const double swatch = kind == OverlayDecoration::Kind::colorLabel ? swatchWidth(scale) : 0;
    return {int(std::ceil(width + swatch + 2 * pillOf(kind).padding * scale)),
            int(std::lround(pillOf(kind).height * scale))};
}

double OverlayMetrics::swatchWidth(double scale)
{
    return (OverlayTokens::swatch + OverlayTokens::swatchGap) * scale;
}

OverlayDecoration OverlayMetrics::hint(const QString& text, const Display& display)
{
    using Kind = OverlayDecoration::Kind;
    const QSize size = pillSize(Kind::hint, text, display.scale);
    const int fromBottom = pixels(OverlayTokens::hintFromBottom, display.scale);
    return {Kind::hint, OverlayPlacement::atBottom(size, fromBottom, display.pixelRect), display.scale, text};
}

} // namespace Kovrel
