#include "model/text/TextFolding.h"

#include <algorithm>
#include <array>

namespace Kovrel {

namespace {

constexpr char16_t firstLetter = 0x00C0;
constexpr char16_t lastLetter = 0x024F;
using Table = std::array<char16_t, lastLetter - firstLetter + 1>;

// The marks go before the lower case: İ in lower case is two code points.
QString withoutMarks(QChar letter)
{
    QString parts = QString(letter).normalized(QString::NormalizationForm_D);
    parts.removeIf([](QChar part) { return part.category() == QChar::Mark_NonSpacing; });
    return parts.toLower();
}

Table makeConfusables()
{
    Table table{};
    for (char16_t letter = firstLetter; letter <= lastLetter; ++letter) {
        const QString folded = withoutMarks(QChar(letter));
        table[size_t(letter - firstLetter)] = folded.size() == 1 ? folded.front().unicode() : letter;
    }
    return table;
}

QChar folded(QChar unit)
{
    static const Table confusables = makeConfusables();
    const char16_t code = unit.unicode();
    return code >= firstLetter && code <= lastLetter ? QChar(confusables[size_t(code - firstLetter)]) : unit;
}

bool isAscii(const QString& text)
{
    return std::ranges::all_of(text, [](QChar unit) { return unit.unicode() < 0x80; });
}

} // namespace

QString TextFolding::fold(const QString& text)
{
    if (isAscii(text))
        return text;
    QString result = text;
    std::ranges::transform(text, result.begin(), folded);
    return result;
}

QString TextFolding::comparable(const QString& text)
{
    if (isAscii(text))
        return text.toLower();
    return fold(fold(text.normalized(QString::NormalizationForm_C)).toLower());
}

} // namespace Kovrel
