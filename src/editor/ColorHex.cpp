#include "editor/ColorHex.h"

#include <algorithm>

namespace Kovrel {

namespace {

bool isHexDigit(QChar character)
{
    const char16_t code = character.toLower().unicode();
    return (code >= '0' && code <= '9') || (code >= 'a' && code <= 'f');
}

} // namespace

std::optional<QColor> ColorHex::color(QStringView hex)
{
    const QStringView digits = hex.startsWith(u'#') ? hex.mid(1) : hex;
    if ((digits.size() != 6 && digits.size() != 8) || !std::ranges::all_of(digits, isHexDigit))
        return std::nullopt;
    const quint32 value = digits.toUInt(nullptr, 16);
    if (digits.size() == 6)
        return QColor(QRgb(value));
    QColor color(QRgb(value >> 8));
    color.setAlpha(int(value & 0xff));
    return color;
}

QString ColorHex::hex(const QColor& color)
{
    const auto digits = [](int value) { return QString::number(value, 16).rightJustified(2, '0').toUpper(); };
    const QString opaque = "#" + digits(color.red()) + digits(color.green()) + digits(color.blue());
    return color.alpha() == 255 ? opaque : opaque + digits(color.alpha());
}

} // namespace Kovrel
