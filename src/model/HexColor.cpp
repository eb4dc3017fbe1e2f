#include "model/HexColor.h"

#include <algorithm>

namespace Kovrel {

namespace {

bool isHexDigit(QChar character)
{
    const char16_t c = character.toLower().unicode();
    return (c >= u'0' && c <= u'9') || (c >= u'a' && c <= u'f');
}

} // namespace

std::optional<QColor> HexColor::parse(QStringView text)
{
    if (text.startsWith(u'#'))
        text = text.sliced(1);
    if ((text.size() != 6 && text.size() != 8) || !std::ranges::all_of(text, isHexDigit))
        return std::nullopt;
    const auto channel = [&](qsizetype index) { return text.sliced(2 * index, 2).toInt(nullptr, 16); };
    return QColor(channel(0), channel(1), channel(2), text.size() == 8 ? channel(3) : 255);
}

QString HexColor::text(const QColor& color)
{
    const QString opaque = color.name(QColor::HexRgb).toUpper();
    return color.alpha() == 255 ? opaque : opaque + QString("%1").arg(color.alpha(), 2, 16, QChar(u'0')).toUpper();
}

} // namespace Kovrel
