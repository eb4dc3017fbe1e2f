#include "overlay/OverlayMetrics.h"

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

constexpr Pill label{OverlayTokens::labelText, OverlayTokens::labelPadding, OverlayTokens::labelHeight};
constexpr Pill hint{OverlayTokens::hintText, OverlayTokens::hintPadding, OverlayTokens::hintHeight};

const Pill& pillOf(OverlayDecoration::Kind kind)
{
    return kind == OverlayDecoration::Kind::hint ? hint : label;
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
    return {int(std::ceil(width + 2 * pillOf(kind).padding * scale)), int(std::lround(pillOf(kind).height * scale))};
}

} // namespace Kovrel
