#include "platform/recognisers/codes/PayloadText.h"

#include <QStringDecoder>

#include <ZXing/Content.h>

#include <algorithm>

namespace Kovrel {

namespace {

bool isText(QChar unit)
{
    constexpr QStringView allowed = u"\t\n\r\x04\x1C\x1D\x1E\x1F";
    return unit != QChar::ReplacementCharacter && (unit.category() != QChar::Other_Control || allowed.contains(unit));
}

QString guessed(const QByteArray& bytes)
{
    ZXing::ByteArray content;
    content.assign(bytes.begin(), bytes.end());
    const ZXing::SymbologyIdentifier qrCode{'Q', '1', 1};
    return QString::fromStdString(ZXing::Content(std::move(content), qrCode).utf8());
}

} // namespace

std::optional<QString> PayloadText::utf8(const QByteArray& bytes)
{
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString text = decoder(bytes);
    return decoder.hasError() || text.isEmpty() ? std::nullopt : std::optional(text);
}

std::optional<QString> PayloadText::decoded(const QByteArray& bytes)
{
    const auto text = utf8(bytes);
    return text ? text : checked(guessed(bytes));
}

std::optional<QString> PayloadText::checked(const QString& text)
{
    const bool isValid = !text.isEmpty() && text.isValidUtf16() && std::ranges::all_of(text, isText);
    return isValid ? std::optional(text) : std::nullopt;
}

} // namespace Kovrel
