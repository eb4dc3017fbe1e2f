#include "ui/tokens/Typography.h"

#include <QFontInfo>
#include <QGuiApplication>

#include <algorithm>
#include <cmath>

namespace Kovrel {

namespace {

// Desktops set their texts 12 to 15 pixels high; these sizes are meant for this one.
constexpr double usualHeight = 13;

struct Type {
    double size; // in points of the screen
    QFont::Weight weight;
};

Type typeOf(TextStyle style)
{
    switch (style) {
    case TextStyle::headline:
        return {22, QFont::Bold};
    case TextStyle::emphasis:
        return {14, QFont::DemiBold};
    case TextStyle::control:
        return {14, QFont::Normal};
    case TextStyle::body:
        return {13, QFont::Normal};
    case TextStyle::caption:
        return {12, QFont::Normal};
    }
    Q_UNREACHABLE();
}

} // namespace

double Typography::scale()
{
    return std::max(1.0, QFontInfo(QGuiApplication::font()).pixelSize() / usualHeight);
}

QFont Typography::font(TextStyle style)
{
    const Type type = typeOf(style);
    QFont font = QGuiApplication::font();
    font.setPixelSize(int(std::lround(type.size * scale())));
    font.setWeight(type.weight);
    return font;
}

} // namespace Kovrel
